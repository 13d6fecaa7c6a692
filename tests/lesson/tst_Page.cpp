#include "PageKit.h"

#include "PointerEvent.h"

using namespace PageKit;

namespace {

constexpr QRgb kRule = 0xFFCBD8EA;

Life pictureLife(const QRect &place, QRgb color)
{
    Life life{QLatin1String(kPictureTool)};
    life.canvas = {200, 150};
    life.picture = QImage(place.size(), QImage::Format_ARGB32);
    life.picture.fill(color);
    life.position = place.topLeft();
    life.acts.emplace_back(FinishAct());
    return life;
}

Life fillLife(const QPoint &seed, QRgb color)
{
    Life life{QStringLiteral("fill")};
    life.ink.color = QColor(color);
    life.canvas = {200, 150};
    life.acts = {PointerAct{PT_DOWN, seed}};
    return life;
}

Hand newLine(int author, QRgb color)
{
    Life life{QStringLiteral("line")};
    life.ink.color = QColor(color);
    life.canvas = {200, 150};
    return handOf(author, life);
}

} // namespace

// Ten pixels that it reports and one that an eraser might need.
TEST_F(PageTest, anObjectIsPaintedInItsReach)
{
    EXPECT_EQ(putOnTop(page, blockOf(kFirst, {40, 30, 10, 5}, kRed)), QRegion(29, 19, 32, 27));
    for (const QPoint &corner : {QPoint(40, 30), QPoint(49, 30), QPoint(40, 34), QPoint(49, 34)}) {
        EXPECT_EQ(page.picture().pixel(corner), kRed);
        EXPECT_EQ(page.ink().pixel(corner), kRed);
        EXPECT_EQ(page.surface().pixel(corner), kRed);
    }
    for (const QPoint &outside : {QPoint(39, 30), QPoint(50, 30), QPoint(40, 29), QPoint(40, 35)}) {
        EXPECT_EQ(page.picture().pixel(outside), kWhite);
        EXPECT_EQ(page.ink().pixel(outside), 0U);
    }
    EXPECT_EQ(page.repaint(), QRegion());
    expectWhole();
}

TEST_F(PageTest, theReachEndsAtThePage)
{
    EXPECT_EQ(putOnTop(page, blockOf(kFirst, {-5, 145, 10, 20}, kRed)), QRegion(0, 134, 16, 16));
    EXPECT_EQ(committed(4, 149), kRed);
    EXPECT_EQ(committed(5, 149), kWhite);
    EXPECT_EQ(putOnTop(page, blockOf(kSecond, {-40, 10, 10, 10}, kRed)), QRegion());
    EXPECT_EQ(page.items().size(), 2U);
}

TEST_F(PageTest, removingPaintsWhatLayBelow)
{
    putOnTop(page, blockOf(kFirst, {40, 30, 10, 5}, kRed));
    putOnTop(page, blockOf(kSecond, {45, 32, 10, 5}, kGreen));
    EXPECT_EQ(committed(46, 33), kGreen);
    page.remove(kSecond);
    EXPECT_EQ(committed(46, 33), kGreen); // not yet
    EXPECT_EQ(page.repaint(), QRegion(34, 21, 32, 27));
    EXPECT_EQ(committed(46, 33), kRed);
    EXPECT_EQ(committed(52, 35), kWhite);
    EXPECT_EQ(ink(52, 35), 0U);
    EXPECT_EQ(page.item(kSecond), nullptr);
    page.remove(kSecond); // nobody
    EXPECT_EQ(page.repaint(), QRegion());
    expectWhole();
}

// Among others it is painted below what lies above it.
TEST_F(PageTest, anObjectMayComeBetweenOthers)
{
    putOnTop(page, blockOf(kFirst, {40, 30, 30, 10}, kRed));
    putOnTop(page, blockOf(kThird, {50, 30, 10, 10}, kBlue));
    page.put(blockOf(kSecond, {45, 35, 10, 10}, kGreen), 1);
    EXPECT_EQ(page.repaint(), QRegion(34, 24, 32, 32));
    EXPECT_EQ(committed(47, 36), kGreen);
    EXPECT_EQ(committed(52, 36), kBlue);
    EXPECT_EQ(committed(52, 42), kGreen);
    EXPECT_EQ(page.items()[1]->id, kSecond);
    expectWhole();
}

