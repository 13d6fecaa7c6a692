// The fill against its literal form: the page, the bitmap, the bounds and the flag, to the last bit.
//
// INK_FILL_CASES sets the number of random cases.

#include "CInkFloodFill.h"
#include "Canvas.h"
#include "LiteralFill.h"
#include "MessageLog.h"
#include "RandomCases.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace {

constexpr QRgb kPaper = 0xff203040U; // the colour that is flooded, in every page below
constexpr QRgb kWall = 0xffa06010U;

// Which pixels are open, before they become colours.
class Plan
{
public:
    explicit Plan(const QSize &planSize, bool open = false)
        : size(planSize)
        , m_open(std::size_t(size.width()) * std::size_t(size.height()), open)
    {
    }
    bool has(int x, int y) const { return x >= 0 && y >= 0 && x < size.width() && y < size.height(); }
    std::vector<bool>::reference at(int x, int y)
    {
        return m_open[std::size_t(y) * std::size_t(size.width()) + std::size_t(x)];
    }

    const QSize size;

private:
    std::vector<bool> m_open;
};

Plan noise(const QSize &size, Random &random)
{
    Plan plan(size);
    const int density = random.of({0, 2, 10, 25, 41, 60, 85, 100});
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            plan.at(x, y) = random.below(100) >= density;
    }
    return plan;
}

// Passages and walls of one pixel, without a loop.
Plan maze(const QSize &size, Random &random)
{
    Plan plan(size);
    std::vector<QPoint> path{QPoint(0, 0)};
    plan.at(0, 0) = true;
    while (!path.empty()) {
        QPoint steps[] = {{1, 0}, {-1, 0}, {0, 1}, {0, -1}};
        for (int i = 3; i > 0; --i)
            std::swap(steps[i], steps[random.below(i + 1)]);
        const QPoint from = path.back();
        const auto *step = std::find_if(std::begin(steps), std::end(steps), [&](const QPoint &by) {
            const QPoint to = from + 2 * by;
            return plan.has(to.x(), to.y()) && !plan.at(to.x(), to.y());
        });
        if (step == std::end(steps)) {
            path.pop_back();
            continue;
        }
        for (const int length : {1, 2})
            plan.at(from.x() + length * step->x(), from.y() + length * step->y()) = true;
        path.push_back(from + 2 * *step);
    }
    return plan;
}

// One passage that turns inwards, `pitch` - 1 pixels wide.
Plan spiral(const QSize &size, Random &random)
{
    Plan plan(size, true);
    const int pitch = random.from(2, 3);
    const auto wall = [&](int x, int y) {
        if (plan.has(x, y))
            plan.at(x, y) = false;
    };
    for (int inset = pitch - 1; inset * 2 < std::min(size.width(), size.height()); inset += pitch) {
        const int right = size.width() - 1 - inset;
        const int bottom = size.height() - 1 - inset;
        for (int x = inset - pitch + 1; x <= right; ++x)
            wall(x, inset);
        for (int y = inset; y <= bottom; ++y)
            wall(right, y);
        for (int x = inset; x <= right; ++x)
            wall(x, bottom);
        for (int y = inset + pitch; y <= bottom; ++y)
            wall(inset, y);
    }
    return plan;
}

// Teeth along one edge, or joined at alternating ends.
Plan comb(const QSize &size, Random &random)
{
    Plan plan(size);
    const bool serpentine = random.oneIn(2);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            const bool atTop = serpentine && x % 4 == 1;
            plan.at(x, y) = x % 2 == 0 || y == (atTop ? 0 : size.height() - 1);
        }
    }
    return plan;
}

Plan transposed(Plan plan)
{
    Plan turned(plan.size.transposed());
    for (int y = 0; y < plan.size.height(); ++y) {
        for (int x = 0; x < plan.size.width(); ++x)
            turned.at(y, x) = plan.at(x, y);
    }
    return turned;
}

int edgeLength(Random &random)
{
    const int around[] = {1, 2, 3, 62, 63, 64, 65, 66, 127, 128, 129, 130, 191, 192, 193};
    return random.oneIn(2) ? random.of(around) : random.from(1, 140);
}

