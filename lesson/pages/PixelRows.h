#pragma once

#include <QtGui/QImage>

#include <cstddef>

namespace InkLesson {

// The pixels of an image of four bytes each, to be painted on. They are taken once, since QImage makes sure each time
// that they are nobody else's.
class PixelRows
{
public:
    PixelRows(QImage &image)
        : m_first(image.bits())
        , m_perRow(image.bytesPerLine())
    {
    }
    QRgb *row(int y) const { return reinterpret_cast<QRgb *>(m_first + std::ptrdiff_t(y) * m_perRow); }

private:
    uchar *m_first;
    std::ptrdiff_t m_perRow;
};

} // namespace InkLesson
