// Another paper under ink that stays: literal pixels, and the same as when all objects paint themselves anew.

#include "PageKit.h"

#include "PointerEvent.h"
#include "RandomCases.h"

using namespace PageKit;

namespace {

constexpr QRgb kPaperLine = 0xFFCBD8EA; // at 32, 64 and so on
constexpr unsigned kPages = 30;
const QColor kGlass(255, 0, 0, 128); // on white 0xFFFF7F7F

// Over a line of the paper: 128 + 203 * 127 / 255, and 216 and 234 times 127 / 255.
constexpr QRgb kGlassOnLine = 0xFFE56C75;

Paper paperOf(Paper::Kind kind)
{
    return {kind, {}};
}

Paper noise(Random &random, const QSize &size)
{
    Paper paper{Paper::Kind::Picture, QImage(size, QImage::Format_ARGB32)};
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            paper.picture.setPixel(x, y, 0xff000000U | unsigned(random.below(1 << 24)));
    }
    return paper;
}

Life anyLife(Random &random, const char *tool, const QSize &page)
{
    Life life{QLatin1String(tool)};
    life.ink.color = QColor(random.below(256), random.below(256), random.below(256), 1 + random.below(255));
    life.ink.width = 1 + random.below(12);
    life.canvas = page;
    const auto anywhere = [&] { return QPoint(random.below(page.width()), random.below(page.height())); };
    life.acts.emplace_back(PointerAct{PT_DOWN, anywhere()});
    for (int i = 0; i < 3; ++i)
        life.acts.emplace_back(PointerAct{PT_MOVE, anywhere()});
    life.acts.emplace_back(PointerAct{PT_UP, anywhere()});
    life.acts.emplace_back(FinishAct());
    return life;
}

} // namespace

TEST_F(PageTest, anotherPaperShowsWhereItDiffers)
{
    putOnTop(page, itemOf(kFirst, lineLife({20, 32}, {60, 32}, kGlass)));
    EXPECT_EQ(committed(40, 32), 0xFFFF7F7F);
    page.setPaper(paperOf(Paper::Kind::Ruled));
    EXPECT_EQ(page.repaint(), QRegion(page.rect()));
    EXPECT_EQ(committed(40, 31), 0xFFFF7F7F);
    EXPECT_EQ(committed(40, 32), kGlassOnLine);
    EXPECT_EQ(committed(100, 32), kPaperLine);
    EXPECT_EQ(shown(40, 32), kGlassOnLine);
    EXPECT_EQ(ink(40, 32), 0x80800000);
    expectWhole();
    page.setPaper(paperOf(Paper::Kind::Squared));
    page.repaint();
    EXPECT_EQ(committed(32, 31), kGlassOnLine);
    EXPECT_EQ(committed(33, 31), 0xFFFF7F7F);
    EXPECT_EQ(committed(64, 31), kPaperLine);
    EXPECT_EQ(ink(32, 31), 0x80800000);
    expectWhole();
}

// The page is still that of the first one when the second is painted.
TEST_F(PageTest, twoPapersAtOnceAreTheLast)
{
    putOnTop(page, itemOf(kFirst, lineLife({20, 32}, {60, 32}, kGlass)));
    page.setPaper(paperOf(Paper::Kind::Ruled));
    page.setPaper(paperOf(Paper::Kind::Squared));
    page.repaint();
    EXPECT_EQ(committed(40, 32), kGlassOnLine);
    EXPECT_EQ(committed(32, 31), kGlassOnLine);
    expectWhole();
    page.setPaper(paperOf(Paper::Kind::Ruled));
    page.setPaper({});
    page.repaint();
    EXPECT_EQ(committed(40, 32), 0xFFFF7F7F);
    EXPECT_EQ(committed(32, 31), 0xFFFF7F7F);
    expectWhole();
}

TEST_F(PageTest, whatChangesWithThePaperIsPaintedToo)
{
    putOnTop(page, itemOf(kFirst, lineLife({20, 32}, {60, 32}, kGlass)));
    page.setPaper(paperOf(Paper::Kind::Ruled));
    page.put(itemOf(kSecond, lineLife({20, 64}, {60, 64}, kGlass)), 1);
    page.repaint();
    EXPECT_EQ(committed(40, 64), kGlassOnLine);
    EXPECT_EQ(ink(40, 64), 0x80800000);
    expectWhole();
    page.remove(kFirst);
    page.setPaper({});
    page.repaint();
    EXPECT_EQ(committed(40, 32), kWhite);
    EXPECT_EQ(ink(40, 32), 0U);
    expectWhole();
}