TEST_F(PageTest, anObjectMayComeInTheSteadOfItself)
{
    putOnTop(page, blockOf(kFirst, {20, 20, 10, 10}, kRed));
    putOnTop(page, blockOf(kSecond, {150, 100, 20, 20}, kGreen));
    page.put(blockOf(kFirst, {155, 100, 10, 10}, kBlue), 2);
    const QRegion area = page.repaint();
    EXPECT_EQ(area, QRegion(9, 9, 32, 32) + QRegion(144, 89, 32, 32));
    EXPECT_EQ(committed(25, 25), kWhite);
    EXPECT_EQ(committed(160, 105), kGreen); // it stays below
    EXPECT_EQ(page.items().size(), 2U);
    EXPECT_EQ(page.item(kFirst)->object->m_color, QColor(kBlue));
    expectWhole();
}

TEST_F(PageTest, reorderPaintsWhatHasMoved)
{
    putOnTop(page, blockOf(kFirst, {40, 30, 10, 10}, kRed));
    putOnTop(page, blockOf(kSecond, {45, 30, 10, 10}, kGreen));
    putOnTop(page, blockOf(kThird, {45, 35, 10, 10}, kBlue));
    page.reorder({kThird, {9, 9}, kSecond, kFirst}, {kFirst, {9, 9}});
    EXPECT_EQ(page.repaint(), QRegion(29, 19, 32, 32));
    EXPECT_EQ(committed(47, 32), kRed);
    EXPECT_EQ(committed(47, 37), kRed);
    EXPECT_EQ(page.items().front()->id, kThird);
    EXPECT_EQ(page.items().back()->id, kFirst);
}

// Each reaches over 24 x 24 pixels.
TEST(Page, farPartsArePaintedApart)
{
    Page page({1000, 100});
    for (int i = 0; i < 5; ++i)
        page.put(blockOf({1, i + 1}, {50 + 200 * i, 50, 2, 2}, kRed), 9);
    page.repaint();
    for (int i = 0; i < 4; ++i)
        page.remove({1, i + 1});
    const QRegion four = page.repaint();
    EXPECT_EQ(four.rectCount(), 4);
    EXPECT_EQ(four.boundingRect(), QRect(39, 39, 624, 24));
    EXPECT_EQ(page.picture().pixel(851, 51), kRed);
}

TEST(Page, fiveFarPartsBecomeOne)
{
    Page page({1000, 100});
    for (int i = 0; i < 5; ++i)
        page.put(blockOf({1, i + 1}, {50 + 200 * i, 50, 2, 2}, kRed), 9);
    EXPECT_EQ(page.repaint(), QRegion(39, 39, 824, 24));
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(page.picture().pixel(51 + 200 * i, 51), kRed);
}

// Each reaches over 24 x 24 pixels. Nine to the right and below, both are in 33 x 33, which is less than 2 x 24 x 24;
// with ten it is more.
TEST(Page, nearPartsArePaintedTogether)
{
    for (const auto &[offset, area] :
         {std::pair(9, QRegion(39, 39, 33, 33)), std::pair(10, QRegion(39, 39, 24, 24) + QRegion(49, 49, 24, 24))}) {
        Page page({1000, 100});
        page.put(blockOf(kFirst, {50, 50, 2, 2}, kRed), 0);
        page.put(blockOf(kSecond, {50 + offset, 50 + offset, 2, 2}, kRed), 1);
        EXPECT_EQ(page.repaint(), area) << offset;
    }
}

