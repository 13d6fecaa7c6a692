// The text frame: how it is dragged, laid out, moved and stretched, and the image that commits it.

#include "CInkText.h"
#include "Canvas.h"
#include "Exact.h"
#include "TextFrame.h"

#include <QtCore/QBuffer>
#include <QtCore/QByteArray>

#include <gtest/gtest.h>

#include <climits>

namespace {

struct Layout
{
    QRect hot, image, tab, corner, text;
};

void expectLayout(const CInkText &text, const Layout &expected)
{
    EXPECT_EDGES(text.m_rcHot, expected.hot.left(), expected.hot.top(), expected.hot.right(), expected.hot.bottom());
    EXPECT_EDGES(text.m_rcImage, expected.image.left(), expected.image.top(), expected.image.right(),
                 expected.image.bottom());
    EXPECT_EDGES(text.m_rcMoveTab, expected.tab.left(), expected.tab.top(), expected.tab.right(),
                 expected.tab.bottom());
    EXPECT_EDGES(text.m_rcStretchCorner, expected.corner.left(), expected.corner.top(), expected.corner.right(),
                 expected.corner.bottom());
    EXPECT_EDGES(text.m_rcText, expected.text.left(), expected.text.top(), expected.text.right(),
                 expected.text.bottom());
}

QRect through(int left, int top, int right, int bottom)
{
    return {QPoint(left, top), QPoint(right, bottom)};
}

const Layout kEdited{through(100, 100, 299, 249), through(100, 100, 299, 233), through(177, 249, 221, 272),
                     through(283, 233, 298, 248), through(100, 100, 299, 271)};

void expectPoints(const CInkText &text, double x0, double y0, double x1, double y1)
{
    ASSERT_EQ(text.m_graphData.size(), 2);
    EXPECT_POINT(text.m_graphData[0], x0, y0);
    EXPECT_POINT(text.m_graphData[1], x1, y1);
}

void expectCommittedWithImage(const CInkText &text)
{
    EXPECT_EQ(text.m_nPointCount, 2);
    EXPECT_EQ(text.m_bEditMode, 1);
    EXPECT_EQ(text.m_bFinished, 1);
    EXPECT_EQ(text.m_bHideHotShape, 1);
}

int s_freed = 0;
uchar s_pixels[16] = {};

// A 2 x 2 image that counts in s_freed when the last copy of it is gone.
QImage countedImage()
{
    return QImage(
        s_pixels, 2, 2, QImage::Format_ARGB32, [](void *) { ++s_freed; }, nullptr);
}

QByteArray encoded(const QImage &image, const char *format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    EXPECT_TRUE(image.save(&buffer, format));
    return bytes;
}

} // namespace

TEST(CInkText, freshTextHasNoFrameAndNoImage)
{
    CInkText text;
    EXPECT_EQ(text.m_nWidth, 4);
    EXPECT_EQ(text.m_penStyle, Qt::SolidLine);
    EXPECT_EQ(text.GetPointCount(), 0);
    expectPoints(text, 0, 0, 0, 0);
    expectLayout(text, Layout());
    EXPECT_EQ(text.m_bClickOutside, 0);
    EXPECT_TRUE(text.m_strText.isEmpty());
    EXPECT_EQ(text.GetTextImage(), nullptr);
    EXPECT_EQ(text.FinishGraph(), false);
    EXPECT_EQ(text.m_bFinished, 0);
    EXPECT_NULL_RECT(text.GetUpdateRect());
    EXPECT_EQ(text.AroundHotPts(QPoint(0, 0)), MT_NONE);
}

