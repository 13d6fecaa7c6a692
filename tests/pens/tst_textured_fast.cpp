// The textured pens and the spray against their plainest form, to the last bit: random strokes, layers and painters.
//
// INK_TEXTURED_CASES sets how many cases are run, INK_TEXTURED_SEED the seed of the first one.

#include "Canvas.h"
#include "Exact.h"
#include "LiteralTextured.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
#include <random>
#include <type_traits>

namespace {

constexpr int kCases = 3'400; // of each of the three pens

unsigned fromEnvironment(const char *name, unsigned otherwise)
{
    const char *value = std::getenv(name);
    return value ? unsigned(std::strtoul(value, nullptr, 10)) : otherwise;
}

class Dice
{
public:
    explicit Dice(unsigned seed)
        : m_engine(seed)
    {
    }

    int between(int low, int high) { return std::uniform_int_distribution<int>(low, high)(m_engine); }
    bool oneIn(int n) { return between(1, n) == 1; }
    double real(double low, double high) { return std::uniform_real_distribution<double>(low, high)(m_engine); }
    QPoint point(int low, int high) { return {between(low, high), between(low, high)}; }
    QRect rect(int low, int high) { return QRect(point(low, high), point(low, high)).normalized(); }
    QColor color() { return {between(0, 255), between(0, 255), between(0, 255), oneIn(3) ? 255 : between(0, 255)}; }

    template <typename Value, size_t Count>
    Value any(const Value (&values)[Count])
    {
        return values[between(0, int(Count) - 1)];
    }

private:
    std::mt19937 m_engine;
};

constexpr QImage::Format kFormats[] = {QImage::Format_ARGB32_Premultiplied,
                                       QImage::Format_RGB32,
                                       QImage::Format_ARGB32,
                                       QImage::Format_RGB16,
                                       QImage::Format_RGB888,
                                       QImage::Format_RGBA8888,
                                       QImage::Format_Grayscale8,
                                       QImage::Format_A2RGB30_Premultiplied};

constexpr QPainter::CompositionMode kModes[] = {
    QPainter::CompositionMode_Clear,         QPainter::CompositionMode_SourceIn,
    QPainter::CompositionMode_DestinationIn, QPainter::CompositionMode_DestinationOver,
    QPainter::CompositionMode_Multiply,      QPainter::CompositionMode_Xor,
    QPainter::CompositionMode_SourceAtop};

// Empty, opaque and translucent pixels in patches.
QImage layer(Dice &dice)
{
    const int most = dice.oneIn(3) ? 90 : 200;
    const QSize size(dice.between(1, most), dice.between(1, most));
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(dice.color());
    for (int i = dice.between(0, 600); i > 0; --i)
        image.setPixel(dice.between(0, size.width() - 1), dice.between(0, size.height() - 1),
                       qPremultiply(dice.color().rgba()));
    return image.convertToFormat(dice.oneIn(2) ? kFormats[0] : dice.any(kFormats));
}

// A painter as a host may hand it in, the same each time for the same dice. Left out is what Qt itself does not paint
// alike twice: the mode Source, and a scaled image that is smoothed, for which pixels beyond the last one are
// read.
void setUp(QPainter &painter, Dice dice, bool smooths)
{
    if (dice.oneIn(4))
        painter.setCompositionMode(dice.any(kModes));
    if (dice.oneIn(4))
        painter.setOpacity(dice.real(0, 1));
    painter.setRenderHint(QPainter::Antialiasing, dice.oneIn(2));
    smooths = smooths || dice.oneIn(2);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, smooths);
    if (dice.oneIn(3))
        painter.setClipRegion(QRegion(dice.rect(-20, 200)) + QRegion(dice.rect(-20, 200)));
    if (dice.oneIn(10))
        painter.setClipRect(QRect(dice.point(-20, 200), dice.point(-20, 200))); // its edges may be in the wrong order
    switch (dice.between(0, 7)) {
    case 0:
        painter.translate(dice.point(-30, 30));
        break;
    case 1:
        painter.translate(dice.between(-30, 30), dice.real(-3, 3));
        break;
    case 2:
        painter.translate(dice.real(-3, 3), dice.between(-30, 30));
        break;
    case 3:
        if (!smooths)
            painter.scale(dice.real(0.4, 3), dice.real(0.4, 3));
        break;
    case 4:
        if (!smooths)
            painter.rotate(dice.between(-180, 180));
        break;
    default:
        break;
    }
    if (dice.oneIn(20)) {
        QPainterPath path;
        path.addEllipse(QRectF(dice.rect(-20, 200)));
        painter.setClipPath(path);
    }
}

QSize canvasSize(Dice &dice)
{
    if (dice.oneIn(300)) // large enough for pages of its own
        return {dice.between(600, 700), dice.between(500, 600)};
    if (dice.oneIn(10)) // a last tile of one pixel
        return {dice.oneIn(2) ? 65 : 161, dice.oneIn(2) ? 65 : 161};
    const int most = dice.oneIn(3) ? 90 : 200;
    return {dice.between(1, most), dice.between(1, most)};
}

