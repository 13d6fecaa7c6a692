// The water-colour pen, which paints nothing. How it collects is in tst_textured_pens.cpp.

#include "CInkWaterColorPen.h"
#include "PenStroke.h"

#include <gtest/gtest.h>

namespace {

class Stroke : public CInkWaterColorPen
{
public:
    Stroke()
        : CInkWaterColorPen(QSize(400, 300))
    {
        SetWidth(20);
        feedZigzag(*this);
    }
};

} // namespace

TEST(CInkWaterColorPen, newPenIsOneWideAndBlack)
{
    CInkWaterColorPen pen(QSize(400, 300));
    EXPECT_EQ(pen.m_nWidth, 1);
    EXPECT_EQ(pen.m_color, QColor(0, 0, 0, 255));
}

TEST(CInkWaterColorPen, strokeHasItsImageAndPaintsNothing)
{
    Stroke pen;
    pen.SetColor(QColor(255, 0, 0, 200));
    QImage empty(400, 300, QImage::Format_ARGB32);
    empty.fill(Qt::transparent);
    for (const bool finished : {false, true}) {
        if (finished)
            pen.FinishGraph();
        Layers layers;
        layers.draw(pen);
        EXPECT_TRUE(isBlank(layers.surface));
        EXPECT_TRUE(isBlank(layers.page));
        EXPECT_TRUE(isBlank(layers.ink));
        ASSERT_NE(pen.m_pImage, nullptr);
        EXPECT_TRUE(samePixels(*pen.m_pImage, empty));
        EXPECT_EQ(pen.m_nDrawnCount, 0);
        EXPECT_EQ(pen.m_color, QColor(255, 0, 0, 200));
    }
}

TEST(CInkWaterColorPen, imageThatIsThereIsNotPaintedEither)
{
    Stroke pen;
    pen.m_pImage = new QImage(400, 300, QImage::Format_ARGB32);
    pen.m_pImage->fill(Qt::red);
    EXPECT_TRUE(isBlank(drawn(pen)));
    EXPECT_EQ(pen.m_pImage->pixel(10, 10), 0xffff0000);
}

TEST(CInkWaterColorPen, paintRoutineAloneMakesNoImage)
{
    Stroke pen;
    const QImage image = painted([&](QPainter &painter) { pen.DrawWaterColorGraph(painter); });
    EXPECT_TRUE(isBlank(image));
    EXPECT_EQ(pen.m_pImage, nullptr);
}

TEST(CInkWaterColorPen, clipIsGivenBack)
{
    Stroke pen;
    EXPECT_EDGES(clipAfterDraw(pen, QRect(0, 0, 400, 300)), 0, 0, 4, 4);
    EXPECT_NULL_RECT(clipAfterDrawWithOddPainter(pen));
    pen.FinishGraph();
    EXPECT_EDGES(clipAfterDraw(pen, QRect(0, 0, 400, 300)), 0, 0, 4, 4);
    EXPECT_NULL_RECT(clipAfterDrawWithOddPainter(pen));
    EXPECT_TRUE(paintCalls(pen).isEmpty());
}

TEST(CInkWaterColorPen, drawLaysOutTheNameLabel)
{
    Stroke pen;
    pen.ShowDrawerName(1);
    pen.m_sizeName = QSize(30, 10);
    pen.m_graphData = {QPointF(10, 20), QPointF(40, 20)};
    drawn(pen);
    EXPECT_EDGES(pen.m_rcName, 10, 20, 49, 49);
}
