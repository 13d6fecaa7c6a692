#include "lesson/fold/Lesson.h"

#include "Exact.h"
#include "LessonKit.h"

#include "lesson/log/RecordReader.h"

#include <gtest/gtest.h>

using namespace InkLesson;

namespace {

constexpr QRgb kWhite = 0xFFFFFFFF, kRed = 0xFFFF0000, kGreen = 0xFF00FF00, kBlue = 0xFF0000FF;
constexpr QRgb kRule = 0xFFCBD8EA;

Draw block(const QRect &place, QRgb color)
{
    return {blockLife(place, QColor(color))};
}

Change moved(const ObjectId &object, const QPoint &by)
{
    Change change{object};
    change.by = by;
    return change;
}

} // namespace

class LessonTest : public ::testing::Test
{
protected:
    LessonTest()
    {
        lesson.pageChanged = [this](const PageId & /*page*/, const QRegion &area) {
            painted |= area;
            ++paintings;
        };
        lesson.pagesChanged = [this] { ++pageChanges; };
        lesson.page(kFirstPage).surface(); // somebody looks from the start
    }

    // The author's next record. Returns its name.
    StepId apply(int author, Deed deed, const PageId &page = kFirstPage)
    {
        painted = QRegion();
        const Record next = record(author, lesson.history().nextNumber(author), std::move(deed), page);
        lesson.apply(next);
        return next.id;
    }
    QRgb at(int x, int y, const PageId &page = kFirstPage) const { return lesson.page(page).picture().pixel(x, y); }
    std::vector<ObjectId> order(const PageId &page = kFirstPage) const
    {
        std::vector<ObjectId> ids;
        for (const auto &item : lesson.page(page).items())
            ids.push_back(item->id);
        return ids;
    }
    std::vector<PageId> pages() const
    {
        std::vector<PageId> ids;
        for (int i = 0; i < lesson.pageCount(); ++i)
            ids.push_back(lesson.pageId(i));
        return ids;
    }

    Lesson lesson{{{200, 150}, 1}};
    QRegion painted; // by the last record
    int paintings{};
    int pageChanges{};
};

TEST_F(LessonTest, beginsWithABlankPage)
{
    EXPECT_EQ(pages(), std::vector<PageId>{kFirstPage});
    EXPECT_EQ(lesson.page(kFirstPage).rect(), QRect(0, 0, 200, 150));
    EXPECT_EQ(at(0, 0), kWhite);
    EXPECT_TRUE(lesson.log().empty());
}

TEST_F(LessonTest, drawsOnTopOfAllOthers)
{
    const ObjectId first = apply(1, block({40, 30, 20, 20}, kRed));
    EXPECT_EQ(painted, QRegion(29, 19, 42, 42));
    const ObjectId second = apply(2, block({50, 30, 20, 20}, kGreen));
    EXPECT_EQ(order(), (std::vector<ObjectId>{first, second}));
    EXPECT_EQ(first, (ObjectId{1, 1}));
    EXPECT_EQ(second, (ObjectId{2, 1}));
    EXPECT_EQ(at(45, 40), kRed);
    EXPECT_EQ(at(55, 40), kGreen);
    EXPECT_EQ(lesson.life(second)->position, QPoint(50, 30));
}

// Green was put above red, which lay above blue then. It goes down with red, away from red's place.
TEST_F(LessonTest, whatIsAboveGoesDownWithWhatIsUndone)
{
    const ObjectId red = apply(1, block({10, 10, 20, 20}, kRed));
    const ObjectId green = apply(1, block({100, 60, 20, 20}, kGreen));
    const ObjectId blue = apply(1, block({110, 60, 20, 20}, kBlue));
    const StepId up = apply(1, Order{red, blue});
    apply(2, Order{green, red});
    EXPECT_EQ(order(), (std::vector<ObjectId>{blue, red, green}));
    EXPECT_EQ(at(115, 70), kGreen);
    apply(1, Undo{up});
    EXPECT_EQ(order(), (std::vector<ObjectId>{red, green, blue}));
    EXPECT_EQ(at(115, 70), kBlue);
}

