// The highlighter: a translucent marker.

#include "CInkHighLightPen.h"
#include "PenStroke.h"

#include <gtest/gtest.h>

namespace {

const QColor kTranslucentRed(255, 0, 0, 120);

} // namespace

TEST(CInkHighLightPen, alphaIsSetByTheConstructor)
{
    CInkHighLightPen pen;
    EXPECT_EQ(pen.m_nAlpha, 100);
    EXPECT_GE(pen.m_graphData.capacity(), 10);
    EXPECT_EQ(pen.GetPointCount(), 0);
    EXPECT_EQ(pen.m_nWidth, 1);
    for (const int alpha : {-1, 0, 255, 300}) {
        CInkHighLightPen other(alpha);
        EXPECT_EQ(other.m_nAlpha, alpha);
        EXPECT_GE(other.m_graphData.capacity(), 10);
        EXPECT_EQ(other.GetPointCount(), 0);
    }
}

TEST(CInkHighLightPen, alphaOfTheColorIsReplacedWhilePainting)
{
    for (const int alpha : {0, 1, 77, 255}) {
        SCOPED_TRACE(alpha);
        CInkHighLightPen pen(alpha);
        feedZigzag(pen);
        pen.SetWidth(20);
        pen.SetColor(kTranslucentRed);
        EXPECT_TRUE(samePixels(drawn(pen), smoothStroke(zigzagPath(), roundPen(QColor(255, 0, 0, alpha), 20))));
        EXPECT_EQ(pen.m_color.alpha(), 120);
    }
}

TEST(CInkHighLightPen, alphaOutOfRangeReachesQtUnchanged)
{
    const struct
    {
        int alpha, seen;
    } cases[] = {{300, 255}, {256, 255}, {-1, 0}};
    for (const auto &c : cases) {
        CInkHighLightPen pen(c.alpha);
        feedZigzag(pen);
        pen.SetWidth(8);
        const MessageLog log;
        const QImage image = drawn(pen);
        ASSERT_EQ(log.lines.size(), 1);
        EXPECT_TRUE(log.lines[0].text.endsWith(QString::number(c.alpha))) << log.lines[0].text.toStdString();
        EXPECT_TRUE(samePixels(image, smoothStroke(zigzagPath(), roundPen(QColor(0, 0, 0, c.seen), 8))));
        EXPECT_EQ(pen.m_nAlpha, c.alpha);
    }
}

TEST(CInkHighLightPen, strokeIsOnePath)
{
    for (const int width : {0, 1, 2, 9, 25}) {
        SCOPED_TRACE(width);
        CInkHighLightPen pen;
        feedZigzag(pen);
        pen.SetWidth(width);
        pen.SetColor(kTranslucentRed); // one path: crossings are no darker
        const QImage expected = smoothStroke(zigzagPath(), roundPen(QColor(255, 0, 0, 100), width));
        EXPECT_FALSE(isBlank(expected));
        EXPECT_TRUE(samePixels(drawn(pen), expected));
        pen.FinishGraph();
        EXPECT_TRUE(samePixels(drawn(pen), expected));
        EXPECT_EQ(pen.m_color, QColor(kTranslucentRed));
    }
}

TEST(CInkHighLightPen, strokeIsPaintedWithTheFinestAntialiasing)
{
    CInkHighLightPen pen;
    feedZigzag(pen);
    pen.SetWidth(9);
    const auto calls = paintCalls(pen);
    ASSERT_EQ(calls.size(), 1);
    EXPECT_TRUE(calls[0].isPath);
    EXPECT_TRUE(calls[0].hints.testFlag(QPainter::Antialiasing));
    EXPECT_TRUE(int(calls[0].hints) & 0x08); // high-quality antialiasing, a name that is deprecated
    EXPECT_FALSE(calls[0].hints.testFlag(QPainter::SmoothPixmapTransform));
    EXPECT_TRUE(calls[0].transform.isIdentity());
    EXPECT_EQ(calls[0].pen, roundPen(QColor(0, 0, 0, 100), 9));
}

TEST(CInkHighLightPen, clipHoldsTheHostsRectangleInEveryPhase)
{
    CInkHighLightPen pen;
    feedZigzag(pen);
    EXPECT_EDGES(clipAfterDraw(pen, QRect(0, 0, 50, 50)), 0, 0, 140, 170);
    EXPECT_EDGES(clipAfterDraw(pen, QRect()), 90, 40, 140, 170);
    pen.FinishGraph();
    EXPECT_EDGES(clipAfterDraw(pen, QRect(0, 0, 50, 50)), 0, 0, 232, 182);
    EXPECT_EDGES(clipAfterDraw(pen, QRect(0, 0, 400, 300)), 0, 0, 399, 299);
    EXPECT_EDGES(clipAfterDraw(pen, QRect()), 68, 8, 232, 182);
}

TEST(CInkHighLightPen, painterKeepsItsTransformAndBrush)
{
    CInkHighLightPen pen;
    feedZigzag(pen);
    pen.SetColor(kTranslucentRed);
    pen.SetWidth(6);
    pen.m_fRotateAngle = 45;
    const QImage image = painted([&](QPainter &painter) {
        QRect all(0, 0, 400, 300);
        painter.translate(15, 25);
        painter.setBrush(QColor(0, 200, 0, 90));
        pen.Draw(painter, all);
    });
    const QImage expected = painted([](QPainter &painter) {
        painter.translate(15, 25);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setBrush(QColor(0, 200, 0, 90));
        painter.setPen(roundPen(QColor(255, 0, 0, 100), 6));
        painter.drawPath(zigzagPath());
    });
    EXPECT_TRUE(samePixels(image, expected));
}

TEST(CInkHighLightPen, layersFollowTheCommit)
{
    CInkHighLightPen pen;
    feedZigzag(pen);
    pen.SetWidth(4);
    pen.SetColor(kTranslucentRed);
    pen.ShowDrawerName(1);
    pen.ShowDrawerIcon(1);
    pen.m_sizeName = QSize(60, 20);
    const QImage expected = smoothStroke(zigzagPath(), roundPen(QColor(255, 0, 0, 100), 4));
    Layers growing;
    growing.draw(pen);
    EXPECT_TRUE(samePixels(growing.surface, expected));
    EXPECT_TRUE(isBlank(growing.page));
    EXPECT_TRUE(isBlank(growing.background));
    EXPECT_TRUE(isBlank(growing.ink));
    pen.FinishGraph();
    Layers finished;
    finished.draw(pen);
    EXPECT_TRUE(samePixels(finished.surface, expected));
    EXPECT_TRUE(samePixels(finished.ink, expected));
    EXPECT_TRUE(samePixels(finished.page, expected));
    EXPECT_TRUE(isBlank(finished.background));
}
