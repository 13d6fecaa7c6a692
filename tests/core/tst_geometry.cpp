// The private helpers for coordinates and rectangles.

#include "Digest.h"
#include "Exact.h"
#include "RandomCases.h"

#include "core/geometry_p.h"

#include <climits>
#include <cmath>

using namespace InkInternal;

TEST(geometry, saturationStopsAtTheLimitsOfAnInt)
{
    EXPECT_EQ(saturated(0), 0);
    EXPECT_EQ(saturated(-7), -7);
    EXPECT_EQ(saturated(2147483646LL), 2147483646);
    EXPECT_EQ(saturated(2147483647LL), INT_MAX);
    EXPECT_EQ(saturated(2147483648LL), INT_MAX);
    EXPECT_EQ(saturated(-2147483647LL), -2147483647);
    EXPECT_EQ(saturated(-2147483648LL), INT_MIN);
    EXPECT_EQ(saturated(-2147483649LL), INT_MIN);
    EXPECT_EQ(saturated(LLONG_MAX), INT_MAX);
    EXPECT_EQ(saturated(LLONG_MIN), INT_MIN);
}

TEST(geometry, truncationIsTowardZero)
{
    EXPECT_EQ(truncated(0.0), 0);
    EXPECT_EQ(truncated(-0.0), 0);
    EXPECT_EQ(truncated(0.999999999), 0);
    EXPECT_EQ(truncated(-0.999999999), 0);
    EXPECT_EQ(truncated(1.0), 1);
    EXPECT_EQ(truncated(-1.0), -1);
    EXPECT_EQ(truncated(2.5), 2);
    EXPECT_EQ(truncated(-2.5), -2);
    EXPECT_EQ(truncated(16777217.75), 16777217);
    EXPECT_EQ(truncated(QPointF(-3.9, 7.9)), QPoint(-3, 7));
}

TEST(geometry, truncationStopsAtTheLimitsOfAnInt)
{
    EXPECT_EQ(truncated(2147483646.9), 2147483646);
    EXPECT_EQ(truncated(2147483647.0), INT_MAX);
    EXPECT_EQ(truncated(2147483647.9), INT_MAX);
    EXPECT_EQ(truncated(2147483648.0), INT_MAX);
    EXPECT_EQ(truncated(-2147483647.9), -2147483647);
    EXPECT_EQ(truncated(-2147483648.0), INT_MIN);
    EXPECT_EQ(truncated(-2147483648.9), INT_MIN);
    EXPECT_EQ(truncated(-2147483649.0), INT_MIN);
    EXPECT_EQ(truncated(1e300), INT_MAX);
    EXPECT_EQ(truncated(-1e300), INT_MIN);
    EXPECT_EQ(truncated(HUGE_VAL), INT_MAX);
    EXPECT_EQ(truncated(-HUGE_VAL), INT_MIN);
}

TEST(geometry, truncatedNanIsZero)
{
    EXPECT_EQ(truncated(std::nan("")), 0);
    EXPECT_EQ(truncated(-std::nan("")), 0);
    EXPECT_EQ(truncated(QPointF(std::nan(""), 3.5)), QPoint(0, 3));
}

TEST(geometry, pixelsAreWidenedThroughSinglePrecision)
{
    EXPECT_EQ(widened(0), 0.0);
    EXPECT_EQ(widened(-7), -7.0);
    EXPECT_EQ(widened(16777215), 16777215.0);
    EXPECT_EQ(widened(16777216), 16777216.0);
    EXPECT_EQ(widened(16777217), 16777216.0);
    EXPECT_EQ(widened(16777218), 16777218.0);
    EXPECT_EQ(widened(16777219), 16777220.0);
    EXPECT_EQ(widened(-16777217), -16777216.0);
    EXPECT_EQ(widened(INT_MAX), 2147483648.0);
    EXPECT_EQ(widened(INT_MIN), -2147483648.0);
    EXPECT_POINT(widened(QPoint(16777217, -16777219)), 16777216, -16777220);
    EXPECT_EQ(truncated(widened(INT_MAX)), INT_MAX);
}

