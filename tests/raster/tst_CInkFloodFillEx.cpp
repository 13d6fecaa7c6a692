// The fill of a shared canvas: who computes it, when it shows, and what is handed over.

#include "CInkFloodFillEx.h"
#include "Exact.h"
#include "Flood.h"
#include "MessageLog.h"
#include "PainterState.h"

#include <QtCore/QBuffer>
#include <QtGui/QPicture>

#include <gtest/gtest.h>

#include <climits>
#include <random>

namespace {

const QColor kRed(255, 0, 0);
const QRect kSentinel(1, 2, 3, 4);
const QRect kAll(0, 0, 100, 100);

// Pressed on a canvas of the given size.
class Fill : public CInkFloodFillEx
{
public:
    Fill(const QSize &canvas, int x, int y)
        : CInkFloodFillEx(canvas)
    {
        SetColor(kRed);
        feed(*this, PT_DOWN, x, y);
    }

    void drawnByAnother()
    {
        SetOwnerIP(1);
        SetDrawerIP(2);
    }
};

// An image file that holds the rows.
QByteArray fileOf(const QStringList &rows)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    picture(rows, QImage::Format_ARGB32).save(&buffer, "PNG");
    return bytes;
}

} // namespace

TEST(CInkFloodFillEx, newFillHasOnePointAndNoBitmap)
{
    CInkFloodFillEx fill(QSize(40, 30));
    ASSERT_EQ(fill.m_graphData.size(), 1);
    EXPECT_POINT(fill.m_graphData.at(0), 0.0, 0.0);
    EXPECT_EDGES(fill.m_rcCanvas, 0, 0, 39, 29);
    EXPECT_EDGES(fill.GetUpdateRect(), 0, 0, 39, 29);
    EXPECT_NULL_RECT(fill.m_rcFillBounds);
    EXPECT_EQ(fill.m_bFilled, 0);
    EXPECT_EQ(fill.IsBitmapGetted(), 0);
    EXPECT_EQ(fill.m_pLocalBitmap, nullptr);
    EXPECT_EQ(fill.m_pImage, nullptr);
    EXPECT_EQ(fill.GetPointCount(), 0);
    EXPECT_FALSE(fill.FinishGraph());
    EXPECT_EQ(fill.m_bFinished, 0);
}

TEST(CInkFloodFillEx, onlyAPressDoesAnything)
{
    for (const int code : {INT_MIN, -1, 0, 2, 3, 4, 5, 6, 99}) {
        CInkFloodFillEx fresh(QSize(40, 30));
        Fill pressed({40, 30}, 7, 8);
        for (CInkFloodFillEx *fill : {&fresh, static_cast<CInkFloodFillEx *>(&pressed)}) {
            const int count = fill->m_nPointCount;
            const QPointF seed = fill->m_graphData.at(0);
            QRect update = kSentinel;
            fill->AddPoint(code, {20, 21}, update);
            EXPECT_EQ(update, kSentinel) << code;
            EXPECT_EQ(fill->m_nPointCount, count) << code;
            EXPECT_EQ(fill->m_bHideHotShape, count) << code;
            EXPECT_EQ(fill->m_bFinished, 0) << code;
            EXPECT_POINT(fill->m_graphData.at(0), seed.x(), seed.y());
        }
    }
}

TEST(CInkFloodFillEx, pressNeitherCommitsNorTouchesTheBounds)
{
    CInkFloodFillEx fill(QSize(40, 30));
    QRect update(-500, -500, 2000, 2000);
    fill.AddPoint(PT_DOWN, {16777217, 8}, update);
    EXPECT_EDGES(update, 0, 0, 39, 29);
    EXPECT_POINT(fill.m_graphData.at(0), 16777216.0, 8.0);
    EXPECT_EQ(fill.GetPointCount(), 1);
    EXPECT_EQ(fill.m_bHideHotShape, 1);
    EXPECT_EQ(fill.m_bFinished, 0);
    EXPECT_NULL_RECT(fill.m_rcFillBounds);
}

