// The crayon as it is painted. How it collects is in tst_textured_pens.cpp.

#include "CInkCrayon.h"
#include "PenStroke.h"

#include <QtGui/QRadialGradient>

#include <gtest/gtest.h>

namespace {

// A trail to render: discs of one point each, some with a second disc.
class Trail
{
public:
    explicit Trail(double width = 20, const QColor &color = QColor(100, 200, 150))
        : m_width(width)
        , m_color(color)
    {
        m_image.fill(Qt::transparent);
    }

    Trail &disc(const QPointF &point)
    {
        QPainterPath path;
        path.addEllipse(QRectF(point.x(), point.y(), m_width, m_width));
        return fill(point, path);
    }

    Trail &discs(const QPointF &point, const QPointF &middle)
    {
        QPainterPath path;
        path.addEllipse(QRectF(point.x(), point.y(), m_width, m_width));
        path.addEllipse(QRectF(middle.x(), middle.y(), m_width, m_width));
        path.setFillRule(Qt::WindingFill);
        return fill(point, path);
    }

    const QImage &image() const { return m_image; }

private:
    Trail &fill(const QPointF &center, const QPainterPath &path)
    {
        QColor ring = m_color, clear = m_color;
        ring.setAlpha(150);
        clear.setAlpha(0);
        QRadialGradient gradient(center, m_width);
        gradient.setColorAt(0.0, clear);
        gradient.setColorAt(0.5, ring);
        gradient.setColorAt(1.0, clear);
        QPainter painter(&m_image);
        painter.fillPath(path, QBrush(gradient));
        return *this;
    }

    double m_width;
    QColor m_color;
    QImage m_image{400, 300, QImage::Format_ARGB32};
};

QImage laidOver(const QImage &cache)
{
    return painted([&](QPainter &painter) { painter.drawImage(0, 0, cache); });
}

const QVector<QPointF> kPath = {{100, 80}, {105, 80}, {110, 85}, {111.5, 90.25}};

// The path painted at once: the middle of each segment belongs to the disc at its start.
Trail pathAtOnce(double width = 20, const QColor &color = QColor(100, 200, 150))
{
    return Trail(width, color)
        .discs({100, 80}, {102.5, 80})
        .discs({105, 80}, {107.5, 82.5})
        .discs({110, 85}, {110.75, 87.625})
        .disc({111.5, 90.25});
}

class Stroke : public CInkCrayon
{
public:
    Stroke()
        : CInkCrayon(QSize(400, 300))
    {
        m_graphData = kPath;
    }
};

} // namespace

TEST(CInkCrayon, newCrayonIsTwentyWideAndGreen)
{
    CInkCrayon crayon(QSize(400, 300));
    EXPECT_EQ(crayon.m_nWidth, 20);
    EXPECT_EQ(crayon.m_color, QColor(100, 200, 150, 255));
}

TEST(CInkCrayon, strokeIsDiscsAtThePointsAndBetweenThem)
{
    for (const int width : {20, 1, 3, 51}) {
        SCOPED_TRACE(width);
        Stroke crayon;
        crayon.SetWidth(width);
        crayon.SetColor(QColor(200, 30, 90, 17));
        const QImage image = drawn(crayon);
        const QImage expected = pathAtOnce(width, QColor(200, 30, 90)).image();
        ASSERT_NE(crayon.m_pImage, nullptr);
        EXPECT_TRUE(samePixels(*crayon.m_pImage, expected));
        EXPECT_TRUE(samePixels(image, laidOver(expected)));
        EXPECT_EQ(crayon.m_nDrawnCount, 4);
    }
}

