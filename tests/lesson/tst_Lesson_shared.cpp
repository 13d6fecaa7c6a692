// A lesson that is shared: whatever settles in between, or is taken back, its pages are those of the plain replay of
// its log.

#include "LessonKit.h"
#include "RandomActs.h"
#include "Threads.h"

#include "lesson/log/RecordCode.h"
#include "lesson/log/RecordReader.h"
#include "lesson/storage/Journal.h"
#include "lesson/storage/LessonFile.h"

#include <QtCore/QTemporaryDir>

#include <gtest/gtest.h>

#include <deque>

using namespace InkLesson;

namespace {

using Codes = std::vector<QByteArray>;

constexpr QRgb kWhite = 0xFFFFFFFF, kRed = 0xFFFF0000, kGreen = 0xFF00FF00;

std::unique_ptr<Lesson> replayed(const Header &header, const Codes &log)
{
    auto lesson = std::make_unique<Lesson>(header);
    const Lesson::Batch batch(*lesson);
    for (const QByteArray &code : log) {
        RecordReader reader;
        Record record;
        EXPECT_TRUE(reader.readCbor(code, record)) << reader.error().toStdString();
        EXPECT_EQ(lesson->apply(record), QString());
    }
    return lesson;
}

::testing::AssertionResult samePages(const Lesson &actual, const Lesson &expected)
{
    if (actual.pageCount() != expected.pageCount())
        return ::testing::AssertionFailure() << actual.pageCount() << " pages instead of " << expected.pageCount();
    for (int i = 0; i < actual.pageCount(); ++i) {
        if (actual.pageId(i) != expected.pageId(i))
            return ::testing::AssertionFailure() << "page " << i << " is another";
        const Page &page = actual.page(actual.pageId(i)), &other = expected.page(expected.pageId(i));
        if (page.items().size() != other.items().size())
            return ::testing::AssertionFailure()
                   << page.items().size() << " objects instead of " << other.items().size() << " on page " << i;
        if (page.rect() != other.rect())
            return ::testing::AssertionFailure() << "page " << i << " is as large as another";
        if (page.picture() != other.picture() || page.ink() != other.ink())
            return ::testing::AssertionFailure() << "page " << i << " differs";
    }
    return ::testing::AssertionSuccess();
}

// The author's next own steps are the same.
::testing::AssertionResult sameHistory(const Lesson &actual, const Lesson &expected, int author)
{
    const History &history = actual.history(), &other = expected.history();
    if (history.lastNumber(author) != other.lastNumber(author))
        return ::testing::AssertionFailure() << "last number " << history.lastNumber(author);
    if (history.toUndo(author) != other.toUndo(author) || history.toRedo(author) != other.toRedo(author) ||
        history.stepsToUndo(author) != other.stepsToUndo(author))
        return ::testing::AssertionFailure() << "another step to undo";
    return ::testing::AssertionSuccess();
}

// One board, and what others would make of its log.
struct Board
{
    Board(unsigned seed, int me)
        : random(seed)
        , lesson(Header{RandomActs::kSize})
        , author(lesson, me, [this] { return ++time; })
        , acts(random, lesson)
    {
        QString problem;
        EXPECT_TRUE(journal.keep(folder.path(), QStringLiteral("journal"), problem)) << problem.toStdString();
        EXPECT_TRUE(journal.share(lesson, {}, {{me}, QStringLiteral("address"), "token"}));
        lesson.logChanged = [this](const Lesson::LogChange &change) { journal.note(change); };
        look();
    }

    // So that what changes is painted in part.
    void look()
    {
        for (int i = 0; i < lesson.pageCount(); ++i)
            lesson.page(lesson.pageId(i)).surface();
    }

    Random random;
    qint64 time{};
    Lesson lesson;
    Author author;
    RandomActs acts;
    const QTemporaryDir folder;
    Journal journal;
};

} // namespace