Plan randomPlan(Random &random)
{
    const bool turn = random.oneIn(4);
    QSize size(edgeLength(random), random.from(1, 24));
    Plan (*const kinds[])(const QSize &, Random &) = {noise, noise, maze, spiral, comb};
    const Plan plan = random.of(kinds)(size, random);
    return turn ? transposed(plan) : plan;
}

// The plan in any colours whose opaque form is the paper's or is not: with any alpha, a single bit apart.
QImage rawPage(Plan plan, QImage::Format format, Random &random)
{
    QImage page(plan.size, format);
    const int alphas = random.below(3); // opaque, a few, any
    const QRgb wall = random.of({kWall, kPaper ^ 1U, kPaper ^ 0x100U, kPaper ^ 0x800000U, 0xff000000U});
    for (int y = 0; y < plan.size.height(); ++y) {
        auto *row = reinterpret_cast<QRgb *>(page.scanLine(y));
        for (int x = 0; x < plan.size.width(); ++x) {
            const int alpha = alphas == 0 || (alphas == 1 && !random.oneIn(20)) ? 255 : random.below(256);
            row[x] = ((plan.at(x, y) ? kPaper : wall) & 0xffffffU) | unsigned(alpha) << 24;
        }
    }
    return page;
}

QImage drawnPage(Plan plan, QImage::Format format, Random &random)
{
    return rawPage(std::move(plan), QImage::Format_ARGB32, random).convertToFormat(format);
}

QImage randomPage(Random &random)
{
    const QImage::Format main[] = {QImage::Format_RGB32, QImage::Format_ARGB32, QImage::Format_ARGB32_Premultiplied};
    if (!random.oneIn(4))
        return rawPage(randomPlan(random), random.of(main), random);
    auto format = QImage::Format_Indexed8;
    while (format == QImage::Format_Indexed8) // no painter paints on it
        format = QImage::Format(random.from(QImage::Format_Mono, QImage::NImageFormats - 1));
    return drawnPage(randomPlan(random), format, random);
}

QRect randomCanvas(const QSize &page, Random &random)
{
    const QRect same(QPoint(), page);
    switch (random.below(6)) {
    case 0: // any size, at the origin
        return {0, 0, random.from(1, page.width() + 9), random.from(1, page.height() + 9)};
    case 1: // anywhere
        return {random.from(-9, page.width()), random.from(-9, page.height()), random.from(1, page.width() + 9),
                random.from(1, page.height() + 9)};
    default:
        return same;
    }
}

QPoint randomSeed(const QRect &within, Random &random)
{
    const auto coordinate = [&](int low, int high) {
        return random.of({low, high, random.from(low - 1, high + 1), random.from(low, high), random.from(low, high)});
    };
    const QRect any = within.isValid() ? within : QRect(0, 0, 3, 3);
    return {coordinate(any.left(), any.right()), coordinate(any.top(), any.bottom())};
}

QColor randomColor(const QImage &page, const QPoint &seed, Random &random)
{
    QColor same(page.rect().contains(seed) ? page.pixel(seed) : kPaper);
    const int rest = random.below(3);
    if (rest < 2) // the target with another alpha, or the target itself
        same.setAlpha(rest == 0 ? random.below(255) : 255);
    const QColor choices[] = {QColor(255, 0, 0),    QColor(255, 0, 0),          QColor(kWall), QColor(0, 0, 0, 0),
                              QColor(9, 8, 7, 128), QColor::fromHsv(0, 0, 255), QColor(),      same};
    return random.of(choices);
}

QImage blankBitmap(const QSize &size)
{
    QImage bitmap(size, QImage::Format_ARGB32);
    bitmap.fill(0);
    return bitmap;
}

// The bitmap that the object holds as the fill begins: mostly its own, but the field is open to the host.
QImage randomBitmap(const QSize &canvas, Random &random)
{
    const QImage::Format others[] = {QImage::Format_RGB32, QImage::Format_RGB16, QImage::Format_ARGB32_Premultiplied};
    if (!random.oneIn(5))
        return blankBitmap(canvas);
    if (random.oneIn(3))
        return {};
    QImage other(random.from(1, canvas.width() + 70), random.from(1, canvas.height() + 2), random.of(others));
    other.fill(QColor(1, 2, 3));
    return other;
}

