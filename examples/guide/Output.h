#pragma once

#include "Layers.h"

class CInkGraph;
class QPainter;
class QString;

namespace Guide {

// Paints the surface, enlarged, with the page's point `origin` at the painter's (0, 0).
void paintZoomed(QPainter &painter, const Layers &layers, double zoom, const QPointF &origin);

// Paints the surface for a screen with `ratio` pixels to a length of 1: none is lost and none is doubled.
void paintSharp(QPainter &painter, const Layers &layers, double ratio);

QImage thumbnail(const Layers &layers, const QSize &within);

// One page of the layers' proportions. False when the file could not be written.
bool writePdf(const QString &path, const Layers &layers);

// Paints a committed object, of those that need no layers, so that `page` fills `target`.
void paintEnlarged(QPainter &painter, CInkGraph &object, const QRect &page, const QRect &target);

} // namespace Guide
