// The pass over the points of a stroke, with and without wide registers, and the corner that the flat brush turns
// about.

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
