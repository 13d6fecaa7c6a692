#include "AuthorKit.h"

#include <algorithm>

using namespace InkLesson;

namespace {

QImage redImage()
{
    QImage image(40, 30, QImage::Format_ARGB32);
    image.fill(kRed);
    return image;
}

} // namespace

TEST_F(AuthorTest, aStrokeIsOneStep)
{
    me.begin(fresh("pencil"));
    me.feed(PT_DOWN, QPoint(20, 20));
    for (int x = 21; x < 60; ++x)
        me.feed(PT_MOVE, QPoint(x, 20));
    EXPECT_TRUE(records.empty());
    EXPECT_EQ(shown(40, 20), kRed);
    EXPECT_EQ(at(40, 20), kWhite);
    me.feed(PT_UP, QPoint(60, 20));
    ASSERT_EQ(records.size(), 1U);
    EXPECT_EQ(at(40, 20), kRed);
    EXPECT_EQ(me.hand(), nullptr);
    EXPECT_EQ(records[0].id, (StepId{1, 1}));
    EXPECT_EQ(records[0].step, 1);
    EXPECT_EQ(records[0].time, 1042) << "after 41 acts, each at its time";
    EXPECT_EQ(records[0].page, kFirstPage);
    EXPECT_EQ(last<Draw>().life.acts.size(), 41U);
}

TEST_F(AuthorTest, theActsOfTheHandHaveTheTimesAtWhichTheyWereDone)
{
    me.begin(fresh("rectangle"));
    EXPECT_EQ(me.actTimes(), std::vector<qint64>());
    me.feed(PT_DOWN, {20, 20});
    me.feed(PT_MOVE, {{30, 30}, {60, 40}});
    EXPECT_EQ(me.actTimes(), (std::vector<qint64>{1001, 1002, 1002}));
    me.finish();
    const InkLesson::ObjectId line = this->line(me);
    now = 2000;
    ASSERT_TRUE(me.reopen(line));
    EXPECT_EQ(me.actTimes(), std::vector<qint64>{2001}) << "the handles";
    me.feed(PT_DOWN, {20, 20});
    EXPECT_EQ(me.actTimes(), (std::vector<qint64>{2001, 2002}));
}

// Drawn, moved, coloured, widened and dashed: five steps, and the line is in the hand all the time.
TEST_F(AuthorTest, eachThingTheHandDoesIsOneStep)
{
    me.begin(fresh("line"));
    drag(me, {20, 20}, {60, 20});
    EXPECT_EQ(records.size(), 1U);
    ASSERT_NE(me.hand(), nullptr);
    EXPECT_EQ(me.hand()->held, (ObjectId{1, 1}));
    EXPECT_EQ(at(40, 20), kWhite); // it is in the hand
    EXPECT_EQ(shown(40, 20), kRed);
    drag(me, {40, 20}, {40, 50});
    ASSERT_EQ(records.size(), 2U);
    EXPECT_EQ(last<Change>().object, (ObjectId{1, 1}));
    EXPECT_EQ(shown(40, 50), kRed);
    me.act(ColorAct{QColor(kBlue)});
    EXPECT_EQ(records.size(), 3U);
    me.act(WidthAct{8});
    EXPECT_EQ(records.size(), 4U);
    me.act(DashAct{Qt::DotLine});
    EXPECT_EQ(records.size(), 5U);
    me.finish();
    EXPECT_EQ(records.size(), 5U);
    EXPECT_EQ(me.hand(), nullptr);
    for (std::size_t i = 0; i < records.size(); ++i)
        EXPECT_EQ(records[i].step, int(i) + 1);
    EXPECT_EQ(dashOf(*lesson.life({1, 1})), Qt::DotLine);
    me.undo();
    EXPECT_EQ(at(36, 47), kBlue); // as wide as before, without gaps
    EXPECT_EQ(at(44, 53), kBlue);
    me.undo();
    EXPECT_EQ(at(40, 47), kWhite);
    EXPECT_EQ(at(40, 48), kBlue);
    me.undo();
    EXPECT_EQ(at(40, 48), kRed);
    me.undo();
    EXPECT_EQ(at(40, 20), kRed);
    EXPECT_EQ(at(40, 48), kWhite);
    me.undo();
    EXPECT_EQ(things(), 0U);
    EXPECT_FALSE(me.undo());
    EXPECT_FALSE(me.canUndo());
    for (int i = 0; i < 5; ++i)
        EXPECT_TRUE(me.redo());
    EXPECT_FALSE(me.redo());
    EXPECT_EQ(dashOf(*lesson.life({1, 1})), Qt::DotLine);
}

