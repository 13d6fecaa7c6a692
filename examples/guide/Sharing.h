#pragma once

#include "Layers.h"

#include <CInkFloodFillEx>

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace Guide {

struct Person
{
    unsigned int address;
    QString name;
};

// Says who draws an object, and on whose screen this copy of it is.
void setPeople(CInkGraph &object, const Person &drawer, const Person &here);

// Paints the drawer's label where the object has laid it out; an object in progress alone has one.
void paintLabel(QPainter &painter, CInkGraph &object);

// Shows a finished object that still waits for its turn. Page and ink stay as they are.
void showWaiting(Layers &layers, CInkGraph &object);

// Computes a fill that has been pressed on its drawer's screen, and returns it for the others; empty when there is
// nothing to fill. The layers stay as they are.
QByteArray computedFill(CInkFloodFillEx &fill, const Layers &layers);

} // namespace Guide
