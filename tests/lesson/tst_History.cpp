#include "lesson/history/History.h"

#include <gtest/gtest.h>

using namespace InkLesson;

namespace {

constexpr StepId kNone{};
using Steps = std::vector<StepId>;

// Notes a step of one record.
void add(History &history, const StepId &step)
{
    history.add(step, step, true);
}

StepId toUndo(const History &history, int author)
{
    return history.toUndo(author).value_or(kNone);
}

StepId toRedo(const History &history, int author)
{
    return history.toRedo(author).value_or(kNone);
}

} // namespace

TEST(History, beginsWithNothing)
{
    const History history;
    EXPECT_FALSE(history.toUndo(1).has_value());
    EXPECT_FALSE(history.toRedo(1).has_value());
    EXPECT_EQ(history.nextNumber(1), 1);
    EXPECT_FALSE(history.isKnown({1, 1}));
    EXPECT_TRUE(history.counts({1, 1}));
}

TEST(History, eachAuthorsNumbersRise)
{
    History history;
    add(history, {1, 1});
    add(history, {1, 5});
    add(history, {2, 3});
    EXPECT_EQ(history.nextNumber(1), 6);
    EXPECT_EQ(history.nextNumber(2), 4);
    EXPECT_EQ(history.nextNumber(3), 1);
    EXPECT_TRUE(history.isKnown({1, 2})) << "one that was passed over never comes";
    EXPECT_TRUE(history.isKnown({1, 5}));
    EXPECT_FALSE(history.isKnown({1, 6}));
    EXPECT_TRUE(history.isKnown({2, 3}));
    EXPECT_FALSE(history.isKnown({2, 4}));
    EXPECT_FALSE(history.isKnown({3, 1}));
}

TEST(History, anUndoHasANumberToo)
{
    History history;
    add(history, {1, 1});
    history.addUndo({1, 2}, {1, 1});
    EXPECT_TRUE(history.isKnown({1, 2}));
    EXPECT_EQ(history.nextNumber(1), 3);
    history.addUndo({1, 7}, {1, 1}); // in vain
    EXPECT_EQ(history.nextNumber(1), 8);
}

TEST(History, undoTakesTheStepAwayAndRedoNamesTheUndo)
{
    History history;
    add(history, {1, 1});
    EXPECT_EQ(toUndo(history, 1), (StepId{1, 1}));
    EXPECT_EQ(history.addUndo({1, 2}, {1, 1}), (Steps{{1, 1}}));
    EXPECT_FALSE(history.counts({1, 1}));
    EXPECT_EQ(toUndo(history, 1), kNone);
    EXPECT_EQ(toRedo(history, 1), (StepId{1, 2}));

    EXPECT_EQ(history.addUndo({1, 3}, {1, 2}), (Steps{{1, 1}}));
    EXPECT_TRUE(history.counts({1, 1}));
    EXPECT_FALSE(history.counts({1, 2}));
    EXPECT_EQ(toUndo(history, 1), (StepId{1, 1}));
    EXPECT_EQ(toRedo(history, 1), kNone);

    EXPECT_EQ(history.addUndo({1, 4}, {1, 1}), (Steps{{1, 1}})) << "and away again";
    EXPECT_FALSE(history.counts({1, 1}));
    EXPECT_EQ(toRedo(history, 1), (StepId{1, 4}));
}

TEST(History, theLastStepFirstAndTheLastUndoFirst)
{
    History history;
    add(history, {1, 1});
    add(history, {1, 2});
    add(history, {1, 3});
    EXPECT_EQ(toUndo(history, 1), (StepId{1, 3}));
    history.addUndo({1, 4}, {1, 3});
    EXPECT_EQ(toUndo(history, 1), (StepId{1, 2}));
    history.addUndo({1, 5}, {1, 2});
    EXPECT_EQ(toUndo(history, 1), (StepId{1, 1}));
    EXPECT_EQ(toRedo(history, 1), (StepId{1, 5}));
    history.addUndo({1, 6}, {1, 5});
    EXPECT_EQ(toUndo(history, 1), (StepId{1, 2}));
    EXPECT_EQ(toRedo(history, 1), (StepId{1, 4}));
    history.addUndo({1, 7}, {1, 4});
    EXPECT_EQ(toUndo(history, 1), (StepId{1, 3}));
    EXPECT_EQ(toRedo(history, 1), kNone);
}

TEST(History, aStepInTheMiddleCanBeNamed)
{
    History history;
    add(history, {1, 1});
    add(history, {1, 2});
    add(history, {1, 3});
    EXPECT_EQ(history.addUndo({1, 4}, {1, 2}), (Steps{{1, 2}}));
    EXPECT_TRUE(history.counts({1, 1}));
    EXPECT_FALSE(history.counts({1, 2}));
    EXPECT_TRUE(history.counts({1, 3}));
    history.addUndo({1, 5}, {1, 3});
    EXPECT_EQ(toUndo(history, 1), (StepId{1, 1}));
}

