#pragma once

#include <QtCore/QPointF>
#include <QtCore/QRect>
#include <QtGui/QImage>

#include <cstring>

// Tells what was put in apart, bit for bit: 0.0 and -0.0 are two values.
class Digest
{
public:
    void add(quint64 value)
    {
        constexpr quint64 kPrime = 0x100000001b3;
        m_state = (m_state ^ value) * kPrime;
        m_state ^= m_state >> 29;
    }
    void add(int value) { add(quint64(qint64(value))); }
    void add(double value)
    {
        quint64 bits = 0;
        std::memcpy(&bits, &value, sizeof bits);
        add(bits);
    }
    void add(const QPointF &point)
    {
        add(point.x());
        add(point.y());
    }
    void add(const QRect &rect)
    {
        for (const int edge : {rect.left(), rect.top(), rect.right(), rect.bottom()})
            add(edge);
    }
    void add(const QImage &image)
    {
        for (int y = 0; y < image.height(); ++y) {
            const auto *pixels = reinterpret_cast<const QRgb *>(image.constScanLine(y));
            for (int x = 0; x < image.width(); ++x)
                add(quint64(pixels[x]));
        }
    }

    quint64 value() const { return m_state; }

private:
    quint64 m_state{0xcbf29ce484222325};
};