TEST(CInkText, pressMovesAndReleaseFormTheFrame)
{
    CInkText text;
    EXPECT_EDGES(feed(text, PT_DOWN, 100, 80), 90, 70, 119, 99);
    EXPECT_EQ(text.GetPointCount(), 1);
    expectPoints(text, 100, 80, 100, 80);
    EXPECT_EDGES(feed(text, PT_MOVE, 150, 130), 90, 70, 160, 140);
    EXPECT_EQ(text.GetPointCount(), 2);
    expectPoints(text, 100, 80, 150, 130);
    EXPECT_EDGES(feed(text, PT_MOVE, 40, 20), 30, 10, 160, 140); // the old box and the new
    EXPECT_EDGES(feed(text, PT_UP, 299, 249), 30, 10, 309, 281);
    EXPECT_EQ(text.m_bEditMode, 1);
    EXPECT_EQ(text.m_bFinished, 0);
    expectLayout(text, {through(100, 80, 299, 249), through(100, 80, 299, 233), through(177, 249, 221, 272),
                        through(283, 233, 298, 248), through(100, 80, 299, 271)});
    for (const QPointF &handle : text.m_hotPts)
        EXPECT_POINT(handle, 0.0, 0.0);
}

TEST(CInkText, everyOtherCodeIsAMoveOnceItIsPressed)
{
    for (const int code : {0, 3, 4, 5, 6, 99, -1, INT_MIN}) {
        SCOPED_TRACE(code);
        CInkText text;
        EXPECT_NULL_RECT(feed(text, code, 50, 60));
        EXPECT_EQ(text.GetPointCount(), 0);
        expectPoints(text, 0, 0, 0, 0);
        feed(text, PT_DOWN, 100, 80);
        EXPECT_EDGES(feed(text, code, 150, 130), 90, 70, 160, 140);
        EXPECT_EQ(text.GetPointCount(), 2);
        expectPoints(text, 100, 80, 150, 130);
        EXPECT_EQ(text.m_bEditMode, 0);
    }
    CInkText released;
    EXPECT_NULL_RECT(feed(released, PT_UP, 50, 60));
    EXPECT_EQ(released.m_bFinished, 0);
}

TEST(CInkText, updateIsUnitedAndReturned)
{
    CInkText text;
    QRect update(0, 0, 10, 10);
    EXPECT_EDGES(text.FormGraphData(PT_DOWN, QPoint(100, 80), update), 0, 0, 119, 99);
    EXPECT_EDGES(update, 0, 0, 119, 99);
    EXPECT_EDGES(text.FormGraphData(PT_MOVE, QPoint(200, 90), update), 0, 0, 210, 100);
    EXPECT_EDGES(update, 0, 0, 210, 100);
}

TEST(CInkText, formingLeavesTheSparePointFlag)
{
    for (const int spare : {0, 1}) {
        CInkText text;
        text.m_bSparePoint = spare;
        QRect update;
        for (const int code : {PT_DOWN, PT_MOVE, PT_UP}) {
            text.FormGraphData(code, QPoint(100 + 100 * code, 100 * code), update);
            EXPECT_EQ(text.m_bSparePoint, spare);
        }
    }
    CInkText text;
    feed(text, PT_DOWN, 100, 80);
    feed(text, PT_MOVE, 200, 180);
    EXPECT_EQ(text.IsSparePoint(), 0);
    EditedText edited;
    feed(edited, PT_DOWN, 200, 260);
    feed(edited, PT_MOVE, 210, 265);
    EXPECT_EQ(edited.IsSparePoint(), 0);
}

TEST(CInkText, flatOrTinyFrameIsAbandoned)
{
    const struct
    {
        QPoint release;
        bool kept;
    } rows[] = {
        {{100, 100}, false}, {{300, 100}, false}, {{100, 300}, false}, {{101, 101}, false}, {{99, 101}, false},
        {{-50, 100}, false}, {{102, 101}, true},  {{99, 98}, true},    {{101, 300}, true},  {{300, 99}, true},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.release.x() * 1000 + row.release.y());
        CInkText text;
        feed(text, PT_DOWN, 100, 100);
        feed(text, PT_UP, row.release.x(), row.release.y());
        EXPECT_EQ(text.m_bFinished, row.kept ? 0 : 1);
        EXPECT_EQ(text.m_bHideHotShape, row.kept ? 0 : 1);
        EXPECT_EQ(text.m_bEditMode, row.kept ? 1 : 0);
        if (!row.kept) {
            expectLayout(text, Layout());
            expectPoints(text, 100, 100, row.release.x(), row.release.y());
            EXPECT_NULL_RECT(feed(text, PT_DOWN, 10, 10));
        }
    }
    // Above 2^24 neighbouring columns are one.
    CInkText far;
    feed(far, PT_DOWN, 16777216, 100);
    feed(far, PT_UP, 16777217, 300);
    EXPECT_EQ(far.m_bFinished, 1);
}