// The line of four pixels with round ends is taken from the two others, which stay whole.
TEST_F(PageTest, aPartIsWhatTheWholeIs)
{
    for (const auto &[keepsSprites, area] : {std::pair(true, QRegion(98, 18, 4, 114)), {false, {69, 0, 63, 150}}}) {
        Page other({200, 150});
        page.keepSprites(keepsSprites);
        other.keepSprites(keepsSprites);
        putOnTop(page, itemOf(kFirst, lineLife({20, 20}, {180, 130}, QColor(255, 0, 0, 100))));
        putOnTop(page, itemOf(kSecond, lineLife({100, 20}, {100, 130}, QColor(0, 0, 255, 100))));
        putOnTop(page, itemOf(kThird, lineLife({20, 100}, {180, 40}, QColor(0, 255, 0, 100))));
        page.remove(kSecond);
        EXPECT_EQ(page.repaint(), area);
        putOnTop(other, itemOf(kFirst, lineLife({20, 20}, {180, 130}, QColor(255, 0, 0, 100))));
        putOnTop(other, itemOf(kThird, lineLife({20, 100}, {180, 40}, QColor(0, 255, 0, 100))));
        EXPECT_TRUE(samePixels(page.picture(), other.picture()));
        EXPECT_TRUE(samePixels(page.ink(), other.ink()));
        expectWhole();
        page.remove(kFirst);
        page.remove(kThird);
        page.repaint();
    }
}

// A part of a picture may differ from that part of the picture: it is painted wholly, with what lies on it. A picture
// of 40 pixels reports itself with 74 to the left and above and 71 to the right, so that it may be turned.
TEST_F(PageTest, aPictureIsPaintedWhole)
{
    putOnTop(page, itemOf(kFirst, pictureLife({100, 60, 40, 40}, kBlue)));
    putOnTop(page, blockOf(kSecond, {135, 95, 4, 4}, kRed));
    page.remove(kSecond);
    EXPECT_EQ(page.repaint(), QRegion(25, 0, 175, 150));
    EXPECT_EQ(committed(137, 97), kBlue);
    expectWhole();
}

// Three in a row, each within reach of the next; a fourth is not.
TEST(Page, whatIsPaintedWholeDrawsInItsLike)
{
    Page page({1000, 150});
    for (int i = 0; i < 3; ++i)
        putOnTop(page, itemOf({1, i + 1}, pictureLife({100 + 120 * i, 60, 40, 40}, kBlue)));
    putOnTop(page, itemOf({1, 4}, pictureLife({700, 60, 40, 40}, kBlue)));
    putOnTop(page, blockOf({1, 5}, {100, 60, 2, 2}, kRed));
    page.remove({1, 5});
    EXPECT_EQ(page.repaint(), QRegion(25, 0, 427, 150));
}

// A fill of a lesson of version 1 is computed anew: everything is.
TEST_F(PageTest, aFillOfVersion1PaintsThePageAnew)
{
    putOnTop(page, blockOf(kFirst, {50, 0, 2, 150}, kRed)); // a wall
    putOnTop(page, itemOf(kSecond, fillLife({10, 10}, kGreen)));
    EXPECT_EQ(committed(49, 75), kGreen);
    EXPECT_EQ(committed(52, 75), kWhite);
    page.remove(kFirst);
    EXPECT_EQ(page.repaint(), QRegion(0, 0, 200, 150));
    EXPECT_EQ(committed(52, 75), kGreen); // it has run over the page
    EXPECT_EQ(page.topmostAt({150, 75}), kSecond);
    page.remove(kSecond);
    page.repaint();
    putOnTop(page, blockOf(kThird, {100, 100, 2, 2}, kRed));
    page.remove(kThird);
    EXPECT_EQ(page.repaint(), QRegion(89, 89, 24, 24)); // and is forgotten
}