void paintDirectly(CInkColorBrush &pen, QPainter &painter)
{
    pen.DrawColorBrushGraph(painter);
}

void paintDirectly(CInkCrayon &pen, QPainter &painter)
{
    pen.DrawCrayonGraph(painter);
}

void paintDirectly(CInkSprayGun &pen, QPainter &painter)
{
    pen.DrawSprayGraph(painter);
}

// One step of a tool's life, and what a host may do to it in between.
template <typename Pen>
void change(Pen &pen, Literal::Texture &texture, Dice &dice)
{
    QRect ignored;
    const QPoint start = dice.point(-20, 220);
    pen.AddPoint(PT_DOWN, start, ignored);
    for (int i = dice.between(0, 4); i > 0; --i)
        pen.AddPoint(PT_MOVE, dice.oneIn(3) ? dice.point(-20, 220) : start + dice.point(-9, 9), ignored);
    if (dice.oneIn(4))
        pen.AddPoint(PT_UP, dice.point(-20, 220), ignored);
    if (dice.oneIn(8))
        pen.MoveGraph(float(dice.between(-20, 20)), float(dice.between(-20, 20)));
    if (!pen.m_pImage)
        return;
    if (dice.oneIn(20))
        pen.SetCanvasSize(QSize(dice.between(1, 100), dice.between(1, 100)));
    if (dice.oneIn(20))
        pen.m_rcCanvas.translate(dice.point(-5, 5));
    if (dice.oneIn(8)) {
        const QPoint dot(dice.between(0, texture.pixels.width() - 1), dice.between(0, texture.pixels.height() - 1));
        const QRgb color = dice.color().rgba();
        pen.m_pImage->setPixel(dot, color);
        texture.pixels.setPixel(dot, color);
    }
}

template <typename Pen>
void compare(Dice &dice)
{
    constexpr bool smooths = std::is_same_v<Pen, CInkColorBrush>; // whatever the painter's hints
    const QSize size = canvasSize(dice);
    Pen pen(size);
    Literal::Texture texture(size);
    pen.SetWidth(dice.between(0, 24));
    pen.SetColor(dice.color());
    QImage fast = layer(dice);
    QImage plain = fast.copy();
    for (int round = dice.between(1, 4); round > 0; --round) {
        change(pen, texture, dice);
        const Dice host = dice;
        QRect rect = dice.oneIn(3) ? QRect(-1000, -1000, 3000, 3000) : dice.rect(-20, 220);
        const bool isDirect = pen.m_pImage && dice.oneIn(3);
        QPainter onPlain(&plain), onFast(&fast);
        setUp(onPlain, host, smooths);
        setUp(onFast, host, smooths);
        if (isDirect) {
            Literal::paint(pen, texture, onPlain);
            paintDirectly(pen, onFast);
        } else {
            Literal::draw(pen, texture, onPlain, rect);
            pen.Draw(onFast, rect);
        }
        ASSERT_EQ(onFast.clipBoundingRect(), onPlain.clipBoundingRect());
    }
    if (fast != plain) {
        FAIL() << samePixels(fast, plain).message();
    }
    if (pen.m_pImage) {
        ASSERT_EQ(*pen.m_pImage, texture.pixels);
    }
}

template <typename Pen>
class TexturedPenFast : public ::testing::Test
{
};

using Pens = ::testing::Types<CInkColorBrush, CInkCrayon, CInkSprayGun>;
TYPED_TEST_SUITE(TexturedPenFast, Pens);

} // namespace

TYPED_TEST(TexturedPenFast, randomStrokesEqualThePlainForm)
{
    const unsigned cases = fromEnvironment("INK_TEXTURED_CASES", kCases);
    const unsigned first = fromEnvironment("INK_TEXTURED_SEED", std::random_device()());
    std::cout << cases << " cases from seed " << first << std::endl;
    for (unsigned seed = first; seed != first + cases; ++seed) {
        SCOPED_TRACE(::testing::Message() << "INK_TEXTURED_CASES=1 INK_TEXTURED_SEED=" << seed);
        Dice dice(seed);
        compare<TypeParam>(dice);
        if (this->HasFatalFailure())
            return;
    }
}

// The layer's format decides: a plain pixel is rounded by whatever is laid over it, a premultiplied one is not.
TEST(TexturedPenFast, emptyPixelsOfTheStrokeRoundPlainLayersAlone)
{
    const struct
    {
        QImage::Format format;
        QRgb before;
        bool isRounded;
    } rows[] = {{QImage::Format_ARGB32, 0x01646464, true},
                {QImage::Format_ARGB32_Premultiplied, 0x01010101, false},
                {QImage::Format_ARGB32_Premultiplied, 0x80402010, false},
                {QImage::Format_RGB32, 0xff646465, false}};
    for (const auto &row : rows) {
        QImage expected(140, 140, row.format);
        for (int y = 0; y < 140; ++y)
            std::fill_n(reinterpret_cast<QRgb *>(expected.scanLine(y)), 140, row.before);
        QImage image = expected.copy();
        CInkSprayGun spray(QSize(140, 140));
        Literal::Texture texture(QSize(140, 140));
        QRect rect = image.rect();
        spray.AddPoint(PT_DOWN, QPoint(2, 2), rect);
        spray.AddPoint(PT_UP, QPoint(2, 2), rect);
        QPainter onExpected(&expected), painter(&image);
        Literal::draw(spray, texture, onExpected, rect);
        spray.Draw(painter, rect);
        for (const QPoint &far : {QPoint(3, 2), QPoint(139, 139), QPoint(40, 2)}) {
            const QRgb after = reinterpret_cast<const QRgb *>(image.constScanLine(far.y()))[far.x()];
            EXPECT_EQ(after != row.before, row.isRounded);
        }
        EXPECT_EQ(image, expected);
        EXPECT_EQ(image.pixel(2, 2), 0xff000000U);
    }
}