TEST(CInkFloodFillEx, pressAfterTheCommitStillMovesTheSeed)
{
    Fill fill({40, 30}, 7, 8);
    EXPECT_TRUE(fill.FinishGraph());
    EXPECT_EDGES(feed(fill, PT_DOWN, 20, 21), 0, 0, 39, 29);
    EXPECT_POINT(fill.m_graphData.at(0), 20.0, 21.0);
    EXPECT_EQ(fill.m_bFinished, 1);
}

TEST(CInkFloodFillEx, firstDrawFillsThePageAloneAndWholly)
{
    Fill fill({5, 3}, 3, 1);
    const QImage page = picture({"#####", "##..#", "##..#"});
    const FilledLayers layers(fill, page, QRect(0, 0, 3, 2)); // most of the region lies outside
    EXPECT_EQ(joined(rowsOf(layers.page)), "#####\n##oo#\n##oo#");
    EXPECT_TRUE(isBlank(layers.surface));
    EXPECT_TRUE(isBlank(layers.ink));
    EXPECT_TRUE(isBlank(layers.background));
    EXPECT_EQ(fill.m_bFilled, 1);
    ASSERT_NE(fill.m_pImage, nullptr);
    EXPECT_EQ(fill.m_pLocalBitmap, fill.m_pImage);
    EXPECT_EQ(fill.m_pImage->format(), QImage::Format_ARGB32);
    EXPECT_EQ(joined(rowsOf(*fill.m_pImage)), "     \n  oo \n  oo ");
    EXPECT_EQ(fill.m_bFinished, 0);
}

TEST(CInkFloodFillEx, boundsReachTheOrigin)
{
    Fill fill({5, 3}, 3, 1);
    const FilledLayers layers(fill, picture({"#####", "##..#", "##..#"}));
    EXPECT_EDGES(fill.m_rcFillBounds, 0, 0, 3, 2);
    EXPECT_EDGES(fill.GetUpdateRect(), -10, -10, 13, 12);
    EXPECT_EDGES(feed(fill, PT_DOWN, 2, 2), -10, -10, 13, 12);
    EXPECT_EDGES(fill.m_rcFillBounds, 0, 0, 3, 2);
}

TEST(CInkFloodFillEx, finishedFillShowsInsideTheAreaOnly)
{
    Fill fill({4, 2}, 0, 0);
    const FilledLayers before(fill, picture({"...#", "...#"}));
    EXPECT_TRUE(fill.FinishGraph());
    // Not filled again: another page gets the bitmap painted, inside the area.
    const FilledLayers after(fill, picture({"....", "...."}), QRect(1, 0, 3, 1));
    EXPECT_EQ(joined(rowsOf(after.page)), ".oo.\n....");
    EXPECT_EQ(joined(rowsOf(after.surface)), " oo \n    ");
    EXPECT_EQ(joined(rowsOf(after.ink)), " oo \n    ");
    EXPECT_TRUE(isBlank(after.background));
}

TEST(CInkFloodFillEx, finishedBeforeTheFirstDrawFillsAndShowsAtOnce)
{
    Fill fill({4, 2}, 0, 0);
    fill.FinishGraph();
    const FilledLayers layers(fill, picture({"..#.", "..#."}), QRect(0, 0, 4, 1));
    EXPECT_EQ(joined(rowsOf(layers.page)), "oo#.\noo#.");
    EXPECT_EQ(joined(rowsOf(layers.surface)), "oo  \n    ");
    EXPECT_EQ(joined(rowsOf(layers.ink)), "oo  \n    ");
}

TEST(CInkFloodFillEx, secondPressAfterTheFillComputesNothing)
{
    Fill fill({3, 1}, 0, 0);
    const QImage page = FilledLayers(fill, picture({".#."})).page;
    EXPECT_EQ(joined(rowsOf(page)), "o#.");
    feed(fill, PT_DOWN, 2, 0);
    EXPECT_POINT(fill.m_graphData.at(0), 2.0, 0.0);
    EXPECT_EQ(joined(rowsOf(FilledLayers(fill, page).page)), "o#.");
}

