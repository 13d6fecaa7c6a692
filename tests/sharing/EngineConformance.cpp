#include "EngineKit.h"

using namespace InkSharing;

namespace {

const QString kLesson = QStringLiteral("lesson");
using Entries = std::vector<QByteArray>;

} // namespace

TEST_P(EngineConformance, entriesComeInTheirOrderToEverybody)
{
    const auto mine = open(*one, first), theirs = open(*two, second);
    ASSERT_TRUE(append(*mine, "a"));
    ASSERT_TRUE(append(*theirs, "b"));
    ASSERT_TRUE(append(*mine, "c"));
    ASSERT_TRUE(world->runUntil([&] { return first.told.size() == 3 && second.told.size() == 3; }));
    EXPECT_EQ(first.told, Entries({"a", "b", "c"}));
    EXPECT_EQ(second.told, Entries({"a", "b", "c"}));
}

TEST_P(EngineConformance, appendsOfOneAreStoredInTheirOrder)
{
    const auto stream = open(*one, first);
    Entries sent;
    int stored = 0;
    for (int i = 0; i < 200; ++i) {
        sent.push_back(QByteArray::number(i));
        stream->append(sent.back(), [&](Appended how) { stored += how == Appended::Stored ? 1 : 0; });
    }
    ASSERT_TRUE(world->runUntil([&] { return stored == 200 && first.told.size() == 200; }));
    EXPECT_EQ(first.told, sent);
}

TEST_P(EngineConformance, oneWhoComesLateIsToldAllAndThenThatThisWasAll)
{
    const auto mine = open(*one, first);
    EXPECT_EQ(first.toldWhenCaughtUp, 0U);
    ASSERT_TRUE(append(*mine, "a"));
    ASSERT_TRUE(append(*mine, "b"));
    const auto theirs = open(*two, second);
    EXPECT_EQ(second.toldWhenCaughtUp, 2U);
    EXPECT_EQ(second.told, Entries({"a", "b"}));
    ASSERT_TRUE(append(*mine, "c"));
    ASSERT_TRUE(world->runUntil([&] { return second.told.size() == 3; }));
    world->runOut();
    EXPECT_EQ(second.catchings, 1);
}

TEST_P(EngineConformance, nothingIsToldFromInsideACall)
{
    const auto stream = one->open(kLesson, Engine::Open::Create, first);
    EXPECT_EQ(first.catchings, 0);
    stream->append("a", [](Appended) {});
    EXPECT_EQ(first.told, Entries());
}

TEST_P(EngineConformance, aStreamThatIsNotThereIsAbsent)
{
    const auto stream = one->open(kLesson, Engine::Open::Existing, first);
    ASSERT_TRUE(world->runUntil([&] { return first.absences == 1; }));
    world->runOut();
    EXPECT_EQ(first.absences, 1);
    EXPECT_EQ(first.catchings, 0);
}

TEST_P(EngineConformance, anEmptyStreamIsThere)
{
    const auto mine = open(*one, first);
    const auto theirs = two->open(kLesson, Engine::Open::Existing, second);
    EXPECT_TRUE(world->runUntil([&] { return second.catchings == 1; }));
    EXPECT_EQ(second.absences, 0);
}

TEST_P(EngineConformance, lessonsShareNothing)
{
    const auto mine = open(*one, first);
    const auto other = two->open(QStringLiteral("lesson-2"), Engine::Open::Create, second);
    ASSERT_TRUE(append(*mine, "a"));
    mine->publish("live");
    world->runOut();
    EXPECT_EQ(second.told, Entries());
    EXPECT_EQ(second.heardOf, Entries());
}

