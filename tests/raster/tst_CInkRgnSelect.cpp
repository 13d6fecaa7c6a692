// Region select: the dragged frame, the lifted pixels, and the hole and patch they leave.

#include "CInkRgnSelect.h"
#include "Canvas.h"
#include "Exact.h"
#include "MessageLog.h"
#include "PainterState.h"

#include <QtGui/QPicture>

#include <gtest/gtest.h>

#include <climits>

namespace {

const QRect kAll(0, 0, 400, 300);

// Released over the box from (100,100) to (150,130).
class Selection : public CInkRgnSelect
{
public:
    Selection() { drag(*this, {100, 100}, {150, 130}); }
};

// Every pixel tells its place.
QImage gradient(int blue, QImage::Format format = QImage::Format_ARGB32_Premultiplied)
{
    QImage image(400, 300, QImage::Format_ARGB32);
    for (int y = 0; y < 300; ++y) {
        for (int x = 0; x < 400; ++x)
            image.setPixel(x, y, qRgba(x % 256, y % 256, blue, 255));
    }
    return image.convertToFormat(format);
}

// The host's layers, all of them full.
struct FullLayers
{
    void draw(CInkGraph &graph, const QRect &area = kAll, int reserved = 0, int skip = 0)
    {
        QPainter p1(&page), p2(&surface), p3(&background), p4(&ink);
        graph.Draw(p1, p2, p3, p4, area, reserved, skip);
    }

    // `box` shows the background on the page, and nothing on the ink.
    void expectCut(const QRect &box) const
    {
        QImage expectedPage = gradient(10);
        if (!box.isNull())
            QPainter(&expectedPage).drawImage(box.topLeft(), gradient(30), box);
        EXPECT_TRUE(samePixels(page, expectedPage));
        QImage expectedInk = gradient(40);
        for (int y = box.top(); y <= box.bottom(); ++y) {
            for (int x = box.left(); x <= box.right(); ++x)
                expectedInk.setPixel(x, y, 0);
        }
        EXPECT_TRUE(samePixels(ink, expectedInk));
        EXPECT_TRUE(samePixels(surface, gradient(20)));
        EXPECT_TRUE(samePixels(background, gradient(30)));
    }

    void expectUntouched() const { expectCut(QRect()); }

    QImage page = gradient(10), surface = gradient(20), background = gradient(30), ink = gradient(40);
};

QPen framePen()
{
    return {QBrush(QColor(0, 0, 0, 255)), 1.2999999523162842, Qt::DashLine, Qt::SquareCap, Qt::BevelJoin};
}

} // namespace

TEST(CInkRgnSelect, newSelectionIsTwoPointsAtTheOrigin)
{
    CInkRgnSelect select;
    EXPECT_EQ(select.m_nWidth, 2);
    ASSERT_EQ(select.m_graphData.size(), 2);
    EXPECT_POINT(select.m_graphData.at(0), 0.0, 0.0);
    EXPECT_POINT(select.m_graphData.at(1), 0.0, 0.0);
    EXPECT_EQ(select.m_bEditMode, 0);
    EXPECT_EQ(select.m_bFinished, 0);
    EXPECT_EQ(select.m_penStyle, Qt::SolidLine);
    EXPECT_FALSE(select.m_selColor.isValid());
    EXPECT_EQ(select.m_pImage, nullptr);
    EXPECT_EQ(select.GetPointCount(), 0);
    EXPECT_FALSE(select.FinishGraph());
    EXPECT_EDGES(select.GetUpdateRect(), -4, -4, 3, 3);
}

TEST(CInkRgnSelect, eventsReportWhatTheBoxCoveredAndCovers)
{
    CInkRgnSelect select;
    EXPECT_EDGES(feed(select, PT_DOWN, 100, 100), -4, -4, 105, 105);
    EXPECT_EDGES(select.GetUpdateRect(), 94, 94, 105, 105);
    EXPECT_EDGES(feed(select, PT_MOVE, 150, 130), 94, 94, 156, 136);
    EXPECT_EDGES(feed(select, PT_MOVE, 120, 160), 94, 94, 156, 166);
    EXPECT_EDGES(feed(select, PT_MOVE, 150, 130), 94, 94, 156, 166);
    EXPECT_EDGES(feed(select, PT_UP, 150, 130), 50, 40, 196, 186);
    EXPECT_EDGES(select.GetUpdateRect(), 50, 40, 196, 186);

    QRect collected(0, 0, 10, 10);
    select.AddPoint(PT_MOVE, {150, 130}, collected);
    EXPECT_EDGES(collected, 0, 0, 196, 186);
}

