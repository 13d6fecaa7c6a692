#include "AuthorKit.h"

using namespace InkLesson;

namespace {

// A frame of 5 pixels around 30 x 30 others, from (50,50) on.
Life ring()
{
    Life life = blockLife({50, 50, 40, 40}, QColor(kRed));
    for (int y = 5; y < 35; ++y) {
        for (int x = 5; x < 35; ++x)
            life.picture.setPixel(x, y, 0);
    }
    return life;
}

} // namespace

using AuthorFillTest = AuthorTest;

// The page was filled once: what is done to the frame does not let it run out.
TEST_F(AuthorFillTest, aFillIsComputedOnce)
{
    lesson.apply(record(2, 1, Draw{ring()}));
    records.push_back({});
    ASSERT_TRUE(me.pour({70, 70}, QColor(kGreen)));
    ASSERT_EQ(records.size(), 2U);
    const Life area = last<Draw>().life;
    EXPECT_EQ(area.tool, QStringLiteral("area"));
    EXPECT_EQ(area.position, QPoint(55, 55));
    EXPECT_EQ(area.picture.size(), QSize(30, 30));
    EXPECT_EQ(at(55, 55), kGreen);
    EXPECT_EQ(at(84, 84), kGreen);
    EXPECT_EQ(at(85, 84), kRed);
    Change away{{2, 1}};
    away.by = {60, 0};
    other.change(away);
    EXPECT_EQ(at(54, 60), kWhite);
    EXPECT_EQ(at(55, 60), kGreen);
    EXPECT_EQ(at(100, 10), kWhite);
    EXPECT_EQ(at(130, 70), kWhite);
    other.remove({{2, 1}});
    EXPECT_EQ(at(55, 55), kGreen);
    EXPECT_EQ(at(86, 60), kWhite);
    me.undo();
    EXPECT_EQ(at(70, 70), kWhite);
}

TEST_F(AuthorFillTest, aFillTakesAnotherColourAndPlace)
{
    lesson.apply(record(2, 1, Draw{ring()}));
    records.push_back({});
    me.pour({70, 70}, QColor(0, 255, 0, 90));
    EXPECT_EQ(at(70, 70), kGreen); // opaque
    EXPECT_EQ(last<Draw>().life.ink.color.rgba(), kGreen);
    const ObjectId fill = records.back().id;
    EXPECT_EQ(lesson.page(kFirstPage).topmostAt({70, 70}), fill);
    Change change{fill, QColor(kBlue)};
    change.by = {0, 60};
    me.change(change);
    EXPECT_EQ(at(70, 70), kWhite);
    EXPECT_EQ(at(70, 130), kBlue);
    EXPECT_EQ(at(60, 144), kBlue);
    EXPECT_EQ(at(60, 145), kWhite);
    EXPECT_FALSE(me.reopen(fill));
}

// Filled, then moved: both go, in one step, and again at the next move.
TEST_F(AuthorFillTest, aFillGoesWithItsShapeThatIsMovedRightAfter)
{
    lesson.apply(record(2, 1, Draw{ring()}));
    records.push_back({});
    me.pour({70, 70}, QColor(kGreen));
    Change move{{2, 1}};
    move.by = {60, 10};
    me.change(move);
    EXPECT_EQ(records.size(), 4U);
    EXPECT_EQ(records[3].step, records[2].id.number);
    EXPECT_EQ(last<Change>().by, QPoint(60, 10));
    EXPECT_EQ(at(130, 80), kGreen);
    EXPECT_EQ(at(70, 70), kWhite);
    me.change(move);
    EXPECT_EQ(at(190, 90), kGreen);
    me.undo();
    EXPECT_EQ(at(130, 80), kGreen);
    EXPECT_EQ(at(190, 90), kWhite);
    me.undo();
    EXPECT_EQ(at(70, 70), kGreen);
    EXPECT_EQ(at(50, 50), kRed);
    me.change(move); // it is right after the fill again
    EXPECT_EQ(at(130, 80), kGreen);
}

TEST_F(AuthorFillTest, aFillGoesWithAShapeThatIsDragged)
{
    const ObjectId shape = box(me, {20, 20}, {60, 60});
    me.pour({40, 40}, QColor(kGreen));
    me.reopen(shape);
    drag(me, {40, 40}, {100, 50});
    me.finish();
    ASSERT_EQ(records.size(), 4U);
    EXPECT_EQ(records[3].step, records[2].id.number);
    EXPECT_EQ(at(100, 50), kGreen);
    EXPECT_EQ(at(40, 40), kWhite);
    me.undo();
    EXPECT_EQ(at(40, 40), kGreen);
    EXPECT_EQ(at(100, 50), kWhite);
}

// Frame (10,10)-(70,70) around the box: its upper left corner goes to (20,20).
TEST_F(AuthorFillTest, aFillStaysWhereItsShapeIsStretched)
{
    const ObjectId shape = box(me, {20, 20}, {60, 60});
    me.pour({40, 40}, QColor(kGreen));
    me.reopen(shape);
    drag(me, {10, 10}, {20, 20});
    me.finish();
    EXPECT_EQ(std::get<Change>(records.back().deed).object, shape);
    EXPECT_EQ(records.size(), 3U);
    EXPECT_EQ(at(40, 40), kGreen);
}

// Anything else in between, another shape, or a change that is no move, and it stays.
TEST_F(AuthorFillTest, aFillStaysWhereTheShapeIsNotMovedRightAfter)
{
    lesson.apply(record(2, 1, Draw{ring()}));
    lesson.apply(record(2, 2, Draw{blockLife({100, 100, 20, 20}, QColor(kBlue))}));
    records.insert(records.end(), 2, {});
    me.pour({70, 70}, QColor(kGreen));
    Change move{{2, 2}};
    move.by = {10, 0};
    me.change(move);
    EXPECT_EQ(at(70, 70), kGreen);
    move.object = {2, 1};
    move.by = {0, 50};
    me.change(move);
    EXPECT_EQ(at(70, 70), kGreen);
    me.undo();
    me.undo();
    other.change(move); // of somebody else
    EXPECT_EQ(at(70, 70), kGreen);
}

// The inner of two boxes is what was filled.
TEST_F(AuthorFillTest, aFillGoesWithTheInnermostShape)
{
    const ObjectId outer = box(me, {20, 20}, {120, 120}), inner = box(me, {40, 40}, {100, 100});
    me.pour({70, 70}, QColor(kGreen));
    Change move{outer};
    move.by = {0, 20};
    me.change(move);
    EXPECT_EQ(at(70, 45), kGreen);
    me.undo();
    move.object = inner;
    me.change(move);
    EXPECT_EQ(at(70, 45), kWhite);
    EXPECT_EQ(at(70, 95), kGreen);
}

TEST_F(AuthorFillTest, thereMayBeNothingToFill)
{
    EXPECT_FALSE(me.pour({70, 70}, QColor(kWhite)));
    EXPECT_FALSE(me.pour({-1, 70}, QColor(kRed)));
    EXPECT_FALSE(me.pour({200, 70}, QColor(kRed)));
    EXPECT_TRUE(records.empty());
    EXPECT_TRUE(me.pour({199, 149}, QColor(kRed)));
    EXPECT_EQ(at(0, 0), kRed);
}
