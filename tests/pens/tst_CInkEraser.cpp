// The eraser below its layers: how it collects, what it reports, its pen.

#include "CInkEraser.h"
#include "PenStroke.h"

#include <QtGui/QBrush>
#include <QtGui/QPen>
#include <QtGui/QPicture>

#include <gtest/gtest.h>

#include <climits>

namespace {

class CountedCache : public CInkWidthCache
{
public:
    explicit CountedCache(int &deleted)
        : m_deleted(deleted)
    {
    }
    ~CountedCache() override { ++m_deleted; }

private:
    int &m_deleted;
};

class WideEraser : public CInkEraser
{
public:
    WideEraser() { CInkEraser::SetWidth(10); }
};

} // namespace

TEST(CInkEraser, newEraserHasNoPen)
{
    CInkEraser eraser;
    EXPECT_EQ(eraser.m_pErasePen, nullptr);
    EXPECT_EQ(eraser.m_pEraseBrush, nullptr);
    EXPECT_EQ(eraser.m_nWidth, 1);
    EXPECT_EQ(eraser.m_nCapStyle, 32);
    EXPECT_EQ(eraser.GetPointCount(), 0);
    EXPECT_GE(eraser.m_graphData.capacity(), 10);
    EXPECT_FALSE(eraser.FinishGraph());
    EXPECT_EQ(eraser.m_bFinished, 0);
    EXPECT_NULL_RECT(eraser.GetUpdateRect());
}

TEST(CInkEraser, everyCodeAppendsThePosition)
{
    WideEraser eraser;
    int count = 0;
    for (const int code : {99, 0, 3, 4, 5, 1, -1, 1}) {
        SCOPED_TRACE(code);
        eraser.m_bSparePoint = 1;
        feed(eraser, code, 10 * count, 7);
        ASSERT_EQ(eraser.GetPointCount(), ++count);
        EXPECT_POINT(eraser.m_graphData.last(), 10 * (count - 1), 7);
        EXPECT_EQ(eraser.m_nPointCount, 0);
        EXPECT_EQ(eraser.m_bSparePoint, 1);
        EXPECT_EQ(eraser.m_bFinished, 0);
        EXPECT_EQ(eraser.m_bEditMode, 0);
    }
    feed(eraser, PT_MOVE, 16'777'217, -16'777'217);
    EXPECT_POINT(eraser.m_graphData.last(), 16'777'216, -16'777'216);
}

TEST(CInkEraser, releaseCommitsWithAFrameOfTwoWidths)
{
    WideEraser eraser;
    feed(eraser, PT_DOWN, 100, 100);
    feed(eraser, PT_MOVE, 150, 130);
    // Before (70,70) to (180,160), after (80,60) to (180,150).
    EXPECT_EDGES(feed(eraser, PT_UP, 160, 80), 70, 60, 180, 160);
    EXPECT_EQ(eraser.GetPointCount(), 3);
    EXPECT_EQ(eraser.m_bEditMode, 1);
    EXPECT_EQ(eraser.m_bFinished, 1);
    EXPECT_EQ(eraser.m_bHideHotShape, 1);
    EXPECT_EQ(eraser.m_nPointCount, 0);
    EXPECT_EDGES(eraser.m_rcHot, 80, 60, 180, 150);
    EXPECT_EDGES(eraser.GetUpdateRect(), 80, 60, 180, 150);

    QRect update(1, 2, 3, 4);
    eraser.AddPoint(PT_MOVE, QPoint(300, 200), update);
    EXPECT_EDGES(update, 1, 2, 3, 5);
    EXPECT_EQ(eraser.GetPointCount(), 3);

    CInkEraser lone;
    EXPECT_EDGES(feed(lone, PT_UP, 50, 60), 48, 58, 52, 62);
    EXPECT_EQ(lone.m_bFinished, 1);
}