// A thousand blocks of the other, two pixels with two or four between them, some over it.
TEST_F(LessonTest, undoReachesUnderAThousandForeignSteps)
{
    const ObjectId mine = apply(1, block({100, 100, 20, 20}, kRed));
    for (int i = 0; i < 1000; ++i)
        apply(2, block({i % 50 * 4, i / 50 * 6, 2, 2}, kBlue));
    EXPECT_EQ(at(101, 101), kRed);
    EXPECT_EQ(at(100, 102), kBlue);
    const StepId undo = apply(1, Undo{mine});
    EXPECT_EQ(painted, QRegion(89, 89, 42, 42));
    EXPECT_EQ(at(101, 101), kWhite);
    EXPECT_EQ(at(118, 118), kWhite);
    EXPECT_EQ(lesson.page(kFirstPage).items().size(), 1000U);
    EXPECT_FALSE(lesson.life(mine));
    apply(1, Undo{undo});
    EXPECT_EQ(painted, QRegion(89, 89, 42, 42));
    EXPECT_EQ(at(101, 101), kRed);
    EXPECT_EQ(at(100, 102), kBlue); // below it, as before
    EXPECT_EQ(order().front(), mine);
    EXPECT_EQ(lesson.log().size(), 1003U);
}

TEST_F(LessonTest, whatBuildsOnAnUndoneStepHasNoEffect)
{
    const ObjectId thing = apply(1, block({40, 30, 10, 10}, kRed));
    const ObjectId other = apply(1, block({45, 30, 10, 10}, kGreen));
    const StepId change = apply(2, moved(thing, {100, 0}));
    EXPECT_EQ(at(145, 35), kRed);
    EXPECT_EQ(at(42, 35), kWhite);
    const StepId undo = apply(1, Undo{thing});
    EXPECT_EQ(at(145, 35), kWhite);
    EXPECT_FALSE(lesson.life(thing));
    apply(2, moved(thing, {0, 50})); // of what is not there
    EXPECT_EQ(painted, QRegion());
    apply(2, Order{other, thing});
    apply(1, Undo{undo});
    EXPECT_EQ(at(145, 85), kRed); // both changes count again
    EXPECT_EQ(lesson.life(thing)->position, QPoint(140, 80));
    apply(2, Undo{change});
    EXPECT_EQ(at(45, 85), kRed);
    EXPECT_EQ(lesson.life(thing)->position, QPoint(40, 80));
}

TEST_F(LessonTest, changesGiveStylePlaceAndActs)
{
    const ObjectId thing = apply(1, Draw{lineLife({20, 20}, {60, 20}, QColor(kRed))});
    Change change{thing, QColor(kBlue), 8};
    change.by = {0, 40};
    apply(1, change);
    EXPECT_EQ(at(40, 20), kWhite);
    EXPECT_EQ(at(40, 56), kBlue);
    EXPECT_EQ(at(40, 63), kBlue);
    EXPECT_EQ(at(40, 55), kWhite);
    EXPECT_EQ(at(40, 64), kWhite);
}

TEST_F(LessonTest, replacesAtTheSamePlaceInTheOrder)
{
    const ObjectId first = apply(1, block({40, 30, 20, 20}, kRed));
    const ObjectId second = apply(1, block({50, 30, 20, 20}, kGreen));
    Life life = blockLife({45, 30, 20, 20}, QColor(kBlue));
    life.picture = QImage();
    const StepId step = apply(1, Replace{first, life});
    EXPECT_EQ(order(), (std::vector<ObjectId>{first, second}));
    EXPECT_EQ(at(47, 40), kBlue); // with the pixels that it had
    EXPECT_EQ(at(42, 40), kWhite);
    EXPECT_EQ(at(55, 40), kGreen);
    apply(1, Undo{step});
    EXPECT_EQ(at(42, 40), kRed);
}

