// The highlighter: a translucent marker. What it shares with other pens is in tst_stroke_pens.cpp.

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
