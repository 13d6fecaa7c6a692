#include "Bytes.h"

#include <QtCore/QBuffer>

#include <algorithm>
#include <cfloat>
#include <climits>
#include <cmath>
#include <cstring>

namespace Fuzz {

namespace {

constexpr int kNear = 224;  // below it a byte is a number near the canvas
constexpr int kOffset = 40; // of the smallest one below zero

constexpr int kIntegers[] = {INT_MIN,  INT_MIN + 1, INT_MIN / 2, -16777217,   -100000,     -32769,
                             -1000,    1000,        1920,        32768,       65536,       100000,
                             16777217, 1 << 30,     8388608,     INT_MAX / 2, INT_MAX - 1, INT_MAX};

const double kReals[] = {NAN,           HUGE_VAL,     -HUGE_VAL, DBL_MAX,  -DBL_MAX, 1e300, -1e300,    DBL_MIN,
                         5e-324,        1e-9,         -0.0,      0.5,      1e10,     -1e10, 9e15,      2147483647.0,
                         -2147483648.0, 2147483648.0, FLT_MAX,   -FLT_MAX, 1e20,     0.1,   8388608.0, -8388609.0};

template <typename Value, std::size_t Count>
constexpr int count(const Value (&)[Count])
{
    return int(Count);
}

QByteArray encoded(const QImage &image, const char *format)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return buffer.data();
}

} // namespace

Bytes::Bytes(const std::uint8_t *data, std::size_t size)
    : m_next(data)
    , m_end(data + size)
{
}

template <typename Value>
Value Bytes::raw()
{
    Value value{};
    const std::size_t size = std::min(sizeof value, std::size_t(m_end - m_next));
    if (size > 0)
        std::memcpy(&value, m_next, size);
    m_next += size;
    return value;
}

std::uint8_t Bytes::byte()
{
    return isEmpty() ? std::uint8_t(0) : *m_next++;
}

int Bytes::integer()
{
    const int first = byte();
    if (first < kNear)
        return first - kOffset;
    if (first < kNear + count(kIntegers))
        return kIntegers[first - kNear];
    return first & 1 ? raw<std::int32_t>() : raw<std::int16_t>();
}

double Bytes::coordinate()
{
    const int first = byte();
    if (first < kNear)
        return (first - kOffset) * 0.5;
    if (first < kNear + count(kReals))
        return kReals[first - kNear];
    return first & 1 ? raw<double>() : integer();
}

float Bytes::real()
{
    const double value = coordinate();
    if (std::fabs(value) > double(FLT_MAX))
        return std::copysign(HUGE_VALF, float(value > 0 ? 1 : -1));
    return float(value);
}

QRect Bytes::rect()
{
    const QPoint topLeft = point();
    return {topLeft, point()};
}

QSize Bytes::canvasSize()
{
    const int kind = byte();
    if (kind < 240)
        return {kind % 64, byte() % 64};
    if (kind < 241)
        return {1920, 1080};
    switch (kind % 4) {
    case 0:
        return {100000, 100000};
    case 1:
        return {100000, below(16)};
    case 2:
        return {-below(3), integer()};
    default:
        return {below(3), integer()};
    }
}

QColor Bytes::color()
{
    switch (below(8)) {
    case 0:
        return {};
    case 1:
        return QColor(int(byte()), int(byte()), int(byte()), integer());
    case 2:
        return QColor::fromHsvF(byte() / 255.0, byte() / 255.0, byte() / 255.0, byte() / 255.0);
    case 3:
        return QColor::fromCmyk(byte(), byte(), byte(), byte(), byte());
    case 4:
        return QColor(integer(), integer(), integer());
    case 5:
        return QColor(Qt::GlobalColor(below(20)));
    default:
        return QColor::fromRgba(raw<std::uint32_t>());
    }
}

QString Bytes::text()
{
    QString text;
    text.fill(QChar(ushort(raw<std::uint16_t>())), below(80));
    return text;
}

QVector<QPointF> Bytes::points()
{
    QVector<QPointF> points;
    const int size = below(16);
    for (int i = 0; i < size; ++i)
        points.append(pointF());
    const int repeated = byte() >= 250 ? 50 : 0;
    for (int i = 0; i < repeated * size; ++i)
        points.append(points.at(i));
    return points;
}

QImage Bytes::image()
{
    const QSize size(below(64), below(64));
    const auto format = QImage::Format(below(QImage::NImageFormats));
    QImage image(size, format);
    if (!image.isNull())
        image.fill(raw<std::uint32_t>());
    return image;
}

QByteArray Bytes::imageFile()
{
    static const char *const kFormats[] = {"PNG", "BMP", "PPM", "XBM", "XPM", "JPG", "ICO"};
    static const char *const kStarts[] = {"\x89PNG\r\n\x1a\n",
                                          "BM",
                                          "P6\n",
                                          "P5 ",
                                          "P1 ",
                                          "#define x_width ",
                                          "/* XPM */\nstatic char *x[]={",
                                          "\xff\xd8\xff",
                                          "GIF89a",
                                          "<svg width=\"",
                                          ""};
    QByteArray bytes;
    const int kind = below(4);
    if (kind == 0) {
        bytes = encoded(image(), kFormats[below(count(kFormats))]);
        const int changes = bytes.isEmpty() ? 0 : below(8);
        for (int i = 0; i < changes; ++i)
            bytes[int(raw<std::uint16_t>()) % bytes.size()] = char(byte());
        return kind == 0 && flag() ? bytes.left(bytes.size() / 2) : bytes;
    }
    bytes = kStarts[below(count(kStarts))];
    const int wanted = byte(); // first: it is one of those that are left
    const int size = std::min(wanted, int(m_end - m_next));
    bytes.append(reinterpret_cast<const char *>(m_next), size);
    m_next += size;
    return bytes;
}

} // namespace Fuzz