TEST(CInkRgnSelect, nameAndIconAreCovered)
{
    CInkRgnSelect select;
    select.m_sizeName = QSize(60, 20);
    select.ShowDrawerName(1);
    select.ShowDrawerIcon(1);
    feed(select, PT_DOWN, 100, 100);
    EXPECT_EDGES(feed(select, PT_MOVE, 150, 130), 94, 94, 303, 263);
    EXPECT_EDGES(select.m_rcName, 150, 130, 209, 149);
    EXPECT_EDGES(select.m_rcIcon, 135, 115, 299, 259);
    EXPECT_EDGES(feed(select, PT_UP, 150, 130), 50, 40, 303, 263);
    EXPECT_EDGES(select.m_rcName, 100, 100, 259, 219);
}

TEST(CInkRgnSelect, pressSetsBothCorners)
{
    CInkRgnSelect select;
    feed(select, PT_DOWN, 16777217, -3);
    EXPECT_POINT(select.m_graphData.at(0), 16777216.0, -3.0);
    EXPECT_POINT(select.m_graphData.at(1), 16777216.0, -3.0);
    EXPECT_EQ(select.GetPointCount(), 1);
    EXPECT_EQ(select.IsSparePoint(), 0);
    EXPECT_EQ(select.m_bFinished, 0);
}

TEST(CInkRgnSelect, everyOtherCodeMovesTheSecondCorner)
{
    for (const int code : {INT_MIN, -1, 0, 3, 4, 5, 6, 99}) {
        CInkRgnSelect select;
        feed(select, PT_DOWN, 100, 100);
        feed(select, code, 150, 130);
        EXPECT_POINT(select.m_graphData.at(0), 100.0, 100.0);
        EXPECT_POINT(select.m_graphData.at(1), 150.0, 130.0);
        EXPECT_EQ(select.GetPointCount(), 2) << code;
        EXPECT_EQ(select.IsSparePoint(), 1) << code;
        EXPECT_EQ(select.m_bFinished, 0) << code;
        EXPECT_EQ(select.m_bEditMode, 0) << code;
    }
}

TEST(CInkRgnSelect, eventsBeforeThePressChangeNoPointAndStillReport)
{
    for (const int code : {-1, 0, 2, 3, 4, 5, 99}) {
        CInkRgnSelect select;
        select.m_bSparePoint = 1;
        EXPECT_EDGES(feed(select, code, 150, 130), -4, -4, 3, 3);
        EXPECT_POINT(select.m_graphData.at(0), 0.0, 0.0);
        EXPECT_POINT(select.m_graphData.at(1), 0.0, 0.0);
        EXPECT_EQ(select.GetPointCount(), 0) << code;
        EXPECT_EQ(select.IsSparePoint(), 0) << code;
        EXPECT_EQ(select.m_bFinished, 0) << code;
    }
}

TEST(CInkRgnSelect, releaseDecidesByDistanceWidthAndHeight)
{
    const struct
    {
        int dx, dy;
        bool valid;
    } cases[] = {
        {0, 0, false},   {6, 0, false},  {0, 6, false},   {4, 4, false},   {3, 5, false},  {5, 3, false},
        {4, 5, true},    {6, 1, true},   {-6, 1, true},   {1, -6, true},   {-5, -4, true}, {-4, -4, false},
        {300, 0, false}, {0, 20, false}, {-90, 0, false}, {0, -20, false}, {300, 1, true}, {1, 300, true},
    };
    for (const auto &row : cases) {
        SCOPED_TRACE(::testing::Message() << row.dx << ", " << row.dy);
        CInkRgnSelect select;
        feed(select, PT_DOWN, 100, 100);
        feed(select, PT_MOVE, 170, 170);
        feed(select, PT_UP, 100 + row.dx, 100 + row.dy);
        EXPECT_EQ(select.m_bFinished, 1);
        EXPECT_EQ(select.m_bEditMode, int(row.valid));
        EXPECT_EQ(select.m_bHideHotShape, 0);
        EXPECT_EQ(select.IsSparePoint(), 0);
        EXPECT_EQ(select.GetPointCount(), 2);
        EXPECT_POINT(select.m_graphData.at(1), double(100 + row.dx), double(100 + row.dy));
    }
}