TEST_F(PageTest, severalHandsDrawAtOnce)
{
    page.take(newLine(1, kRed));
    page.take(newLine(2, kGreen));
    page.feed(1, PT_DOWN, {{20, 20}});
    page.feed(2, PT_DOWN, {{40, 10}});
    page.feed(1, PT_MOVE, {{60, 20}});
    EXPECT_EQ(page.feed(2, PT_MOVE, {{40, 60}}), QRegion(10, 0, 61, 91));
    EXPECT_EQ(shown(30, 20), kRed);
    EXPECT_EQ(shown(40, 50), kGreen);
    EXPECT_EQ(shown(40, 20), kGreen); // that was taken later
    EXPECT_EQ(committed(30, 20), kWhite);
    EXPECT_EQ(ink(30, 20), 0U);
    page.feed(1, PT_MOVE, {{25, 40}, {60, 24}});
    EXPECT_EQ(shown(40, 50), kGreen);
    EXPECT_EQ(shown(40, 20), kGreen);
    EXPECT_EQ(shown(55, 20), kWhite);
    EXPECT_EQ(shown(58, 24), kRed);
    EXPECT_EQ(page.hand(1)->life.acts.size(), 4U);
    EXPECT_EQ(page.hand(3), nullptr);
}

// A flat brush moves all of its stroke with each point; a pencil adds to it.
TEST_F(PageTest, aStrokeThatMovesAsItGrowsIsShownAnewWholly)
{
    const auto grown = [this](const char *tool) {
        Life life{QString::fromLatin1(tool)};
        life.canvas = {200, 150};
        page.take(handOf(1, life));
        page.feed(1, PT_DOWN, {{100, 100}});
        return page.feed(1, PT_MOVE, {{110, 100}});
    };
    EXPECT_EQ(grown("flat-brush"), QRegion(0, 0, 200, 150));
    const QRect pencil = grown("pencil").boundingRect();
    EXPECT_TRUE(pencil.contains(QRect(100, 98, 11, 4)));
    EXPECT_LT(pencil.width(), 100);
}

TEST_F(PageTest, aHandStaysOverWhatIsCommittedBelowIt)
{
    page.take(newLine(1, kRed));
    page.feed(1, PT_DOWN, {{20, 20}});
    page.feed(1, PT_MOVE, {{60, 20}});
    putOnTop(page, blockOf(kFirst, {30, 10, 10, 30}, kGreen));
    EXPECT_EQ(shown(35, 20), kRed);
    EXPECT_EQ(committed(35, 20), kGreen);
    EXPECT_EQ(shown(35, 30), kGreen);
    page.remove(kFirst);
    page.repaint();
    EXPECT_EQ(shown(35, 20), kRed);
    EXPECT_EQ(shown(35, 30), kWhite);
}

TEST_F(PageTest, droppingHandsOverTheObject)
{
    page.take(newLine(1, kRed));
    page.take(newLine(2, kGreen));
    page.feed(1, PT_DOWN, {{20, 20}});
    page.feed(1, PT_MOVE, {{60, 20}});
    Hand dropped{};
    EXPECT_EQ(page.drop(1, &dropped), QRegion(0, 0, 91, 51));
    EXPECT_EQ(dropped.author, 1);
    EXPECT_EQ(dropped.life.acts.size(), 2U);
    EXPECT_EQ(shown(40, 20), kWhite);
    EXPECT_EQ(page.hands().size(), 1U);
    EXPECT_EQ(page.drop(1), QRegion());
    EXPECT_EQ(page.feed(1, PT_MOVE, {{60, 30}}), QRegion());
    EXPECT_EQ(page.act(1, FinishAct()), QRegion());
}

TEST_F(PageTest, takingDropsWhatTheAuthorHeld)
{
    page.take(newLine(1, kRed));
    page.feed(1, PT_DOWN, {{20, 20}});
    page.feed(1, PT_MOVE, {{60, 20}});
    page.take(newLine(1, kBlue));
    EXPECT_EQ(page.hands().size(), 1U);
    EXPECT_EQ(page.hand(1)->object->m_color, QColor(kBlue));
    EXPECT_EQ(shown(40, 20), kWhite);
}