TEST(CInkCrayon, pointIsTheTopLeftCornerOfItsDiscAndTheMiddleOfItsGradient)
{
    CInkCrayon crayon(QSize(400, 300));
    crayon.m_graphData = {QPointF(100, 100), QPointF(100, 100)};
    drawn(crayon);
    const QImage &image = *crayon.m_pImage;
    EXPECT_EQ(image.pixel(99, 110), 0u);           // left of the disc
    EXPECT_EQ(image.pixel(110, 99), 0u);           // above it
    EXPECT_EQ(image.pixel(102, 102), 0u);          // cut by its round edge
    EXPECT_GT(qAlpha(image.pixel(107, 107)), 150); // 10.6 from the corner: the ring, twice
    EXPECT_LT(qAlpha(image.pixel(113, 113)), 30);  // 19 from it
    EXPECT_EQ(image.pixel(120, 110), 0u);
}

TEST(CInkCrayon, discsAreNotAntialiased)
{
    Stroke crayon;
    const auto calls = paintCalls(crayon);
    ASSERT_EQ(calls.size(), 1);
    EXPECT_FALSE(calls[0].isPath);
    EXPECT_EQ(calls[0].hints, QPainter::TextAntialiasing); // as the painter came
}

TEST(CInkCrayon, widthOfZeroPaintsNothing)
{
    Stroke crayon;
    crayon.SetWidth(0);
    EXPECT_TRUE(isBlank(drawn(crayon)));
    EXPECT_EQ(crayon.m_nDrawnCount, 4);
}

TEST(CInkCrayon, alphaStaysOnTheColor)
{
    for (const int alpha : {0, 10, 150, 255}) {
        Stroke crayon;
        crayon.SetColor(QColor(100, 200, 150, alpha));
        drawn(crayon);
        EXPECT_EQ(crayon.m_color, QColor(100, 200, 150, 150));
        EXPECT_TRUE(samePixels(*crayon.m_pImage, pathAtOnce().image()));
        crayon.SetColor(QColor(1, 2, 3, 4));
        drawn(crayon);
        EXPECT_EQ(crayon.m_color, QColor(1, 2, 3, 150));
    }
}

TEST(CInkCrayon, pictureDependsOnWhenItWasDrawn)
{
    CInkCrayon crayon(QSize(400, 300));
    crayon.m_graphData = kPath.mid(0, 2);
    drawn(crayon);
    EXPECT_EQ(crayon.m_nDrawnCount, 2);
    Trail trail;
    trail.discs({100, 80}, {102.5, 80}).disc({105, 80});
    EXPECT_TRUE(samePixels(*crayon.m_pImage, trail.image()));

    crayon.m_graphData = kPath.mid(0, 3);
    drawn(crayon);
    EXPECT_EQ(crayon.m_nDrawnCount, 3);
    trail.disc({110, 85}); // the disc between (105,80) and (110,85) never comes
    EXPECT_TRUE(samePixels(*crayon.m_pImage, trail.image()));

    crayon.m_graphData = kPath;
    EXPECT_TRUE(samePixels(drawn(crayon), laidOver(trail.disc({111.5, 90.25}).image())));
    EXPECT_FALSE(samePixels(trail.image(), pathAtOnce().image()));
}

TEST(CInkCrayon, drawingAgainAddsNothing)
{
    Stroke crayon;
    const QImage first = drawn(crayon);
    EXPECT_TRUE(samePixels(drawn(crayon), first));
    EXPECT_TRUE(samePixels(*crayon.m_pImage, pathAtOnce().image()));
}

TEST(CInkCrayon, whatIsRenderedStaysWhenTheStrokeChanges)
{
    Stroke crayon;
    drawn(crayon);
    crayon.MoveGraph(5.0f, 3.0f);
    crayon.m_fRotateAngle = 30;
    crayon.SetWidth(2);
    EXPECT_TRUE(samePixels(drawn(crayon), laidOver(pathAtOnce().image())));
    EXPECT_TRUE(samePixels(*crayon.m_pImage, pathAtOnce().image()));
}

