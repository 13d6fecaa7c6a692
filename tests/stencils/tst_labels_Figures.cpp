// What is particular to the figure of each label: truncation, the mouth, narrow bodies.

#include "CInkCloudLabel.h"
#include "CInkEllipseLabel.h"
#include "CInkRoundRectLabel.h"
#include "Canvas.h"
#include "Exact.h"
#include "LabelFigures.h"

#include <gtest/gtest.h>

#include <limits>
#include <utility>

namespace {

QPen plainPen(Qt::PenCapStyle cap)
{
    return {QBrush(Qt::black), 1.0, Qt::SolidLine, cap, Qt::RoundJoin};
}

// A label committed after a drag from `press` to `release`.
template <typename Tool>
QImage committed(const QPoint &press, const QPoint &release)
{
    Tool label;
    drag(label, press, release);
    label.FinishGraph();
    return drawn(label);
}

} // namespace

TEST(CInkCloudLabel, ellipsesAreTruncated)
{
    const QImage expected = painted([](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(plainPen(Qt::SquareCap));
        painter.drawEllipse(100, 100, 200, 94);
        painter.drawEllipse(216, 191, 64, 24);
        painter.drawEllipse(230, 215, 40, 13); // from 215.77 to 229.23
        painter.drawEllipse(236, 229, 30, 10);
    });
    EXPECT_TRUE(samePixels(committed<CInkCloudLabel>({100, 100}, {300, 240}), expected));
    EXPECT_TRUE(samePixels(committed<CInkCloudLabel>({300, 240}, {100, 100}), expected));

    // Across the origin, truncation is toward zero and the sizes are truncated after the subtraction.
    CInkCloudLabel label;
    drag(label, {100, 100}, {200, 152});
    label.FinishGraph();
    label.m_graphData = {{-10.9, -20.9}, {80.5, 60.5},   {-0.9, 70.2},  {40, 90},
                         {99.5, 99.5},   {120.4, 140.6}, {150.9, 20.1}, {190.8, 60}};
    const QImage truncated = painted([](QPainter &painter) {
        painter.setClipRect(QRect(58, 34, 181, 181));
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(plainPen(Qt::SquareCap));
        painter.drawEllipse(-10, -20, 91, 81);
        painter.drawEllipse(0, 70, 40, 19);
        painter.drawEllipse(99, 99, 20, 41);
        painter.drawEllipse(150, 20, 39, 39);
    });
    EXPECT_TRUE(samePixels(drawn(label), truncated));
}

TEST(CInkEllipseLabel, mouthReachesFivePixelsIntoTheBody)
{
    // Whatever the size, the lift stays 5 pixels.
    CInkEllipseLabel label;
    feed(label, PT_DOWN, 50, 61);
    feed(label, PT_MOVE, 231, 177);
    const QImage expected = painted([](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(plainPen(Qt::SquareCap));
        const QPointF leaves(88.85875678062439, 155.2500038743019), tip(90.90395450592041, 177.00000476837158),
            returns(121.58192038536072, 163.818186044693);
        QPainterPath tail(leaves);
        tail.lineTo(tip);
        tail.lineTo(returns);
        painter.drawPath(tail);
        QPainterPath open;
        open.addRect(0, 0, 400, 300);
        QPainterPath mouth;
        mouth.addPolygon(QPolygonF({leaves, {105.220338582992555, 150.2500038743019}, returns, tip, leaves}));
        painter.setClipPath(open.subtracted(mouth));
        painter.drawEllipse(QRectF(50, 61, 180.99999868869781, 104.13636791706085));
    });
    EXPECT_TRUE(samePixels(drawn(label), expected));
    EXPECT_EQ(qAlpha(drawn(label).pixel(104, 163)), 0); // no body across the tail
}

TEST(CInkEllipseLabel, aTailBeyondAllMeasureIsNotCutOut)
{
    const auto withTail = [](double far) {
        CInkEllipseLabel label;
        drag(label, {100, 100}, {300, 240});
        label.FinishGraph();
        label.m_graphData = {{100, 100}, {far, -far}, {-far, far}, {far, far}, {300, 240}};
        return drawn(label);
    };
    const QImage body = painted([](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(plainPen(Qt::SquareCap));
        painter.drawEllipse(100, 100, 200, 140);
    });
    for (const double far : {1e16, 1e308, -1e308, std::numeric_limits<double>::infinity(), qQNaN()})
        EXPECT_TRUE(samePixels(withTail(far), body)) << far;
}

TEST(CInkEllipseLabel, aTailFromNowhereIsNotPainted)
{
    CInkEllipseLabel label;
    drag(label, {100, 100}, {300, 240});
    label.FinishGraph();
    const QImage body = painted([](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(plainPen(Qt::SquareCap));
        painter.drawEllipse(100, 100, 200, 140);
    });
    for (const double far : {1.7e308, -1.7e308, qInf(), qQNaN()}) {
        label.m_graphData = {{100, 100}, {150, far}, {160, 280}, {180, 230}, {300, 240}};
        EXPECT_TRUE(samePixels(drawn(label), body)) << far;
    }
}