TEST(History, thereIsNoLimitToTheDepth)
{
    constexpr int kSteps = 5000;
    History history;
    for (int i = 1; i <= kSteps; ++i)
        add(history, {1, i});
    int number = kSteps;
    for (int i = kSteps; i >= 1; --i) {
        ASSERT_EQ(toUndo(history, 1), (StepId{1, i}));
        ASSERT_EQ(history.addUndo({1, ++number}, {1, i}), (Steps{{1, i}}));
    }
    EXPECT_EQ(toUndo(history, 1), kNone);
    for (int i = 1; i <= kSteps; ++i) {
        const StepId undo = toRedo(history, 1);
        ASSERT_EQ(undo, (StepId{1, 2 * kSteps + 1 - i}));
        ASSERT_EQ(history.addUndo({1, ++number}, undo), (Steps{{1, i}}));
    }
    EXPECT_EQ(toRedo(history, 1), kNone);
    EXPECT_EQ(toUndo(history, 1), (StepId{1, 5000}));
}

TEST(History, aStepAfterAnUndoLeavesNothingToRedo)
{
    History history;
    add(history, {1, 1});
    history.addUndo({1, 2}, {1, 1});
    add(history, {1, 3});
    EXPECT_EQ(toRedo(history, 1), kNone);
    EXPECT_EQ(toUndo(history, 1), (StepId{1, 3}));
    EXPECT_FALSE(history.counts({1, 1}));
}

TEST(History, whatOthersDoChangesNothing)
{
    History history;
    add(history, {1, 1});
    add(history, {2, 1});
    history.addUndo({1, 2}, {1, 1});
    for (int i = 2; i <= 1001; ++i)
        add(history, {2, i});
    EXPECT_EQ(toUndo(history, 1), kNone);
    EXPECT_EQ(toRedo(history, 1), (StepId{1, 2}));
    EXPECT_EQ(toUndo(history, 2), (StepId{2, 1001}));
    EXPECT_EQ(toRedo(history, 2), kNone);
    EXPECT_EQ(history.addUndo({1, 3}, {1, 2}), (Steps{{1, 1}}));
}

TEST(History, aForeignStepIsNotUndone)
{
    History history;
    add(history, {2, 1});
    EXPECT_EQ(history.addUndo({1, 1}, {2, 1}), Steps());
    EXPECT_TRUE(history.counts({2, 1}));
    EXPECT_EQ(toUndo(history, 2), (StepId{2, 1}));
    EXPECT_EQ(toRedo(history, 1), kNone);

    history.addUndo({2, 2}, {2, 1});
    EXPECT_EQ(history.addUndo({1, 2}, {2, 2}), Steps()) << "nor is a foreign undo";
    EXPECT_FALSE(history.counts({2, 1}));
}

TEST(History, whatIsNotThereIsNotUndone)
{
    History history;
    EXPECT_EQ(history.addUndo({1, 1}, {1, 9}), Steps());
    EXPECT_EQ(toRedo(history, 1), kNone);
    EXPECT_EQ(history.addUndo({1, 2}, {1, 1}), Steps()) << "an undo without effect cannot be undone";
    add(history, {1, 3});
    history.addUndo({1, 4}, {1, 3});
    EXPECT_EQ(history.addUndo({1, 5}, {1, 3}), Steps()) << "twice";
    EXPECT_EQ(toRedo(history, 1), (StepId{1, 4}));
    history.addUndo({1, 6}, {1, 4});
    EXPECT_EQ(history.addUndo({1, 7}, {1, 4}), Steps()) << "done again twice";
    EXPECT_TRUE(history.counts({1, 3}));
    EXPECT_EQ(history.addUndo({1, 8}, {1, 5}), Steps()) << "nor what was in vain itself";
    EXPECT_EQ(history.addUndo({1, 9}, {1, 9}), Steps()) << "nor itself";
    EXPECT_EQ(history.addUndo({1, 10}, {1, 11}), Steps()) << "nor what comes later";
    EXPECT_TRUE(history.counts({1, 3}));
}

// Step, undo, redo, undo of the redo, and so on: each names the one before.
TEST(History, eachUndoTurnsWhatTheOneBeforeTurned)
{
    History history;
    add(history, {1, 1});
    add(history, {1, 2});
    EXPECT_EQ(history.addUndo({1, 3}, {1, 1}), (Steps{{1, 1}}));
    EXPECT_FALSE(history.counts({1, 1}));
    EXPECT_EQ(history.addUndo({1, 4}, {1, 3}), (Steps{{1, 1}}));
    EXPECT_TRUE(history.counts({1, 1}));
    EXPECT_EQ(history.addUndo({1, 5}, {1, 4}), (Steps{{1, 1}}));
    EXPECT_FALSE(history.counts({1, 1}));
    EXPECT_EQ(toUndo(history, 1), (StepId{1, 2}));
    EXPECT_EQ(toRedo(history, 1), (StepId{1, 5}));
    EXPECT_EQ(history.addUndo({1, 6}, {1, 5}), (Steps{{1, 1}}));
    EXPECT_TRUE(history.counts({1, 1}));
    EXPECT_EQ(toUndo(history, 1), (StepId{1, 1}));
    EXPECT_EQ(toRedo(history, 1), kNone);
    EXPECT_EQ(history.addUndo({1, 7}, {1, 6}), (Steps{{1, 1}}));
    EXPECT_FALSE(history.counts({1, 1}));
    EXPECT_TRUE(history.counts({1, 2}));
}