TEST(CInkFloodFillEx, secondPressBeforeTheFillMovesTheSeed)
{
    Fill fill({3, 1}, 0, 0);
    feed(fill, PT_DOWN, 2, 0);
    EXPECT_EQ(joined(rowsOf(FilledLayers(fill, picture({".#."})).page)), ".#o");
}

TEST(CInkFloodFillEx, computesOnlyWhatItsOwnerDrew)
{
    const struct
    {
        unsigned owner, drawer;
        int hide, count, skip;
        bool computes;
    } cases[] = {
        {0, 0, 1, 1, 0, true},   {0xffffffffU, 0xffffffffU, 1, 1, 0, true},
        {1, 2, 1, 1, 0, false},  {0, 0x80000000U, 1, 1, 0, false},
        {7, 7, 0, 1, 0, false},  {7, 7, 1, 0, 0, false},
        {7, 7, 1, -1, 0, false}, {7, 7, 1, 1, 1, false},
        {7, 7, 1, 1, -1, false},
    };
    const QImage page = picture({"..#"});
    for (const auto &row : cases) {
        for (const int finished : {0, 1}) {
            Fill fill({3, 1}, 0, 0);
            fill.SetOwnerIP(row.owner);
            fill.SetDrawerIP(row.drawer);
            fill.m_bHideHotShape = row.hide;
            fill.m_nPointCount = row.count;
            fill.m_bFinished = finished;
            const FilledLayers layers(fill, page, kAll, row.skip);
            EXPECT_EQ(joined(rowsOf(layers.page)), row.computes ? "oo#" : "..#");
            EXPECT_EQ(joined(rowsOf(layers.surface)), row.computes && finished ? "oo " : "   ");
            EXPECT_EQ(fill.m_bFilled, int(row.computes));
            EXPECT_EQ(fill.m_pLocalBitmap != nullptr, row.computes);
        }
    }
}

TEST(CInkFloodFillEx, fillThatEndsEarlyIsTriedAgain)
{
    Fill fill({3, 1}, 0, 0);
    const QImage same = picture({"oo#"});
    const FilledLayers first(fill, same);
    EXPECT_TRUE(samePixels(first.page, same));
    EXPECT_EQ(fill.m_bFilled, 0);
    ASSERT_NE(fill.m_pLocalBitmap, nullptr);
    EXPECT_EQ(fill.m_pLocalBitmap, fill.m_pImage);
    EXPECT_EQ(joined(rowsOf(*fill.m_pImage)), "   ");
    EXPECT_EDGES(fill.GetUpdateRect(), 0, 0, 2, 0);
    const FilledLayers second(fill, picture({".##"}));
    EXPECT_EQ(joined(rowsOf(second.page)), "o##");
    EXPECT_EQ(fill.m_bFilled, 1);
    EXPECT_EQ(joined(rowsOf(*fill.m_pImage)), "o  ");
}

TEST(CInkFloodFillEx, bitmapIsFetchedAndStaysTheSameImage)
{
    Fill fill({3, 1}, 0, 0);
    EXPECT_EQ(fill.GetBitmap(), nullptr);
    EXPECT_EQ(fill.IsBitmapGetted(), 1);
    fill.m_bBitmapGetted = 0;
    const FilledLayers first(fill, picture({"o##"})); // ends early
    EXPECT_EQ(fill.IsBitmapGetted(), 0);
    QImage *bitmap = fill.GetBitmap();
    ASSERT_NE(bitmap, nullptr);
    EXPECT_EQ(bitmap, fill.m_pImage);
    EXPECT_EQ(fill.IsBitmapGetted(), 1);
    const FilledLayers second(fill, picture({"..#"}));
    EXPECT_EQ(fill.GetBitmap(), bitmap);
    EXPECT_EQ(joined(rowsOf(*bitmap)), "oo ");
}