TEST(CInkCrayon, newCanvasSizeCutsWhatIsShown)
{
    Stroke crayon;
    drawn(crayon);
    crayon.SetCanvasSize(QSize(112, 95));
    const QImage expected =
        painted([&](QPainter &painter) { painter.drawImage(QPointF(), *crayon.m_pImage, QRectF(0, 0, 112, 95)); });
    EXPECT_TRUE(samePixels(drawn(crayon), expected));
    crayon.SetCanvasSize(QSize(4000, 3000));
    EXPECT_TRUE(samePixels(drawn(crayon), laidOver(*crayon.m_pImage)));
}

TEST(CInkCrayon, clipIsGivenBack)
{
    Stroke crayon;
    EXPECT_EDGES(clipAfterDraw(crayon, QRect(0, 0, 400, 300)), 0, 0, 4, 4);
    crayon.FinishGraph();
    EXPECT_EDGES(clipAfterDraw(crayon, QRect(0, 0, 400, 300)), 0, 0, 4, 4);
}

TEST(CInkCrayon, clipWhilePaintingHoldsTheHostsRectangleUntilTheCommit)
{
    Stroke crayon;
    // The newest segment (110,85) to (111,90), made 22 x 26, with its margin of 40.
    EXPECT_EDGES(paintCalls(crayon, QRect(0, 0, 50, 50)).value(0).clip.toRect(), 0, 0, 171, 150);
    EXPECT_EDGES(paintCalls(crayon, QRect()).value(0).clip.toRect(), 70, 45, 171, 150);
    feed(crayon, PT_UP, 0, 0);
    EXPECT_EDGES(paintCalls(crayon, QRect(0, 0, 400, 300)).value(0).clip.toRect(), 68, 48, 143, 122);
}

TEST(CInkCrayon, committedStrokeOfTwoPointsShowsNothing)
{
    CInkCrayon crayon(QSize(400, 300));
    feed(crayon, PT_DOWN, 100, 100);
    feed(crayon, PT_MOVE, 105, 100);
    EXPECT_FALSE(isBlank(drawn(crayon)));
    feed(crayon, PT_UP, 105, 100);
    EXPECT_TRUE(isBlank(drawn(crayon)));
    Layers layers;
    layers.draw(crayon);
    EXPECT_TRUE(isBlank(layers.surface));
    EXPECT_TRUE(isBlank(layers.page));
    EXPECT_TRUE(isBlank(layers.ink));
}

TEST(CInkCrayon, painterIsGivenBack)
{
    CInkCrayon fresh(QSize(400, 300));
    EXPECT_NULL_RECT(clipAfterDrawWithOddPainter(fresh));
    Stroke crayon;
    EXPECT_NULL_RECT(clipAfterDrawWithOddPainter(crayon));
    crayon.FinishGraph();
    EXPECT_NULL_RECT(clipAfterDrawWithOddPainter(crayon));
}

TEST(CInkCrayon, layersFollowTheCommit)
{
    Stroke crayon;
    const QImage expected = laidOver(pathAtOnce().image());
    Layers growing;
    growing.draw(crayon);
    EXPECT_TRUE(samePixels(growing.surface, expected));
    EXPECT_TRUE(isBlank(growing.page));
    EXPECT_TRUE(isBlank(growing.ink));
    feed(crayon, PT_UP, 0, 0);
    Layers finished;
    finished.draw(crayon);
    EXPECT_TRUE(samePixels(finished.surface, expected));
    EXPECT_TRUE(samePixels(finished.ink, expected));
    EXPECT_TRUE(samePixels(finished.page, expected));
    EXPECT_TRUE(isBlank(finished.background));
}

TEST(CInkCrayon, paintingLogsNothingAndLeavesTheCallersRectangle)
{
    const MessageLog log;
    Stroke crayon;
    QImage image = blankCanvas();
    QPainter painter(&image);
    QRect rect(1, 2, 3, 4);
    crayon.Draw(painter, rect);
    EXPECT_EDGES(rect, 1, 2, 3, 5);
    EXPECT_TRUE(log.lines.isEmpty());
}
