// The three speech labels in every phase, against their figures painted from primitives.

#include "CInkCloudLabel.h"
#include "CInkEllipseLabel.h"
#include "CInkRoundRectLabel.h"
#include "Canvas.h"
#include "Exact.h"
#include "HandleFrame.h"
#include "LabelFigures.h"
#include "MessageLog.h"
#include "PainterState.h"

#include <QtGui/QPainterPath>

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>
#include <memory>

namespace {

const QColor kTranslucentRed(255, 0, 0, 120);
const QColor kTranslucentGreen(0, 200, 0, 90);
const QRect kWhole(0, 0, 400, 300);

void paintCloud(QPainter &painter, const QRect &)
{
    painter.drawEllipse(100, 100, 100, 35);
    painter.drawEllipse(158, 134, 32, 9);
    painter.drawEllipse(165, 143, 20, 5);
    painter.drawEllipse(168, 148, 15, 4);
}

void paintEllipse(QPainter &painter, const QRect &clip)
{
    QPainterPath tail(QPointF(138, 171.5));
    tail.lineTo(140, 188);
    tail.lineTo(170, 178);
    painter.drawPath(tail);
    QPainterPath mouth(QPointF(138, 171.5));
    mouth.lineTo(154, 166.5);
    mouth.lineTo(170, 178);
    mouth.lineTo(140, 188);
    mouth.lineTo(138, 171.5);
    QPainterPath open;
    open.addRect(clip.left(), clip.top(), clip.width(), clip.height());
    painter.setClipPath(open.subtracted(mouth));
    painter.drawEllipse(QRectF(100, 100, 177, 79));
}

void paintRoundRect(QPainter &painter, const QRect &)
{
    paintBubble(painter, {100, 100, 268, 174, 33, 14, 16, 7}, {126, 174}, {146, 184}, {168, 174});
}

struct Label
{
    const char *name;
    std::unique_ptr<CInkSignGraph> (*make)();
    QPoint corner;  // the release of a drag from (100,100); every point is exact
    QRect frame;    // of the handles
    QRect covered;  // once it is formed
    QPointF center; // of the frame
    Qt::PenCapStyle cap;
    bool styled, smooth;
    void (*paint)(QPainter &, const QRect &clip);

    QPen pen(const QColor &color, int width, Qt::PenStyle style = Qt::SolidLine) const
    {
        return {QBrush(color), double(width), styled ? style : Qt::SolidLine, cap, Qt::RoundJoin};
    }
};

template <typename Tool>
std::unique_ptr<CInkSignGraph> make()
{
    return std::make_unique<Tool>();
}

const Label kLabels[] = {
    {"Cloud",
     &make<CInkCloudLabel>,
     {200, 152},
     {90, 90, 121, 73},
     {58, 34, 181, 181},
     {150, 126},
     Qt::SquareCap,
     true,
     false,
     &paintCloud},
    {"Ellipse",
     &make<CInkEllipseLabel>,
     {277, 188},
     {90, 90, 198, 109},
     {59, 14, 256, 256},
     {188.5, 144},
     Qt::SquareCap,
     true,
     true,
     &paintEllipse},
    {"RoundRect",
     &make<CInkRoundRectLabel>,
     {268, 184},
     {90, 90, 189, 105},
     {59, 17, 247, 247},
     {184, 142},
     Qt::RoundCap,
     false,
     false,
     &paintRoundRect},
};

class Labels : public ::testing::TestWithParam<Label>
{
protected:
    std::unique_ptr<CInkSignGraph> dragged() const
    {
        auto graph = row.make();
        feed(*graph, PT_DOWN, 100, 100);
        feed(*graph, PT_MOVE, row.corner.x(), row.corner.y());
        return graph;
    }
    std::unique_ptr<CInkSignGraph> edited() const
    {
        auto graph = dragged();
        feed(*graph, PT_UP, row.corner.x(), row.corner.y());
        return graph;
    }

