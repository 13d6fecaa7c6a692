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