TEST(CInkRgnSelect, exactlySixPixelsAcrossIsAbandoned)
{
    // 6.0 from corner to corner with some width and height needs corners between pixels.
    CInkRgnSelect select;
    feed(select, PT_DOWN, 100, 100);
    select.m_graphData[0] = QPointF(100 - 3.6, 100 - 4.8);
    feed(select, PT_UP, 100, 100);
    EXPECT_EQ(select.m_bEditMode, 0);
    feed(select, PT_DOWN, 100, 100);
    select.m_graphData[0] = QPointF(100 - 3.6, 100 - 4.81);
    feed(select, PT_UP, 100, 100);
    EXPECT_EQ(select.m_bEditMode, 1);
}

TEST(CInkRgnSelect, handlesHugTheBox)
{
    for (const bool mirrored : {false, true}) {
        CInkRgnSelect select;
        if (mirrored)
            drag(select, {150, 130}, {100, 100});
        else
            drag(select, {100, 100}, {150, 130});
        EXPECT_EDGES(select.m_rcHot, 100, 100, 150, 130);
        EXPECT_POINT(select.m_ptCenter, 125.0, 115.0);
        EXPECT_POINT(select.m_hotPts[4], 100.0, 100.0);
        EXPECT_POINT(select.m_hotPts[7], 150.0, 130.0);
        EXPECT_POINT(select.m_hotPts[8], 125.0, 70.0);
        EXPECT_EQ(select.AroundHotPts({150, 130}), MT_RIGHT_BOTTOM);
        EXPECT_EQ(select.AroundHotPts({115, 115}), MT_MOVE);
        EXPECT_EQ(select.AroundHotPts({200, 200}), MT_NONE);
    }
}

TEST(CInkRgnSelect, eventsAfterTheReleaseMoveTheSecondCorner)
{
    Selection select;
    EXPECT_EDGES(feed(select, PT_MOVE, 180, 190), 50, 40, 196, 186);
    EXPECT_POINT(select.m_graphData.at(0), 100.0, 100.0);
    EXPECT_POINT(select.m_graphData.at(1), 180.0, 190.0);
    EXPECT_EQ(select.IsSparePoint(), 1);
    EXPECT_EQ(select.m_bFinished, 1);
    EXPECT_EDGES(select.m_rcHot, 100, 100, 150, 130); // not before the next release
    feed(select, PT_UP, 180, 190);
    EXPECT_EDGES(select.m_rcHot, 100, 100, 180, 190);

    feed(select, PT_DOWN, 20, 20);
    EXPECT_EQ(select.GetPointCount(), 1);
    EXPECT_EQ(select.m_bFinished, 1);
    EXPECT_EQ(select.m_bEditMode, 1);
    feed(select, PT_UP, 21, 21); // too short: the last valid frame stays
    EXPECT_EQ(select.m_bEditMode, 1);
    EXPECT_EDGES(select.m_rcHot, 100, 100, 180, 190);
}

TEST(CInkRgnSelect, abandonedSelectionCanBecomeValid)
{
    CInkRgnSelect select;
    drag(select, {100, 100}, {102, 102});
    EXPECT_EQ(select.m_bEditMode, 0);
    feed(select, PT_UP, 150, 130);
    EXPECT_EQ(select.m_bEditMode, 1);
    EXPECT_EDGES(select.m_rcHot, 100, 100, 150, 130);
}

TEST(CInkRgnSelect, finishIsTheRectanglesInEveryPhase)
{
    CInkRgnSelect pressed;
    feed(pressed, PT_DOWN, 100, 100);
    EXPECT_TRUE(pressed.FinishGraph());
    EXPECT_EQ(pressed.m_bFinished, 1);
    EXPECT_EQ(pressed.m_bHideHotShape, 1);
    EXPECT_EQ(pressed.m_bEditMode, 0);
    EXPECT_EDGES(pressed.m_rcHot, 90, 90, 110, 110);
    FullLayers layers;
    layers.draw(pressed);
    layers.expectUntouched();

    Selection valid;
    EXPECT_TRUE(valid.FinishGraph());
    EXPECT_EQ(valid.m_bHideHotShape, 1);
    EXPECT_EQ(valid.m_bEditMode, 1);
    EXPECT_EDGES(valid.m_rcHot, 90, 90, 160, 140);
    layers.draw(valid);
    layers.expectCut(QRect(90, 90, 71, 51));
}