TEST_F(LessonTest, deletesSeveralInOneStep)
{
    const ObjectId first = apply(1, block({20, 30, 10, 10}, kRed));
    const ObjectId second = apply(1, block({50, 30, 10, 10}, kGreen));
    const ObjectId third = apply(1, block({80, 30, 10, 10}, kBlue));
    const StepId gone = apply(2, Delete{{first, third, {7, 7}}});
    EXPECT_EQ(order(), std::vector<ObjectId>{second});
    EXPECT_FALSE(lesson.life(third));
    apply(1, Undo{gone}); // somebody else's
    EXPECT_EQ(order(), std::vector<ObjectId>{second});
    const StepId undo = apply(2, Undo{gone});
    EXPECT_EQ(order(), (std::vector<ObjectId>{first, second, third}));
    EXPECT_EQ(at(85, 35), kBlue);
    apply(2, Undo{undo});
    EXPECT_EQ(order(), std::vector<ObjectId>{second});
}

// Deleted twice, it is back once both are undone.
TEST_F(LessonTest, eachDeletionCountsByItself)
{
    const ObjectId thing = apply(1, block({20, 30, 10, 10}, kRed));
    const StepId first = apply(1, Delete{{thing}});
    const StepId second = apply(2, Delete{{thing}});
    apply(1, Undo{first});
    EXPECT_FALSE(lesson.life(thing));
    apply(2, Undo{second});
    EXPECT_TRUE(lesson.life(thing));
    EXPECT_EQ(at(25, 35), kRed);
}

TEST_F(LessonTest, clearTakesWhatWasThereBefore)
{
    apply(1, block({20, 30, 10, 10}, kRed));
    apply(2, block({50, 30, 10, 10}, kGreen));
    const StepId clear = apply(2, Clear());
    const ObjectId later = apply(1, block({80, 30, 10, 10}, kBlue));
    EXPECT_EQ(order(), std::vector<ObjectId>{later});
    EXPECT_EQ(at(25, 35), kWhite);
    const StepId undo = apply(2, Undo{clear});
    EXPECT_EQ(order().size(), 3U);
    EXPECT_EQ(order().back(), later);
    EXPECT_EQ(at(25, 35), kRed);
    apply(2, Undo{undo});
    EXPECT_EQ(order(), std::vector<ObjectId>{later});
}

TEST_F(LessonTest, ordersAboveAndToTheBottom)
{
    const ObjectId a = apply(1, block({20, 30, 30, 30}, kRed));
    const ObjectId b = apply(1, block({30, 30, 30, 30}, kGreen));
    const ObjectId c = apply(1, block({40, 30, 30, 30}, kBlue));
    const StepId up = apply(1, Order{a, b});
    EXPECT_EQ(order(), (std::vector<ObjectId>{b, a, c}));
    EXPECT_EQ(painted, QRegion(9, 19, 52, 52));
    EXPECT_EQ(at(35, 40), kRed);
    EXPECT_EQ(at(45, 40), kBlue);
    apply(2, Order{c, kNothing});
    EXPECT_EQ(order(), (std::vector<ObjectId>{c, b, a}));
    EXPECT_EQ(at(55, 40), kGreen);
    EXPECT_EQ(at(45, 40), kRed);
    apply(1, Order{c, c});
    apply(1, Order{c, {8, 8}});
    apply(1, Order{{8, 8}, c});
    EXPECT_EQ(order(), (std::vector<ObjectId>{c, b, a}));
    apply(1, Undo{up});
    EXPECT_EQ(order(), (std::vector<ObjectId>{c, a, b}));
    const ObjectId d = apply(1, block({0, 0, 9, 9}, kRed));
    EXPECT_EQ(order(), (std::vector<ObjectId>{c, a, b, d}));
}