// Its surface shows it, and the page does not.
TEST_F(PageTest, anotherPaperUnderWhatIsHeld)
{
    const Life life = lineLife({20, 32}, {60, 32}, kGlass);
    putOnTop(page, itemOf(kFirst, life));
    Hand hand = handOf(1, life);
    hand.held = kFirst;
    page.take(std::move(hand));
    page.setPaper(paperOf(Paper::Kind::Ruled));
    page.repaint();
    EXPECT_EQ(committed(40, 32), kPaperLine);
    EXPECT_EQ(shown(40, 32), kGlassOnLine);
    EXPECT_EQ(ink(40, 32), 0U);
    page.drop(1);
    EXPECT_EQ(committed(40, 32), kGlassOnLine);
    expectWhole();
}

// A line of one pixel has no sprite; it is painted on the page and not on the ink again.
TEST_F(PageTest, whatPaintsItselfIsPaintedOverAnotherPaperOnce)
{
    Life life = lineLife({20, 40}, {60, 61}, kGlass);
    life.ink.width = 1;
    putOnTop(page, itemOf(kFirst, life));
    putOnTop(page, itemOf(kSecond, lineLife({20, 32}, {60, 32}, kGlass)));
    page.setPaper(paperOf(Paper::Kind::Ruled));
    page.repaint();
    EXPECT_EQ(committed(40, 32), kGlassOnLine);
    EXPECT_EQ(ink(40, 32), 0x80800000);
    expectWhole();
}

// A fill of version 1 ends at a line of the paper.
TEST_F(PageTest, inkThatDependsOnThePaperIsPaintedAnew)
{
    Life fill{QStringLiteral("fill")};
    fill.ink.color = QColor(kGreen);
    fill.canvas = {200, 150};
    fill.acts = {PointerAct{PT_DOWN, {10, 10}}, PointerAct{PT_UP, {10, 10}}, FinishAct()};
    putOnTop(page, itemOf(kFirst, fill));
    EXPECT_EQ(ink(10, 100), kGreen);
    page.setPaper(paperOf(Paper::Kind::Ruled));
    page.repaint();
    EXPECT_EQ(ink(10, 20), kGreen);
    EXPECT_EQ(ink(10, 100), 0U);
    page.remove(kFirst);
    page.repaint();
    page.setPaper({});
    page.repaint();
    expectWhole();
}

TEST_F(PageTest, aSpoiltPageIsPaintedWholly)
{
    putOnTop(page, itemOf(kFirst, lineLife({20, 32}, {60, 32}, kGlass)));
    page.items().front()->sprite.reset();
    page.items().front()->object->m_color = Qt::green;
    page.spoil();
    EXPECT_EQ(page.repaint(), QRegion(page.rect()));
    EXPECT_EQ(ink(40, 32), kGreen);
    EXPECT_EQ(committed(40, 32), kGreen);
}

TEST(Page, anyPaperLiesUnderTheSameInk)
{
    constexpr const char *kTools[] = {"pencil",     "brush",       "highlighter", "color-brush", "spray-gun",
                                      "ellipse",    "star-5",      "line",        "diamond",     "rectangle",
                                      "flat-brush", "cloud-label", "heart"};
    const QSize size(120, 90);
    const unsigned first = caseCount("INK_LESSON_SEED", 1);
    for (unsigned seed = first; seed < first + caseCount("INK_LESSON_CASES", kPages); ++seed) {
        SCOPED_TRACE(seed);
        Random random(seed);
        Page page(size), literal(size);
        literal.keepSprites(false);
        page.surface();
        for (int i = 1; i <= 8; ++i) {
            const char *tool = kTools[random.below(seed % 3 == 0 ? 13 : 11)]; // the last two may have no sprite
            const Life life = anyLife(random, tool, size);
            putOnTop(page, itemOf({1, i}, life));
            putOnTop(literal, itemOf({1, i}, life));
        }
        for (int i = 0; i < 5; ++i) {
            const int kind = random.below(4);
            const Paper paper = kind == 3 ? noise(random, size) : paperOf(Paper::Kind(kind));
            page.setPaper(paper);
            literal.setPaper(paper);
            page.repaint();
            literal.repaint();
            ASSERT_TRUE(samePixels(page.picture(), literal.picture()));
            ASSERT_TRUE(samePixels(page.ink(), literal.ink()));
            ASSERT_TRUE(samePixels(page.surface(), literal.surface()));
        }
    }
}