TEST(CInkRgnSelect, dragShowsADashedFrameOnTheSurfaceAlone)
{
    const struct
    {
        QPoint from, to;
    } cases[] = {{{100, 100}, {150, 130}}, {{150, 130}, {100, 100}}, {{100, 130}, {150, 100}}};
    for (const auto &row : cases) {
        CInkRgnSelect select;
        select.SetColor(Qt::red); // neither colour nor width is the frame's
        select.SetWidth(9);
        feed(select, PT_DOWN, row.from.x(), row.from.y());
        feed(select, PT_MOVE, row.to.x(), row.to.y());
        Layers layers;
        layers.draw(select);
        EXPECT_TRUE(samePixels(layers.surface, painted([](QPainter &painter) {
                                   painter.setRenderHint(QPainter::Antialiasing);
                                   painter.setPen(framePen());
                                   painter.drawRect(QRect(100, 100, 51, 31));
                               })));
        EXPECT_TRUE(isBlank(layers.page));
        EXPECT_TRUE(isBlank(layers.background));
        EXPECT_TRUE(isBlank(layers.ink));
        EXPECT_EQ(select.m_pImage, nullptr);
    }
}

TEST(CInkRgnSelect, frameIsInThePaintersFrameAndTakesItsBrush)
{
    CInkRgnSelect select;
    feed(select, PT_DOWN, 100, 100);
    feed(select, PT_MOVE, 150, 130);
    QImage surface = blankCanvas();
    QImage other = blankCanvas();
    {
        QPainter p1(&other), p2(&surface);
        setOddState(p2);
        p2.setClipRect(QRect(0, 0, 5, 5));
        select.Draw(p1, p2, p1, p1, QRect(100, 100, 30, 100), 0, 0);
        expectOddState(p2);
        EXPECT_EDGES(clipOf(p2), 100, 100, 129, 199);
        EXPECT_FALSE(p1.hasClipping());
    }
    EXPECT_TRUE(samePixels(surface, painted([](QPainter &painter) {
                               setOddState(painter);
                               painter.setClipRect(QRect(100, 100, 30, 100));
                               painter.setRenderHint(QPainter::Antialiasing);
                               painter.setPen(framePen());
                               painter.drawRect(QRect(100, 100, 51, 31));
                           })));
    EXPECT_TRUE(isBlank(other));
}

TEST(CInkRgnSelect, frameIsShownFromThePressOn)
{
    CInkRgnSelect select;
    Layers fresh;
    fresh.p2.setClipRect(QRect(0, 0, 5, 5));
    select.Draw(fresh.p1, fresh.p2, fresh.p3, fresh.p4, kAll, 0, 0);
    EXPECT_EDGES(clipOf(fresh.p2), 0, 0, 4, 4); // nothing is pressed: not even a clip
    EXPECT_TRUE(isBlank(fresh.surface));

    feed(select, PT_DOWN, 100, 100);
    for (const int editMode : {0, 1}) {
        select.m_bEditMode = editMode;
        Layers layers;
        layers.draw(select);
        EXPECT_TRUE(samePixels(layers.surface, painted([editMode](QPainter &painter) {
                                   painter.setRenderHint(QPainter::Antialiasing);
                                   painter.setPen(framePen());
                                   if (!editMode)
                                       painter.drawRect(QRect(100, 100, 1, 1));
                               })));
    }
}

TEST(CInkRgnSelect, validSelectionIsLiftedCutAndPatched)
{
    Selection select;
    FullLayers layers;
    layers.draw(select);
    layers.expectCut(QRect(100, 100, 51, 31));
    ASSERT_NE(select.m_pImage, nullptr);
    EXPECT_EQ(select.m_pImage->format(), QImage::Format_ARGB32);
    EXPECT_TRUE(samePixels(*select.m_pImage, gradient(40, QImage::Format_ARGB32).copy(100, 100, 51, 31)));
}

TEST(CInkRgnSelect, neitherNumberIsRead)
{
    for (const int number : {INT_MIN, -1, 1, 99}) {
        Selection select;
        FullLayers layers;
        layers.draw(select, kAll, number, number);
        layers.expectCut(QRect(100, 100, 51, 31));
        CInkRgnSelect dragged;
        feed(dragged, PT_DOWN, 100, 100);
        Layers blank;
        blank.draw(dragged, number);
        EXPECT_FALSE(isBlank(blank.surface));
    }
}