TEST_F(AuthorTest, aDragIsAStepOnceItIsReleased)
{
    me.begin(fresh("line"));
    drag(me, {20, 20}, {60, 20});
    me.feed(PT_DOWN, QPoint(40, 20));
    me.feed(PT_MOVE, QPoint(40, 30));
    me.feed(PT_MOVE, QPoint(40, 50));
    EXPECT_EQ(records.size(), 1U);
    me.feed(PT_UP, QPoint(40, 50));
    EXPECT_EQ(records.size(), 2U);
    EXPECT_EQ(last<Change>().acts.size(), 6U); // with those that take it and let it go
}

TEST_F(AuthorTest, lettingGoWhatIsUnchangedIsNoStep)
{
    const ObjectId thing = line(me);
    EXPECT_TRUE(me.reopen(thing));
    EXPECT_EQ(me.hand()->held, thing);
    EXPECT_EQ(at(40, 20), kWhite);
    me.finish();
    EXPECT_EQ(at(40, 20), kRed);
    me.reopen(thing);
    drag(me, {40, 20}, {40, 20}); // picked up and put down
    me.act(ColorAct{QColor(kRed)});
    me.act(WidthAct{4});
    me.act(DashAct{Qt::SolidLine});
    me.feed(PT_DOWN, QPoint(150, 120)); // beside it
    EXPECT_EQ(me.hand(), nullptr);
    EXPECT_EQ(at(40, 20), kRed);
    EXPECT_EQ(records.size(), 1U);
}

TEST_F(AuthorTest, onlyWhatHasHandlesIsReopened)
{
    me.begin(fresh("pencil"));
    drag(me, {20, 20}, {60, 20});
    EXPECT_FALSE(me.reopen(records.back().id));
    EXPECT_FALSE(me.reopen({9, 9}));
    const ObjectId thing = line(me);
    me.remove({thing});
    EXPECT_FALSE(me.reopen(thing));
    EXPECT_EQ(me.hand(), nullptr);
}

TEST_F(AuthorTest, aNewObjectWithoutAMarkIsForgotten)
{
    me.begin(fresh("pencil"));
    me.finish(); // nothing was drawn
    me.begin(fresh("pencil"));
    drag(me, {-90, -90}, {-60, -90}); // beyond the page
    me.finish();
    me.begin(fresh("pencil"));
    me.feed(PT_DOWN, QPoint(20, 20));
    me.begin(fresh("line")); // a single point
    me.finish();
    EXPECT_TRUE(records.empty());
    EXPECT_EQ(me.hand(), nullptr);
    EXPECT_EQ(shown(20, 20), kWhite);
    me.feed(PT_DOWN, QPoint(20, 20)); // to nobody
    me.act(FinishAct());
    EXPECT_TRUE(records.empty());
}

TEST_F(AuthorTest, discardTakesAway)
{
    me.begin(fresh("pencil"));
    me.feed(PT_DOWN, QPoint(20, 20));
    me.feed(PT_MOVE, QPoint(60, 20));
    me.discard();
    EXPECT_TRUE(records.empty());
    EXPECT_EQ(shown(40, 20), kWhite);
    me.discard(); // nothing
    const ObjectId thing = line(me);
    me.reopen(thing);
    me.discard();
    ASSERT_EQ(records.size(), 2U);
    EXPECT_EQ(last<Delete>().objects, std::vector<ObjectId>{thing});
    EXPECT_EQ(things(), 0U);
    EXPECT_EQ(shown(40, 20), kWhite);
    me.undo();
    EXPECT_EQ(at(40, 20), kRed);
}

