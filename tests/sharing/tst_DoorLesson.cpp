// What a door hands to those who come late.

#include "LessonKit.h"

#include "sharing/door/Door.h"
#include "sharing/engine/MemoryEngine.h"

#include "lesson/log/RecordCode.h"

#include <gtest/gtest.h>

#include <deque>
#include <map>

using namespace InkSharing;

namespace {

constexpr int kTeacher = 1, kPupil = 2, kOther = 3; // connections
constexpr int kRecords = 14;                        // of some forty kilobytes: six fill a block

} // namespace

// A door on an engine in memory, with the teacher's records in the stream.
class DoorLessonTest : public ::testing::Test, public DoorWires
{
protected:
    DoorLessonTest()
    {
        tell(kTeacher, Hello{QStringLiteral("lesson"),
                             token(kTeacher),
                             {},
                             LessonEntry{{{200, 150}, 1}, QByteArray(32, '\0'), {1}}});
        for (int number = 1; number <= kRecords; ++number)
            draw(number);
    }

    void send(int connection, const QByteArray &message) override { told[connection].push_back(message); }
    void close(int /*connection*/) override {}
    qint64 unsent(int connection) const override { return waiting.count(connection) != 0 ? waiting.at(connection) : 0; }

    static QByteArray token(int connection) { return QByteArray(16, char('a' + connection)); }

    void tell(int connection, const ToDoor &message)
    {
        if (told.count(connection) == 0) {
            told[connection];
            door.connected(connection);
        }
        door.received(connection, encoded(message));
        while (!calls.empty()) {
            const auto call = std::move(calls.front());
            calls.pop_front();
            call();
        }
    }