// It lies above what came before the order, and below what came later.
TEST_F(LessonTest, whatComesBackIsWhereItWouldBe)
{
    const ObjectId a = apply(1, block({20, 30, 30, 30}, kRed));
    const ObjectId b = apply(1, block({30, 30, 30, 30}, kGreen));
    const StepId gone = apply(1, Delete{{a}});
    apply(2, Order{a, b});
    EXPECT_EQ(order(), std::vector<ObjectId>{b});
    const ObjectId c = apply(1, block({40, 30, 30, 30}, kBlue));
    apply(1, Undo{gone});
    EXPECT_EQ(order(), (std::vector<ObjectId>{b, a, c}));
    EXPECT_EQ(at(35, 40), kRed);
    EXPECT_EQ(at(45, 40), kBlue);
}

// Whenever the order is made anew.
TEST_F(LessonTest, anOrderDoesNotReachWhatComesLater)
{
    const ObjectId a = apply(1, block({20, 30, 30, 30}, kRed));
    apply(2, Order{a, {1, 2}}); // which is not there yet
    const ObjectId b = apply(1, block({30, 30, 30, 30}, kGreen));
    const ObjectId c = apply(1, block({40, 30, 30, 30}, kBlue));
    EXPECT_EQ(order(), (std::vector<ObjectId>{a, b, c}));
    apply(2, Order{c, a});
    EXPECT_EQ(order(), (std::vector<ObjectId>{a, c, b}));
}

TEST_F(LessonTest, whatIsAwayTakesNoPlace)
{
    const ObjectId a = apply(1, block({20, 30, 30, 30}, kRed));
    const ObjectId b = apply(1, block({30, 30, 30, 30}, kGreen));
    const ObjectId c = apply(1, block({40, 30, 30, 30}, kBlue));
    apply(1, Delete{{a}});
    const StepId gone = apply(1, Delete{{b}});
    apply(1, Undo{gone});
    EXPECT_EQ(order(), (std::vector<ObjectId>{b, c}));
    EXPECT_EQ(at(45, 40), kBlue);
}

TEST_F(LessonTest, theLastPaperThatCountsIsShown)
{
    const StepId ruled = apply(1, SetPaper{{Paper::Kind::Ruled, {}}});
    EXPECT_EQ(at(10, 32), kRule);
    EXPECT_EQ(at(32, 10), kWhite);
    const StepId squared = apply(2, SetPaper{{Paper::Kind::Squared, {}}});
    EXPECT_EQ(at(32, 10), kRule);
    apply(1, Undo{ruled});
    EXPECT_EQ(at(32, 10), kRule);
    apply(2, Undo{squared});
    EXPECT_EQ(at(10, 32), kWhite);
    EXPECT_EQ(lesson.page(kFirstPage).paper().kind, Paper::Kind::Blank);
}

// An author's undo tells of all records of a step.
TEST_F(LessonTest, aStepMayHaveSeveralRecords)
{
    const ObjectId first = apply(1, block({20, 30, 10, 10}, kRed));
    Record second = record(1, 2, block({50, 30, 10, 10}, kGreen));
    second.step = 1;
    lesson.apply(second);
    const StepId undo = apply(1, Undo{first});
    EXPECT_TRUE(order().empty());
    EXPECT_EQ(at(55, 35), kWhite);
    apply(1, Undo{undo});
    EXPECT_EQ(order(), (std::vector<ObjectId>{{1, 1}, {1, 2}}));
}

// It is there whether the undo is the last or not, and can be undone by itself.
TEST_F(LessonTest, whatSaysToBelongToAnUndoIsAStepOfItsOwn)
{
    const StepId thing = apply(1, block({20, 30, 10, 10}, kRed));
    const StepId undo = apply(1, Undo{thing});
    Record odd = record(1, 3, block({50, 30, 10, 10}, kGreen));
    odd.step = undo.number;
    lesson.apply(odd);
    EXPECT_EQ(order(), std::vector<ObjectId>{odd.id});
    apply(1, Undo{undo});
    EXPECT_EQ(order(), (std::vector<ObjectId>{thing, odd.id}));
    apply(2, Clear());
    apply(2, Undo{{2, 1}});
    EXPECT_EQ(order(), (std::vector<ObjectId>{thing, odd.id}));
    apply(1, Undo{odd.id});
    EXPECT_EQ(order(), std::vector<ObjectId>{thing});
}