TEST_P(EngineConformance, whatIsPublishedIsHeardAtTheOtherEnginesAndNotStored)
{
    const auto mine = open(*one, first), theirs = open(*two, second);
    mine->publish("live");
    ASSERT_TRUE(world->runUntil([&] { return second.heardOf.size() == 1; }));
    world->runOut();
    EXPECT_EQ(second.heardOf, Entries({"live"}));
    EXPECT_EQ(first.heardOf, Entries());
    NotingListener late;
    const auto again = open(*one, late);
    EXPECT_EQ(late.told, Entries());
    EXPECT_EQ(late.heardOf, Entries());
}

TEST_P(EngineConformance, oneThatWasLetGoTellsNothingMore)
{
    auto mine = open(*one, first);
    const auto theirs = open(*two, second);
    bool isDone = false;
    mine->append("a", [&](Appended) { isDone = true; });
    mine.reset();
    ASSERT_TRUE(append(*theirs, "b"));
    theirs->publish("live");
    world->runOut();
    EXPECT_FALSE(isDone);
    EXPECT_EQ(first.told, Entries());
    EXPECT_EQ(first.heardOf, Entries());
}

TEST_P(EngineConformance, bytesComeAsTheyWere)
{
    const auto stream = open(*one, first);
    QByteArray all;
    for (int i = 0; i < Engine::kMostEntryBytes; ++i)
        all.append(char(i * 7 + i / 256));
    const QByteArray zero(1, '\0');
    ASSERT_TRUE(append(*stream, all));
    ASSERT_TRUE(append(*stream, zero));
    ASSERT_TRUE(world->runUntil([&] { return first.told.size() == 2; }));
    EXPECT_TRUE(first.told[0] == all);
    EXPECT_EQ(first.told[1], zero);
}

TEST_P(EngineConformance, aStreamThatIsRemovedIsLostAndBeginsAnew)
{
    auto mine = open(*one, first);
    const auto theirs = open(*two, second);
    ASSERT_TRUE(append(*mine, "a"));
    bool isDone = false;
    one->remove(kLesson, [&](bool isRemoved) { isDone = isRemoved; });
    ASSERT_TRUE(world->runUntil([&] { return isDone && first.losses == 1 && second.losses == 1; }));
    mine.reset();
    NotingListener none;
    mine = two->open(kLesson, Engine::Open::Existing, none);
    EXPECT_TRUE(world->runUntil([&] { return none.absences == 1; }));
    NotingListener again;
    mine = open(*one, again);
    EXPECT_EQ(again.told, Entries());
    isDone = false;
    one->remove(QStringLiteral("none"), [&](bool isRemoved) { isDone = isRemoved; });
    EXPECT_TRUE(world->runUntil([&] { return isDone; }));
}

TEST_P(EngineConformance, whatWasSetBackIsLost)
{
    auto mine = open(*one, first);
    for (const char *entry : {"a", "b", "c"})
        ASSERT_TRUE(append(*mine, entry));
    ASSERT_TRUE(world->runUntil([&] { return first.told.size() == 3; }));
    ASSERT_TRUE(world->setBack(kLesson, 1));
    ASSERT_TRUE(world->runUntil([&] { return first.losses == 1; }));
    NotingListener again;
    mine = open(*one, again);
    EXPECT_EQ(again.told, Entries({"a"}));
    ASSERT_TRUE(append(*mine, "d"));
    ASSERT_TRUE(world->runUntil([&] { return again.told.size() == 2; }));
    EXPECT_EQ(again.told, Entries({"a", "d"}));
    EXPECT_EQ(first.told, Entries({"a", "b", "c"}));
}

TEST(LessonName, hasLettersDigitsAndDashes)
{
    EXPECT_TRUE(isLessonName(QStringLiteral("Az09-_")));
    EXPECT_TRUE(isLessonName(QString(64, 'a')));
    EXPECT_FALSE(isLessonName(QString(65, 'a')));
    EXPECT_FALSE(isLessonName(QString()));
    EXPECT_FALSE(isLessonName(QStringLiteral("a.b")));
    EXPECT_FALSE(isLessonName(QStringLiteral("a b")));
    EXPECT_FALSE(isLessonName(QStringLiteral("ä")));
}