    // A stroke of many points, none of which is like the one before.
    void draw(int number)
    {
        const QByteArray code = stroke(number, 5000);
        ASSERT_GT(code.size(), 38'000);
        ASSERT_LT(code.size(), 43'500);
        append(number, code);
    }
    static QByteArray stroke(int number, int points)
    {
        InkLesson::Life life{QStringLiteral("pencil")};
        quint32 state = quint32(number);
        const auto next = [&state] { return int((state = 1664525 * state + 1013904223) >> 22); };
        for (int i = 0; i < points; ++i)
            life.acts.emplace_back(InkLesson::PointerAct{i == 0 ? 1 : 5, {next(), next()}});
        return toCbor(record(1, number, InkLesson::Draw{life}));
    }
    void append(int number, const QByteArray &code)
    {
        const InkLesson::StepId before = number == 1 ? InkLesson::kNothing : InkLesson::StepId{1, number - 1};
        tell(kTeacher, Append{before, {{{1, number}, InkLesson::kNothing, code, {}}}});
    }

    // The entries that a connection has been handed: which came first, and how many with it.
    std::vector<std::pair<quint64, std::size_t>> handed(int connection)
    {
        std::vector<std::pair<quint64, std::size_t>> all;
        for (const QByteArray &bytes : told[connection]) {
            FromDoor message;
            QString problem;
            EXPECT_TRUE(readMessage(bytes, message, problem)) << problem.toStdString();
            if (const auto *entries = std::get_if<Entries>(&message))
                all.emplace_back(entries->from, entries->entries.size());
        }
        return all;
    }

    using Handed = std::vector<std::pair<quint64, std::size_t>>;

    std::map<int, std::vector<QByteArray>> told;
    std::map<int, qint64> waiting;
    std::deque<std::function<void()>> calls;
    MemoryStore store;
    MemoryEngine engine{store, [this](std::function<void()> call) { calls.push_back(std::move(call)); }};
    Door door{engine, *this, [] { return 0; }};
};

// Each as it comes, to the teacher; in blocks to who comes late. The same bytes to the next one.
TEST_F(DoorLessonTest, whoComesLateIsHandedBlocks)
{
    EXPECT_EQ(handed(kTeacher).size(), 1U + kRecords);
    tell(kPupil, Hello{QStringLiteral("lesson"), token(kPupil)});
    EXPECT_EQ(handed(kPupil), (Handed{{0, 7}, {7, 6}, {13, 3}})); // the lesson before, the member after the records
    tell(kOther, Hello{QStringLiteral("lesson"), token(kOther)});
    EXPECT_EQ(handed(kOther), (Handed{{0, 7}, {7, 6}, {13, 4}}));
    EXPECT_EQ(told[kOther][1], told[kPupil][1]);
    EXPECT_EQ(told[kOther][2], told[kPupil][2]);
}

// Not more than four at once, so that others are told something in between, and none while much is waiting.
TEST_F(DoorLessonTest, aReaderWhoIsFarBehindGetsSomeAtATime)
{
    for (int number = kRecords + 1; number <= 32; ++number)
        draw(number);
    waiting[kPupil] = 1 << 20;
    tell(kPupil, Hello{QStringLiteral("lesson"), token(kPupil)});
    EXPECT_EQ(handed(kPupil), Handed());
    waiting[kPupil] = (1 << 20) - 1;
    door.written(kPupil);
    EXPECT_EQ(handed(kPupil), (Handed{{0, 7}, {7, 6}, {13, 6}, {19, 6}}));
    door.written(kPupil);
    EXPECT_EQ(handed(kPupil).back(), (std::pair<quint64, std::size_t>(31, 3)));
}

// From where they are to the end of that block.
TEST_F(DoorLessonTest, whoComesBackIsHandedWhatIsMissing)
{
    Chain chain{};
    std::map<std::size_t, Chain> chains;
    StreamReader reader;
    for (const QByteArray &entry : *store.entries(QStringLiteral("lesson"))) {
        reader.take(entry);
        chains[reader.length()] = reader.chainAt(reader.length());
    }
    tell(kPupil, Hello{QStringLiteral("lesson"), token(kPupil), {{9, chains[9]}}});
    EXPECT_EQ(handed(kPupil), (Handed{{9, 4}, {13, 3}}));
    tell(kOther, Hello{QStringLiteral("lesson"), token(kOther), {{9, chain}}});
    EXPECT_EQ(handed(kOther), (Handed{{0, 7}, {7, 6}, {13, 4}})) << "of another stream";
}

// One large batch at a time, where a reader takes it slowly; what others do just now comes behind it.
TEST_F(DoorLessonTest, inkComesBehindAPartOfAPictureAndNotBehindAllOfIt)
{
    tell(kPupil, Hello{QStringLiteral("lesson"), token(kPupil)});
    append(15, stroke(15, 25'000));
    const std::size_t before = handed(kPupil).size();
    const int batch = store.entries(QStringLiteral("lesson"))->back().size();
    waiting[kPupil] = batch + (64 << 10);
    append(16, stroke(16, 25'000));
    EXPECT_EQ(handed(kPupil).size(), before);
    const auto live = [&] {
        const std::size_t messages = told[kPupil].size();
        tell(kTeacher, SendLive{"ink"});
        return told[kPupil].size() - messages;
    };
    EXPECT_EQ(live(), 1U);
    ++waiting[kPupil];
    EXPECT_EQ(live(), 0U);
    waiting[kPupil] = (64 << 10) + 1;
    door.written(kPupil);
    EXPECT_EQ(handed(kPupil).size(), before);
    waiting[kPupil] = 64 << 10;
    door.written(kPupil);
    EXPECT_EQ(handed(kPupil).size(), before + 1);
}

// Those in a lesson, once each; a visitor who has not said hello is closed like any other.
TEST_F(DoorLessonTest, whoeverIsInALessonHearsThatItHasEnded)
{
    tell(kPupil, Hello{QStringLiteral("lesson"), token(kPupil)});
    door.connected(kOther);
    EXPECT_TRUE(door.drain());
    door.endLessons();
    for (const int connection : {kTeacher, kPupil}) {
        FromDoor message;
        QString problem;
        ASSERT_TRUE(readMessage(told[connection].back(), message, problem)) << problem.toStdString();
        const auto *gone = std::get_if<Gone>(&message);
        ASSERT_TRUE(gone) << connection;
        EXPECT_EQ(int(gone->reason), 9);
    }
    EXPECT_EQ(told[kOther].size(), 0U);
}