// Undone, done again, undone by naming the redo, and so on, five deep.
TEST_F(LessonTest, aRedoIsUndoneByNamingIt)
{
    StepId last = apply(1, block({40, 30, 10, 10}, kRed));
    for (const QRgb color : {kWhite, kRed, kWhite, kRed, kWhite}) {
        last = apply(1, Undo{last});
        EXPECT_EQ(at(45, 35), color) << last.number;
    }
    EXPECT_EQ(last, (StepId{1, 6}));
}

TEST_F(LessonTest, thereIsNoWayBackFromGrowing)
{
    const StepId grown = apply(1, Grow{{230, 100}});
    EXPECT_EQ(lesson.page(kFirstPage).rect(), QRect(0, 0, 230, 150));
    EXPECT_EQ(painted, QRegion(0, 0, 230, 150));
    EXPECT_FALSE(lesson.history().toUndo(1));
    apply(1, Undo{grown});
    EXPECT_EQ(lesson.page(kFirstPage).rect(), QRect(0, 0, 230, 150));
}

TEST_F(LessonTest, pagesComeGoAndMove)
{
    const PageId b = apply(1, AddPage{1, {100, 80}});
    const PageId c = apply(2, AddPage{0, {50, 50}});
    EXPECT_EQ(pages(), (std::vector<PageId>{c, kFirstPage, b}));
    EXPECT_EQ(lesson.page(b).rect().size(), QSize(100, 80));
    EXPECT_EQ(lesson.indexOf(b), 2);
    EXPECT_EQ(pageChanges, 2);
    apply(1, block({10, 10, 5, 5}, kRed), b);
    EXPECT_EQ(at(12, 12, b), kRed);
    EXPECT_EQ(at(12, 12), kWhite);
    const StepId moved = apply(1, MovePage{0}, b);
    EXPECT_EQ(pages(), (std::vector<PageId>{b, c, kFirstPage}));
    const StepId gone = apply(1, RemovePage(), c);
    EXPECT_EQ(pages(), (std::vector<PageId>{b, kFirstPage}));
    EXPECT_EQ(lesson.indexOf(c), -1);
    EXPECT_EQ(lesson.page(c).rect().size(), QSize(50, 50)); // it may come back
    apply(1, Undo{moved});
    EXPECT_EQ(pages(), (std::vector<PageId>{kFirstPage, b}));
    apply(1, Undo{gone});
    EXPECT_EQ(pages(), (std::vector<PageId>{c, kFirstPage, b}));
    apply(2, Undo{c});
    EXPECT_EQ(pages(), (std::vector<PageId>{kFirstPage, b}));
    EXPECT_EQ(at(12, 12, b), kRed);
    EXPECT_EQ(pageChanges, 7);
}

TEST_F(LessonTest, aPageGoesAsFarAsTheEnd)
{
    const PageId b = apply(1, AddPage{99, {100, 80}});
    EXPECT_EQ(pages(), (std::vector<PageId>{kFirstPage, b}));
    apply(1, MovePage{99});
    EXPECT_EQ(pages(), (std::vector<PageId>{b, kFirstPage}));
    EXPECT_EQ(pageChanges, 2);
    apply(1, MovePage{1});
    EXPECT_EQ(pageChanges, 2);
}

// Two remove the two pages that there are: the one whose record comes later stays.
TEST_F(LessonTest, theLastPageStays)
{
    const PageId b = apply(1, AddPage{1, {100, 80}});
    const StepId first = apply(1, RemovePage(), b);
    apply(2, RemovePage(), kFirstPage);
    EXPECT_EQ(pages(), std::vector<PageId>{kFirstPage});
    apply(1, Undo{first});
    EXPECT_EQ(pages(), std::vector<PageId>{b}); // now the other counts
}