TEST(CInkRgnSelect, liftIgnoresTheAreaHoleAndPatchDoNot)
{
    Selection select;
    FullLayers layers;
    layers.draw(select, QRect(90, 90, 30, 20));
    layers.expectCut(QRect(100, 100, 20, 10));
    EXPECT_TRUE(samePixels(*select.m_pImage, gradient(40, QImage::Format_ARGB32).copy(100, 100, 51, 31)));
}

TEST(CInkRgnSelect, everyDrawLiftsAnewInTheSameImage)
{
    Selection select;
    FullLayers layers;
    layers.draw(select);
    const QImage *lifted = select.m_pImage;
    layers.draw(select);
    EXPECT_EQ(select.m_pImage, lifted);
    layers.expectCut(QRect(100, 100, 51, 31));
    QImage nothing(51, 31, QImage::Format_ARGB32);
    nothing.fill(0);
    EXPECT_TRUE(samePixels(*select.m_pImage, nothing));
}

TEST(CInkRgnSelect, translucentInkIsLiftedAsItIsAndTheHoleIsEmpty)
{
    Selection select;
    Layers layers;
    layers.p4.fillRect(kAll, QColor(255, 0, 0, 128));
    layers.p3.fillRect(kAll, QColor(0, 0, 255, 128));
    layers.p1.fillRect(kAll, QColor(0, 255, 0));
    layers.draw(select);
    EXPECT_EQ(layers.ink.pixel(100, 100), 0U);
    EXPECT_EQ(layers.ink.pixel(150, 130), 0U);
    EXPECT_EQ(layers.ink.pixel(151, 130), 0x80800000U); // premultiplied
    EXPECT_EQ(select.m_pImage->pixel(0, 0), qRgba(255, 0, 0, 128));
    EXPECT_EQ(select.m_pImage->pixel(50, 30), qRgba(255, 0, 0, 128));
    EXPECT_EQ(layers.page.pixel(99, 100), qRgb(0, 255, 0));
    EXPECT_EQ(layers.page.pixel(100, 100), qRgb(0, 127, 128)); // painted over, not copied
}

TEST(CInkRgnSelect, clipsStayOnThreePaintersAndTheInkIsPaintedOverAfterwards)
{
    Selection select;
    Layers layers;
    for (QPainter *painter : {&layers.p1, &layers.p2, &layers.p3, &layers.p4}) {
        painter->setClipRect(QRect(0, 0, 5, 5));
        painter->setPen(Qt::magenta);
        painter->setCompositionMode(QPainter::CompositionMode_SourceAtop);
    }
    select.Draw(layers.p1, layers.p2, layers.p3, layers.p4, QRect(90, 90, 30, 20), 0, 0);
    EXPECT_EDGES(clipOf(layers.p1), 90, 90, 119, 109);
    EXPECT_EDGES(clipOf(layers.p2), 0, 0, 4, 4);
    EXPECT_EDGES(clipOf(layers.p3), 90, 90, 119, 109);
    EXPECT_EDGES(clipOf(layers.p4), 90, 90, 119, 109);
    EXPECT_EQ(layers.p4.compositionMode(), QPainter::CompositionMode_SourceOver);
    EXPECT_EQ(layers.p1.compositionMode(), QPainter::CompositionMode_SourceAtop);
    EXPECT_EQ(layers.p4.pen().color(), QColor(Qt::magenta));
    EXPECT_EQ(layers.p4.brush().style(), Qt::NoBrush);
    for (QPainter *painter : {&layers.p1, &layers.p3, &layers.p4}) {
        const MessageLog log;
        painter->restore();
        EXPECT_EQ(log.lines.size(), 1); // no state is left saved
    }
}

TEST(CInkRgnSelect, abandonedSelectionDrawsNothingAndSetsNoClip)
{
    CInkRgnSelect select;
    drag(select, {100, 100}, {300, 100});
    FullLayers full;
    full.draw(select);
    full.expectUntouched();
    EXPECT_EQ(select.m_pImage, nullptr);
    Layers layers;
    select.Draw(layers.p1, layers.p2, layers.p3, layers.p4, kAll, 0, 0);
    for (const QPainter *painter : {&layers.p1, &layers.p2, &layers.p3, &layers.p4})
        EXPECT_FALSE(painter->hasClipping());
}