TEST(History, onlyTheUndoThatTurnedAStepLastCanBeNamed)
{
    History history;
    add(history, {1, 1});
    history.addUndo({1, 2}, {1, 1});
    history.addUndo({1, 3}, {1, 2});
    EXPECT_EQ(history.addUndo({1, 4}, {1, 2}), Steps()) << "it was taken back";
    EXPECT_EQ(history.addUndo({1, 5}, {1, 1}), (Steps{{1, 1}})) << "instead of the redo";
    EXPECT_EQ(history.addUndo({1, 6}, {1, 3}), Steps()) << "which is over";
    EXPECT_FALSE(history.counts({1, 1}));
    EXPECT_EQ(toRedo(history, 1), (StepId{1, 5}));
    EXPECT_TRUE(history.isUndo({1, 5}));
    EXPECT_FALSE(history.isUndo({1, 6})) << "it had no effect";
    EXPECT_FALSE(history.isUndo({1, 1}));
}

TEST(History, aStrangersRedoIsNotNamed)
{
    History history;
    add(history, {1, 1});
    history.addUndo({1, 2}, {1, 1});
    history.addUndo({1, 3}, {1, 2});
    EXPECT_EQ(history.addUndo({2, 1}, {1, 3}), Steps());
    EXPECT_EQ(history.addUndo({2, 2}, {2, 1}), Steps()) << "which had no effect";
    EXPECT_TRUE(history.counts({1, 1}));
    EXPECT_EQ(toRedo(history, 2), kNone);
    EXPECT_EQ(history.addUndo({1, 4}, {1, 3}), (Steps{{1, 1}}));
}

TEST(History, theRecordsOfAStepAreUndoneTogether)
{
    History history;
    history.add({1, 1}, {1, 1}, true);
    history.add({1, 2}, {1, 1}, true);
    history.add({1, 3}, {1, 1}, true);
    EXPECT_EQ(history.nextNumber(1), 4);
    EXPECT_EQ(toUndo(history, 1), (StepId{1, 1}));
    EXPECT_EQ(history.addUndo({1, 4}, {1, 1}), (Steps{{1, 1}}));
    EXPECT_EQ(toUndo(history, 1), kNone);
}

TEST(History, whatCannotBeUndoneOnlyTakesANumber)
{
    History history;
    add(history, {1, 1});
    history.addUndo({1, 2}, {1, 1});
    history.add({1, 3}, {1, 3}, false);
    EXPECT_EQ(history.nextNumber(1), 4);
    EXPECT_EQ(toUndo(history, 1), kNone);
    EXPECT_EQ(toRedo(history, 1), (StepId{1, 2}));
    EXPECT_EQ(history.addUndo({1, 4}, {1, 3}), Steps());
    EXPECT_TRUE(history.counts({1, 3}));
}

TEST(History, whatIsTakenBackIsAsItWasBefore)
{
    History history;
    add(history, {1, 1});
    add(history, {1, 2});
    history.addUndo({1, 3}, {1, 1});
    history.addUndo({1, 4}, {1, 3});
    history.addUndo({1, 5}, {1, 2});
    add(history, {1, 6});
    EXPECT_EQ(toRedo(history, 1), kNone);

    EXPECT_EQ(history.takeBack(), Steps());
    EXPECT_EQ(toRedo(history, 1), (StepId{1, 5})) << "there is something to do again";
    EXPECT_EQ(history.takeBack(), (Steps{{1, 2}}));
    EXPECT_EQ(toUndo(history, 1), (StepId{1, 1})) << "which was done again last";
    EXPECT_EQ(history.takeBack(), (Steps{{1, 1}}));
    EXPECT_FALSE(history.counts({1, 1}));
    EXPECT_EQ(toRedo(history, 1), (StepId{1, 3}));
    EXPECT_EQ(history.takeBack(), (Steps{{1, 1}}));
    EXPECT_EQ(toUndo(history, 1), (StepId{1, 2}));
    EXPECT_EQ(history.stepsToUndo(1), 2);
    EXPECT_EQ(history.nextNumber(1), 3);
    EXPECT_FALSE(history.isUndo({1, 3}));
}

TEST(History, numbersThatAreLeftOutMayComeFromElsewhere)
{
    History history;
    add(history, {1, 1});
    history.leaveOut(1, 9);
    history.leaveOut(1, 5);
    EXPECT_EQ(history.nextNumber(1), 10);
    EXPECT_EQ(history.lastNumber(1), 1);
    EXPECT_FALSE(history.isKnown({1, 2}));
    add(history, {1, 12});
    EXPECT_EQ(history.nextNumber(1), 13);
}
