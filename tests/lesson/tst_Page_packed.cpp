// Pixels that come back from a note of them.

#include "PageKit.h"

#include "PointerEvent.h"
#include "RandomLesson.h"

#include "lesson/pages/PackedLayers.h"

using namespace PageKit;

namespace {

constexpr unsigned kLessons = 20;

} // namespace

// Of ink two pixels as they are with a word before them, three red and eleven transparent ones of two words each; of
// the page two as they are, three of the ink and eleven of the background.
TEST(PackedLayers, takeAWordForARun)
{
    Page page({8, 2});
    page.put(blockOf(kFirst, {2, 0, 3, 1}, kRed), 0);
    page.surface();
    page.repaint();
    page.pack();
    EXPECT_EQ(page.packedBytes(), (3 + 2 + 2 + 3 + 1 + 1) * 4U);
    page.release();
    EXPECT_EQ(page.picture().pixel(1, 0), kWhite);
    EXPECT_EQ(page.picture().pixel(2, 0), kRed);
    EXPECT_EQ(page.picture().pixel(4, 0), kRed);
    EXPECT_EQ(page.picture().pixel(5, 0), kWhite);
    EXPECT_EQ(page.picture().pixel(7, 1), kWhite);
    EXPECT_EQ(page.ink().pixel(1, 0), 0U);
    EXPECT_EQ(page.ink().pixel(4, 0), kRed);
    EXPECT_EQ(page.ink().pixel(5, 0), 0U);
}

// An object that would paint itself otherwise now is not asked.
TEST_F(PageTest, aPackedPageIsNotPaintedAnew)
{
    page.setPaper({Paper::Kind::Ruled, {}});
    putOnTop(page, itemOf(kFirst, lineLife({20, 40}, {60, 40}, QColor(kRed))));
    page.pack();
    EXPECT_TRUE(page.isPainted());
    page.release();
    EXPECT_FALSE(page.isPainted());
    page.items().front()->object->m_color = Qt::green;
    EXPECT_EQ(shown(40, 40), kRed);
    EXPECT_EQ(committed(40, 40), kRed);
    EXPECT_EQ(ink(40, 40), kRed);
    EXPECT_EQ(shown(100, 32), 0xFFCBD8EA);
    EXPECT_EQ(page.background().pixel(40, 32), 0xFFCBD8EA);
    page.release();
    EXPECT_EQ(shown(40, 40), kRed);
    page.dropPacked();
    page.release();
    EXPECT_EQ(shown(40, 40), kGreen);
}

TEST_F(PageTest, aNoteIsGivenUpWhenSomethingChanges)
{
    putOnTop(page, itemOf(kFirst, lineLife({20, 40}, {60, 40}, QColor(kRed))));
    const auto isNoted = [&] {
        page.pack();
        page.release();
        return page.packedBytes() > 0;
    };
    EXPECT_TRUE(isNoted());
    page.put(itemOf(kSecond, lineLife({20, 60}, {60, 60}, QColor(kBlue))), 1);
    EXPECT_EQ(page.packedBytes(), 0U);
    EXPECT_FALSE(isNoted()) << "without pixels";
    EXPECT_EQ(shown(40, 60), kBlue);
    EXPECT_FALSE(isNoted()) << "before it is painted";
    page.repaint();
    page.surface();
    EXPECT_TRUE(isNoted());
    page.setPaper({Paper::Kind::Ruled, {}});
    EXPECT_EQ(page.packedBytes(), 0U);
    page.repaint();
    EXPECT_EQ(shown(100, 32), 0xFFCBD8EA);
    EXPECT_TRUE(isNoted());
    page.remove(kFirst);
    EXPECT_EQ(page.packedBytes(), 0U);
    page.repaint();
    EXPECT_EQ(shown(40, 40), kWhite);
}

// What is in hand is no part of the note, and an eraser finds the paper.
TEST_F(PageTest, aPackedPageGoesOn)
{
    page.setPaper({Paper::Kind::Ruled, {}});
    putOnTop(page, itemOf(kFirst, lineLife({20, 32}, {60, 32}, QColor(kRed))));
    page.take(handOf(1, lineLife({20, 80}, {60, 80}, QColor(kBlue))));
    page.pack();
    page.release();
    EXPECT_EQ(shown(40, 80), kBlue);
    EXPECT_EQ(committed(40, 80), kWhite);
    Life eraser = lineLife({40, 20}, {40, 50}, Qt::black);
    eraser.tool = QStringLiteral("eraser");
    putOnTop(page, itemOf(kSecond, eraser));
    EXPECT_EQ(committed(40, 32), 0xFFCBD8EA);
    EXPECT_EQ(committed(50, 32), kRed);
    page.drop(1);
    expectWhole();
}

TEST(Page, anyPageComesBackAsItWas)
{
    const unsigned first = caseCount("INK_LESSON_SEED", 1);
    for (unsigned seed = first; seed < first + caseCount("INK_LESSON_CASES", kLessons); ++seed) {
        SCOPED_TRACE(seed);
        RandomLesson random(seed, 2);
        random.act(25);
        Lesson &lesson = random.lesson();
        for (int i = 0; i < lesson.pageCount(); ++i) {
            Page &page = lesson.page(lesson.pageId(i));
            const QImage picture = page.picture().copy(), ink = page.ink().copy(), surface = page.surface().copy(),
                         background = page.background().copy();
            page.pack();
            ASSERT_GT(page.packedBytes(), 0U);
            page.release();
            ASSERT_TRUE(samePixels(page.picture(), picture));
            ASSERT_TRUE(samePixels(page.ink(), ink));
            ASSERT_TRUE(samePixels(page.surface(), surface));
            ASSERT_TRUE(samePixels(page.background(), background));
        }
    }
}