TEST_F(PageTest, aHeldObjectIsHidden)
{
    const Life life = lineLife({20, 20}, {60, 20}, QColor(kRed));
    putOnTop(page, blockOf(kFirst, {30, 10, 10, 30}, kGreen));
    putOnTop(page, itemOf(kSecond, life));
    EXPECT_EQ(page.topmostAt({35, 20}), kSecond);
    Hand hand = handOf(1, life);
    hand.held = kSecond;
    perform(ReopenAct(), *hand.object);
    page.take(std::move(hand));
    EXPECT_EQ(committed(50, 20), kWhite);
    EXPECT_EQ(ink(50, 20), 0U);
    EXPECT_EQ(shown(50, 20), kRed);
    EXPECT_EQ(page.topmostAt({35, 20}), kFirst);
    EXPECT_EQ(page.topmostAt({50, 20}), kNothing);
    page.feed(1, PT_DOWN, {{40, 20}});
    page.feed(1, PT_MOVE, {{40, 50}});
    EXPECT_EQ(shown(50, 20), kWhite);
    EXPECT_EQ(shown(50, 50), kRed);
    page.drop(1);
    EXPECT_EQ(committed(50, 20), kRed);
    EXPECT_EQ(shown(50, 50), kWhite);
    EXPECT_EQ(shown(50, 20), kRed);
}

// Ink in five columns and rows, from 100 on; three pixels away is near, four are not.
TEST_F(PageTest, topmostIsToldByItsInk)
{
    putOnTop(page, blockOf(kFirst, {100, 100, 5, 5}, kRed));
    EXPECT_EQ(page.topmostAt({97, 100}), kFirst);
    EXPECT_EQ(page.topmostAt({96, 100}), kNothing);
    EXPECT_EQ(page.topmostAt({107, 107}), kFirst);
    EXPECT_EQ(page.topmostAt({108, 107}), kNothing);
    EXPECT_EQ(page.topmostAt({96, 100}, 4), kFirst);
    putOnTop(page, blockOf(kSecond, {104, 100, 5, 5}, kRed));
    EXPECT_EQ(page.topmostAt({102, 102}), kSecond);
    EXPECT_EQ(page.topmostAt({100, 102}), kFirst);
}

TEST_F(PageTest, aHoleIsNoInk)
{
    Life life = blockLife({50, 50, 40, 40}, QColor(kRed));
    for (int y = 5; y < 35; ++y) {
        for (int x = 5; x < 35; ++x)
            life.picture.setPixel(x, y, 0);
    }
    putOnTop(page, itemOf(kFirst, life));
    EXPECT_EQ(committed(54, 70), kRed);
    EXPECT_EQ(committed(55, 70), kWhite);
    EXPECT_EQ(page.topmostAt({57, 70}), kFirst);
    EXPECT_EQ(page.topmostAt({58, 70}), kNothing);
    EXPECT_EQ(page.topmostAt({70, 70}), kNothing);
}

TEST_F(PageTest, growingShowsWhatLayOutside)
{
    putOnTop(page, blockOf(kFirst, {190, 140, 30, 30}, kRed));
    EXPECT_TRUE(page.grow({230, 100}));
    EXPECT_EQ(page.rect(), QRect(0, 0, 230, 150));
    EXPECT_EQ(page.repaint(), QRegion(0, 0, 230, 150));
    EXPECT_EQ(committed(219, 149), kRed);
    EXPECT_EQ(committed(220, 149), kWhite);
    EXPECT_EQ(shown(219, 149), kRed);
    EXPECT_TRUE(page.grow({100, 100}));
    EXPECT_EQ(page.repaint(), QRegion());
    expectWhole();
}