TEST(CInkText, dragOfExactlyTwoPixelsIsAbandoned)
{
    for (const double x : {100.8, 100.75}) {
        CInkText text;
        feed(text, PT_DOWN, 100, 100);
        text.m_graphData[0] = QPointF(x, 101.6); // 1.2 or 1.25, and 1.6, from the release
        feed(text, PT_UP, 102, 100);
        EXPECT_EQ(text.m_bFinished, x == 100.8 ? 1 : 0);
    }
}

TEST(CInkText, smallFrameIsWidenedAboutTheCentreOfCornerAndSize)
{
    const struct
    {
        QPoint press, release;
        double x0, y0, x1, y1;
        QRect frame;
    } rows[] = {
        {{40, 40}, {100, 300}, 29, 40, 149, 300, through(29, 40, 149, 300)},
        {{10, 10}, {120, 90}, 9, 9, 129, 99, through(9, 9, 129, 99)}, // spans of 119 and 89
        {{10, 10}, {121, 91}, 10, 10, 121, 91, through(10, 10, 121, 91)},
        {{200, 200}, {150, 120}, 200, 200, 150, 120, through(150, 120, 200, 200)}, // large by its coordinates
        {{40, 40}, {0, 300}, -21, 40, 99, 300, through(-21, 40, 99, 300)},
        {{40, 40}, {-1, 300}, -21, 40, 99, 300, through(-21, 40, 99, 300)},
        {{40, 40}, {-50, 300}, -46, 40, 74, 300, through(-46, 40, 74, 300)},
        {{40, 40}, {-118, 300}, -79, 40, 41, 300, through(-79, 40, 41, 300)},
        {{40, 40}, {-119, 300}, 40, 40, -119, 300, through(-119, 40, 40, 300)},
        {{40, 40}, {300, 41}, 40, 15, 300, 105, through(40, 15, 300, 105)},
        {{40, 40}, {300, -20}, 40, -16, 300, 74, through(40, -16, 300, 74)},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.release.x() * 1000 + row.release.y());
        CInkText text;
        feed(text, PT_DOWN, row.press.x(), row.press.y());
        feed(text, PT_UP, row.release.x(), row.release.y());
        expectPoints(text, row.x0, row.y0, row.x1, row.y1);
        EXPECT_EDGES(text.m_rcHot, row.frame.left(), row.frame.top(), row.frame.right(), row.frame.bottom());
        EXPECT_EQ(text.m_bEditMode, 1);
        EXPECT_EQ(text.m_bFinished, 0);
    }
}

TEST(CInkText, setHotDataGrowsTheBoxOfAllPointsAndLaysOut)
{
    CInkText text;
    text.m_graphData = {QPointF(200.9, -0.9), QPointF(-10.9, 300.9), QPointF(50, 100)};
    text.SetHotData(5, 7);
    expectLayout(text, {through(-15, -7, 205, 307), through(-15, -7, 205, 291), through(73, 307, 117, 330),
                        through(189, 291, 204, 306), through(-15, -7, 205, 329)});
    // A centre between two negative pixels is rounded toward zero.
    text.m_graphData = {QPointF(-101, 0), QPointF(-100, 0)};
    text.SetHotData(0, 0);
    EXPECT_EDGES(text.m_rcMoveTab, -122, 0, -78, 23);
    const QRect before = text.m_rcText;
    text.m_graphData.clear();
    text.SetHotData(5, 7);
    EXPECT_EQ(text.m_rcText, before);
}

TEST(CInkText, frameLosesTwoPixelsOfHeightEachTime)
{
    EditedText text;
    text.ResetHotData(text.m_rcText);
    expectLayout(text, {through(100, 100, 299, 247), through(100, 100, 299, 231), through(177, 247, 221, 270),
                        through(283, 231, 298, 246), through(100, 100, 299, 271)});
    expectPoints(text, 100, 100, 299, 249);
    for (const QPointF &handle : text.m_hotPts)
        EXPECT_POINT(handle, 0.0, 0.0);
    text.ResetHotData(QRect());
    expectLayout(text, {through(0, 0, -1, -25), through(0, 0, -1, -41), through(-22, -25, 22, -2),
                        through(-17, -41, -2, -26), through(0, 0, -1, -1)});
}

