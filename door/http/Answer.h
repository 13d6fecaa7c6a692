#pragma once

#include <QtCore/QByteArray>

namespace InkDoor {

// What a browser or a program that watches the door is told.
struct HttpAnswer
{
    int status{200};
    QByteArray body;
    QByteArray type{"text/plain; charset=utf-8"};
};

// As it is sent; the connection ends with it. Without its body where only the head was asked for.
QByteArray toBytes(const HttpAnswer &answer, bool isHeadAlone);

} // namespace InkDoor