TEST_F(PageTest, paperLiesUnderTheInk)
{
    putOnTop(page, blockOf(kFirst, {40, 30, 10, 5}, kRed));
    page.setPaper({Paper::Kind::Ruled, {}});
    EXPECT_EQ(page.repaint(), QRegion(0, 0, 200, 150));
    EXPECT_EQ(committed(20, 31), kWhite);
    EXPECT_EQ(committed(20, 32), kRule);
    EXPECT_EQ(committed(20, 33), kWhite);
    EXPECT_EQ(committed(45, 32), kRed);
    EXPECT_EQ(ink(20, 32), 0U);
    EXPECT_EQ(page.background().pixel(45, 32), kRule);
    page.remove(kFirst);
    EXPECT_EQ(page.repaint(), QRegion(29, 19, 32, 27));
    EXPECT_EQ(committed(45, 32), kRule);
    QImage picture(10, 10, QImage::Format_ARGB32);
    picture.fill(kBlue);
    page.setPaper({Paper::Kind::Picture, picture});
    page.repaint();
    EXPECT_EQ(committed(9, 9), kBlue);
    EXPECT_EQ(committed(10, 9), kWhite);
    EXPECT_EQ(committed(20, 32), kWhite);
}

TEST(Page, aDensePageHasThickLines)
{
    Page page({200, 150}, 2);
    page.setPaper({Paper::Kind::Squared, {}});
    page.repaint();
    for (const int line : {64, 65}) {
        EXPECT_EQ(page.picture().pixel(line, 10), kRule);
        EXPECT_EQ(page.picture().pixel(10, line), kRule);
    }
    EXPECT_EQ(page.picture().pixel(63, 10), kWhite);
    EXPECT_EQ(page.picture().pixel(66, 10), kWhite);
}

// What it takes away is the ink, whatever the paper is meanwhile.
TEST_F(PageTest, anEraserShowsThePresentPaper)
{
    putOnTop(page, blockOf(kFirst, {20, 20, 60, 60}, kRed));
    Life life{QStringLiteral("eraser")};
    life.ink.width = 20;
    life.canvas = {200, 150};
    life.acts = {PointerAct{PT_DOWN, {30, 32}}, PointerAct{PT_MOVE, {70, 32}}, PointerAct{PT_UP, {70, 32}},
                 FinishAct()};
    putOnTop(page, itemOf(kSecond, life));
    EXPECT_EQ(committed(50, 32), kWhite);
    EXPECT_EQ(ink(50, 32), 0U);
    page.setPaper({Paper::Kind::Ruled, {}});
    page.repaint();
    EXPECT_EQ(committed(50, 32), kRule);
    EXPECT_EQ(committed(50, 33), kWhite);
    EXPECT_EQ(committed(50, 60), kRed);
    EXPECT_EQ(committed(50, 64), kRed);
}

TEST_F(PageTest, paintOnTopTellsWhetherThereIsAMark)
{
    const auto paints = [this](const Life &life) {
        LivedObject lived = live(life);
        return page.paintOnTop(*lived.object, lived.reach, lived.tool);
    };
    EXPECT_TRUE(paints(blockLife({40, 30, 10, 5}, QColor(kRed))));
    EXPECT_EQ(committed(45, 32), kRed);
    EXPECT_FALSE(paints(blockLife({40, 30, 10, 5}, QColor(kRed))));
    EXPECT_FALSE(paints(blockLife({-40, 30, 10, 5}, QColor(kRed))));
    EXPECT_TRUE(paints(blockLife({80, 30, 10, 5}, QColor(kWhite)))); // ink it is
    EXPECT_FALSE(paints(lineLife({20, 80}, {60, 80}, QColor(0, 0, 0, 0))));
}

// It is not painted twice.
TEST_F(PageTest, whatIsPaintedAlreadyIsPutThere)
{
    const Life life = lineLife({20, 20}, {60, 20}, QColor(255, 0, 0, 100));
    LivedObject lived = live(life);
    page.paintOnTop(*lived.object, lived.reach, lived.tool);
    const QImage once = page.picture().copy();
    EXPECT_EQ(shown(40, 20), kWhite);
    page.put(itemOf(kFirst, life), 0, true);
    EXPECT_EQ(page.repaint(), QRegion(0, 0, 92, 52));
    EXPECT_TRUE(samePixels(page.picture(), once));
    EXPECT_EQ(shown(40, 20), committed(40, 20));
    expectWhole();
}