TEST(CInkFloodFillEx, receivedBitmapShowsAfterThePressAndTheHandOver)
{
    Fill fill({4, 2}, 0, 0);
    fill.drawnByAnother();
    const QImage page = picture({"....", "...."});
    EXPECT_TRUE(isBlank(FilledLayers(fill, page).surface));
    EXPECT_TRUE(fill.FinishGraph());
    EXPECT_TRUE(isBlank(FilledLayers(fill, page).surface));

    QByteArray bytes = fileOf({" oo ", "oo  "});
    fill.SetFloodFillBitmap(bytes.data(), bytes.size());
    EXPECT_EQ(fill.m_pLocalBitmap, nullptr);
    EXPECT_EQ(fill.m_bFilled, 0);
    const FilledLayers layers(fill, page, QRect(0, 0, 2, 2));
    EXPECT_EQ(joined(rowsOf(layers.page)), ".o..\noo..");
    EXPECT_EQ(joined(rowsOf(layers.surface)), " o  \noo  ");
    EXPECT_EQ(joined(rowsOf(layers.ink)), " o  \noo  ");
    EXPECT_TRUE(isBlank(layers.background));
    EXPECT_TRUE(isBlank(FilledLayers(fill, page, kAll, 1).surface));
}

TEST(CInkFloodFillEx, bitmapReceivedBeforeThePressWaitsForIt)
{
    CInkFloodFillEx fill(QSize(2, 1));
    fill.SetDrawerIP(5);
    QByteArray bytes = fileOf({"o "});
    fill.SetFloodFillBitmap(bytes.data(), bytes.size());
    EXPECT_EQ(fill.m_bFinished, 1);
    const QImage page = picture({".."});
    EXPECT_TRUE(isBlank(FilledLayers(fill, page).surface));
    feed(fill, PT_DOWN, 1, 0);
    EXPECT_EQ(joined(rowsOf(FilledLayers(fill, page).surface)), "o ");
}

TEST(CInkFloodFillEx, pictureAloneDoesNotCommit)
{
    Fill fill({2, 1}, 0, 0);
    fill.drawnByAnother();
    QByteArray bytes = fileOf({"oo"});
    fill.InitPicture(bytes.data(), bytes.size());
    EXPECT_EQ(fill.m_bFinished, 0);
    ASSERT_NE(fill.GetBitmap(), nullptr);
    const QImage page = picture({".."});
    EXPECT_TRUE(isBlank(FilledLayers(fill, page).surface));
    fill.SetFloodFillBitmap(nullptr, 0);
    EXPECT_EQ(fill.m_bFinished, 1);
    EXPECT_EQ(joined(rowsOf(FilledLayers(fill, page).surface)), "oo");
    EXPECT_EQ(fill.m_bHideHotShape, 1);
}

TEST(CInkFloodFillEx, noDataOnlyCommits)
{
    for (const bool viaSet : {false, true}) {
        CInkFloodFillEx fill(QSize(2, 1));
        viaSet ? fill.SetFloodFillBitmap(nullptr, 100) : fill.InitPicture(nullptr, 100);
        EXPECT_EQ(fill.m_bFinished, 1);
        EXPECT_EQ(fill.m_bHideHotShape, 0);
        EXPECT_EQ(fill.m_pImage, nullptr);
    }
}

TEST(CInkFloodFillEx, ownFillIsNotReplacedByAReceivedOne)
{
    for (const char *row : {"..#", "oo#"}) { // filled, and ended early
        for (const bool viaSet : {false, true}) {
            Fill fill({3, 1}, 0, 0);
            const FilledLayers first(fill, picture({row}));
            const QImage own = fill.m_pImage->copy();
            QByteArray bytes = fileOf({"  o"});
            viaSet ? fill.SetFloodFillBitmap(bytes.data(), bytes.size()) : fill.InitPicture(bytes.data(), bytes.size());
            EXPECT_EQ(fill.m_bFinished, 1);
            EXPECT_TRUE(samePixels(*fill.m_pImage, own));
        }
    }
}