// A picture of 40 x 30 is painted one pixel narrower and lower.
TEST_F(AuthorTest, aPictureIsAStepOfItsOwn)
{
    Life picture{QLatin1String(kPictureTool)};
    picture.canvas = {200, 150};
    picture.picture = QImage(40, 30, QImage::Format_ARGB32);
    picture.picture.fill(kBlue);
    picture.position = {20, 20};
    me.insert(picture);
    ASSERT_EQ(records.size(), 1U);
    ASSERT_NE(me.hand(), nullptr);
    EXPECT_EQ(me.hand()->held, records[0].id);
    EXPECT_EQ(at(40, 35), kWhite);
    EXPECT_EQ(shown(40, 35), kBlue);
    drag(me, {40, 35}, {140, 35});
    EXPECT_EQ(records.size(), 2U);
    me.finish();
    EXPECT_EQ(records.size(), 2U);
    EXPECT_EQ(at(140, 35), kBlue);
    me.undo();
    EXPECT_EQ(at(140, 35), kWhite);
    EXPECT_EQ(at(40, 35), kBlue);
    me.undo();
    EXPECT_EQ(things(), 0U);
}

// What a drag removes is one step, unless it is undone under way.
TEST_F(AuthorTest, removesInOneStepUntilThatIsUndone)
{
    std::vector<ObjectId> blocks;
    for (int i = 0; i < 4; ++i) {
        lesson.apply(record(2, 1 + i, Draw{blockLife({40 * i, 40, 20, 20}, QColor(kRed))}));
        records.push_back({});
        blocks.push_back({2, 1 + i});
    }
    int step = me.remove({blocks[0]});
    EXPECT_EQ(step, 1);
    step = me.remove({blocks[1]}, step);
    EXPECT_EQ(step, 1);
    me.undo();
    EXPECT_EQ(things(), 4U);
    step = me.remove({blocks[2]}, step);
    EXPECT_EQ(step, 4);
    step = me.remove({blocks[3]}, step);
    EXPECT_EQ(step, 4);
    EXPECT_EQ(things(), 2U);
    me.undo();
    EXPECT_EQ(things(), 4U);
}

// The hole, what was lifted from it, and the first move of that; the next move is the next step.
TEST_F(AuthorTest, aSelectionIsOneStepWithWhatItLifts)
{
    lesson.apply(record(2, 1, Draw{blockLife({40, 40, 20, 20}, QColor(kRed))}));
    records.push_back({});
    me.begin(fresh("select"));
    drag(me, {30, 30}, {100, 80});
    ASSERT_EQ(records.size(), 3U);
    EXPECT_EQ(records[1].step, 1);
    EXPECT_EQ(records[2].step, 1);
    EXPECT_EQ(std::get<Draw>(records[1].deed).life.tool, QStringLiteral("select"));
    EXPECT_EQ(last<Draw>().life.tool, QStringLiteral("picture"));
    EXPECT_EQ(me.hand()->held, records[2].id);
    EXPECT_EQ(at(50, 50), kWhite);
    EXPECT_EQ(shown(50, 50), kRed);
    drag(me, {50, 50}, {110, 50});
    me.finish();
    EXPECT_EQ(records.size(), 4U);
    EXPECT_EQ(records[3].step, 1);
    EXPECT_EQ(at(110, 50), kRed);
    EXPECT_EQ(at(50, 50), kWhite);
    me.reopen(records[2].id);
    drag(me, {110, 50}, {110, 110});
    me.finish();
    EXPECT_EQ(records[4].step, 4);
    EXPECT_EQ(at(110, 110), kRed);
    me.undo();
    EXPECT_EQ(at(110, 50), kRed);
    EXPECT_EQ(things(), 3U);
    me.undo();
    EXPECT_EQ(things(), 1U);
    EXPECT_EQ(at(50, 50), kRed);
    EXPECT_FALSE(me.canUndo());
}