TEST(SharedLesson, isTheReplayOfItsLogAndOpensFromItsJournal)
{
    const unsigned first = caseCount("INK_LESSON_SEED", 1);
    for (unsigned seed = first; seed < first + caseCount("INK_LESSON_CASES", 30); ++seed) {
        SCOPED_TRACE(seed);
        Random random(seed + 1000);
        Board one(seed, 1), two(seed + 500, 2);
        Threads threads(3);
        two.lesson.lend(&threads);
        Board *boards[] = {&one, &two};
        Codes order; // that everybody has
        for (int i = 0; i < 60; ++i) {
            Board &board = *boards[random.below(2)];
            const int me = board.author.number();
            switch (random.below(6)) {
            case 0: { // the next of the board's own comes into the order, where it is not there yet
                const std::size_t next = board.lesson.settled();
                if (next == order.size() && board.lesson.log().size() > next)
                    order.push_back(board.lesson.log()[next]);
                break;
            }
            case 1:
            case 2: {
                const std::size_t from = board.lesson.settled();
                const std::size_t to = from + std::size_t(random.below(int(order.size() - from) + 1));
                const auto begin = order.begin();
                EXPECT_EQ(board.lesson.settle({begin + std::ptrdiff_t(from), begin + std::ptrdiff_t(to)}).size(), 0U);
                break;
            }
            case 3:
                if (random.oneIn(4) && !order.empty()) {
                    // What is lost comes again where its board has it pending.
                    order.resize(order.size() - std::size_t(random.below(std::min(4, int(order.size())))));
                    for (Board *other : boards) {
                        const int number = other->author.number();
                        other->lesson.setBack(order.size(), [=](int author) { return author == number; });
                    }
                } else if (random.oneIn(4) && board.lesson.log().size() > board.lesson.settled()) {
                    RecordReader reader;
                    Record record;
                    ASSERT_TRUE(reader.readCbor(board.lesson.log().back(), record));
                    EXPECT_TRUE(board.lesson.drop(record.id));
                }
                break;
            default:
                board.acts.actOnce(board.author);
            }
            board.look();
            const auto again = replayed(board.lesson.header(), board.lesson.log());
            if (!board.author.hand()) {
                ASSERT_TRUE(samePages(board.lesson, *again)) << "board " << me << " after " << i;
            }
            ASSERT_TRUE(sameHistory(board.lesson, *again, 1)) << "board " << me << " after " << i;
            ASSERT_TRUE(sameHistory(board.lesson, *again, 2)) << "board " << me << " after " << i;
        }
        for (Board *board : boards) {
            board->author.finish();
            ASSERT_TRUE(board->journal.follow(board->lesson, {}));
            QString problem;
            const auto opened = openLesson(board->journal.fileName(), problem);
            ASSERT_EQ(problem, QString());
            EXPECT_EQ(opened->log(), board->lesson.log());
            EXPECT_EQ(opened->settled(), board->lesson.settled());
            ASSERT_TRUE(samePages(*opened, board->lesson)) << "from its journal";
        }
    }
}

class SharedPage : public ::testing::Test
{
protected:
    SharedPage()
    {
        lesson.page(kFirstPage).surface();
        lesson.pageChanged = [this](const PageId &, const QRegion &area) { shown |= area; };
        lesson.pagesChanged = [this] { ++pagesChanges; };
    }
    static Draw block(const QRect &place, QRgb color) { return {blockLife(place, QColor(color))}; }
    static QByteArray code(int author, int number, Deed deed, const PageId &page = kFirstPage)
    {
        return toCbor(record(author, number, std::move(deed), page));
    }
    QString apply(int number, Deed deed) { return lesson.apply(record(1, number, std::move(deed))); }
    QRgb at(int x, int y) const { return lesson.page(kFirstPage).picture().pixel(x, y); }

    Lesson lesson{{{200, 150}, 1}};
    QRegion shown;
    int pagesChanges{};
};

TEST_F(SharedPage, whatComesInLiesBelowWhatIsPending)
{
    ASSERT_EQ(apply(1, block({20, 20, 20, 20}, kGreen)), QString());
    EXPECT_TRUE(lesson.settle({code(2, 1, block({30, 20, 20, 20}, kRed))}).empty());
    EXPECT_EQ(at(35, 25), kGreen);
    EXPECT_EQ(at(45, 25), kRed);
    EXPECT_EQ(lesson.settled(), 1U);
    EXPECT_EQ(lesson.log()[0], code(2, 1, block({30, 20, 20, 20}, kRed)));
}

TEST_F(SharedPage, whatSettlesAtItsPlaceIsNotPaintedAgain)
{
    ASSERT_EQ(apply(1, block({20, 20, 20, 20}, kGreen)), QString());
    ASSERT_EQ(apply(2, block({60, 20, 20, 20}, kGreen)), QString());
    shown = QRegion();
    const std::vector<QByteArray> own = lesson.log();
    EXPECT_TRUE(lesson.settle(own).empty());
    EXPECT_EQ(lesson.settled(), 2U);
    EXPECT_TRUE(shown.isEmpty());
}

TEST_F(SharedPage, whatIsPendingIsNotMadeAnewForWhatComesBefore)
{
    ASSERT_EQ(apply(1, block({20, 20, 20, 20}, kGreen)), QString());
    const CInkGraph *before = lesson.page(kFirstPage).item({1, 1})->object.get();
    ASSERT_EQ(apply(2, AddPage{1, {40, 30}}), QString());
    pagesChanges = 0;
    shown = QRegion();
    lesson.settle({code(2, 1, block({100, 100, 20, 20}, kRed))});
    EXPECT_EQ(lesson.page(kFirstPage).item({1, 1})->object.get(), before);
    EXPECT_EQ(pagesChanges, 0) << "nobody sees it go and come";
    EXPECT_FALSE(shown.contains(QPoint(25, 25)));
    EXPECT_EQ(at(105, 105), kRed);
}

