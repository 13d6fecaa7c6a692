// The pass over the points of a stroke, with and without wide registers; the corner that the flat brush turns about;
// and the tiles of long strokes.

#include "CInkFlatBrush.h"
#include "CInkPencil.h"
#include "PathLog.h"

#include "pens/culled_p.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

using namespace InkInternal;

namespace {

using Points = QVector<QPointF>;
using Scan = BlockScan (*)(const QPointF *, int, const Box &);

Box box(double left, double top, double right, double bottom)
{
    return {Pair{left, top}, Pair{right, bottom}};
}

const Box kNowhere = box(1, 1, 0, 0);

QVector<int> met(const BlockScan &scan)
{
    QVector<int> blocks;
    for (const int block : scan.met)
        blocks.append(block);
    return blocks;
}

void expectBounds(const BlockScan &scan, double left, double top, double right, double bottom)
{
    EXPECT_EQ(scan.bounds.low[0], left);
    EXPECT_EQ(scan.bounds.low[1], top);
    EXPECT_EQ(scan.bounds.high[0], right);
    EXPECT_EQ(scan.bounds.high[1], bottom);
}

class BlockScans : public ::testing::TestWithParam<Scan>
{
protected:
    void SetUp() override
    {
#ifdef __x86_64__
        if (GetParam() == scanBlocksWithAvx2 && !__builtin_cpu_supports("avx2"))
            GTEST_SKIP() << "needs a CPU with AVX2";
#endif
    }

    BlockScan scan(const Points &points, const Box &clip) const
    {
        return GetParam()(points.constData(), (points.size() - 1) / 16, clip);
    }
};

// Point i at (10 i, -i).
Points slope(int count)
{
    Points points;
    for (int i = 0; i < count; ++i)
        points.append({10.0 * i, -1.0 * i});
    return points;
}

// A pencil in the clip (0,0)-(999,999); its points go to and fro through it on rows four apart.
class Meander : public CInkPencil
{
public:
    explicit Meander(int segments, int width = 4)
    {
        m_nWidth = width;
        m_bFinished = 1;
        for (int i = 0; i <= segments; ++i)
            m_graphData.append({i % 40 * 20.0 + 100, i / 40 * 4.0 + 100});
    }
    QRect GetUpdateRect() override { return {0, 0, 1000, 1000}; }
};

void paint(PathLog &log, CInkGraph &pen, const QTransform &world = {})
{
    QPainter painter(&log);
    painter.setWorldTransform(world);
    QRect nothing;
    pen.Draw(painter, nothing);
}

int pathsOf(CInkGraph &pen, const QTransform &world = {})
{
    PathLog log;
    paint(log, pen, world);
    return log.outlines.size();
}

} // namespace

TEST_P(BlockScans, boundsAreThoseOfAllPoints)
{
    expectBounds(scan(slope(17), kNowhere), 0, -16, 160, 0);
    expectBounds(scan(slope(33), kNowhere), 0, -32, 320, 0);
    expectBounds(scan(slope(40), kNowhere), 0, -32, 320, 0); // full blocks only
    expectBounds(scan(slope(1), kNowhere), 0, 0, 0, 0);
    for (int at = 0; at < 33; ++at) {
        Points points(33, QPointF(5, 5));
        points[at] = {-7, 90};
        expectBounds(scan(points, kNowhere), -7, 5, 5, 90);
        points[at] = {1000, -3};
        expectBounds(scan(points, kNowhere), 5, -3, 1000, 5);
    }
}

TEST_P(BlockScans, blocksAreMetThatTouchTheClip)
{
    const Points points = slope(49); // blocks of 0-160, 160-320 and 320-480
    EXPECT_EQ(met(scan(points, box(100, -100, 110, 100))), QVector<int>({0}));
    EXPECT_EQ(met(scan(points, box(160, -100, 160, 100))), QVector<int>({0, 1}));
    EXPECT_EQ(met(scan(points, box(161, -100, 319, 100))), QVector<int>({1}));
    EXPECT_EQ(met(scan(points, box(0, -16, 1000, -15))), QVector<int>({0, 1}));
    EXPECT_EQ(met(scan(points, box(0, -100, 1000, 100))), QVector<int>({0, 1, 2}));
    EXPECT_EQ(met(scan(points, box(481, -100, 1000, 100))), QVector<int>());
    EXPECT_EQ(met(scan(points, box(-10, -100, -1, 100))), QVector<int>());
    EXPECT_EQ(met(scan(points, box(0, 1, 1000, 100))), QVector<int>());
    EXPECT_EQ(met(scan(points, box(0, -100, 1000, -49))), QVector<int>());
}

TEST_P(BlockScans, everyPointCountsTowardsFiniteness)
{
    EXPECT_TRUE(scan(slope(33), kNowhere).isFinite);
    for (const double bad : {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()}) {
        for (int at = 0; at < 33; ++at) {
            Points points = slope(33);
            points[at].rx() = bad;
            EXPECT_FALSE(scan(points, kNowhere).isFinite) << at;
            points = slope(33);
            points[at].ry() = -bad;
            EXPECT_FALSE(scan(points, kNowhere).isFinite) << at;
        }
    }
}

