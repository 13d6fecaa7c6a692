#include "lesson/pages/Difference.h"
#include "lesson/pages/Sprite.h"

#include "Exact.h"
#include "RandomLesson.h"

#include <gtest/gtest.h>

using namespace InkLesson;

namespace {

constexpr QRgb kWhite = 0xFFFFFFFF, kRed = 0xFFFF0000;
constexpr unsigned kLessons = 20;

// What objects are painted on.
struct Layers
{
    QImage page{64, 8, QImage::Format_RGB32};
    QImage ink{64, 8, QImage::Format_ARGB32_Premultiplied};

    Layers()
    {
        page.fill(Qt::white);
        ink.fill(Qt::transparent);
    }
};

QRgb &pixelAt(QImage &image, int x, int y)
{
    return reinterpret_cast<QRgb *>(image.scanLine(y))[x];
}

// Pixels of a row, as they are kept: premultiplied.
QImage pictureOf(const std::vector<QRgb> &row, const QPoint &at)
{
    QImage picture(64, 8, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    for (std::size_t i = 0; i < row.size(); ++i)
        pixelAt(picture, at.x() + int(i), at.y()) = row[i];
    return picture;
}

Paper noise(const QSize &size, unsigned seed)
{
    Random random(seed);
    Paper paper{Paper::Kind::Picture, QImage(size, QImage::Format_ARGB32)};
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            paper.picture.setPixel(x, y, 0xff000000U | unsigned(random.below(1 << 24)));
    }
    return paper;
}

// The object twice, one over the other, on noise.
std::unique_ptr<Page> pageOf(const Life &life, const QSize &size, unsigned seed, bool keepsSprites)
{
    auto page = std::make_unique<Page>(size);
    page->keepSprites(keepsSprites);
    page->setPaper(noise(size, seed));
    for (int number = 1; number <= 2; ++number) {
        LivedObject lived = live(life);
        auto item = std::make_shared<Item>();
        item->id = {1, number};
        item->tool = lived.tool;
        item->asked = lived.reach;
        item->object = std::move(lived.object);
        page->put(std::move(item), 9);
    }
    page->repaint();
    return page;
}

} // namespace

// Half covered red over white: 128 * 255 / 255 is 128, and (255 - 128) * 255 / 255 is 127.
TEST(Sprite, partsAreLaidOverWhatIsThere)
{
    const auto sprite = Sprite::of(pictureOf({0x80800000, kRed, 0x80800000}, {10, 3}), {0, 0, 64, 8}, Qt::red);
    ASSERT_TRUE(sprite);
    EXPECT_EQ(sprite->rect(), QRect(10, 3, 3, 1));
    Layers layers;
    sprite->paint(layers.page, layers.ink, layers.page.rect());
    EXPECT_EQ(pixelAt(layers.page, 9, 3), kWhite);
    EXPECT_EQ(pixelAt(layers.page, 10, 3), 0xFFFF7F7F);
    EXPECT_EQ(pixelAt(layers.page, 11, 3), kRed);
    EXPECT_EQ(pixelAt(layers.page, 12, 3), 0xFFFF7F7F);
    EXPECT_EQ(pixelAt(layers.page, 13, 3), kWhite);
    EXPECT_EQ(pixelAt(layers.ink, 10, 3), 0x80800000);
    EXPECT_EQ(pixelAt(layers.ink, 11, 3), kRed);
    sprite->paint(layers.page, layers.ink, layers.page.rect());
    // 0x80 of the ink below: 128 * 127 / 255 is 63.75, rounded 64, on top of 128.
    EXPECT_EQ(pixelAt(layers.ink, 10, 3), 0xC0C00000);
}

// Red of alpha 128 is 0x80800000; half covered it is 128 * 128 / 255, rounded 64.
TEST(Sprite, aTranslucentColourIsLaidOver)
{
    const std::vector<QRgb> row(20, 0x80800000);
    const auto sprite = Sprite::of(pictureOf(row, {10, 3}), {0, 0, 64, 8}, QColor(255, 0, 0, 128));
    const auto half = Sprite::of(pictureOf({0x40400000}, {40, 3}), {0, 0, 64, 8}, QColor(255, 0, 0, 128));
    ASSERT_TRUE(sprite && half);
    Layers layers;
    sprite->paint(layers.page, layers.ink, layers.page.rect());
    half->paint(layers.page, layers.ink, layers.page.rect());
    EXPECT_EQ(pixelAt(layers.page, 29, 3), 0xFFFF7F7F);
    EXPECT_EQ(pixelAt(layers.ink, 29, 3), 0x80800000);
    EXPECT_EQ(pixelAt(layers.page, 40, 3), 0xFFFFBFBF);
    EXPECT_EQ(pixelAt(layers.ink, 40, 3), 0x40400000);
}