TEST_F(SharedPage, aPendingClearTakesWhatComesBeforeIt)
{
    ASSERT_EQ(apply(1, block({20, 20, 20, 20}, kGreen)), QString());
    ASSERT_EQ(apply(2, Clear()), QString());
    lesson.settle({code(2, 1, block({20, 20, 20, 20}, kRed))});
    EXPECT_EQ(at(25, 25), kWhite);
    ASSERT_EQ(apply(3, Undo{{1, 2}}), QString());
    EXPECT_EQ(at(25, 25), kGreen);
    EXPECT_EQ(lesson.page(kFirstPage).items().size(), 2U);
}

TEST_F(SharedPage, afterASetBackMineIsPendingAndTheOthersIsGone)
{
    lesson.settle({code(2, 1, block({20, 20, 20, 20}, kRed)), code(1, 1, block({60, 20, 20, 20}, kGreen)),
                   code(2, 2, AddPage{1, {40, 30}}), code(2, 3, Grow{{240, 150}})});
    ASSERT_EQ(apply(2, Undo{{1, 1}}), QString());
    EXPECT_EQ(lesson.pageCount(), 2);
    EXPECT_TRUE(lesson.setBack(0, [](int author) { return author == 1; }).empty());
    EXPECT_EQ(lesson.settled(), 0U);
    EXPECT_EQ(lesson.log().size(), 2U);
    EXPECT_EQ(at(25, 25), kWhite);
    EXPECT_EQ(at(65, 25), kWhite) << "its undo is pending too";
    EXPECT_EQ(lesson.pageCount(), 1);
    EXPECT_FALSE(lesson.hasPage({2, 2}));
    EXPECT_EQ(lesson.page(kFirstPage).rect(), QRect(0, 0, 200, 150));
    EXPECT_EQ(lesson.history().toRedo(1), (StepId{1, 2}));
    EXPECT_EQ(lesson.history().nextNumber(2), 1);
}

TEST_F(SharedPage, aNumberThatWasDroppedIsNotGivenAgain)
{
    ASSERT_EQ(apply(1, block({20, 20, 20, 20}, kGreen)), QString());
    ASSERT_EQ(apply(2, block({60, 20, 20, 20}, kGreen)), QString());
    EXPECT_TRUE(lesson.drop({1, 2}));
    EXPECT_FALSE(lesson.drop({1, 2}));
    EXPECT_EQ(at(65, 25), kWhite);
    EXPECT_EQ(at(25, 25), kGreen);
    EXPECT_EQ(lesson.history().nextNumber(1), 3);
    EXPECT_TRUE(lesson.settle({code(1, 1, block({20, 20, 20, 20}, kGreen)), code(1, 2, block({100, 20, 20, 20}, kRed))})
                    .empty());
    EXPECT_EQ(at(105, 25), kRed) << "it may come all the same";
    EXPECT_FALSE(lesson.drop({1, 1})) << "it has settled";
}

// A board that was lost, and has come back without its last steps, has made another record of the same name.
TEST_F(SharedPage, ofTwoRecordsOfOneNameTheOneThatSettlesCounts)
{
    ASSERT_EQ(apply(1, block({20, 20, 20, 20}, kGreen)), QString());
    const auto refusals = lesson.settle({code(1, 1, block({60, 20, 20, 20}, kRed))});
    ASSERT_EQ(refusals.size(), 1U);
    EXPECT_EQ(refusals[0].id, (StepId{1, 1}));
    EXPECT_EQ(refusals[0].problem, QStringLiteral("another record has this number"));
    EXPECT_EQ(at(25, 25), kWhite);
    EXPECT_EQ(at(65, 25), kRed);
    EXPECT_EQ(lesson.log().size(), 1U);
}

TEST_F(SharedPage, whatHasNoRoomAnyMoreIsDropped)
{
    constexpr int kPages = 255; // of the most pixels that one may have; there is room for one more
    std::vector<QByteArray> theirs;
    for (int number = 1; number <= kPages; ++number)
        theirs.push_back(code(2, number, AddPage{0, {8192, 8192}}));
    ASSERT_EQ(apply(1, AddPage{0, {8192, 8192 - 8}}), QString());
    EXPECT_TRUE(lesson.settle(theirs).empty());
    EXPECT_EQ(lesson.pageCount(), 257);
    const auto refusals = lesson.settle({code(2, kPages + 1, AddPage{0, {8192, 8192 - 8}})});
    ASSERT_EQ(refusals.size(), 1U);
    EXPECT_EQ(refusals[0].id, (StepId{1, 1}));
    EXPECT_EQ(lesson.pageCount(), 257);
    EXPECT_EQ(lesson.log().size(), lesson.settled());
    EXPECT_EQ(lesson.history().nextNumber(1), 2);
    const auto theirsToo = lesson.settle({code(2, kPages + 2, AddPage{0, {8192, 8192}})});
    ASSERT_EQ(theirsToo.size(), 1U);
    EXPECT_EQ(theirsToo[0].id, (StepId{2, kPages + 2}));
    EXPECT_EQ(lesson.settled(), 256U);
}