// Qt fills a single pixel with its colour instead of compositing it, which comes out one brighter here.
TEST(TexturedPenFast, lonePixelOfTheLastTileIsCompositedLikeTheOthers)
{
    const auto dotAt = [](const QPoint &dot, const QSize &size = {161, 161}) {
        QImage image(size, QImage::Format_ARGB32_Premultiplied);
        image.fill(0xff102030);
        CInkSprayGun spray(size);
        spray.SetColor(QColor(250, 130, 70, 77));
        QRect rect = image.rect();
        spray.AddPoint(PT_DOWN, dot, rect);
        spray.AddPoint(PT_UP, dot, rect);
        QPainter painter(&image);
        painter.setOpacity(0.37);
        spray.Draw(painter, rect);
        painter.end();
        return image.pixel(dot);
    };
    EXPECT_NE(dotAt({5, 5}), 0xff102030U);
    EXPECT_EQ(dotAt({160, 160}), dotAt({5, 5}));
    EXPECT_EQ(dotAt({160, 5}), dotAt({5, 5}));
    EXPECT_EQ(dotAt({0, 16'000}, {1, 16'001}), dotAt({5, 5}));
}

namespace {

// Around a canvas of 60 x 40, partly within reach of it, and far away on each side.
template <typename Pen>
void expectRenderedFromBeside()
{
    Pen pen{QSize(60, 40)};
    pen.m_nWidth = 20;
    pen.m_graphData = {{-9, 20},  {-5, -9},     {30, -8},    {66, -5},     {65, 20},  {64, 46}, {30, 47},
                       {-6, 45},  {-500, -500}, {500, -500}, {500, 500},   {20, 500}, {20, 30}, {-500, 30},
                       {-500, 5}, {1e20, 12},   {30, 1e20},  {-1e20, -10}, {30, 20}};
    Literal::Texture texture({60, 40});
    Literal::render(pen, texture);
    drawn(pen, {60, 40});
    EXPECT_EQ(*pen.m_pImage, texture.pixels);
    EXPECT_EQ(pen.m_nDrawnCount, texture.drawn);
}

} // namespace

TEST(TexturedPenFast, whatReachesInFromBesideTheCanvasIsRendered)
{
    expectRenderedFromBeside<CInkColorBrush>();
    expectRenderedFromBeside<CInkCrayon>();
}

// Segments that cover the whole canvas are left out once they change nothing; others in between change it again.
TEST(TexturedPenFast, pensWiderThanTheCanvasRenderEverySegmentThatChangesIt)
{
    for (const int width : {90, 200, 219, 300, 1000, 32000, 70000, 1000000, 100000000, 2147483647}) {
        for (const QColor &color : {QColor(0, 200, 100), QColor(251, 130, 1), QColor(127, 128, 255)}) {
            SCOPED_TRACE(::testing::Message() << width << ' ' << color.name().toStdString());
            CInkColorBrush pen(QSize(60, 40));
            pen.m_nWidth = width;
            pen.m_color = color;
            for (int i = 0; i < 120; ++i) {
                QPointF point(i % 7 * 10, i % 5 * 10.5); // close together
                if (i % 30 == 29)
                    point = {30 + 0.45 * width, 20}; // at the edge of the disc
                if (i % 30 == 1 || i % 30 == 18)
                    point = pen.m_graphData.last() + QPointF(0, i < 60 ? 0 : 0.0001); // a segment of hardly a length
                pen.m_graphData.append(point);
            }
            Literal::Texture texture({60, 40});
            Literal::render(pen, texture);
            drawn(pen, {60, 40});
            ASSERT_EQ(*pen.m_pImage, texture.pixels);
            EXPECT_EQ(pen.m_nDrawnCount, 119);
        }
    }
}

// A segment of no length paints nothing, which says nothing about the next one.
TEST(TexturedPenFast, segmentOfNoLengthDoesNotEndTheRendering)
{
    CInkColorBrush pen(QSize(60, 40));
    pen.m_nWidth = 1000;
    pen.m_graphData = {{10, 10}, {10, 10}, {20, 31}};
    Literal::Texture texture({60, 40});
    Literal::render(pen, texture);
    drawn(pen, {60, 40});
    EXPECT_EQ(*pen.m_pImage, texture.pixels);
    EXPECT_NEAR(qAlpha(pen.m_pImage->pixel(59, 39)), 159, 1); // 60, 40, 60 and 60 over each other, once
}
