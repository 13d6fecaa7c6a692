// What edges cover of the pixels that they pass, worked out by hand.

#include "core/coverage_p.h"
#include "core/smallcoverage_p.h"

#include <gtest/gtest.h>

#include <ostream>
#include <random>

namespace InkInternal {

bool operator==(const Edge &a, const Edge &b)
{
    return a.x1 == b.x1 && a.y1 == b.y1 && a.x2 == b.x2 && a.y2 == b.y2;
}

std::ostream &operator<<(std::ostream &out, const Edge &edge)
{
    return out << edge.x1 << ',' << edge.y1 << '>' << edge.x2 << ',' << edge.y2;
}

} // namespace InkInternal

using namespace InkInternal;

namespace {

using Edges = std::vector<Edge>;
using Row = std::vector<int>;

constexpr int kUntouched = 77;

QPainterPath lines(std::initializer_list<QPointF> points)
{
    QPainterPath path(*points.begin());
    for (const QPointF *point = points.begin() + 1; point != points.end(); ++point)
        path.lineTo(*point);
    return path;
}

QPainterPath curve(const QPointF &start, const QPointF &control1, const QPointF &control2, const QPointF &end)
{
    QPainterPath path(start);
    path.cubicTo(control1, control2, end);
    return path;
}

Edges edges(const QPainterPath &path, const QTransform &toDevice = {})
{
    return edgesOf(path, toDevice).value_or(Edges{{-1, -1, -1, -1}});
}

bool areWithinLimits(std::initializer_list<QPointF> points, const QTransform &toDevice = {})
{
    return edgesOf(lines(points), toDevice).has_value();
}

// `width` pixels of row `y`, as a band of this row alone has them; kUntouched where nothing is written.
Row row(const Edges &edges, int y, int left, int width)
{
    CoverageBand band({width, 1});
    band.moveTo({left, y, width, 1});
    for (const Edge &edge : edges)
        band.add(edge);
    std::vector<uchar> coverage(std::size_t(width), kUntouched);
    band.takeRow(y, coverage.data());
    return {coverage.begin(), coverage.end()};
}

// A rectangle's upright edges, clockwise on the screen.
Edges box(int left, int top, int right, int bottom)
{
    return {{right, top, right, bottom}, {left, bottom, left, top}};
}

Edges together(Edges a, const Edges &b)
{
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

} // namespace

TEST(EdgesOf, linesAreClosedAndThoseAlongARowLeftOut)
{
    EXPECT_EQ(edges(lines({{0, 0}, {2, 0}, {0, 2}})), Edges({{512, 0, 0, 512}, {0, 512, 0, 0}}));
    EXPECT_EQ(edges(lines({{0, 0}, {2, 0}, {2, 3}, {0, 3}})), Edges({{512, 0, 512, 768}, {0, 768, 0, 0}}));
    EXPECT_EQ(edges(QPainterPath()), Edges());
}

TEST(EdgesOf, eachPartIsClosedByItself)
{
    QPainterPath path = lines({{1, 0}, {1, 1}});
    path.moveTo(4, 0);
    path.lineTo(4, 2);
    EXPECT_EQ(edges(path), Edges({{256, 0, 256, 256}, {256, 256, 256, 0}, {1024, 0, 1024, 512}, {1024, 512, 1024, 0}}));
}

TEST(EdgesOf, pointsAreRoundedToA64thOfAPixel)
{
    // 0.0078125 is half of 1/64; a half is rounded up.
    EXPECT_EQ(edges(lines({{0.0078125, 0}, {0.0078, 1}})), Edges({{4, 0, 0, 256}, {0, 256, 4, 0}}));
    EXPECT_EQ(edges(lines({{-0.0078125, 0}, {-0.0079, 1}})), Edges({{0, 0, -4, 256}, {-4, 256, 0, 0}}));
    EXPECT_EQ(edges(lines({{1, 0.99}, {1, 2}})), Edges({{256, 252, 256, 512}, {256, 512, 256, 252}})); // 63.36 / 64
}

TEST(EdgesOf, transformComesBeforeTheRounding)
{
    EXPECT_EQ(edges(lines({{1, 0}, {1, 2}}), QTransform::fromTranslate(0.0078125, -1)),
              Edges({{260, -256, 260, 256}, {260, 256, 260, -256}}));
    EXPECT_EQ(edges(lines({{1, 0}, {0, 2}}), QTransform(0, 1, -1, 0, 3, 0)), // a quarter turn
              Edges({{768, 256, 256, 0}, {256, 0, 768, 256}}));
}

TEST(EdgesOf, curvesAreSplitUntilTheyAreFlat)
{
    // The controls lie h above a chord of 4: flat where 8 h is less than 4 / 4. The middle lies at 3/4 h.
    EXPECT_EQ(edges(curve({0, 0}, {0, 0.124}, {4, 0.124}, {4, 0})), Edges());
    EXPECT_EQ(edges(curve({0, 0}, {0, 0.125}, {4, 0.125}, {4, 0})), Edges({{0, 0, 512, 24}, {512, 24, 1024, 0}}));
    // Of a chord of up to one pixel the distances of the controls from the start count: 0.1 and 0.25.
    EXPECT_EQ(edges(curve({0, 0}, {0, 0.05}, {0, 0.05}, {0, 0.1})), Edges({{0, 0, 0, 24}, {0, 24, 0, 0}}));
    EXPECT_EQ(edges(curve({0, 0}, {0, 0.125}, {0, 0.125}, {0, 0.2})),
              Edges({{0, 0, 0, 32}, {0, 32, 0, 52}, {0, 52, 0, 0}}));
}

TEST(EdgesOf, flatnessFollowsTheScale)
{
    const QPainterPath shallow = curve({0, 0}, {0, 0.0625}, {4, 0.0625}, {4, 0});
    EXPECT_EQ(edges(shallow), Edges());
    EXPECT_EQ(edges(shallow, QTransform::fromScale(1.9, 1.9)), Edges());
    EXPECT_EQ(edges(shallow, QTransform::fromScale(2, 2)), Edges({{0, 0, 1024, 24}, {1024, 24, 2048, 0}}));
    EXPECT_EQ(edges(shallow, QTransform::fromScale(0, 0)), Edges());
}

TEST(EdgesOf, whatQtWouldCutIsRefused)
{
    EXPECT_TRUE(areWithinLimits({{32767, 0}, {0, 5}}));
    EXPECT_FALSE(areWithinLimits({{32767.1, 0}, {0, 5}}));
    EXPECT_TRUE(areWithinLimits({{-32767, 0}, {0, 5}}));
    EXPECT_FALSE(areWithinLimits({{-32767.1, 0}, {0, 5}}));
    EXPECT_TRUE(areWithinLimits({{0, 32767}, {0, 5}}));
    EXPECT_FALSE(areWithinLimits({{0, -32767.1}, {0, 5}}));
    EXPECT_TRUE(areWithinLimits({{-16383, 0}, {16384, 5}}));
    EXPECT_FALSE(areWithinLimits({{-16383.1, 0}, {16384, 5}}));
    EXPECT_FALSE(areWithinLimits({{0, -16383.1}, {5, 16384}}));
    EXPECT_TRUE(areWithinLimits({{20000, 0}, {32767, 5}}));
    EXPECT_FALSE(areWithinLimits({{1e300, 1e300}, {0, 5}}, QTransform(1e100, 1e100, -1e100, -1e100, 0, 0)));
}

TEST(ScaleOf, isTheLargerOne)
{
    EXPECT_EQ(scaleOf(QTransform()), 1);
    EXPECT_EQ(scaleOf(QTransform::fromTranslate(5, 7)), 1);
    EXPECT_EQ(scaleOf(QTransform::fromScale(-3, 2)), 3);
    EXPECT_EQ(scaleOf(QTransform(0, 2, -2, 0, 0, 0)), 2);
    EXPECT_EQ(scaleOf(QTransform(3, 4, -4, 3, 0, 0)), 5);
    EXPECT_EQ(scaleOf(QTransform(0, 2, 5, 0, 0, 0)), 5);
    EXPECT_EQ(scaleOf(QTransform(3, 4, -8, 6, 0, 0)), 10); // turned, then scaled: rows of length 5 and 10
    EXPECT_EQ(scaleOf(QTransform(3, -8, 4, 6, 0, 0)), 10); // the other way round: columns
}

TEST(CoverageBand, uprightEdgesCoverPartsOfPixels)
{
    // From 0.25 to 2.5.
    EXPECT_EQ(row(box(64, 0, 640, 256), 0, 0, 4), Row({192, 255, 128, 0}));
    // Three quarters of the row's height: 192 of 256, and three quarters of the above.
    EXPECT_EQ(row(box(64, 64, 640, 256), 0, 0, 4), Row({144, 192, 96, 0}));
    EXPECT_EQ(row(box(64, 0, 640, 256), 1, 0, 4), Row({kUntouched, kUntouched, kUntouched, kUntouched}));
    EXPECT_EQ(row(box(-192, -256, 320, 0), -1, -1, 3), Row({192, 255, 64}));
}

TEST(CoverageBand, slopesAreFollowedFromCellToCell)
{
    // The triangle (0,0) (2,0) (0,1), both ways round: three quarters and one quarter.
    const Edges triangle{{512, 0, 0, 256}, {0, 256, 0, 0}};
    EXPECT_EQ(row(triangle, 0, 0, 3), Row({192, 64, 0}));
    EXPECT_EQ(row({{0, 256, 512, 0}, {0, 0, 0, 256}}, 0, 0, 3), Row({192, 64, 0}));
    // Its mirror image.
    EXPECT_EQ(row({{0, 0, 512, 256}, {512, 256, 512, 0}}, 0, 0, 3), Row({64, 192, 0}));
    // Down two rows and to the right by one pixel: the line leaves the first row in the middle of the pixel.
    const Edges steep{{0, 0, 256, 512}, {256, 512, 256, 0}};
    EXPECT_EQ(row(steep, 0, 0, 1), Row({192}));
    EXPECT_EQ(row(steep, 1, 0, 1), Row({64}));
}

TEST(CoverageBand, remaindersAreCarried)
{
    // Left by 256 in three rows, which are left at 170 2/3 and 85 1/3, both rounded down. The mean of both ends is what
    // lies left of the edge; anticlockwise it is negative, and a half is rounded down all the same.
    const Edges left{{256, 0, 0, 768}, {0, 768, 0, 0}};
    EXPECT_EQ(row(left, 0, 0, 1), Row({213})); // (256 + 170) / 2
    EXPECT_EQ(row(left, 1, 0, 1), Row({128})); // (170 + 85) / 2
    EXPECT_EQ(row(left, 2, 0, 1), Row({43}));  // (85 + 0) / 2
    const Edges right{{0, 768, 256, 0}, {0, 0, 0, 768}};
    EXPECT_EQ(row(right, 0, 0, 1), Row({213}));
    EXPECT_EQ(row(right, 1, 0, 1), Row({127}));
    EXPECT_EQ(row(right, 2, 0, 1), Row({42}));
    // Within a row: right by 768 while it goes down by 256, which is at 85 1/3 and 170 2/3 between the pixels.
    const Edges flat{{0, 0, 768, 256}, {768, 256, 768, 0}};
    EXPECT_EQ(row(flat, 0, 0, 3), Row({42, 127, 213}));
}

TEST(CoverageBand, windingsAddUp)
{
    const Edges once = box(64, 0, 640, 256);
    EXPECT_EQ(row(together(once, once), 0, 0, 4), Row({255, 255, 255, 0}));
    const Edges back{{640, 256, 640, 0}, {64, 0, 64, 256}};
    EXPECT_EQ(row(together(once, back), 0, 0, 4), Row({0, 0, 0, 0}));
    EXPECT_EQ(row(together(back, back), 0, 0, 4), Row({255, 255, 255, 0}));
    // More windings than 32 bits of area hold.
    CoverageBand band({1, 1});
    band.moveTo({0, 0, 1, 1});
    for (int i = 0; i < 40'000; ++i)
        band.add({0, 256, 0, 0});
    uchar coverage = 0;
    band.takeRow(0, &coverage);
    EXPECT_EQ(coverage, 255);
}

TEST(CoverageBand, edgesBesideTheBandCountWhereTheyMust)
{
    const Edges wide = box(64, 0, 1664, 256); // 0.25 to 6.5
    EXPECT_EQ(row(wide, 0, 1, 3), Row({255, 255, 255}));
    EXPECT_EQ(row(wide, 0, 5, 3), Row({255, 128, 0}));
    EXPECT_EQ(row(wide, 0, -1, 2), Row({kUntouched, 192}));
    EXPECT_EQ(row(wide, 0, 8, 2), Row({0, 0}));
    EXPECT_EQ(row(wide, 0, -5, 2), Row({kUntouched, kUntouched}));
    // A slope that comes from the left of the band, and one that leaves it to the right.
    EXPECT_EQ(row({{-512, 0, 512, 256}, {512, 256, 512, 0}}, 0, 0, 2), Row({160, 224})); // 1/2 to 3/4, 3/4 to 1
}

TEST(CoverageBand, firstPixelIsTold)
{
    CoverageBand band({8, 2});
    std::vector<uchar> coverage(8);
    band.moveTo({0, 0, 8, 2});
    for (const Edge &edge : box(768, 0, 1024, 256))
        band.add(edge);
    EXPECT_EQ(band.takeRow(0, coverage.data()), 3);
    EXPECT_EQ(band.takeRow(1, coverage.data()), 8);
    band.moveTo({0, 0, 8, 2});
    for (const Edge &edge : box(-768, 0, 1024, 256))
        band.add(edge);
    EXPECT_EQ(band.takeRow(0, coverage.data()), 0);
}

TEST(CoverageBand, takenRowsAreEmpty)
{
    CoverageBand band({4, 1});
    std::vector<uchar> coverage(4);
    band.moveTo({0, 0, 4, 1});
    for (const Edge &edge : box(-512, 0, 640, 256))
        band.add(edge);
    band.takeRow(0, coverage.data());
    band.moveTo({0, 5, 4, 1});
    for (const Edge &edge : box(0, 5 * 256, 128, 6 * 256))
        band.add(edge);
    EXPECT_EQ(band.takeRow(5, coverage.data()), 0);
    EXPECT_EQ(Row(coverage.begin(), coverage.end()), Row({128, 0, 0, 0}));
}

// An edge that is stepped through row by row and one that is entered in the middle must go through the same cells.
TEST(CoverageBand, bandsOfAnyHeightAreAlike)
{
    constexpr int kWidth = 90, kHeight = 120;
    const quint32 seed = std::random_device()();
    std::cout << "seed " << seed << std::endl;
    std::mt19937 random(seed);
    for (int i = 0; i < 200; ++i) {
        Edges shape;
        for (int j = 0; j < 20; ++j) {
            const auto place = [&](int size) { return (int(random() % unsigned(3 * size * 64)) - size * 64) * 4; };
            shape.push_back({place(kWidth), place(kHeight), place(kWidth), place(kHeight)});
        }
        const auto rows = [&](int bandHeight) {
            std::vector<uchar> coverage(std::size_t(kWidth * kHeight));
            CoverageBand band({kWidth, bandHeight});
            for (int top = 0; top < kHeight; top += bandHeight) {
                band.moveTo({0, top, kWidth, std::min(bandHeight, kHeight - top)});
                for (const Edge &edge : shape)
                    band.add(edge);
                for (int y = top; y < std::min(top + bandHeight, kHeight); ++y)
                    band.takeRow(y, &coverage[std::size_t(y * kWidth)]);
            }
            return coverage;
        };
        const std::vector<uchar> whole = rows(kHeight);
        ASSERT_EQ(rows(1), whole) << i;
        ASSERT_EQ(rows(7), whole) << i;
    }
}

TEST(SmallCoverage, rowsAreTakenOnce)
{
    SmallCoverage block;
    block.moveTo({2, 3, 4, 2});
    for (const Edge &edge : box(2 * 256 + 64, 3 * 256, 4 * 256 + 128, 5 * 256))
        block.add(edge);
    const uchar *covered = block.takeRow(3);
    EXPECT_EQ(Row(covered, covered + 4), Row({192, 255, 128, 0}));
    covered = block.takeRow(4);
    EXPECT_EQ(Row(covered, covered + 4), Row({192, 255, 128, 0}));
    block.moveTo({2, 3, 4, 2});
    covered = block.takeRow(3);
    EXPECT_EQ(Row(covered, covered + 4), Row({0, 0, 0, 0}));
}

// Up to the largest, with edges along the upper and the left border.
TEST(SmallCoverage, blocksAreLikeBands)
{
    constexpr int kSide = SmallCoverage::kMostSide;
    const quint32 seed = std::random_device()();
    std::cout << "seed " << seed << std::endl;
    std::mt19937 random(seed);
    SmallCoverage block;
    for (int i = 0; i < 2000; ++i) {
        const int width = 2 + int(random() % (kSide - 1)), height = 2 + int(random() % (kSide - 1));
        const QRect pixels(int(random() % 1000U), int(random() % 1000U), width, height);
        const auto place = [&](int from, int size) {
            return 256 * from + 4 * int(random() % unsigned(64 * (size - 1) + 1));
        };
        CoverageBand band(pixels.size());
        band.moveTo(pixels);
        block.moveTo(pixels);
        for (int j = 0; j < 12; ++j) {
            const Edge edge{place(pixels.left(), width), place(pixels.top(), height), place(pixels.left(), width),
                            place(pixels.top(), height)};
            band.add(edge);
            block.add(edge);
        }
        for (int y = pixels.top(); y <= pixels.bottom(); ++y) {
            std::vector<uchar> expected(std::size_t(width), 0);
            band.takeRow(y, expected.data());
            const uchar *covered = block.takeRow(y);
            ASSERT_EQ(std::vector<uchar>(covered, covered + width), expected) << i << ", row " << y;
        }
    }
}