// As it would be if somebody had looked all the time.
TEST_F(PageTest, aPageIsPaintedOnceSomebodyLooks)
{
    Page other({200, 150});
    const auto putBoth = [&](const ObjectId &id, const Life &life) {
        EXPECT_EQ(putOnTop(page, itemOf(id, life)), putOnTop(other, itemOf(id, life)));
    };
    putBoth(kFirst, lineLife({20, 20}, {180, 130}, QColor(255, 0, 0, 100)));
    putBoth(kSecond, blockLife({40, 30, 10, 5}, QColor(kGreen)));
    for (Page *one : {&page, &other}) {
        one->setPaper({Paper::Kind::Ruled, {}});
        one->grow({210, 150});
        one->repaint();
        one->take(newLine(1, kBlue));
        one->feed(1, PT_DOWN, {{20, 100}});
        one->feed(1, PT_MOVE, {{100, 100}});
    }
    EXPECT_FALSE(other.isPainted());
    EXPECT_EQ(other.topmostAt({45, 32}), kSecond);
    EXPECT_EQ(other.rect(), QRect(0, 0, 210, 150));
    EXPECT_FALSE(other.isPainted());
    EXPECT_TRUE(samePixels(other.surface(), page.surface()));
    EXPECT_TRUE(other.isPainted());
    EXPECT_TRUE(samePixels(other.picture(), page.picture()));
    EXPECT_TRUE(samePixels(other.ink(), page.ink()));
    EXPECT_TRUE(samePixels(other.background(), page.background()));
    EXPECT_EQ(other.surface().pixel(60, 100), kBlue);
    EXPECT_EQ(other.picture().pixel(20, 32), kRule);
}

// Half transparent, so that it would be seen twice. What has changed and is not painted yet is painted then.
TEST_F(PageTest, aPageThatIsGivenBackIsPaintedAgain)
{
    putOnTop(page, itemOf(kFirst, lineLife({20, 20}, {60, 20}, QColor(255, 0, 0, 100))));
    page.release();
    EXPECT_FALSE(page.isPainted());
    page.put(itemOf(kSecond, lineLife({20, 60}, {60, 60}, QColor(255, 0, 0, 100))), 1);
    EXPECT_EQ(committed(40, 60), 0xFFFF9B9B);
    EXPECT_EQ(committed(40, 20), 0xFFFF9B9B);
    EXPECT_EQ(page.repaint(), QRegion(0, 29, 92, 63));
    EXPECT_EQ(committed(40, 60), 0xFFFF9B9B);
    EXPECT_EQ(shown(40, 60), 0xFFFF9B9B);
    EXPECT_FALSE(page.isNull());
}

TEST(Page, aFillOfVersion1IsFoundThoughNobodyLooked)
{
    Page page({200, 150});
    page.put(itemOf(kFirst, fillLife({10, 10}, kGreen)), 0);
    page.repaint();
    EXPECT_EQ(page.topmostAt({150, 75}), kFirst);
}

TEST(Page, nothingIsPaintedWhereThereIsNoMemory)
{
    Page page({1 << 30, 1 << 30});
    putOnTop(page, blockOf(kFirst, {40, 30, 10, 5}, kRed));
    EXPECT_TRUE(page.picture().isNull());
    page.take(newLine(1, kRed));
    page.feed(1, PT_DOWN, {{20, 20}});
    page.feed(1, PT_MOVE, {{60, 20}});
    LivedObject lived = live(blockLife({40, 30, 10, 5}, QColor(kRed)));
    EXPECT_TRUE(page.paintOnTop(*lived.object, lived.reach, lived.tool)); // who knows
    EXPECT_TRUE(page.isNull());
}

TEST(Page, aPageThatNoMemoryHoldsIsNull)
{
    EXPECT_TRUE(Page({1 << 30, 1 << 30}).isNull());
    EXPECT_FALSE(Page({1, 1}).isNull());
}