TEST(CInkText, onlyTabAndCornerEdit)
{
    const struct
    {
        QPoint pt;
        ModifyType type;
    } rows[] = {
        {{177, 249}, MT_MOVE}, {{221, 272}, MT_MOVE}, {{176, 260}, MT_NONE},         {{222, 260}, MT_NONE},
        {{200, 248}, MT_NONE}, {{200, 273}, MT_NONE}, {{283, 233}, MT_RIGHT_BOTTOM}, {{298, 248}, MT_RIGHT_BOTTOM},
        {{282, 240}, MT_NONE}, {{299, 240}, MT_NONE}, {{290, 232}, MT_NONE},         {{290, 249}, MT_NONE},
        {{150, 150}, MT_NONE}, {{100, 100}, MT_NONE},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.pt.x() * 1000 + row.pt.y());
        EditedText text;
        text.m_ptLast = QPointF(-1, -2);
        EXPECT_EQ(text.IsPtInModifyZone(row.pt), row.type != MT_NONE);
        EXPECT_POINT(text.m_ptLast, -1.0, -2.0);
        EXPECT_EQ(text.DecideModiFyType(row.pt), row.type);
        const bool stretches = row.type == MT_RIGHT_BOTTOM; // which alone stores the pointer
        EXPECT_POINT(text.m_ptLast, stretches ? row.pt.x() : -1.0, stretches ? row.pt.y() : -2.0);
        EXPECT_EQ(text.m_modifyType, MT_NONE);

        text.m_modifyType = MT_ROTATE;
        feed(text, PT_DOWN, row.pt.x(), row.pt.y());
        EXPECT_EQ(text.m_modifyType, row.type);
        EXPECT_EQ(text.m_bClickOutside, row.type == MT_NONE ? 1 : 0);
        EXPECT_EQ(text.m_bFinished, 0);
        EXPECT_EQ(text.m_bHideHotShape, 0);
        EXPECT_EQ(text.m_bEditMode, 1);
        const bool kept = row.type == MT_NONE;
        EXPECT_POINT(text.m_ptLast, kept ? -1.0 : row.pt.x(), kept ? -2.0 : row.pt.y());
        expectLayout(text, kEdited);
    }
}

TEST(CInkText, tabWinsOverTheCorner)
{
    EditedText text;
    text.m_rcStretchCorner = text.m_rcMoveTab;
    EXPECT_EQ(text.DecideModiFyType(QPoint(200, 260)), MT_MOVE);
    text.m_fRotateAngle = 90; // of no effect
    EXPECT_EQ(text.DecideModiFyType(QPoint(200, 260)), MT_MOVE);
}

TEST(CInkText, pressOutsideLeavesTheDecisionToTheHost)
{
    EditedText text;
    EXPECT_EDGES(feed(text, PT_DOWN, 350, 20), 90, 90, 309, 281);
    EXPECT_EQ(text.m_bClickOutside, 1);
    EXPECT_EQ(text.m_bFinished, 0);
    feed(text, PT_MOVE, 400, 50);
    expectLayout(text, kEdited);
    feed(text, PT_DOWN, 200, 260); // the flag stays
    EXPECT_EQ(text.m_bClickOutside, 1);
    EXPECT_EQ(text.m_modifyType, MT_MOVE);
}

TEST(CInkText, moveByTheTabShiftsEverything)
{
    EditedText text;
    feed(text, PT_DOWN, 200, 260);
    EXPECT_EDGES(feed(text, PT_MOVE, 210, 265), 90, 90, 319, 286);
    expectPoints(text, 110, 105, 309, 254);
    EXPECT_POINT(text.m_ptLast, 210.0, 265.0);
    const Layout moved{through(110, 105, 309, 254), through(110, 105, 309, 238), through(187, 254, 231, 277),
                       through(293, 238, 308, 253), through(110, 105, 309, 276)};
    expectLayout(text, moved);
    for (const int code : {int(PT_UP), 0, 3, 4, 99, -1}) {
        EXPECT_EDGES(feed(text, code, 250, 300), 100, 95, 319, 286); // none of them moves it
        expectLayout(text, moved);
        expectPoints(text, 110, 105, 309, 254);
    }
    feed(text, PT_MOVE, 200, 260);
    expectLayout(text, kEdited);
}