// With such a body Qt does not come to an end.
TEST(CInkEllipseLabel, aBodyBeyondAllMeasureIsNotPainted)
{
    constexpr double kLargest = std::numeric_limits<double>::max();
    for (const double far : {kLargest, -kLargest, qInf(), -qInf(), qQNaN()}) {
        CInkEllipseLabel label;
        label.SetWidth(2);
        drag(label, {100, 100}, {300, 240});
        label.FinishGraph();
        label.m_graphData = {{20, 5.5}, {20, 60}, {25, 70}, {30, 60}, {far, 24.5}};
        label.m_fRotateAngle = 7;
        label.m_ptCenter = {10, 10};
        EXPECT_EQ(drawn(label).pixel(60, 10), 0u) << far;
    }
}

TEST(CInkEllipseLabel, bodyIsNormalized)
{
    CInkEllipseLabel label;
    drag(label, {100, 100}, {277, 188});
    label.FinishGraph();
    const QImage straight = drawn(label);
    std::swap(label.m_graphData[0], label.m_graphData[4]);
    EXPECT_TRUE(samePixels(drawn(label), straight));
}

TEST(CInkEllipseLabel, hintsAreSetBeforeTheHandles)
{
    class Watched : public CInkEllipseLabel
    {
    public:
        void DrawHotShape(QPainter &painter) override { hints = painter.renderHints(); }
        QPainter::RenderHints hints;
    };
    Watched label;
    drag(label, {100, 100}, {277, 188});
    drawn(label);
    EXPECT_TRUE(label.hints.testFlag(QPainter::Antialiasing));
    EXPECT_TRUE(label.hints.testFlag(QPainter::SmoothPixmapTransform));
}

TEST(CInkRoundRectLabel, bodyIsTruncatedAndTheTailIsNot)
{
    for (const bool upwards : {false, true}) {
        CInkRoundRectLabel label;
        feed(label, PT_DOWN, upwards ? 231 : 100, 100);
        feed(label, PT_MOVE, upwards ? 100 : 231, 177);
        const QImage expected = painted([](QPainter &painter) {
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setPen(plainPen(Qt::RoundCap));
            paintBubble(painter, {100, 100, 231, 167, 26, 13, 13, 6}, {120.27380967140198, 167.83333480358124},
                        {135.86904788017273, 177.00000166893005}, {153.02380990982056, 167.83333480358124});
        });
        EXPECT_TRUE(samePixels(drawn(label), expected));
    }
}

TEST(CInkRoundRectLabel, narrowBodiesHaveHardlyAnyCorners)
{
    const auto bubble = [](const Corners &corners, double end, double tip, double start) {
        return painted([&](QPainter &painter) {
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setPen(plainPen(Qt::RoundCap));
            paintBubble(painter, corners, {end, 188.09523725509644}, {tip, 199.99999904632568},
                        {start, 188.09523725509644});
        });
    };
    // 9 pixels wide: a corner ellipse of one pixel, whose half is none.
    EXPECT_TRUE(samePixels(
        committed<CInkRoundRectLabel>({100, 100}, {108, 200}),
        bubble({100, 100, 108, 188, 1, 17, 0, 8}, 101.23809526115656, 102.19047623127699, 103.23809529840946)));
    // 4 pixels wide: none at all.
    EXPECT_TRUE(samePixels(
        committed<CInkRoundRectLabel>({100, 100}, {103, 200}),
        bubble({100, 100, 103, 188, 0, 17, 0, 8}, 100.4642857350409, 100.82142860814929, 101.21428576856852)));
    // 5 wide: right - left is 4, still none.
    EXPECT_TRUE(samePixels(
        committed<CInkRoundRectLabel>({100, 100}, {104, 200}),
        bubble({100, 100, 104, 188, 0, 17, 0, 8}, 100.61904763057828, 101.0952381156385, 101.61904764920473)));
}

TEST(CInkRoundRectLabel, bodyIsNormalized)
{
    CInkRoundRectLabel label;
    drag(label, {100, 100}, {268, 184});
    label.FinishGraph();
    const QImage straight = drawn(label);
    std::swap(label.m_graphData[0], label.m_graphData[4]);
    EXPECT_TRUE(samePixels(drawn(label), straight));
}

TEST(CInkRoundRectLabel, piecesAreNotJoined)
{
    // Half of 33 is cut to 16, so the arc ends at 116.5 and the edge begins at 116.
    CInkRoundRectLabel label;
    feed(label, PT_DOWN, 100, 100);
    feed(label, PT_MOVE, 268, 184);
    const QImage joined = painted([](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(plainPen(Qt::RoundCap));
        painter.drawRoundedRect(QRect(100, 100, 168, 74), 16.5, 7);
    });
    const QImage filled = painted([&](QPainter &painter) {
        QRect all(0, 0, 400, 300);
        painter.setBrush(Qt::green);
        label.Draw(painter, all);
    });
    EXPECT_FALSE(samePixels(drawn(label), joined));
    EXPECT_EQ(filled.pixel(184, 140), 0u); // loose pieces enclose nothing
}
