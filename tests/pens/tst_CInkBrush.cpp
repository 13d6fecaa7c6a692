// The brush: the pencil's path with the finest antialiasing.

#include "CInkBrush.h"
#include "PenStroke.h"

#include <gtest/gtest.h>

namespace {

const QColor kTranslucentRed(255, 0, 0, 120);

} // namespace

TEST(CInkBrush, newBrushHasItsStyleFields)
{
    CInkBrush brush;
    EXPECT_EQ(brush.m_nPenParam, 32);
    EXPECT_EQ(brush.m_nCapStyle, 32);
    EXPECT_EQ(brush.m_nPenStyle, 1);
    EXPECT_EQ(brush.m_nWidth, 1);
    EXPECT_EQ(brush.m_color, QColor(0, 0, 0, 255));
    EXPECT_EQ(brush.GetPointCount(), 0);
}

TEST(CInkBrush, styleFieldsAreNotPaintedWith)
{
    CInkBrush brush;
    feedZigzag(brush);
    brush.SetWidth(12);
    brush.m_nCapStyle = Qt::FlatCap;
    brush.m_nPenStyle = Qt::DashLine;
    brush.m_nPenParam = 5;
    EXPECT_TRUE(samePixels(drawn(brush), smoothStroke(zigzagPath(), roundPen(Qt::black, 12))));
}

TEST(CInkBrush, strokeIsOnePath)
{
    for (const int width : {0, 1, 2, 9, 25}) {
        SCOPED_TRACE(width);
        CInkBrush brush;
        feedZigzag(brush);
        brush.SetWidth(width);
        brush.SetColor(kTranslucentRed); // one path: crossings are no darker
        const QImage expected = smoothStroke(zigzagPath(), roundPen(kTranslucentRed, width));
        EXPECT_FALSE(isBlank(expected));
        EXPECT_TRUE(samePixels(drawn(brush), expected));
        brush.FinishGraph();
        EXPECT_TRUE(samePixels(drawn(brush), expected));
        EXPECT_EQ(brush.m_color, QColor(kTranslucentRed));
    }
}

TEST(CInkBrush, strokeIsPaintedWithTheFinestAntialiasing)
{
    CInkBrush brush;
    feedZigzag(brush);
    brush.SetWidth(9);
    const auto calls = paintCalls(brush);
    ASSERT_EQ(calls.size(), 1);
    EXPECT_TRUE(calls[0].isPath);
    EXPECT_TRUE(calls[0].hints.testFlag(QPainter::Antialiasing));
    EXPECT_TRUE(int(calls[0].hints) & 0x08); // high-quality antialiasing, a name that is deprecated
    EXPECT_FALSE(calls[0].hints.testFlag(QPainter::SmoothPixmapTransform));
    EXPECT_TRUE(calls[0].transform.isIdentity());
    EXPECT_EQ(calls[0].pen, roundPen(QColor(0, 0, 0), 9));
}

TEST(CInkBrush, clipHoldsTheHostsRectangleInEveryPhase)
{
    CInkBrush brush;
    feedZigzag(brush);
    EXPECT_EDGES(clipAfterDraw(brush, QRect(0, 0, 50, 50)), 0, 0, 140, 170);
    EXPECT_EDGES(clipAfterDraw(brush, QRect()), 90, 40, 140, 170);
    brush.FinishGraph();
    EXPECT_EDGES(clipAfterDraw(brush, QRect(0, 0, 50, 50)), 0, 0, 232, 182);
    EXPECT_EDGES(clipAfterDraw(brush, QRect(0, 0, 400, 300)), 0, 0, 399, 299);
    EXPECT_EDGES(clipAfterDraw(brush, QRect()), 68, 8, 232, 182);
}

TEST(CInkBrush, painterKeepsItsTransformAndBrush)
{
    CInkBrush brush;
    feedZigzag(brush);
    brush.SetColor(kTranslucentRed);
    brush.SetWidth(6);
    brush.m_fRotateAngle = 45;
    const QImage image = painted([&](QPainter &painter) {
        QRect all(0, 0, 400, 300);
        painter.translate(15, 25);
        painter.setBrush(QColor(0, 200, 0, 90));
        brush.Draw(painter, all);
    });
    const QImage expected = painted([](QPainter &painter) {
        painter.translate(15, 25);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setBrush(QColor(0, 200, 0, 90));
        painter.setPen(roundPen(kTranslucentRed, 6));
        painter.drawPath(zigzagPath());
    });
    EXPECT_TRUE(samePixels(image, expected));
}

TEST(CInkBrush, layersFollowTheCommit)
{
    CInkBrush brush;
    feedZigzag(brush);
    brush.SetWidth(4);
    brush.SetColor(kTranslucentRed);
    brush.ShowDrawerName(1);
    brush.ShowDrawerIcon(1);
    brush.m_sizeName = QSize(60, 20);
    const QImage expected = smoothStroke(zigzagPath(), roundPen(kTranslucentRed, 4));
    Layers growing;
    growing.draw(brush);
    EXPECT_TRUE(samePixels(growing.surface, expected));
    EXPECT_TRUE(isBlank(growing.page));
    EXPECT_TRUE(isBlank(growing.background));
    EXPECT_TRUE(isBlank(growing.ink));
    brush.FinishGraph();
    Layers finished;
    finished.draw(brush);
    EXPECT_TRUE(samePixels(finished.surface, expected));
    EXPECT_TRUE(samePixels(finished.ink, expected));
    EXPECT_TRUE(samePixels(finished.page, expected));
    EXPECT_TRUE(isBlank(finished.background));
}