// One object that fills, and what it is given.
struct Filled
{
    Filled(const QImage &onPage, const QRect &canvas, const QPoint &seed, const QColor &color, const QImage &bitmap,
           const QRect &bounds)
        : page(onPage.copy())
    {
        fill.m_rcCanvas = canvas;
        fill.m_graphData = {QPointF(seed)};
        fill.m_color = color;
        fill.m_rcFillBounds = bounds;
        if (!bitmap.isNull())
            fill.m_pImage = new QImage(bitmap.copy());
    }
    void run(bool literal)
    {
        const MessageLog log; // an image of two colours has none of the fill's
        QPainter painter(&page);
        literal ? literalFill(fill, page) : fill.FormFloodFillBmp(painter);
        warnings = log.lines.size();
    }

    QImage page;
    CInkFloodFill fill;
    int warnings{0};
};

// Fills twice and compares; whether there was anything to fill.
bool expectLiteral(const QImage &page, const QRect &canvas, const QPoint &seed, const QColor &color,
                   const QImage &bitmap, const QRect &bounds)
{
    Filled fast(page, canvas, seed, color, bitmap, bounds);
    Filled literal(page, canvas, seed, color, bitmap, bounds);
    fast.run(false);
    literal.run(true);
    EXPECT_TRUE(sameBits(fast.page, literal.page));
    EXPECT_EQ(fast.fill.m_rcFillBounds, literal.fill.m_rcFillBounds);
    EXPECT_EQ(fast.fill.m_bFilled, literal.fill.m_bFilled);
    EXPECT_EQ(fast.warnings, literal.warnings);
    EXPECT_EQ(fast.fill.m_pImage == nullptr, bitmap.isNull());
    if (!bitmap.isNull()) {
        EXPECT_TRUE(sameBits(*fast.fill.m_pImage, *literal.fill.m_pImage));
    }
    return literal.fill.m_bFilled != 0;
}

void expectLiteral(const QImage &page, const QPoint &seed)
{
    expectLiteral(page, page.rect(), seed, QColor(255, 0, 0), blankBitmap(page.size()), QRect(seed, seed));
}

} // namespace

TEST(FloodFillFast, randomFillsEqualTheLiteralOnes)
{
    const unsigned cases = caseCount("INK_FILL_CASES", 10000);
    unsigned filled = 0;
    for (unsigned seed = 1; seed <= cases; ++seed) {
        SCOPED_TRACE(::testing::Message() << "seed " << seed);
        Random random(seed);
        const QImage page = randomPage(random);
        const QRect canvas = randomCanvas(page.size(), random);
        const QPoint at = randomSeed(canvas & page.rect(), random);
        const QColor color = randomColor(page, at, random);
        const QRect bounds = random.oneIn(4) ? QRect(random.from(-5, 90), 3, 2, 1) : QRect(at, at);
        filled += expectLiteral(page, canvas, at, color, randomBitmap(canvas.size(), random), bounds);
        if (HasFailure())
            break;
    }
    EXPECT_GT(filled, cases / 2);
    std::printf("seeds 1 to %u, %u of them with something to fill\n", cases, filled);
}

TEST(FloodFillFast, seedOnEveryEdgePixel)
{
    Random random(7);
    for (const int width : {63, 64, 65, 127, 128, 129}) {
        const QImage page = rawPage(noise({width, 9}, random), QImage::Format_RGB32, random);
        for (int x = 0; x < width; ++x) {
            expectLiteral(page, {x, 0});
            expectLiteral(page, {x, 8});
        }
        for (int y = 0; y < 9; ++y) {
            expectLiteral(page, {0, y});
            expectLiteral(page, {width - 1, y});
        }
    }
}