#ifdef __x86_64__
INSTANTIATE_TEST_SUITE_P(Registers, BlockScans, ::testing::Values(scanBlocks, scanBlocksWithAvx2));
#else
INSTANTIATE_TEST_SUITE_P(Registers, BlockScans, ::testing::Values(scanBlocks));
#endif

TEST(StrokeTopLeft, isThatOfThePath)
{
    EXPECT_EQ(strokeTopLeft({{3, 4}}).x(), 0); // a path of its start alone has no box
    EXPECT_EQ(strokeTopLeft({{3, 4}, {3, 4}}).y(), 4);
    EXPECT_EQ(strokeTopLeft({{3, 4}, {3, 9}}).x(), 3);
    EXPECT_EQ(strokeTopLeft({{3, 4}, {3, 9}}).y(), 4);
    EXPECT_EQ(strokeTopLeft({{3, 4}, {-2, 9}, {7, -8}}).x(), -2);
    EXPECT_EQ(strokeTopLeft({{3, 4}, {-2, 9}, {7, -8}}).y(), -8);

    const quint32 seed = std::random_device()();
    std::cout << "seed " << seed << std::endl;
    std::mt19937 random(seed);
    const double limits[] = {100, 4000, 999'999, 1'000'001, 16'777'216};
    for (int i = 0; i < 20'000; ++i) {
        const double limit = limits[i % 5];
        Points points(1 + int(random() % 40));
        for (QPointF &point : points) {
            for (double *coordinate : {&point.rx(), &point.ry()}) {
                *coordinate = (double(random()) / 2147483648.0 - 1) * limit;
                if (i % 3 != 0)
                    *coordinate = std::trunc(*coordinate);
            }
        }
        const QPointF expected = strokePath(points).boundingRect().topLeft();
        const QPointF actual = strokeTopLeft(points);
        ASSERT_EQ(actual.x(), expected.x()) << i;
        ASSERT_EQ(actual.y(), expected.y()) << i;
    }
}

TEST(StrokeTopLeft, pointsThatAreNoNumbersAreAsInThePath)
{
    const double kNaN = std::numeric_limits<double>::quiet_NaN();
    const Points points{{3, 4}, {kNaN, -9}, {-5, 8}};
    EXPECT_EQ(strokeTopLeft(points).x(), strokePath(points).boundingRect().left());
    EXPECT_EQ(strokeTopLeft(points).y(), strokePath(points).boundingRect().top());
}

TEST(StrokeTiles, longStrokesArePaintedInTiles)
{
    Meander atOnce(799), inTiles(800);
    EXPECT_EQ(pathsOf(atOnce), 1);
    // (100,100) to (880,180): the grid's columns 0 to 6, rows 0 and 1.
    PathLog log;
    paint(log, inTiles);
    ASSERT_EQ(log.clips.size(), 14);
    EXPECT_EQ(log.clips.first(), QRect(QPoint(96, 96), QPoint(127, 127)));
    EXPECT_EQ(log.clips.at(1), QRect(QPoint(128, 96), QPoint(255, 127)));
    EXPECT_EQ(log.clips.last(), QRect(QPoint(768, 128), QPoint(883, 183)));
}

// Each segment is rasterised once more for every further tile that it touches.
TEST(StrokeTiles, segmentsInMoreThanThreeTilesArePaintedAtOnce)
{
    // To and fro between x = 10 and `right`, in one row of tiles. The pen reaches 3.52 pixels, and columns 0 to 2 end
    // at x = 384.
    const auto clips = [](double right, bool isHalfAsLong = false) {
        Meander pencil(800);
        for (int i = 0; i <= 800; ++i)
            pencil.m_graphData[i] = {i % 2 ? (isHalfAsLong && i > 400 ? 250.0 : right) : 10.0, 20 + i / 16.0};
        PathLog log;
        paint(log, pencil);
        return log.clips;
    };
    ASSERT_EQ(clips(380).size(), 3);
    EXPECT_EQ(clips(380).last(), QRect(QPoint(256, 16), QPoint(383, 73)));
    EXPECT_EQ(clips(381).size(), 1);
    EXPECT_EQ(clips(381).first(), QRect(0, 0, 1000, 1000));
    // Four of them and two: three on average.
    EXPECT_EQ(clips(500, true).size(), 4);
    EXPECT_EQ(clips(510, true).size(), 1);
}

TEST(StrokeTiles, tilesCoverTheStrokeAndDoNotOverlap)
{
    Meander pencil(1200);
    PathLog log;
    paint(log, pencil);
    QRegion covered;
    for (const QRect &clip : qAsConst(log.clips)) {
        EXPECT_FALSE(covered.intersects(clip));
        covered += clip;
    }
    EXPECT_TRUE((QRegion(QRect(98, 98, 784, 124)) - covered).isEmpty());
}

TEST(StrokeTiles, widePensTakeLargerTiles)
{
    Meander narrow(800, 12), wide(800, 13); // reaching 7.56 and 8.065 pixels
    PathLog narrowLog, wideLog;
    paint(narrowLog, narrow);
    paint(wideLog, wide);
    EXPECT_EQ(narrowLog.clips.first(), QRect(QPoint(92, 92), QPoint(127, 127)));
    EXPECT_EQ(wideLog.clips.first(), QRect(QPoint(91, 91), QPoint(255, 188)));
}

TEST(StrokeTiles, thinPensPaintAtOnce)
{
    Meander hairline(1200, 0), thin(1200, 1), thicker(1200, 2);
    EXPECT_EQ(pathsOf(hairline), 1);
    EXPECT_EQ(pathsOf(thin), 1);
    EXPECT_GT(pathsOf(thicker), 1);
}

TEST(StrokeTiles, tilesLieAtWholePixels)
{
    Meander pencil(1200);
    EXPECT_GT(pathsOf(pencil, QTransform::fromTranslate(7, -3)), 1);
    EXPECT_EQ(pathsOf(pencil, QTransform::fromTranslate(7.5, 0)), 1);
    EXPECT_EQ(pathsOf(pencil, QTransform::fromTranslate(0, 0.25)), 1);
    EXPECT_EQ(pathsOf(pencil, QTransform::fromScale(2, 2)), 1);
    EXPECT_EQ(pathsOf(pencil, QTransform().rotate(30)), 1);
}

TEST(StrokeTiles, tilesFollowTheWorld)
{
    Meander pencil(1200);
    PathLog log;
    paint(log, pencil, QTransform::fromTranslate(-200, 50));
    EXPECT_EQ(log.clips.first(), QRect(QPoint(-104, 146), QPoint(-1, 255)));
}

TEST(StrokeTiles, painterIsGivenBack)
{
    Meander pencil(1200);
    PathLog log;
    QPainter painter(&log);
    painter.translate(10, 20);
    QRect nothing;
    pencil.Draw(painter, nothing);
    EXPECT_GT(log.outlines.size(), 1);
    EXPECT_EQ(painter.clipBoundingRect(), QRectF(0, 0, 1000, 1000));
    EXPECT_EQ(painter.worldTransform(), QTransform::fromTranslate(10, 20));
}

TEST(StrokeTiles, flatBrushTakesTilesOfItsHost)
{
    class Brush : public CInkFlatBrush
    {
    public:
        Brush()
        {
            m_graphData = Meander(1200).m_graphData;
            m_bFinished = 1;
            m_fNibAngle = 0;
        }
        QRect GetUpdateRect() override { return {0, 0, 1000, 1000}; }
    } brush;
    PathLog log;
    paint(log, brush, QTransform::fromTranslate(10, 0));
    ASSERT_GT(log.clips.size(), 1);
    QRegion covered;
    for (const QRect &clip : qAsConst(log.clips)) {
        EXPECT_TRUE(QRect(10, 0, 1000, 1000).contains(clip));
        EXPECT_FALSE(covered.intersects(clip));
        covered += clip;
    }
    EXPECT_EQ(pathsOf(brush, QTransform::fromTranslate(0.5, 0)), 1);
}

TEST(StrokeTiles, clipMustBeOneRectangleOfWholePixels)
{
    const auto paths = [](auto setClip) {
        PathLog log;
        QPainter painter(&log);
        painter.setPen(QPen(Qt::black, 4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        setClip(painter);
        paintStroke(painter, Meander(1200).m_graphData, StrokeSegment::Curve);
        return log.outlines.size();
    };
    EXPECT_GT(paths([](QPainter &painter) { painter.setClipRect(0, 0, 1000, 1000); }), 1);
    EXPECT_EQ(paths([](QPainter &painter) { painter.setClipRect(QRectF(0, 0, 999.5, 1000)); }), 1);
    EXPECT_EQ(paths([](QPainter &painter) { painter.setClipRect(QRectF(0, 0.5, 1000, 1000)); }), 1);
    EXPECT_EQ(paths([](QPainter &painter) { painter.setClipRect(QRectF(0, 0.5, 1000, 999.5)); }), 1);
    EXPECT_EQ(paths([](QPainter &painter) { painter.setClipRegion(QRegion(0, 0, 1000, 1000) - QRect(5, 5, 9, 9)); }),
              1);
    EXPECT_EQ(paths([](QPainter &painter) {
                  painter.translate(0.5, 0); // the tiles would lie between pixels of the world
                  painter.setClipRect(QRectF(-0.5, 0, 1000, 1000));
              }),
              1);
    EXPECT_EQ(paths([](QPainter &) {}), 1); // none
    EXPECT_EQ(paths([](QPainter &painter) {
                  painter.setClipRect(0, 0, 1000, 1000);
                  painter.paintEngine()->setSystemClip(QRect(0, 0, 500, 500));
              }),
              1);
}