// A heart shows its frame and leaves no ink.
TEST_F(AuthorTest, aShapeWithoutInkIsNoStep)
{
    me.begin(fresh("heart"));
    drag(me, {20, 20}, {80, 80});
    EXPECT_TRUE(me.hand());
    EXPECT_EQ(at(50, 50), kWhite);
    EXPECT_TRUE(records.empty());
    drag(me, {50, 50}, {70, 60});
    me.finish();
    EXPECT_TRUE(records.empty());
    EXPECT_FALSE(me.canUndo());
}

TEST_F(AuthorTest, duplicatesOnTopOfAll)
{
    const ObjectId thing = line(me);
    EXPECT_EQ(other.duplicate(thing, {0, 50}), (ObjectId{2, 1}));
    EXPECT_EQ(at(40, 20), kRed);
    EXPECT_EQ(at(40, 70), kRed);
    EXPECT_EQ(at(40, 72), kWhite);
    EXPECT_EQ(lesson.page(kFirstPage).items().back()->id, (ObjectId{2, 1}));
    EXPECT_EQ(other.duplicate({9, 9}, {0, 50}), kNothing);
    me.remove({thing});
    EXPECT_EQ(other.duplicate(thing, {0, 50}), kNothing);
    EXPECT_EQ(at(40, 70), kRed); // it is a thing of its own
    EXPECT_EQ(records.size(), 3U);
}

TEST_F(AuthorTest, undoesOwnStepsAlone)
{
    line(me);
    other.begin(fresh("pencil", kGreen));
    drag(other, {20, 60}, {60, 60});
    EXPECT_TRUE(me.undo());
    EXPECT_EQ(at(40, 20), kWhite);
    EXPECT_EQ(at(40, 60), kGreen);
    EXPECT_FALSE(me.undo());
    EXPECT_FALSE(me.canUndo());
    EXPECT_TRUE(me.canRedo());
    EXPECT_TRUE(other.canUndo());
    EXPECT_FALSE(other.canRedo());
    other.undo();
    EXPECT_EQ(at(40, 60), kWhite);
    EXPECT_TRUE(me.redo());
    EXPECT_EQ(at(40, 20), kRed);
    EXPECT_EQ(at(40, 60), kWhite);
}

TEST_F(AuthorTest, aNewStepLeavesNothingToRedo)
{
    line(me);
    me.undo();
    line(other);
    EXPECT_TRUE(me.canRedo()); // what another does is nothing to it
    line(me);
    EXPECT_FALSE(me.canRedo());
    EXPECT_FALSE(me.redo());
}

// What is in the hand is a step first.
TEST_F(AuthorTest, undoLetsGo)
{
    me.begin(fresh("pencil"));
    me.feed(PT_DOWN, QPoint(20, 20));
    me.feed(PT_MOVE, QPoint(60, 20));
    EXPECT_TRUE(me.canUndo());
    EXPECT_TRUE(me.undo());
    EXPECT_EQ(records.size(), 2U);
    EXPECT_EQ(things(), 0U);
    EXPECT_EQ(shown(40, 20), kWhite);
    me.redo();
    EXPECT_EQ(at(40, 20), kRed);
}

TEST_F(AuthorTest, severalChangesAreOneStep)
{
    const ObjectId first = line(me), second = line(me);
    Change down{second};
    down.by = {0, 60};
    other.change({Change{{9, 9}, QColor(kBlue)}, Change{first, QColor(kBlue)}, down});
    ASSERT_EQ(records.size(), 4U);
    EXPECT_EQ(records[2].step, 1);
    EXPECT_EQ(records[3].step, 1);
    EXPECT_EQ(at(40, 20), kBlue);
    EXPECT_EQ(at(40, 80), kRed);
    other.undo();
    EXPECT_EQ(at(40, 20), kRed);
    EXPECT_EQ(at(40, 80), kWhite);
}