TEST(Sprite, pixelsOfOtherColoursAreKept)
{
    const auto sprite = Sprite::of(pictureOf({0xFF00FF00, 0x80000080}, {0, 0}), {0, 0, 64, 8}, Qt::red);
    ASSERT_TRUE(sprite);
    Layers layers;
    sprite->paint(layers.page, layers.ink, layers.page.rect());
    EXPECT_EQ(pixelAt(layers.page, 0, 0), 0xFF00FF00);
    EXPECT_EQ(pixelAt(layers.page, 1, 0), 0xFF7F7FFF);
    EXPECT_EQ(pixelAt(layers.ink, 1, 0), 0x80000080);
}

// Rows that are empty, runs that begin before the area and go on beyond it, and long ones.
TEST(Sprite, onlyTheAreaIsPainted)
{
    QImage picture = pictureOf(std::vector<QRgb>(30, kRed), {20, 2});
    for (int x = 40; x < 46; ++x)
        pixelAt(picture, x, 5) = 0x80800000;
    const auto sprite = Sprite::of(picture, {0, 0, 64, 8}, Qt::red);
    ASSERT_TRUE(sprite);
    EXPECT_EQ(sprite->rect(), QRect(20, 2, 30, 4));
    Layers layers;
    sprite->paint(layers.page, layers.ink, {25, 0, 18, 8});
    EXPECT_EQ(pixelAt(layers.page, 24, 2), kWhite);
    EXPECT_EQ(pixelAt(layers.page, 25, 2), kRed);
    EXPECT_EQ(pixelAt(layers.page, 42, 2), kRed);
    EXPECT_EQ(pixelAt(layers.page, 43, 2), kWhite);
    EXPECT_EQ(pixelAt(layers.page, 42, 5), 0xFFFF7F7F);
    EXPECT_EQ(pixelAt(layers.page, 43, 5), kWhite);
    EXPECT_EQ(pixelAt(layers.page, 30, 3), kWhite);
}

// On the page alone, and where it has another paper.
TEST(Sprite, onlyWhatDiffersIsPainted)
{
    QImage picture = pictureOf(std::vector<QRgb>(30, kRed), {20, 2});
    for (int x = 40; x < 47; ++x)
        pixelAt(picture, x, 5) = 0x80800000;
    const auto sprite = Sprite::of(picture, {0, 0, 64, 8}, Qt::red);
    ASSERT_TRUE(sprite);
    Layers before, after;
    for (const int x : {3, 20, 25, 26, 41, 44, 46, 49, 50, 63}) {
        pixelAt(after.page, x, 2) = 0xFF000000;
        pixelAt(after.page, x, 5) = 0xFF000000;
    }
    const Difference where = *Difference::of(before.page, after.page);
    sprite->paint(after.page, where, {0, 3, 64, 2}); // no row of it
    EXPECT_EQ(pixelAt(after.page, 20, 2), 0xFF000000);
    EXPECT_EQ(pixelAt(after.page, 41, 5), 0xFF000000);
    sprite->paint(after.page, where, {0, 2, 64, 4});
    for (const int x : {20, 25, 26, 41, 49})
        EXPECT_EQ(pixelAt(after.page, x, 2), kRed) << x;
    for (const int x : {21, 24, 27, 40, 48})
        EXPECT_EQ(pixelAt(after.page, x, 2), kWhite) << x;
    for (const int x : {3, 50, 63})
        EXPECT_EQ(pixelAt(after.page, x, 2), 0xFF000000) << x;
    for (const int x : {41, 44, 46})
        EXPECT_EQ(pixelAt(after.page, x, 5), 0xFF800000) << x;
    EXPECT_EQ(pixelAt(after.page, 42, 5), kWhite);
    EXPECT_EQ(pixelAt(after.page, 30, 3), kWhite);
}

TEST(Sprite, tellsWhereItPaints)
{
    const auto sprite = Sprite::of(pictureOf({kRed, 0, 0, kRed}, {10, 3}), {0, 0, 64, 8}, Qt::red);
    ASSERT_TRUE(sprite);
    EXPECT_TRUE(sprite->paintsIn({8, 1, 3, 3}));
    EXPECT_FALSE(sprite->paintsIn({7, 1, 3, 3}));
    EXPECT_FALSE(sprite->paintsIn({11, 3, 2, 1}));
    EXPECT_TRUE(sprite->paintsIn({11, 3, 3, 1}));
    EXPECT_FALSE(sprite->paintsIn({10, 4, 4, 1}));
}