    // The figure on a blank canvas, perhaps over its handles.
    QImage figure(const QRect &clip, const QPen &pen, const QBrush &brush = Qt::NoBrush, float angle = 0,
                  bool handles = false) const
    {
        return painted([&](QPainter &painter) {
            painter.setBrush(brush);
            painter.setClipRect(clip);
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setRenderHint(QPainter::SmoothPixmapTransform, row.smooth);
            painter.setWorldTransform(turnAbout(row.center.x(), row.center.y(), double(angle)));
            if (handles)
                paintHandleFrame(painter, row.frame);
            painter.setPen(pen);
            row.paint(painter, clip);
        });
    }
    static QImage drawnWith(CInkSignGraph &graph, const QBrush &brush)
    {
        return painted([&](QPainter &painter) {
            QRect all = kWhole;
            painter.setBrush(brush);
            graph.Draw(painter, all);
        });
    }

    const Label &row = GetParam();
};

std::string nameOf(const ::testing::TestParamInfo<Label> &info)
{
    return info.param.name;
}

INSTANTIATE_TEST_SUITE_P(Of, Labels, ::testing::ValuesIn(kLabels), nameOf);

} // namespace

TEST_P(Labels, previewIsThePlainFigure)
{
    const auto label = dragged();
    label->SetColor(kTranslucentRed);
    label->SetWidth(5);
    EXPECT_TRUE(samePixels(drawn(*label), figure(kWhole, row.pen(kTranslucentRed, 5))));
    label->m_previewData.clear();
    EXPECT_TRUE(isBlank(drawn(*label)));
}

TEST_P(Labels, formedLabelIsPaintedOverItsHandles)
{
    const auto label = edited();
    EXPECT_EQ(label->m_rcHot, row.frame);
    EXPECT_EQ(label->GetUpdateRect(), row.covered);
    label->SetColor(kTranslucentRed);
    label->SetWidth(9);
    EXPECT_TRUE(samePixels(drawn(*label), figure(row.covered, row.pen(kTranslucentRed, 9), Qt::NoBrush, 0, true)));
    label->m_bHideHotShape = 1;
    EXPECT_TRUE(samePixels(drawn(*label), figure(row.covered, row.pen(kTranslucentRed, 9))));
    label->m_bHideHotShape = 0;
    label->m_bFinished = 1;
    EXPECT_TRUE(samePixels(drawn(*label), figure(row.covered, row.pen(kTranslucentRed, 9))));
}

TEST_P(Labels, formedLabelIsTheListNotThePreview)
{
    const auto label = edited();
    label->FinishGraph();
    label->m_previewData.clear();
    EXPECT_TRUE(samePixels(drawn(*label), figure(row.covered, row.pen(Qt::black, 1))));
}

TEST_P(Labels, brushOfThePainterFillsTheFigure)
{
    const auto label = dragged();
    EXPECT_TRUE(
        samePixels(drawnWith(*label, kTranslucentGreen), figure(kWhole, row.pen(Qt::black, 1), kTranslucentGreen)));
    const auto formed = edited();
    EXPECT_TRUE(samePixels(drawnWith(*formed, kTranslucentGreen),
                           figure(row.covered, row.pen(Qt::black, 1), kTranslucentGreen, 0, true)));
}

TEST_P(Labels, turnedLabelIsPaintedInItsFrame)
{
    for (const float angle : {1.0f, 30.0f, 90.0f, 200.0f}) {
        SCOPED_TRACE(angle);
        const auto label = edited();
        label->m_fRotateAngle = angle;
        label->SetColor(kTranslucentRed);
        label->SetWidth(7);
        const QRect covered = label->GetUpdateRect();
        EXPECT_TRUE(samePixels(drawnWith(*label, kTranslucentGreen),
                               figure(covered, row.pen(kTranslucentRed, 7), kTranslucentGreen, angle, true)));
        label->FinishGraph();
        EXPECT_TRUE(samePixels(drawnWith(*label, kTranslucentGreen),
                               figure(covered, row.pen(kTranslucentRed, 7), kTranslucentGreen, angle)));
    }
}