TEST_F(AuthorTest, whatWouldChangeNothingIsNoStep)
{
    const ObjectId thing = line(me);
    me.change(std::vector<Change>());
    me.remove({{9, 9}});
    me.remove({});
    me.order({9, 9}, kNothing);
    me.order(thing, thing);
    me.grow({200, 150});
    me.grow({10, 10});
    me.removePage(kFirstPage);
    me.movePage(kFirstPage, 0);
    EXPECT_EQ(records.size(), 1U);
    me.clear();
    me.clear();
    EXPECT_EQ(records.size(), 2U);
    me.grow({201, 10});
    EXPECT_EQ(last<Grow>().size, QSize(201, 150));
    EXPECT_EQ(me.number(), 1);
}

TEST_F(AuthorTest, turnsToPages)
{
    const PageId second = me.addPage(1, {100, 80});
    EXPECT_EQ(me.page(), kFirstPage);
    me.begin(fresh("pencil"));
    me.feed(PT_DOWN, QPoint(20, 20));
    me.feed(PT_MOVE, QPoint(60, 20));
    me.turnTo(second);
    EXPECT_EQ(at(40, 20), kRed); // let go where it was
    EXPECT_EQ(records.back().page, kFirstPage);
    EXPECT_EQ(me.hand(), nullptr);
    me.setPaper({Paper::Kind::Ruled, {}});
    EXPECT_EQ(records.back().page, second);
    EXPECT_EQ(lesson.page(second).picture().pixel(5, 32), 0xFFCBD8EA);
    EXPECT_FALSE(me.reopen({1, 2})); // it lies on the other page
    me.movePage(second, 0);
    EXPECT_EQ(lesson.pageId(0), second);
    me.removePage(second);
    EXPECT_EQ(lesson.pageCount(), 1);
}

// It stays away, and nobody falls over it; once it is back, it is where it was dragged to.
TEST_F(AuthorTest, anotherMayRemoveWhatIsInTheHand)
{
    const ObjectId thing = line(me);
    me.reopen(thing);
    other.remove({thing});
    EXPECT_EQ(things(), 0U);
    drag(me, {40, 20}, {40, 80});
    me.finish();
    EXPECT_EQ(me.hand(), nullptr);
    EXPECT_EQ(things(), 0U);
    EXPECT_EQ(shown(40, 80), kWhite);
    other.undo();
    EXPECT_EQ(at(40, 80), kRed);
    EXPECT_EQ(at(40, 20), kWhite);
}

// With words, and nothing has changed.
TEST_F(AuthorTest, whatNoRecordCanTellIsNotDone)
{
    const ObjectId thing = line(me);
    EXPECT_EQ(me.problem(), QString());
    EXPECT_EQ(me.addPage(-1, {50, 50}), kNothing);
    EXPECT_EQ(me.problem(), QStringLiteral("at: not a number that this can be"));
    EXPECT_EQ(me.addPage(0, {50, 0}), kNothing);
    EXPECT_EQ(me.problem(), QStringLiteral("size: a side must be 1 to 16384 pixels"));
    me.turnTo(kNothing);
    EXPECT_EQ(me.page(), kFirstPage);
    me.removePage(kNothing);
    me.movePage({9, 9}, 1);
    me.movePage(kFirstPage, -1);
    EXPECT_EQ(me.problem(), QStringLiteral("at: not a number that this can be"));
    me.grow({16385, 10});
    EXPECT_EQ(me.problem(), QStringLiteral("size: a side must be 1 to 16384 pixels"));
    me.setPaper({Paper::Kind::Picture, {}});
    EXPECT_EQ(me.problem(), QStringLiteral("picture: not a picture"));
    me.order(thing, {1, 0});
    EXPECT_EQ(me.problem(), QStringLiteral("above: not a name"));
    Life life = fresh("pencil");
    life.canvas = {};
    me.begin(life);
    EXPECT_EQ(me.problem(), QStringLiteral("a side must be 1 to 16384 pixels"));
    EXPECT_EQ(me.hand(), nullptr);
    EXPECT_EQ(records.size(), 1U);
    EXPECT_EQ(at(40, 20), kRed);
    me.setPaper({Paper::Kind::Ruled, {}});
    EXPECT_EQ(me.problem(), QString());
    EXPECT_EQ(records.size(), 2U);
}

