#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QPoint>
#include <QtCore/QPointF>
#include <QtCore/QRect>
#include <QtCore/QSize>
#include <QtCore/QString>
#include <QtCore/QVector>
#include <QtGui/QColor>
#include <QtGui/QImage>

#include <cstddef>
#include <cstdint>

namespace Fuzz {

// Turns an input into values that a host may hand over. After the last byte everything reads as zero.
//
// One byte mostly makes one number, near the canvas; the top of its range stands for the limits of the type and for
// whole numbers that follow in the input.
class Bytes
{
public:
    Bytes(const std::uint8_t *data, std::size_t size);

    bool isEmpty() const { return m_next == m_end; }
    std::uint8_t byte();
    bool flag() { return byte() & 1; }

    // 0 to `count` - 1.
    int below(int count) { return byte() % count; }

    int integer();
    float real();
    double coordinate();
    QPoint point() { return fromTwo<QPoint>(&Bytes::integer); }
    QPointF pointF() { return fromTwo<QPointF>(&Bytes::coordinate); }

    // Any edges, in whichever order.
    QRect rect();

    // Of a canvas: mostly small enough to be made quickly.
    QSize canvasSize();
    QColor color();
    QString text();
    QVector<QPointF> points();

    // Of any format, at most 63 pixels wide and high; null now and then.
    QImage image();

    // A file of an image in some format, or bytes that begin like one.
    QByteArray imageFile();

private:
    template <typename Value, typename Part>
    Value fromTwo(Part (Bytes::*read)())
    {
        const Part first = (this->*read)();
        return {first, (this->*read)()};
    }

    // The next `size` bytes as they stand.
    template <typename Value>
    Value raw();

    const std::uint8_t *m_next;
    const std::uint8_t *m_end;
};

} // namespace Fuzz