TEST(CInkEraser, finishingCommitsWithTheFrameOfAPen)
{
    WideEraser eraser;
    feed(eraser, PT_DOWN, 100, 100);
    EXPECT_TRUE(eraser.FinishGraph());
    EXPECT_EQ(eraser.m_bEditMode, 1);
    EXPECT_EQ(eraser.m_bFinished, 1);
    EXPECT_EQ(eraser.m_bHideHotShape, 1);
    EXPECT_EDGES(eraser.GetUpdateRect(), 68, 68, 132, 132);
}

TEST(CInkEraser, onePointReportsASquareGrownByThreeWidths)
{
    const struct
    {
        int width;
        QRect reported;
    } cases[] = {{10, {QPoint(10, 10), QPoint(90, 90)}},
                 {1, {QPoint(46, 46), QPoint(54, 54)}},
                 {0, {QPoint(50, 50), QPoint(50, 50)}},
                 {7, {QPoint(22, 22), QPoint(78, 78)}}};
    for (const auto &c : cases) {
        SCOPED_TRACE(c.width);
        CInkEraser eraser;
        eraser.SetWidth(c.width);
        EXPECT_EQ(feed(eraser, PT_DOWN, 50, 50), c.reported);
    }
    WideEraser eraser;
    eraser.m_graphData = {QPointF(50.9, -0.9)};
    EXPECT_EDGES(eraser.GetUpdateRect(), 10, -40, 90, 40);
}

TEST(CInkEraser, newestSegmentIsReportedInEveryDirection)
{
    const struct
    {
        QPointF from, to;
        QRect reported;
    } cases[] = {{{100, 100}, {150, 130}, {QPoint(70, 70), QPoint(180, 160)}},
                 {{150, 130}, {100, 100}, {QPoint(70, 70), QPoint(180, 160)}},
                 {{150, 100}, {100, 130}, {QPoint(70, 70), QPoint(180, 160)}},
                 {{100, 100}, {100, 100}, {QPoint(70, 70), QPoint(130, 130)}},
                 {{100.9, 100.9}, {150.9, 130.9}, {QPoint(70, 70), QPoint(180, 160)}},
                 // The tip is the left and top edge; one pixel the wrong way round stays so until it is grown.
                 {{100, 100}, {101, 101}, {QPoint(71, 71), QPoint(130, 130)}},
                 {{100, 100}, {102, 102}, {QPoint(70, 70), QPoint(132, 132)}},
                 {{101, 101}, {100, 100}, {QPoint(70, 70), QPoint(131, 131)}}};
    for (const auto &c : cases) {
        SCOPED_TRACE(testing::Message() << c.from.x() << ',' << c.from.y() << " to " << c.to.x() << ',' << c.to.y());
        WideEraser eraser;
        eraser.m_graphData = {QPointF(0, 0), c.from, c.to};
        EXPECT_EQ(eraser.GetUpdateRect(), c.reported);
    }
}

TEST(CInkEraser, eventUnitesWhatWasAndWhatIsReported)
{
    WideEraser eraser;
    EXPECT_EDGES(feed(eraser, PT_DOWN, 50, 50), 10, 10, 90, 90);
    EXPECT_EDGES(feed(eraser, PT_MOVE, 150, 60), 10, 10, 180, 90);
    EXPECT_EDGES(feed(eraser, PT_MOVE, 250, 60), 20, 20, 280, 90);
    QRect update(0, 0, 2, 2);
    eraser.AddPoint(PT_MOVE, QPoint(250, 60), update);
    EXPECT_EDGES(update, 0, 0, 280, 90);
}

