// Pages alike have the pixels of their paper in common.

#include "Exact.h"

#include "lesson/paper/PaperPainter.h"

#include <gtest/gtest.h>

using namespace InkLesson;

namespace {

constexpr QSize kSize(100, 80);
const Paper kRuled{Paper::Kind::Ruled, {}};

QImage pictureOf(QRgb color)
{
    QImage image(10, 10, QImage::Format_RGB32);
    image.fill(color);
    return image;
}

} // namespace

TEST(PaintedPapers, keepsTheLast)
{
    PaintedPapers papers;
    const QImage first = papers.of(kRuled, kSize, 1);
    EXPECT_TRUE(samePixels(first, paintedPaper(kRuled, kSize, 1)));
    EXPECT_EQ(papers.of(kRuled, kSize, 1).cacheKey(), first.cacheKey());
}

// Anything else is painted, and the one before is not kept.
TEST(PaintedPapers, paintsAnother)
{
    PaintedPapers papers;
    const Paper squared{Paper::Kind::Squared, {}};
    const QImage first = papers.of(kRuled, kSize, 1);
    EXPECT_TRUE(samePixels(papers.of(squared, kSize, 1), paintedPaper(squared, kSize, 1)));
    EXPECT_TRUE(samePixels(papers.of(squared, kSize, 2), paintedPaper(squared, kSize, 2)));
    EXPECT_EQ(papers.of(squared, QSize(100, 81), 2).size(), QSize(100, 81));
    const QImage again = papers.of(kRuled, kSize, 1);
    EXPECT_NE(again.cacheKey(), first.cacheKey());
    EXPECT_TRUE(samePixels(again, first));
}

TEST(PaintedPapers, tellsPicturesApart)
{
    PaintedPapers papers;
    const Paper red{Paper::Kind::Picture, pictureOf(0xFFFF0000)}, blue{Paper::Kind::Picture, pictureOf(0xFF0000FF)};
    EXPECT_EQ(papers.of(red, kSize, 1).pixel(9, 9), 0xFFFF0000);
    EXPECT_EQ(papers.of(blue, kSize, 1).pixel(9, 9), 0xFF0000FF);
    EXPECT_EQ(papers.of(blue, kSize, 1).pixel(10, 9), 0xFFFFFFFF);
}