// What lies outside is none of it, and nothing at all is a sprite as well.
TEST(Sprite, itIsOfAnArea)
{
    const QImage picture = pictureOf({kRed, kRed, kRed}, {10, 3});
    EXPECT_EQ(Sprite::of(picture, {11, 0, 9, 8}, Qt::red)->rect(), QRect(11, 3, 2, 1));
    const auto nothing = Sprite::of(picture, {0, 0, 64, 3}, Qt::red);
    ASSERT_TRUE(nothing);
    EXPECT_TRUE(nothing->rect().isEmpty());
    Layers layers;
    nothing->paint(layers.page, layers.ink, layers.page.rect());
    EXPECT_FALSE(nothing->paintsIn(layers.page.rect()));
    EXPECT_TRUE(Sprite::of(QImage(), {0, 0, 64, 3}, Qt::red)->rect().isEmpty());
}

// Rows below the first go farther to the left and to the right, and one in between is empty.
TEST(Sprite, itIsTheLeastThatHoldsAll)
{
    QImage picture = pictureOf({kRed, kRed}, {30, 2});
    pixelAt(picture, 10, 4) = kRed;
    pixelAt(picture, 50, 6) = 0x01010000;
    const auto sprite = Sprite::of(picture, {0, 0, 64, 8}, Qt::red);
    ASSERT_TRUE(sprite);
    EXPECT_EQ(sprite->rect(), QRect(10, 2, 41, 5));
    Layers layers;
    sprite->paint(layers.page, layers.ink, layers.page.rect());
    EXPECT_TRUE(samePixels(layers.ink, picture));
}

// A run of 64 pixels of no one colour takes 257 bytes, so 1020 of them are 262 140 and the next one is too much.
TEST(Sprite, aRichPictureIsNone)
{
    for (const auto &[rows, isThere] : {std::pair(1020, true), std::pair(1021, false)}) {
        QImage picture(64, rows, QImage::Format_ARGB32_Premultiplied);
        picture.fill(0xFF00FF00);
        EXPECT_EQ(Sprite::of(picture, picture.rect(), Qt::red).has_value(), isThere) << rows;
    }
}

// More than can be told by one byte, or by two.
TEST(Sprite, wideRowsAreKept)
{
    QImage page(20'000, 1, QImage::Format_RGB32), ink(20'000, 1, QImage::Format_ARGB32_Premultiplied);
    QImage picture(20'000, 1, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    page.fill(Qt::white);
    ink.fill(Qt::transparent);
    for (const int x : {0, 1, 300, 17'000, 19'999})
        pixelAt(picture, x, 0) = kRed;
    for (int x = 18'000; x < 18'200; ++x)
        pixelAt(picture, x, 0) = kRed;
    const auto sprite = Sprite::of(picture, picture.rect(), Qt::red);
    ASSERT_TRUE(sprite);
    sprite->paint(page, ink, page.rect());
    EXPECT_TRUE(samePixels(ink, picture));
}

// Every object that is said to paint no pixel twice.
TEST(Sprite, itGivesThePixelsOfItsObject)
{
    const unsigned first = caseCount("INK_LESSON_SEED", 1);
    for (unsigned seed = first; seed < first + caseCount("INK_LESSON_CASES", kLessons); ++seed) {
        RandomLesson random(seed, 1);
        random.act(40);
        random.letGo();
        const Lesson &lesson = random.lesson();
        for (int i = 0; i < lesson.pageCount(); ++i) {
            const Page &page = lesson.page(lesson.pageId(i));
            for (const auto &item : page.items()) {
                if (!item->tool || !item->tool->paintsOnce)
                    continue;
                const Life life = *lesson.life(item->id);
                const auto kept = pageOf(life, page.rect().size(), seed, true);
                const auto drawn = pageOf(life, page.rect().size(), seed, false);
                ASSERT_EQ(kept->picture(), drawn->picture()) << item->tool->name << " of lesson " << seed;
                ASSERT_EQ(kept->ink(), drawn->ink()) << item->tool->name << " of lesson " << seed;
                const bool hasSprite = item->object->m_nWidth > 1 && item->reach.intersects(page.rect());
                ASSERT_EQ(bool(kept->items().front()->sprite), hasSprite) << item->tool->name;
                ASSERT_FALSE(drawn->items().front()->sprite);
            }
        }
    }
}