TEST_P(Labels, textureIsSmoothedByTheEllipseAlone)
{
    QImage checks(8, 8, QImage::Format_ARGB32_Premultiplied);
    checks.fill(Qt::yellow);
    for (int i = 0; i < 8; ++i)
        checks.setPixelColor(i, (i * 3) % 8, Qt::blue);
    const QBrush texture(checks);
    const auto label = edited();
    label->FinishGraph();
    label->m_fRotateAngle = 30;
    EXPECT_TRUE(
        samePixels(drawnWith(*label, texture), figure(label->GetUpdateRect(), row.pen(Qt::black, 1), texture, 30)));
}

TEST_P(Labels, penStyleIsAppliedToAllButTheRoundedRectangle)
{
    for (const Qt::PenStyle style : {Qt::NoPen, Qt::DashLine, Qt::DotLine, Qt::DashDotLine}) {
        const auto label = dragged();
        label->m_penStyle = style;
        label->SetWidth(4);
        EXPECT_TRUE(samePixels(drawn(*label), figure(kWhole, row.pen(Qt::black, 4, style)))) << style;
        const bool asSolid = samePixels(drawn(*label), figure(kWhole, row.pen(Qt::black, 4)));
        EXPECT_EQ(asSolid, !row.styled) << style;
    }
}

TEST_P(Labels, widthsFromAHairlineUpAreStroked)
{
    for (const int width : {0, 1, 2, 20}) {
        const auto label = dragged();
        label->SetWidth(width);
        EXPECT_TRUE(samePixels(drawn(*label), figure(kWhole, row.pen(Qt::black, width)))) << width;
    }
}

TEST_P(Labels, transformIsReplacedNotCombined)
{
    const auto label = dragged();
    const QImage image = painted([&](QPainter &painter) {
        QRect all(-100, -100, 600, 500);
        painter.translate(50, 60);
        label->Draw(painter, all);
    });
    EXPECT_TRUE(samePixels(image, figure(kWhole, row.pen(Qt::black, 1))));
}

TEST_P(Labels, clipOfAFormedLabelLeavesTheCallersRectangleOut)
{
    const auto label = dragged();
    const QRect corner = QRect(QPoint(0, 0), row.corner + QPoint(10, 10));
    EXPECT_EQ(clipAfterDraw(*label, QRect(0, 0, 5, 5)), corner);
    EXPECT_EQ(clipAfterDraw(*label, QRect()), QRect(QPoint(90, 90), corner.bottomRight()));
    feed(*label, PT_UP, row.corner.x(), row.corner.y());
    EXPECT_EQ(clipAfterDraw(*label, kWhole), row.covered);
    label->FinishGraph();
    EXPECT_EQ(clipAfterDraw(*label, kWhole), row.covered);
    EXPECT_EQ(clipAfterDraw(*label, QRect()), row.covered);
}

TEST_P(Labels, figureIsPaintedWholeWhateverIsToBeRepainted)
{
    const auto drawnFor = [](CInkSignGraph &graph) {
        return painted([&](QPainter &painter) {
            QRect corner(0, 0, 5, 5);
            graph.Draw(painter, corner);
        });
    };
    const auto preview = dragged(), formed = edited();
    EXPECT_TRUE(samePixels(drawnFor(*preview), figure(kWhole, row.pen(Qt::black, 1))));
    EXPECT_TRUE(samePixels(drawnFor(*formed), figure(row.covered, row.pen(Qt::black, 1), Qt::NoBrush, 0, true)));
}

TEST_P(Labels, pressedLabelPaintsNothingButSetsTheClip)
{
    const auto label = row.make();
    EXPECT_TRUE(isBlank(drawn(*label)));
    EXPECT_EDGES(clipAfterDraw(*label, QRect(10, 10, 50, 50)), 0, 0, 4, 4);
    feed(*label, PT_DOWN, 100, 100);
    EXPECT_TRUE(isBlank(drawn(*label)));
    EXPECT_EDGES(clipAfterDraw(*label, QRect(10, 10, 50, 50)), 10, 10, 101, 101);
}