TEST(CInkFloodFillEx, receivedBitmapGivesWayToAnOwnFill)
{
    Fill fill({3, 1}, 0, 0);
    QByteArray bytes = fileOf({"..."});
    fill.SetFloodFillBitmap(bytes.data(), bytes.size());
    EXPECT_EQ(joined(rowsOf(FilledLayers(fill, picture({".##"})).surface)), "o  ");
    EXPECT_EQ(fill.m_pLocalBitmap, fill.m_pImage);
}

TEST(CInkFloodFillEx, bytesThatAreNoImageShowNothing)
{
    QByteArray bytes = fileOf({"oo"});
    QByteArray noise("no image at all");
    const struct
    {
        char *data;
        int length;
    } cases[] = {{noise.data(), noise.size()}, {bytes.data(), 0}, {bytes.data(), -1}, {bytes.data(), 5}};
    for (const auto &row : cases) {
        SCOPED_TRACE(row.length);
        Fill fill({2, 1}, 0, 0);
        fill.drawnByAnother();
        fill.SetFloodFillBitmap(row.data, row.length);
        EXPECT_EQ(fill.m_bFinished, 1);
        ASSERT_NE(fill.m_pImage, nullptr);
        EXPECT_TRUE(fill.m_pImage->isNull());
        const QImage page = picture({".."});
        const FilledLayers layers(fill, page);
        EXPECT_TRUE(samePixels(layers.page, page));
        EXPECT_TRUE(isBlank(layers.surface));
    }
}

TEST(CInkFloodFillEx, receivedBitmapOfAnotherSizeIsTakenFromItsCorner)
{
    const struct
    {
        QStringList rows;
        std::string shown; // as far as the bitmap reaches
    } cases[] = {{{"oo.oo", ".....", "ooooo"}, "oo.\n..."}, {{"o"}, ""}};
    for (const auto &row : cases) {
        Fill fill({3, 2}, 0, 0);
        fill.drawnByAnother();
        QByteArray bytes = fileOf(row.rows);
        fill.SetFloodFillBitmap(bytes.data(), bytes.size());
        const FilledLayers layers(fill, picture({"###", "###"}));
        const QImage expected = painted(
            [&](QPainter &painter) {
                painter.drawImage(QRectF(0, 0, 3, 2), picture(row.rows, QImage::Format_ARGB32), QRectF(0, 0, 3, 2));
            },
            {3, 2});
        EXPECT_TRUE(samePixels(layers.surface, expected));
        EXPECT_TRUE(samePixels(layers.ink, expected));
        EXPECT_EQ(joined(rowsOf(layers.surface)).substr(0, row.shown.size()), row.shown);
    }
}

TEST(CInkFloodFillEx, paintersAreGivenBackAsTheyWere)
{
    for (const int finished : {0, 1}) {
        Fill fill({4, 2}, 0, 0);
        fill.m_bFinished = finished;
        QImage page = picture({"....", "...."});
        QImage surface = blankCanvas({4, 2}), background = surface, ink = surface;
        QPainter p1(&page), p2(&surface), p3(&background), p4(&ink);
        for (QPainter *painter : {&p1, &p2, &p3, &p4}) {
            setOddState(*painter);
            painter->setClipRect(QRect(-3, -5, 2, 1));
        }
        fill.Draw(p1, p2, p3, p4, QRect(-3, -5, 1, 1), 77, 0);
        for (const QPainter *painter : {&p1, &p2, &p3, &p4}) {
            expectOddState(*painter);
            EXPECT_EDGES(clipOf(*painter), -3, -5, -2, -5);
        }
    }
}