TEST(CInkText, moveGraphShiftsByWholePixelsButNotTheHandleBox)
{
    EditedText text;
    text.MoveGraph(1.75f, -1.75f);
    expectPoints(text, 101.75, 98.25, 300.75, 247.25);
    expectLayout(text, {kEdited.hot, through(101, 99, 300, 232), through(178, 248, 222, 271),
                        through(284, 232, 299, 247), through(101, 99, 300, 270)});
    CInkText fresh; // also what is null
    fresh.MoveGraph(QPoint(30, 40), QPoint(10, 10));
    expectLayout(fresh, {QRect(), through(20, 30, 19, 29), through(20, 30, 19, 29), through(20, 30, 19, 29),
                         through(20, 30, 19, 29)});
    expectPoints(fresh, 20, 30, 20, 30);
}

TEST(CInkText, stretchScalesThePointsAboutAHandleThatIsNeverSet)
{
    const Layout stretched{through(100, 100, 400, 325), through(100, 100, 400, 309), through(228, 325, 272, 348),
                           through(384, 309, 399, 324), through(100, 100, 400, 347)};
    EditedText text;
    feed(text, PT_DOWN, 290, 240);
    EXPECT_EDGES(feed(text, PT_MOVE, 400, 325), 90, 90, 410, 357);
    expectPoints(text, 150, 150, 448.5, 373.5);
    expectLayout(text, stretched);
    feed(text, PT_UP, 500, 500);
    expectLayout(text, stretched);

    EditedText hosted;
    hosted.m_hotPts[4] = QPointF(100, 100);
    feed(hosted, PT_DOWN, 290, 240);
    feed(hosted, PT_MOVE, 400, 325);
    expectPoints(hosted, 100, 100, 398.5, 323.5);
    expectLayout(hosted, stretched);

    EditedText moved; // which shifts the handle too
    drag(moved, {200, 260}, {210, 265});
    feed(moved, PT_DOWN, 300, 245);
    feed(moved, PT_MOVE, 410, 330);
    expectPoints(moved, 160, 155, 458.5, 378.5);
}

TEST(CInkText, stretchFactorsAreOfSinglePrecision)
{
    CInkText text;
    drag(text, {100, 100}, {300, 250});
    text.m_modifyType = MT_RIGHT_BOTTOM;
    text.StretchGraph(QPoint(400, 350));
    expectPoints(text, 149.2537260055542, 165.56291580200195, 447.7611780166626, 413.9072895050049);
}

TEST(CInkText, stretchStopsAt56By61)
{
    for (const QPoint &refused : {QPoint(155, 161), QPoint(156, 160), QPoint(155, 400), QPoint(400, 160),
                                  QPoint(100, 100), QPoint(-400, -400), QPoint(INT_MIN, INT_MIN)}) {
        EditedText text;
        feed(text, PT_DOWN, 290, 240);
        feed(text, PT_MOVE, refused.x(), refused.y());
        expectLayout(text, kEdited);
        expectPoints(text, 100, 100, 299, 249);
    }
    EditedText text;
    feed(text, PT_DOWN, 290, 240);
    feed(text, PT_MOVE, 156, 161);
    expectLayout(text, {through(100, 100, 156, 161), through(100, 100, 156, 145), through(106, 161, 150, 184),
                        through(140, 145, 155, 160), through(100, 100, 156, 183)});
}