TEST_P(Labels, abandonedLabelPaintsNothingAndLeavesTheClip)
{
    const auto abandoned = dragged(), finished = dragged();
    feed(*abandoned, PT_UP, 104, 100);
    finished->FinishGraph();
    for (CInkSignGraph *label : {abandoned.get(), finished.get()}) {
        EXPECT_EDGES(clipAfterDraw(*label, QRect(10, 10, 50, 50)), 0, 0, 4, 4);
        Layers layers;
        layers.draw(*label);
        EXPECT_TRUE(isBlank(layers.surface));
        EXPECT_TRUE(isBlank(layers.ink));
        EXPECT_TRUE(isBlank(layers.page));
    }
}

TEST_P(Labels, painterIsGivenBackInEachPhase)
{
    const auto fresh = row.make(), preview = dragged(), formed = edited(), turned = edited(), done = edited();
    turned->m_fRotateAngle = 30;
    done->FinishGraph();
    for (CInkSignGraph *label : {fresh.get(), preview.get(), formed.get(), turned.get(), done.get()}) {
        MessageLog log;
        QImage image = blankCanvas();
        QPainter painter(&image);
        QRect all = image.rect();
        setOddState(painter);
        label->Draw(painter, all);
        expectOddState(painter);
        EXPECT_EDGES(all, 0, 0, 399, 299);
        EXPECT_EQ(painter.hasClipping(), label != fresh.get());
        EXPECT_TRUE(log.lines.isEmpty());
        painter.restore(); // nothing to restore
        EXPECT_EQ(log.lines.size(), 1);
    }
}

TEST_P(Labels, foreignLabelIsShadedUnderItsFigure)
{
    const auto label = edited();
    label->SetOwnerIP(3);
    const QImage expected = painted([&](QPainter &painter) {
        painter.setClipRect(row.covered);
        painter.fillRect(row.frame, QColor(50, 50, 50, 60));
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(row.pen(Qt::black, 1));
        row.paint(painter, row.covered);
    });
    EXPECT_TRUE(samePixels(drawn(*label), expected));
}

TEST_P(Labels, committedLabelIsPaintedOnSurfaceInkAndPage)
{
    const auto label = edited();
    label->FinishGraph();
    label->SetColor(kTranslucentRed);
    const QImage expected = figure(row.covered, row.pen(kTranslucentRed, 1));
    Layers layers;
    layers.draw(*label);
    EXPECT_TRUE(samePixels(layers.surface, expected));
    EXPECT_TRUE(samePixels(layers.ink, expected));
    EXPECT_TRUE(samePixels(layers.page, expected));
    EXPECT_TRUE(isBlank(layers.background));
}

TEST_P(Labels, shortOrHostileListsArePaintedWithoutHarm)
{
    const MessageLog log; // Qt warns of arcs that are no numbers
    for (const int size : {0, 1, 2, 4}) {
        const auto label = edited();
        label->m_graphData.resize(size);
        drawn(*label);
        label->FinishGraph();
        drawn(*label);
        const auto preview = dragged();
        preview->m_previewData.resize(size);
        drawn(*preview);
    }
    const double infinite = std::numeric_limits<double>::infinity();
    for (const double far : {std::nan(""), infinite, -infinite, 1e300, -3e9, 2147483647.0, -2147483648.0}) {
        const auto label = edited();
        label->m_graphData.fill(QPointF(far, -far));
        drawn(*label);
        label->m_graphData[0] = QPointF(far, 5);
        label->m_graphData[1] = QPointF(5, far);
        drawn(*label);
    }
    for (const int far : {INT_MIN, 16'777'217, INT_MAX}) {
        const auto label = row.make();
        label->SetWidth(far);
        drag(*label, {far, INT_MAX}, {50, 60});
        drawn(*label);
        const auto below = row.make();
        drag(*below, {40, 50}, {far, INT_MIN});
        drawn(*below);
    }
}