TEST(CInkFloodFillEx, areaReplacesTheClip)
{
    Fill fill({4, 1}, 0, 0);
    fill.FinishGraph();
    QImage page = picture({"...."});
    QImage surface = blankCanvas({4, 1}), background = surface, ink = surface;
    {
        QPainter p1(&page), p2(&surface), p3(&background), p4(&ink);
        p2.setClipRect(QRect(3, 0, 1, 1));
        p4.setClipRect(QRect(3, 0, 1, 1));
        fill.Draw(p1, p2, p3, p4, QRect(0, 0, 2, 1), 0, 0);
    }
    EXPECT_EQ(joined(rowsOf(page)), "oooo");
    EXPECT_EQ(joined(rowsOf(surface)), "oo  ");
    EXPECT_EQ(joined(rowsOf(ink)), "oo  ");
}

TEST(CInkFloodFillEx, pageThatIsNoImageIsNotFilled)
{
    const MessageLog log;
    QImage surface = blankCanvas({2, 1}), background = surface, ink = surface;
    QPicture recording;
    QPainter p2(&surface), p3(&background), p4(&ink), recorder(&recording), idle;
    for (QPainter *p1 : {&recorder, &idle}) {
        Fill fill({2, 1}, 0, 0);
        fill.FinishGraph();
        fill.Draw(*p1, p2, p3, p4, kAll, 0, 0);
        EXPECT_EQ(fill.m_bFilled, 0);
        EXPECT_EQ(fill.m_pLocalBitmap, fill.m_pImage);
        EXPECT_NE(fill.m_pLocalBitmap, nullptr);
    }
    EXPECT_TRUE(isBlank(surface));
}

TEST(CInkFloodFillEx, randomPagesAreFilledAsThePlainFillDoes)
{
    for (unsigned seed = 1; seed <= 100; ++seed) {
        SCOPED_TRACE(::testing::Message() << "seed " << seed);
        std::mt19937 random(seed);
        QImage page(1 + int(random() % 12), 1 + int(random() % 12), QImage::Format_RGB32);
        for (int i = 0; i < page.width() * page.height(); ++i)
            page.setPixel(i % page.width(), i / page.width(), random() % 3 ? 0xffffffffU : 0xff000000U);
        const QSize canvas(1 + int(random() % 14), 1 + int(random() % 14));
        const QPoint at(int(random() % 14), int(random() % 14));
        Flood expected = plainFlood(page, canvas, at, kRed, QRect());
        Fill fill(canvas, at.x(), at.y());
        const FilledLayers layers(fill, page);
        EXPECT_TRUE(samePixels(layers.page, expected.page));
        EXPECT_TRUE(samePixels(*fill.m_pImage, expected.bitmap));
        EXPECT_EQ(fill.m_rcFillBounds, expected.bounds);
        EXPECT_EQ(fill.m_bFilled != 0, expected.filled);
        if (HasFailure())
            break;
    }
}

TEST(CInkFloodFillEx, strangeCanvasesAndListsCrashNothing)
{
    const QImage page = picture({"...", "..."});
    for (const QSize &canvas : {QSize(0, 0), QSize(-5, -5), QSize(3, -5), QSize(INT_MIN, INT_MAX)}) {
        Fill fill(canvas, 0, 0);
        fill.FinishGraph();
        const FilledLayers layers(fill, page);
        EXPECT_TRUE(isBlank(layers.ink));
    }
    Fill huge({100000, 100000}, 0, 0);
    huge.FinishGraph();
    EXPECT_EQ(joined(rowsOf(FilledLayers(huge, page).page)), "ooo\nooo");
    EXPECT_NE(huge.m_pLocalBitmap, nullptr);

    Fill emptied({3, 2}, 0, 0);
    emptied.m_graphData.clear();
    EXPECT_TRUE(samePixels(FilledLayers(emptied, page).page, page));
    feed(emptied, PT_DOWN, 1, 1);
    EXPECT_EQ(joined(rowsOf(FilledLayers(emptied, page).page)), "ooo\nooo");
}