// What a page gives back is taken by the next one that comes back, with nothing of what it showed.
TEST(Page, pixelsAreHandedOn)
{
    const auto common = std::make_shared<CommonPixels>();
    Page red({8, 2}, 1, common), blue({8, 2}, 1, common), large({9, 2}, 1, common);
    red.put(blockOf(kFirst, {0, 0, 8, 2}, kRed), 0);
    blue.put(blockOf(kFirst, {2, 0, 3, 1}, kBlue), 0);
    blue.setPaper({Paper::Kind::Ruled, {}});
    for (Page *page : {&red, &blue, &large}) {
        page->surface();
        page->repaint();
        page->pack();
    }
    blue.release();
    large.release();
    blue.release(); // has nothing to give
    EXPECT_EQ(common->spare->rect(), large.rect());
    EXPECT_EQ(blue.picture().size(), QSize(8, 2)) << "not as large";
    EXPECT_EQ(common->spare, nullptr);
    blue.release();
    red.release();
    const uchar *const pixels = common->spare->page().constBits();
    EXPECT_EQ(blue.picture().constBits(), pixels);
    for (int y = 0; y < 2; ++y) {
        for (int x = 0; x < 8; ++x) {
            const bool isInked = x >= 2 && x < 5 && y == 0;
            EXPECT_EQ(blue.picture().pixel(x, y), isInked ? kBlue : kWhite) << x << ", " << y;
            EXPECT_EQ(blue.surface().pixel(x, y), isInked ? kBlue : kWhite) << x << ", " << y;
            EXPECT_EQ(blue.ink().pixel(x, y), isInked ? kBlue : 0U) << x << ", " << y;
            EXPECT_EQ(blue.background().pixel(x, y), kWhite) << x << ", " << y;
        }
    }
}

// Another page with the same objects shows what the first one noted, and paints nothing for it.
TEST_F(PageTest, showsWhatAnotherHasNoted)
{
    putOnTop(page, itemOf(kFirst, lineLife({20, 40}, {60, 40}, QColor(kRed))));
    page.pack();
    const QByteArray bytes = page.packed()->toBytes();
    Page other({200, 150});
    other.put(itemOf(kFirst, lineLife({20, 40}, {60, 40}, QColor(kGreen))), 0); // would be seen
    auto read = PackedLayers::fromBytes(bytes, {200, 150});
    ASSERT_TRUE(read);
    EXPECT_EQ(read->toBytes(), bytes);
    other.show(std::move(read));
    EXPECT_TRUE(other.repaint().isEmpty());
    EXPECT_TRUE(samePixels(other.picture(), page.picture()));
    EXPECT_TRUE(samePixels(other.ink(), page.ink()));
    EXPECT_TRUE(samePixels(other.surface(), page.surface()));
    other.spoil();
    EXPECT_EQ(other.packed(), nullptr);
    other.repaint();
    EXPECT_EQ(other.picture().pixel(40, 40), kGreen);
}

namespace {

// A page of 2 x 65 white pixels: 128 of them in the first part, 2 in the second.
std::vector<quint32> wordsOfTwoParts()
{
    constexpr quint32 kBackground = 0, kInk = 1, kColor = 2, kKept = 3;
    return {1, 2, 128 << 2 | kBackground, 128 << 2 | kColor, 0, 1, 3, 2 << 2 | kInk, 2 << 2 | kKept, 0, 0};
}

bool isRead(const std::vector<quint32> &words, std::size_t bytes)
{
    return bool(PackedLayers::fromBytes(QByteArray(reinterpret_cast<const char *>(words.data()), int(bytes)), {2, 65}));
}

bool isRead(const std::vector<quint32> &words)
{
    return isRead(words, words.size() * sizeof words[0]);
}

} // namespace

TEST(PackedLayers, readNothingButLayers)
{
    const std::vector<quint32> words = wordsOfTwoParts();
    EXPECT_TRUE(isRead(words));
    for (std::size_t bytes = 0; bytes < words.size() * sizeof words[0]; ++bytes)
        EXPECT_FALSE(isRead(words, bytes)) << bytes;
    std::vector<quint32> more = words;
    more.push_back(0);
    EXPECT_FALSE(isRead(more));
    const auto with = [&words](std::size_t place, quint32 word) {
        std::vector<quint32> other = words;
        other[place] = word;
        return other;
    };
    EXPECT_FALSE(isRead(with(0, 0xFFFFFFFF))); // words of the page
    EXPECT_FALSE(isRead(with(2, 127 << 2)));   // pixels too few
    EXPECT_FALSE(isRead(with(2, 129 << 2)));   // too many
    EXPECT_FALSE(isRead(with(2, 0xFFFFFFFC)));
    for (const quint32 kind : {0U, 1U}) { // ink that is the background, or itself
        std::vector<quint32> other = with(3, 128 << 2 | kind);
        other[1] = 1;
        other.erase(other.begin() + 4);
        EXPECT_FALSE(isRead(other)) << kind;
    }
    EXPECT_FALSE(isRead(with(3, 128 << 2 | 3))); // more pixels than there are words
    EXPECT_FALSE(isRead(with(8, 3 << 2 | 3)));
    std::vector<quint32> fewer = with(6, 2); // pixels of the ink than are told
    fewer.pop_back();
    EXPECT_FALSE(isRead(fewer));
    EXPECT_TRUE(isRead(with(4, 0xFF123456))); // any colour
    EXPECT_FALSE(isRead({}));
    EXPECT_FALSE(PackedLayers::fromBytes("all of a page that has no rows", {2, 0}));
}