TEST(CInkText, anyOtherTypeShrinksThePointsButNotTheFrame)
{
    for (const int type : {int(MT_NONE), int(MT_LEFT_TOP), int(MT_BOTTOM), int(MT_MOVE)}) {
        CInkText text;
        drag(text, {100, 100}, {355, 227});
        text.m_hotPts[4] = QPointF(50, 50); // not used
        text.m_rcImage = text.m_rcMoveTab = text.m_rcStretchCorner = text.m_rcText = QRect();
        text.m_modifyType = type;
        text.StretchGraph(QPoint(900, 900));
        expectPoints(text, 99.609375, 99.21875, 353.61328125, 225.2265625);
        expectLayout(text, {through(100, 100, 355, 227), through(100, 100, 355, 211), through(205, 227, 249, 250),
                            through(339, 211, 354, 226), through(100, 100, 355, 249)});
    }
}

TEST(CInkText, shownLabelAndIconAreUnitedButNotLaidOut)
{
    CInkText fresh, pressed;
    feed(pressed, PT_DOWN, 100, 100);
    DraggedText dragged;
    EditedText edited;
    const struct
    {
        CInkText &text;
        QRect covered, withLabels;
    } rows[] = {
        {fresh, QRect(), through(400, 3, 509, 419)},
        {pressed, through(90, 90, 119, 119), through(90, 3, 509, 419)},
        {dragged, through(90, 90, 309, 259), through(90, 3, 509, 419)},
        {edited, through(90, 90, 309, 281), through(90, 3, 509, 419)},
    };
    for (const auto &row : rows) {
        row.text.m_sizeName = QSize(60, 20);
        row.text.m_rcName = through(400, 400, 449, 419);
        row.text.m_rcIcon = through(500, 3, 509, 12);
        row.text.ShowDrawerName(1);
        row.text.ShowDrawerIcon(1);
        EXPECT_EQ(row.text.GetUpdateRect(), row.withLabels);
        EXPECT_EDGES(row.text.m_rcName, 400, 400, 449, 419);
        EXPECT_EDGES(row.text.m_rcIcon, 500, 3, 509, 12);
        row.text.ShowDrawerIcon(0);
        EXPECT_EQ(row.text.GetUpdateRect(), row.covered | through(400, 400, 449, 419));
        EXPECT_NULL_RECT(row.text.m_rcIcon);
        row.text.ShowDrawerName(0);
        EXPECT_EQ(row.text.GetUpdateRect(), row.covered);
        EXPECT_NULL_RECT(row.text.m_rcName);
    }
    edited.m_graphData.clear(); // without points neither is looked at
    edited.m_rcName = edited.m_rcIcon = through(500, 3, 509, 12);
    EXPECT_EDGES(edited.GetUpdateRect(), 90, 90, 309, 281);
    EXPECT_EDGES(edited.m_rcName, 500, 3, 509, 12);
    EXPECT_EDGES(edited.m_rcIcon, 500, 3, 509, 12);
}

TEST(CInkText, updateRectangleTakesTheLastTwoPointsTruncated)
{
    DraggedText text;
    text.m_graphData = {QPointF(900, 900), QPointF(200.9, -5.9), QPointF(-0.9, 80.9)};
    EXPECT_EDGES(text.GetUpdateRect(), -10, -15, 210, 90);
    text.m_nPointCount = 1;
    EXPECT_EDGES(text.GetUpdateRect(), 890, 890, 919, 919);
    text.m_nPointCount = 3;
    EXPECT_NULL_RECT(text.GetUpdateRect());
}

TEST(CInkText, finishGrowsTheFrameByTen)
{
    EditedText text;
    EXPECT_EQ(text.FinishGraph(), true);
    EXPECT_EQ(text.m_bFinished, 1);
    EXPECT_EQ(text.m_bHideHotShape, 1);
    EXPECT_EDGES(text.m_rcHot, 90, 90, 309, 259);
    EXPECT_EDGES(text.m_rcText, 90, 90, 309, 281);
    EXPECT_NULL_RECT(feed(text, PT_DOWN, 10, 10));
    EXPECT_EQ(text.m_bClickOutside, 0);
    CInkText pressed;
    feed(pressed, PT_DOWN, 100, 100);
    EXPECT_EQ(pressed.FinishGraph(), true);
}