// On a page that was taken away people draw on, and find it so when it is back.
TEST_F(LessonTest, whatIsDrawnOnAPageThatIsAwayIsThere)
{
    const PageId b = apply(1, AddPage{1, {100, 80}});
    const StepId gone = apply(1, RemovePage(), b);
    apply(2, block({10, 10, 5, 5}, kRed), b);
    apply(1, Undo{gone});
    EXPECT_EQ(at(12, 12, b), kRed);
}

TEST_F(LessonTest, recordsOfUnknownThingsHaveNoEffect)
{
    apply(1, block({40, 30, 10, 10}, kRed));
    const QImage before = lesson.page(kFirstPage).picture().copy();
    const ObjectId nobody{5, 5};
    const Deed deeds[] = {moved(nobody, {1, 1}),   Replace{nobody, blockLife({0, 0, 5, 5}, QColor(kRed))},
                          Delete{{nobody}},        Delete{},
                          Order{nobody, kNothing}, Undo{nobody},
                          Undo{{2, 999}}};
    for (const Deed &deed : deeds) {
        apply(2, deed);
        EXPECT_EQ(painted, QRegion());
    }
    const PageId nowhere{5, 6};
    for (const Deed &deed : {Deed(block({0, 0, 9, 9}, kRed)), Deed(Clear()), Deed(SetPaper()), Deed(Grow{{900, 900}}),
                             Deed(RemovePage()), Deed(MovePage{0}), Deed(Delete{{{1, 1}}}), Deed(Order{{1, 1}, {}})})
        apply(2, deed, nowhere);
    EXPECT_EQ(lesson.page(kFirstPage).picture(), before);
    EXPECT_EQ(pages(), std::vector<PageId>{kFirstPage});
    EXPECT_EQ(lesson.log().size(), 16U);
}

// An object is changed on its own page alone.
TEST_F(LessonTest, aRecordOfAnotherPageDoesNotReachAnObject)
{
    const ObjectId thing = apply(1, block({40, 30, 10, 10}, kRed));
    const PageId b = apply(1, AddPage{1, {100, 80}});
    apply(1, Delete{{thing}}, b);
    apply(1, moved(thing, {50, 0}), b);
    apply(1, Clear(), b);
    EXPECT_EQ(at(45, 35), kRed);
    EXPECT_EQ(order(), std::vector<ObjectId>{thing});
}

TEST_F(LessonTest, aRecordThatChangesNoPixelIsAccepted)
{
    const ObjectId hidden = apply(1, block({250, 30, 10, 10}, kRed)); // beyond the edge
    EXPECT_EQ(painted, QRegion());
    EXPECT_EQ(order(), std::vector<ObjectId>{hidden});
    apply(1, moved(hidden, {0, 10}));
    apply(1, SetPaper());
    EXPECT_EQ(lesson.log().size(), 3U);
    apply(1, Grow{{300, 150}});
    EXPECT_EQ(at(255, 45), kRed);
}

TEST_F(LessonTest, anUnfinishedObjectIsNotShown)
{
    Life life = lineLife({20, 20}, {60, 20}, QColor(kRed));
    life.acts.pop_back();
    const ObjectId thing = apply(1, Draw{life});
    EXPECT_TRUE(order().empty());
    EXPECT_FALSE(lesson.life(thing));
    Change change{thing};
    change.acts = {FinishAct()};
    apply(1, change);
    EXPECT_EQ(order(), std::vector<ObjectId>{thing});
    EXPECT_EQ(at(40, 20), kRed);
}

TEST_F(LessonTest, doublesAreIgnored)
{
    const Record first = record(1, 1, block({40, 30, 10, 10}, kRed));
    const Record third = record(1, 3, block({60, 30, 10, 10}, kGreen));
    lesson.apply(first);
    lesson.apply(third);
    EXPECT_TRUE(lesson.isKnown(first));
    EXPECT_FALSE(lesson.isKnown(record(1, 4, Clear())));
    EXPECT_FALSE(lesson.isKnown(record(2, 1, Clear())));
    painted = QRegion();
    lesson.apply(first);
    lesson.apply(record(1, 2, Clear())); // it has come too late
    lesson.apply(record(1, 3, Clear()));
    EXPECT_EQ(painted, QRegion());
    EXPECT_EQ(lesson.log().size(), 2U);
    EXPECT_EQ(order(), (std::vector<ObjectId>{{1, 1}, {1, 3}}));
}

