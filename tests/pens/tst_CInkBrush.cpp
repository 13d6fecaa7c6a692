// The brush: the pencil's path with the finest antialiasing. What it shares with other pens is in tst_stroke_pens.cpp.

#include "CInkBrush.h"
#include "PenStroke.h"

#include <gtest/gtest.h>

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