TEST(geometry, edgesAreTakenAsTheyAre)
{
    EXPECT_EDGES(edges(1, 2, 3, 4), 1, 2, 3, 4);
    EXPECT_EDGES(edges(9, 8, 7, 6), 9, 8, 7, 6);
    EXPECT_EDGES(edges(-3000000000LL, 3000000000LL, 5, -3000000000LL), INT_MIN, INT_MAX, 5, INT_MIN);
}

TEST(geometry, sizeCountsPixels)
{
    EXPECT_EDGES(sized(10, 20, 8, 1), 10, 20, 17, 20);
    EXPECT_EDGES(sized(10, 20, 0, 0), 10, 20, 9, 19);
    EXPECT_EDGES(sized(QPoint(-5, -6), QSize(3, 4)), -5, -6, -3, -3);
    EXPECT_EDGES(sized(INT_MAX, 0, INT_MAX, 5), INT_MAX, 0, INT_MAX, 4);
    EXPECT_EDGES(sized(INT_MIN, 0, INT_MAX, 5), INT_MIN, 0, -2, 4);
}

TEST(geometry, growthMovesAllFourSides)
{
    const QRect rect(QPoint(10, 20), QPoint(30, 40));
    EXPECT_EDGES(grown(rect, 3), 7, 17, 33, 43);
    EXPECT_EDGES(grown(rect, 1, 5), 9, 15, 31, 45);
    EXPECT_EDGES(grown(rect, -12), 22, 32, 18, 28);
    EXPECT_EDGES(grown(QRect(QPoint(INT_MIN + 2, 0), QPoint(INT_MAX - 2, 5)), 10), INT_MIN, -10, INT_MAX, 15);
    EXPECT_EDGES(grown(rect, 5000000000LL), INT_MIN, INT_MIN, INT_MAX, INT_MAX);
}

TEST(geometry, extentOfAnyRectangleFits)
{
    EXPECT_EQ(width(QRect(10, 20, 7, 9)), 7);
    EXPECT_EQ(height(QRect(10, 20, 7, 9)), 9);
    EXPECT_EQ(width(QRect()), 0);
    const QRect all(QPoint(INT_MIN, INT_MIN), QPoint(INT_MAX, INT_MAX));
    EXPECT_EQ(width(all), 4294967296LL);
    EXPECT_EQ(height(all), 4294967296LL);
    EXPECT_EQ(width(edges(10, 0, 5, 0)), -4);
}

TEST(geometry, cornersInAnyOrderSpanTheSameBox)
{
    EXPECT_EDGES(cornerBox({10.9, 20.9}, {4.1, 5.1}), 4, 5, 10, 20);
    EXPECT_EDGES(cornerBox({4.1, 5.1}, {10.9, 20.9}), 4, 5, 10, 20);
    EXPECT_EDGES(cornerBox({4, 20}, {10, 5}), 4, 5, 10, 20);
    EXPECT_EDGES(cornerBox({7, 7}, {7, 7}), 7, 7, 7, 7);
    EXPECT_EDGES(cornerBox({-0.9, 0.9}, {0.9, -0.9}), 0, 0, 0, 0);
}

TEST(geometry, secondCornerOnePixelBackSpansNothing)
{
    // QRect takes such edges for those of an empty rectangle and does not exchange them.
    EXPECT_EDGES(cornerBox({8, 7}, {7, 8}), 8, 7, 7, 8);
    EXPECT_EDGES(cornerBox({8, 8}, {6, 7}), 6, 8, 8, 7);
}

TEST(geometry, boundsOfPointsIncludeAllEdges)
{
    EXPECT_EDGES(pixelBounds({{3, 4}}), 3, 4, 3, 4);
    EXPECT_EDGES(pixelBounds({{5.9, 5.9}, {-3.9, 12.99}, {8.999, -0.9}}), -3, 0, 8, 12);
    EXPECT_EDGES(pixelBounds({{HUGE_VAL, 0}, {-HUGE_VAL, 1e99}}), INT_MIN, 0, INT_MAX, INT_MAX);
}

TEST(geometry, centerLiesBetweenInclusiveEdges)
{
    EXPECT_POINT(centerOfEdges(QRect(QPoint(100, 100), QPoint(200, 150))), 150, 125);
    EXPECT_POINT(centerOfEdges(QRect(0, 0, 100, 50)), 49.5, 24.5);
    EXPECT_POINT(centerOfEdges(QRect(QPoint(-4, -7), QPoint(1, 2))), -1.5, -2.5);
    EXPECT_POINT(centerOfEdges(QRect()), -0.5, -0.5);
    // The sum 33554435 rounds to 33554436.
    EXPECT_POINT(centerOfEdges(QRect(QPoint(16777217, 0), QPoint(16777218, 0))), 16777218, 0);
}