TEST_F(LessonTest, aBatchPaintsOnce)
{
    const ObjectId thing{1, 1};
    {
        const Lesson::Batch outer(lesson);
        {
            const Lesson::Batch inner(lesson);
            apply(1, block({40, 30, 10, 10}, kRed));
        }
        apply(1, block({45, 30, 10, 10}, kGreen));
        apply(1, Delete{{thing}});
        EXPECT_EQ(paintings, 0);
        EXPECT_EQ(at(47, 35), kWhite);
    }
    EXPECT_EQ(paintings, 1);
    EXPECT_EQ(at(47, 35), kGreen);
    EXPECT_EQ(at(42, 35), kWhite);
}

// The fills and pens of the random lessons are in tst_Lesson_random.
TEST_F(LessonTest, theSameLogGivesTheSamePixels)
{
    const ObjectId line = apply(1, Draw{lineLife({20, 20}, {180, 130}, QColor(255, 0, 0, 100))});
    const ObjectId block1 = apply(2, block({40, 30, 60, 60}, kGreen));
    apply(1, Order{block1, kNothing});
    const StepId paper = apply(2, SetPaper{{Paper::Kind::Squared, {}}});
    apply(1, moved(line, {10, -10}));
    const StepId undo = apply(2, Undo{paper});
    apply(1, Clear());
    apply(1, Undo{{1, 4}});
    apply(2, Undo{undo});
    Lesson again(lesson.header());
    for (const QByteArray &code : lesson.log()) {
        RecordReader reader;
        Record one;
        ASSERT_TRUE(reader.readCbor(code, one));
        again.apply(one);
    }
    EXPECT_TRUE(samePixels(again.page(kFirstPage).picture(), lesson.page(kFirstPage).picture()));
    EXPECT_TRUE(samePixels(again.page(kFirstPage).ink(), lesson.page(kFirstPage).ink()));
    EXPECT_EQ(at(64, 10), kRule);
    EXPECT_EQ(at(45, 80), kGreen);
    EXPECT_EQ(again.log(), lesson.log());
}

// What an author has drawn comes with its life: the object is the one that is on the page then.
TEST_F(LessonTest, takesTheObjectThatComesWithARecord)
{
    const Life life = lineLife({20, 20}, {60, 20}, QColor(kRed));
    LivedObject lived = live(life);
    const CInkGraph *object = lived.object.get();
    lesson.apply(record(1, 1, Draw{life}), std::move(lived));
    EXPECT_EQ(lesson.page(kFirstPage).item({1, 1})->object.get(), object);
    EXPECT_EQ(at(40, 20), kRed);
}

// Qt cuts such an outline at the edge of what it may paint, so that a part of it alone has other pixels at its edge.
TEST(Lesson, aStrokeToFarBeyondThePageIsPaintedWholly)
{
    Life far{QStringLiteral("highlighter")};
    far.ink.color = QColor(229, 0, 255, 194);
    far.ink.width = 18;
    far.canvas = {64, 64};
    far.acts = {PointerAct{1, {1073741823, 1073741823}}, PointerAct{2, {10, 18}}, FinishAct()};
    Life block = blockLife({12, 30, 9, 9}, Qt::blue);

    Lesson never({{42, 54}}), undone({{42, 54}});
    never.apply(record(1, 1, Draw{far}));
    undone.apply(record(1, 1, Draw{far}));
    undone.apply(record(1, 2, Draw{block}));
    undone.apply(record(1, 3, Delete{{{1, 2}}}));
    EXPECT_EQ(undone.page(kFirstPage).picture(), never.page(kFirstPage).picture());
    EXPECT_EQ(undone.page(kFirstPage).ink(), never.page(kFirstPage).ink());
}