TEST(CInkEraser, labelAndIconAreReportedWhileTheStrokeGrows)
{
    CInkEraser eraser;
    eraser.m_sizeName = QSize(60, 20);
    eraser.ShowDrawerName(1);
    eraser.ShowDrawerIcon(1);
    feed(eraser, PT_DOWN, 100, 100);
    // The square (96,96) to (104,104), the label at the point, the icon around it.
    EXPECT_EDGES(eraser.GetUpdateRect(), 85, 85, 159, 119);
    EXPECT_EDGES(eraser.m_rcName, 100, 100, 159, 119);
    EXPECT_EDGES(eraser.m_rcIcon, 85, 85, 114, 114);
    feed(eraser, PT_MOVE, 200, 110);
    EXPECT_EDGES(eraser.GetUpdateRect(), 97, 95, 259, 129);
    EXPECT_EDGES(eraser.m_rcName, 200, 110, 259, 129);
    EXPECT_EDGES(eraser.m_rcIcon, 185, 95, 214, 124);
    EXPECT_EDGES(eraser.GetDisIconRect(), 200, 80, 229, 109); // the pencil's, not used here

    eraser.ShowDrawerName(0);
    eraser.ShowDrawerIcon(0);
    EXPECT_EDGES(eraser.GetUpdateRect(), 97, 97, 203, 113);
    EXPECT_NULL_RECT(eraser.m_rcName);
    EXPECT_NULL_RECT(eraser.m_rcIcon);
}

TEST(CInkEraser, frameIsReportedOnceFormed)
{
    WideEraser eraser;
    eraser.m_sizeName = QSize(600, 200);
    feed(eraser, PT_DOWN, 100, 100);
    eraser.ShowDrawerName(1);
    eraser.ShowDrawerIcon(1);
    eraser.m_bEditMode = 1;
    eraser.m_rcHot = QRect(3, 4, 5, 6);
    EXPECT_EDGES(eraser.GetUpdateRect(), 3, 4, 7, 9);
    EXPECT_NULL_RECT(eraser.m_rcName);
    EXPECT_NULL_RECT(eraser.m_rcIcon);
    // The edit mode decides, not the commit.
    eraser.m_bEditMode = 0;
    eraser.m_bFinished = 1;
    eraser.ShowDrawerName(0);
    eraser.ShowDrawerIcon(0);
    EXPECT_EDGES(eraser.GetUpdateRect(), 60, 60, 140, 140);
}

TEST(CInkEraser, settingTheWidthFreesWhatDependsOnIt)
{
    int deleted = 0;
    CInkEraser eraser;
    eraser.m_pWidthCache = new CountedCache(deleted);
    eraser.SetWidth(1); // even the width that it has
    EXPECT_EQ(deleted, 1);
    EXPECT_EQ(eraser.m_pWidthCache, nullptr);
    eraser.SetWidth(8);
    EXPECT_EQ(deleted, 1);
    EXPECT_EQ(eraser.m_nWidth, 8);
    EXPECT_EQ(eraser.m_pErasePen, nullptr);
}

TEST(CInkEraser, penIsMadeOfTheBackground)
{
    WideEraser eraser;
    QImage background = blankCanvas({40, 30}, Qt::green);
    QPainter painter(&background);
    eraser.FormErasePen(painter);
    ASSERT_NE(eraser.m_pErasePen, nullptr);
    ASSERT_NE(eraser.m_pEraseBrush, nullptr);
    EXPECT_EQ(eraser.m_pErasePen->widthF(), 10.0);
    EXPECT_EQ(eraser.m_pErasePen->style(), Qt::SolidLine);
    EXPECT_EQ(eraser.m_pErasePen->capStyle(), Qt::RoundCap);
    EXPECT_EQ(eraser.m_pErasePen->joinStyle(), Qt::BevelJoin);
    EXPECT_EQ(eraser.m_pErasePen->brush(), *eraser.m_pEraseBrush);
    EXPECT_EQ(eraser.m_pEraseBrush->style(), Qt::TexturePattern);
    EXPECT_TRUE(eraser.m_pEraseBrush->transform().isIdentity());
    EXPECT_TRUE(samePixels(eraser.m_pEraseBrush->textureImage(), background));
}

TEST(CInkEraser, penTakesTheCapOfThePencil)
{
    WideEraser eraser;
    eraser.m_nCapStyle = Qt::FlatCap;
    eraser.m_nPenStyle = Qt::DashLine;
    QImage background = blankCanvas({40, 30}, Qt::green);
    QPainter painter(&background);
    eraser.FormErasePen(painter);
    EXPECT_EQ(eraser.m_pErasePen->capStyle(), Qt::FlatCap);
    EXPECT_EQ(eraser.m_pErasePen->style(), Qt::SolidLine);
}