TEST_F(AuthorTest, aTextIsAtMostAMillionLetters)
{
    me.begin(fresh("text"));
    drag(me, {20, 20}, {100, 80});
    me.act(TextAct{QString(1048577, QLatin1Char('a')), {}});
    EXPECT_EQ(me.problem(), QStringLiteral("a text has at most 1048576 letters"));
    ASSERT_NE(me.hand(), nullptr);
    EXPECT_FALSE(std::holds_alternative<TextAct>(me.hand()->life.acts.back()));
    me.act(TextAct{QString(1048576, QLatin1Char('a')), redImage()});
    EXPECT_EQ(me.problem(), QString());
    me.finish();
    EXPECT_EQ(me.problem(), QString());
    EXPECT_FALSE(records.empty());
}

// A text without an image, a style without a name, a colour of sixteen bits, a clock gone mad.
TEST_F(AuthorTest, whatIsNotExactIsMadeSo)
{
    now = 1LL << 62;
    Life life = fresh("line");
    life.ink.color = QColor::fromRgba64(0xFFFF, 0x0080, 0x0080);
    life.ink.dash = Qt::NoPen;
    me.begin(life);
    EXPECT_EQ(me.hand()->life.ink.dash, Qt::SolidLine);
    EXPECT_EQ(me.object()->m_color, QColor(255, 0, 0));
    drag(me, {20, 20}, {60, 20});
    ASSERT_EQ(records.size(), 1U);
    EXPECT_EQ(records[0].time, 9007199254740992);
    EXPECT_EQ(last<Draw>().life.ink.dash, Qt::SolidLine);
    me.act(DashAct{Qt::CustomDashLine});
    me.act(ColorAct{QColor::fromRgba64(0x0080, 0x0080, 0xFFFF)});
    me.finish();
    ASSERT_EQ(records.size(), 2U);
    EXPECT_EQ(at(40, 20), 0xFF0000FF);
    Change change{{1, 1}};
    change.dash = Qt::NoPen;
    me.change(change);
    EXPECT_EQ(last<Change>().dash, Qt::SolidLine);

    me.begin(fresh("text"));
    drag(me, {100, 20}, {180, 80});
    me.act(TextAct{QStringLiteral("t"), {}});
    me.act(TextAct{QStringLiteral("t"), redImage()}); // without a mark it would be forgotten
    me.finish();
    EXPECT_EQ(me.problem(), QString());
    const std::vector<Act> acts = lesson.life(records.back().id)->acts;
    const auto isText = [](const Act &act) { return std::holds_alternative<TextAct>(act); };
    const auto text = std::find_if(acts.begin(), acts.end(), isText);
    ASSERT_NE(text, acts.end());
    EXPECT_EQ(std::get<TextAct>(*text).image.size(), QSize(1, 1));
    EXPECT_EQ(std::get<TextAct>(*text).image.pixel(0, 0), 0U);
}

// Five hours of a fast pen.
TEST_F(AuthorTest, aStrokeEndsWhereARecordEnds)
{
    Life life = fresh("pencil");
    life.acts.assign(4194304 - 10, PaintAct());
    me.begin(life, createObject(life));
    me.feed(PT_DOWN, QPoint(20, 20));
    me.feed(PT_MOVE, {{21, 20}, {22, 20}}); // no room
    me.feed(PT_MOVE, QPoint(23, 20));
    EXPECT_EQ(me.hand()->life.acts.size(), 4194296U);
    me.feed(PT_MOVE, QPoint(24, 20));
    me.act(ColorAct{QColor(kBlue)});
    EXPECT_EQ(me.hand()->life.acts.size(), 4194296U);
}

// What is to be shown is told of while it is drawn.
TEST_F(AuthorTest, tellsWhereThePageChanges)
{
    QRegion area;
    lesson.pageChanged = [&](const PageId &page, const QRegion &part) {
        EXPECT_EQ(page, kFirstPage);
        area |= part;
    };
    me.begin(fresh("line"));
    me.feed(PT_DOWN, QPoint(100, 100));
    area = QRegion();
    me.feed(PT_MOVE, QPoint(120, 100));
    EXPECT_EQ(area, QRegion(70, 70, 81, 61));
}