TEST(geometry, centerOfAnEndlessBoxStopsAtTheLimits)
{
    EXPECT_POINT(centerOfEdges(QRect(QPoint(INT_MAX, INT_MIN), QPoint(INT_MAX, INT_MIN))), 1073741824, -1073741824);
    EXPECT_POINT(centerOfEdges(QRect(QPoint(INT_MIN, INT_MIN), QPoint(INT_MAX, INT_MAX))), -0.5, -0.5);
}

TEST(geometry, turnIsClockwiseAboutItsCenter)
{
    EXPECT_POINT(mapped(turn({100, 100}, 90), {100, 50}), 150, 100);
    EXPECT_POINT(mapped(turn({100, 100}, -90), {100, 50}), 50, 100);
    EXPECT_POINT(mapped(turn({100, 100}, 180), {90, 50}), 110, 150);
    EXPECT_POINT(mapped(turn({7.5, -3}, 33.25f), {7.5, -3}), 7.5, -3);
    EXPECT_POINT(mapped(turn({7.5, -3}, 0), {1.25, 2.5}), 1.25, 2.5);
}

TEST(geometry, turnByMinusAHalfIsNotQuiteExact)
{
    EXPECT_POINT(mapped(turn({150, 125}, -180), {200, 125}), 100.00000000000003, 124.99999999999997);
}

// The C library rounds these two otherwise on a processor without fused multiplications.
TEST(geometry, turnsHaveTheSameSinesOnEveryProcessor)
{
    EXPECT_EQ(turn({0, 0}, 297).m12(), -0x1.c83201d3d2c6ep-1);
    EXPECT_EQ(turn({0, 0}, -297).m12(), 0x1.c83201d3d2c6ep-1);
    EXPECT_EQ(turn({0, 0}, 342).m12(), -0x1.3c6ef372fe953p-2);
    EXPECT_EQ(turn({0, 0}, -342).m12(), 0x1.3c6ef372fe953p-2);
}

TEST(geometry, turnsByWholeDegreesAreTheSameOnEveryProcessor)
{
    Digest digest;
    for (int degrees = -360; degrees <= 360; ++degrees) {
        const QMatrix matrix = turn({1234.5, -67.25}, float(degrees));
        for (const double element : {matrix.m11(), matrix.m12(), matrix.m21(), matrix.m22(), matrix.dx(), matrix.dy()})
            digest.add(element);
        digest.add(mapped(matrix, {0.1, 1e5}));
    }
    EXPECT_EQ(digest.value(), 0x1da63dc1b4166cf4U);
}

#ifdef __x86_64__ // elsewhere Qt's own is compiled with fused multiplications
TEST(geometry, turnsAreThoseOfQt)
{
    Random random(7);
    const auto coordinate = [&] { return random.from(-4000000, 4000000) / 1024.0 * (random.oneIn(9) ? 1e9 : 1); };
    for (int i = 0; i < 100000; ++i) {
        const float degrees =
            random.oneIn(2) ? float(random.from(-360, 360)) : float(random.from(-7200000, 7200000)) / 8192.0f;
        if (std::abs(degrees) == 297.0f || std::abs(degrees) == 342.0f)
            continue;
        const QPointF center{coordinate(), coordinate()};
        const QPointF point{coordinate(), coordinate()};
        QMatrix matrix;
        matrix.translate(center.x(), center.y());
        matrix.rotate(double(degrees));
        matrix.translate(-center.x(), -center.y());
        const QMatrix actual = turn(center, degrees);
        ASSERT_EQ(actual.m12(), matrix.m12()) << degrees;
        ASSERT_EQ(actual.dx(), matrix.dx()) << degrees;
        ASSERT_EQ(actual.dy(), matrix.dy()) << degrees;
        const QPointF expected = matrix.map(point);
        ASSERT_EQ(mapped(actual, point).x(), expected.x()) << degrees;
        ASSERT_EQ(mapped(actual, point).y(), expected.y()) << degrees;
    }
}
#endif