TEST(CInkText, bufferCommitsAFreshText)
{
    QByteArray png = encoded(renderedText(), "PNG");
    CInkText text;
    text.SetTextImage(nullptr, 100);
    EXPECT_EQ(text.GetTextImage(), nullptr);
    EXPECT_EQ(text.m_bFinished, 0);
    EXPECT_EQ(text.m_bEditMode, 0);
    EXPECT_EQ(text.GetPointCount(), 0);

    text.SetTextImage(png.data(), png.size());
    expectCommittedWithImage(text);
    ASSERT_TRUE(text.GetTextImage());
    EXPECT_TRUE(samePixels(*text.GetTextImage(), renderedText()));
    expectLayout(text, Layout());
    EXPECT_NULL_RECT(feed(text, PT_DOWN, 10, 10));

    const QImage *held = text.GetTextImage();
    QByteArray other = encoded(QImage(3, 3, QImage::Format_RGB32), "PNG");
    text.m_bFinished = text.m_bEditMode = text.m_bHideHotShape = 0;
    text.SetTextImage(other.data(), other.size());
    EXPECT_EQ(text.GetTextImage(), held);
    EXPECT_EQ(text.m_bFinished, 0);
    EXPECT_EQ(text.m_bEditMode, 0);
    EXPECT_EQ(text.m_bHideHotShape, 0);
}

TEST(CInkText, bufferThatDoesNotDecodeCommitsWithANullImage)
{
    const QByteArray png = encoded(renderedText(), "PNG");
    const QByteArray jpeg = encoded(renderedText().convertToFormat(QImage::Format_RGB32), "JPG");
    for (const auto &[bytes, length] :
         {std::pair(QByteArray("no image"), 8), std::pair(png, 8), std::pair(png, png.size() / 2), std::pair(png, 0),
          std::pair(png, -1), std::pair(png, INT_MIN), std::pair(jpeg, 20), std::pair(jpeg, 2)}) {
        SCOPED_TRACE(length);
        QByteArray buffer = bytes.left(length > 0 ? length : bytes.size());
        EditedText text;
        text.SetTextImage(buffer.data(), length);
        expectCommittedWithImage(text);
        ASSERT_TRUE(text.GetTextImage());
        EXPECT_TRUE(text.GetTextImage()->isNull());
        EXPECT_TRUE(isBlank(drawn(text)));
        QByteArray good = png;
        text.SetTextImage(good.data(), good.size()); // one is held
        EXPECT_TRUE(text.GetTextImage()->isNull());
    }
}

TEST(CInkText, imageIsCopiedAndReplacesTheOneHeld)
{
    QImage image = renderedText();
    EditedText text;
    text.SetTextImage(&image);
    expectCommittedWithImage(text);
    expectLayout(text, kEdited);
    EXPECT_NE(text.GetTextImage(), &image);
    image.fill(Qt::red);
    EXPECT_TRUE(samePixels(*text.GetTextImage(), renderedText()));
    text.m_bFinished = text.m_bHideHotShape = text.m_bEditMode = text.m_nPointCount = 0;
    text.SetTextImage(&image);
    expectCommittedWithImage(text);
    EXPECT_TRUE(samePixels(*text.GetTextImage(), image));
    text.SetTextImage(text.GetTextImage()); // its own
    EXPECT_TRUE(samePixels(*text.GetTextImage(), image));
    text.SetTextImage(static_cast<QImage *>(nullptr));
    EXPECT_TRUE(samePixels(*text.GetTextImage(), image));

    CInkText fresh;
    fresh.SetTextImage(static_cast<QImage *>(nullptr));
    EXPECT_EQ(fresh.m_bFinished, 0);
    EXPECT_EQ(fresh.m_bEditMode, 0);
    EXPECT_EQ(fresh.GetPointCount(), 0);
    EXPECT_EQ(fresh.GetTextImage(), nullptr);
}

TEST(CInkText, imageIsFreedWhenItIsReplacedAndAtTheEnd)
{
    s_freed = 0;
    {
        QImage first = countedImage(), second = countedImage();
        CInkText text;
        text.SetTextImage(&first);
        first = QImage();
        EXPECT_EQ(s_freed, 0);
        text.SetTextImage(&second);
        EXPECT_EQ(s_freed, 1);
        second = QImage();
        EXPECT_EQ(s_freed, 1);
    }
    EXPECT_EQ(s_freed, 2);
}