TEST(CInkEraser, textureIsACopyThatOutlivesTheBackground)
{
    WideEraser eraser;
    {
        QImage background = blankCanvas({40, 30}, Qt::green);
        QPainter painter(&background);
        eraser.FormErasePen(painter);
        painter.fillRect(background.rect(), Qt::red);
    }
    EXPECT_TRUE(samePixels(eraser.m_pEraseBrush->textureImage(), blankCanvas({40, 30}, Qt::green)));
}

TEST(CInkEraser, textureIsACopyOfPixelsThatTheHostOwns)
{
    WideEraser eraser;
    QVector<QRgb> pixels(40 * 30, 0xff00ff00);
    {
        QImage background(reinterpret_cast<uchar *>(pixels.data()), 40, 30, QImage::Format_RGB32);
        QPainter painter(&background);
        eraser.FormErasePen(painter);
    }
    pixels.fill(0xffff0000);
    EXPECT_EQ(eraser.m_pEraseBrush->textureImage().pixel(7, 7), 0xff00ff00);
}

TEST(CInkEraser, penFollowsTheWidthOnlyWhenItIsMadeAgain)
{
    WideEraser eraser;
    QImage background = blankCanvas({40, 30}, Qt::green);
    QPainter painter(&background);
    eraser.FormErasePen(painter);
    eraser.SetWidth(25);
    EXPECT_EQ(eraser.m_pErasePen->widthF(), 10.0);
    painter.fillRect(background.rect(), Qt::blue);
    eraser.FormErasePen(painter);
    EXPECT_EQ(eraser.m_pErasePen->widthF(), 25.0);
    EXPECT_EQ(eraser.m_pEraseBrush->textureImage().pixel(1, 1), 0xff0000ff);
}

TEST(CInkEraser, backgroundThatIsNoImageGivesAnEmptyBrush)
{
    WideEraser eraser;
    QPicture picture;
    QPainter recorder(&picture);
    eraser.FormErasePen(recorder);
    ASSERT_NE(eraser.m_pEraseBrush, nullptr);
    ASSERT_NE(eraser.m_pErasePen, nullptr);
    EXPECT_EQ(eraser.m_pEraseBrush->style(), Qt::NoBrush);
    QPainter idle;
    eraser.FormErasePen(idle);
    EXPECT_EQ(eraser.m_pEraseBrush->style(), Qt::NoBrush);
}

TEST(CInkEraser, onOnePainterItIsAPencil)
{
    CInkEraser eraser;
    feedZigzag(eraser);
    eraser.SetWidth(8);
    eraser.SetColor(QColor(255, 0, 0, 120));
    EXPECT_TRUE(samePixels(drawn(eraser), smoothStroke(zigzagPath(), roundPen(QColor(255, 0, 0, 120), 8))));
    EXPECT_EQ(eraser.m_pErasePen, nullptr);
    EXPECT_EDGES(clipAfterDraw(eraser, QRect()), 86, 36, 144, 174);
}

TEST(CInkEraser, hostileValuesAreSurvived)
{
    for (const int width : {INT_MIN, -7, 0, INT_MAX}) {
        for (const int far : {INT_MIN, 16'777'217, INT_MAX}) {
            CInkEraser eraser;
            eraser.SetWidth(width);
            eraser.ShowDrawerName(1);
            eraser.ShowDrawerIcon(1);
            feed(eraser, PT_DOWN, far, 80);
            feed(eraser, PT_MOVE, 10, far);
            feed(eraser, PT_UP, far, far);
            eraser.m_bEditMode = 0;
            eraser.GetUpdateRect();
            eraser.m_graphData.clear();
            EXPECT_NULL_RECT(eraser.GetUpdateRect());
        }
    }
}