TEST(FloodFillFast, everyAlphaOfAPremultipliedPageIsPassedOver)
{
    // The stored bytes are compared, whatever they would be without the alpha in them: row 0 alone.
    QImage page(256, 2, QImage::Format_ARGB32_Premultiplied);
    for (int alpha = 0; alpha < 256; ++alpha) {
        page.setPixel(alpha, 0, unsigned(alpha) << 24);
        page.setPixel(alpha, 1, unsigned(alpha) << 24 | unsigned(alpha) << 8 | 1U);
    }
    for (const int seed : {0, 1, 128, 255}) {
        Filled fast(page, page.rect(), {seed, 0}, QColor(255, 0, 0), blankBitmap(page.size()), QRect(seed, 0, 1, 1));
        fast.run(false);
        EXPECT_EQ(fast.fill.m_rcFillBounds, QRect(0, 0, 256, 1));
        for (int x = 0; x < 256; ++x) {
            EXPECT_EQ(fast.page.pixel(x, 0), 0xffff0000U);
            EXPECT_EQ(fast.page.pixel(x, 1), page.pixel(x, 1));
            EXPECT_EQ(fast.fill.m_pImage->pixel(x, 0), 0xffff0000U);
            EXPECT_EQ(fast.fill.m_pImage->pixel(x, 1), 0U);
        }
        expectLiteral(page, {seed, 0});
        expectLiteral(page, {seed, 1});
    }
}

TEST(FloodFillFast, everyPixelOfAWidePageIsTaken)
{
    for (const int width : {1, 64, 65, 128, 300, 1000}) {
        QImage page(width, 3, QImage::Format_RGB32);
        page.fill(kPaper);
        Filled fast(page, page.rect(), {width / 2, 1}, Qt::red, blankBitmap(page.size()), QRect(width / 2, 1, 1, 1));
        fast.run(false);
        QImage red(width, 3, QImage::Format_RGB32);
        red.fill(0xffff0000U);
        EXPECT_TRUE(sameBits(fast.page, red));
        EXPECT_EQ(fast.fill.m_rcFillBounds, QRect(0, 0, width, 3));
        EXPECT_EQ(fast.fill.m_bFilled, 1);
    }
}

TEST(FloodFillFast, bitmapIsDetachedFromItsCopiesOnlyWhereSomethingIsFilled)
{
    QImage page(70, 2, QImage::Format_RGB32);
    page.fill(kPaper);
    const QImage pageCopy = page;
    CInkFloodFill fill(page.size());
    fill.m_pImage = new QImage(blankBitmap(page.size()));
    const QImage copy = *fill.m_pImage;
    QPainter painter(&page);
    fill.m_color = QColor(kPaper);
    fill.FormFloodFillBmp(painter);
    EXPECT_EQ(fill.m_pImage->constBits(), copy.constBits());

    fill.m_color = Qt::red;
    fill.FormFloodFillBmp(painter);
    EXPECT_EQ(page.pixel(69, 1), 0xffff0000U);
    EXPECT_EQ(fill.m_pImage->pixel(69, 1), 0xffff0000U);
    EXPECT_EQ(pageCopy.pixel(69, 1), kPaper);
    EXPECT_EQ(copy.pixel(69, 1), 0U);
}

TEST(FloodFillFast, bitmapWithoutPixelsOfTheRegionIsLeftShared)
{
    QImage page(200, 100, QImage::Format_RGB32);
    page.fill(kWall);
    const QPoint seeds[] = {{150, 5}, {110, 20}, {5, 50}}; // right of it, in blocks it lacks and shares; below it
    for (const QPoint &seed : seeds)
        page.setPixel(seed, kPaper);
    CInkFloodFill fill(page.size());
    fill.m_color = Qt::red;
    fill.m_pImage = new QImage(blankBitmap({100, 40}));
    const QImage copy = *fill.m_pImage;
    QPainter painter(&page);
    for (const QPoint &seed : seeds) {
        fill.m_graphData = {QPointF(seed)};
        fill.m_bFilled = 0;
        fill.FormFloodFillBmp(painter);
        EXPECT_EQ(fill.m_bFilled, 1);
        EXPECT_EQ(fill.m_pImage->constBits(), copy.constBits());
    }
}

TEST(FloodFillFast, pageThatIsTheBitmapItself)
{
    CInkFloodFill fill(QSize(130, 5));
    fill.m_color = Qt::red;
    fill.m_pImage = new QImage(blankBitmap({130, 5}));
    fill.m_pImage->setPixel(64, 2, kWall);
    QPainter painter(fill.m_pImage);
    fill.FormFloodFillBmp(painter);
    painter.end();
    QImage expected(130, 5, QImage::Format_ARGB32);
    expected.fill(0xffff0000U);
    expected.setPixel(64, 2, kWall);
    EXPECT_TRUE(sameBits(*fill.m_pImage, expected));
}