TEST(CInkRgnSelect, selectionAcrossTheEdgeOfTheLayers)
{
    CInkRgnSelect select;
    drag(select, {-20, -10}, {30, 20});
    FullLayers layers;
    layers.draw(select);
    layers.expectCut(QRect(0, 0, 31, 21));
    QImage expected(51, 31, QImage::Format_ARGB32);
    expected.fill(0);
    QPainter(&expected).drawImage(QRectF(0, 0, 51, 31), gradient(40), QRectF(-20, -10, 51, 31));
    EXPECT_TRUE(samePixels(*select.m_pImage, expected));
    EXPECT_EQ(select.m_pImage->pixel(0, 0), 0U);
}

TEST(CInkRgnSelect, disInfoPaintsNothing)
{
    CInkRgnSelect select;
    select.m_sizeName = QSize(60, 20);
    select.ShowDrawerName(1);
    select.ShowDrawerIcon(1);
    feed(select, PT_DOWN, 100, 100);
    EXPECT_TRUE(isBlank(painted([&](QPainter &painter) { select.DrawDisInfo(painter); })));
}

TEST(CInkRgnSelect, ownDrawIsTheRectangles)
{
    Selection select;
    select.SetColor(Qt::red);
    CInkRectangle rectangle;
    drag(rectangle, {100, 100}, {150, 130});
    rectangle.SetColor(Qt::red);
    rectangle.SetWidth(2);
    rectangle.FinishGraph();
    EXPECT_TRUE(samePixels(drawn(select), drawn(rectangle)));
    EXPECT_FALSE(isBlank(drawn(select)));
}

TEST(CInkRgnSelect, layersThatAreNoImages)
{
    const MessageLog log;
    QPicture recording;
    QPainter recorder(&recording), idle;
    for (QPainter *none : {&recorder, &idle}) {
        Selection noInk;
        FullLayers layers;
        {
            QPainter p1(&layers.page), p2(&layers.surface), p3(&layers.background);
            noInk.Draw(p1, p2, p3, *none, kAll, 0, 0);
        }
        EXPECT_EQ(noInk.m_pImage, nullptr);
        layers.ink = gradient(40);
        QImage patched = gradient(10);
        QPainter(&patched).drawImage(QPoint(100, 100), gradient(30), QRect(100, 100, 51, 31));
        EXPECT_TRUE(samePixels(layers.page, patched)); // patched all the same

        Selection noBackground;
        {
            layers.page = gradient(10);
            QPainter p1(&layers.page), p2(&layers.surface), p4(&layers.ink);
            noBackground.Draw(p1, p2, *none, p4, kAll, 0, 0);
        }
        EXPECT_TRUE(samePixels(layers.page, gradient(10)));
        EXPECT_EQ(layers.ink.pixel(100, 100), 0U); // cut all the same
        EXPECT_EQ(layers.ink.pixel(99, 100), gradient(40).pixel(99, 100));
        ASSERT_NE(noBackground.m_pImage, nullptr);
        EXPECT_TRUE(samePixels(*noBackground.m_pImage, gradient(40, QImage::Format_ARGB32).copy(100, 100, 51, 31)));

        Selection nowhere;
        nowhere.Draw(*none, *none, *none, *none, kAll, 0, 0);
        EXPECT_EQ(nowhere.m_pImage, nullptr);
    }
    Selection select;
    select.FormSelBmp(nullptr);
    EXPECT_EQ(select.m_pImage, nullptr);
}

TEST(CInkRgnSelect, strangeListsAndBoxesCrashNothing)
{
    for (const int size : {0, 1}) {
        Selection select;
        select.m_graphData.resize(size);
        FullLayers layers;
        layers.draw(select);
        select.m_bFinished = 0;
        layers.draw(select);
        feed(select, PT_MOVE, 10, 10);
        feed(select, PT_UP, 30, 30);
        EXPECT_EQ(select.m_graphData.size(), 2);
        EXPECT_POINT(select.m_graphData.at(1), 30.0, 30.0);
    }
    const MessageLog log;
    for (const QPoint &far : {QPoint(INT_MAX, INT_MAX), QPoint(INT_MIN, INT_MIN), QPoint(1000000, -1000000)}) {
        CInkRgnSelect select;
        feed(select, PT_DOWN, -7, 5);
        feed(select, PT_MOVE, far.x(), far.y());
        feed(select, PT_UP, far.x(), far.y());
        EXPECT_EQ(select.m_bEditMode, 1);
        FullLayers layers;
        layers.draw(select, kAll);
    }
}
