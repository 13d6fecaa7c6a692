// What is told comes out as it went in, and whatever else comes is refused with words.

#include "sharing/live/LiveMessage.h"
#include "sharing/wire/Contents.h"
#include "sharing/wire/Message.h"

#include "LessonKit.h"
#include "RandomCases.h"

#include "lesson/log/RecordCode.h"

#include <QtCore/QCborArray>
#include <QtCore/QCborMap>
#include <QtCore/QCborValue>

#include <gtest/gtest.h>

using namespace InkSharing;
using InkLesson::kNothing;

namespace {

const QByteArray kToken(16, 't');

QString problemToDoor(const QByteArray &bytes)
{
    ToDoor message;
    QString problem;
    const bool isRead = readMessage(bytes, message, problem);
    EXPECT_EQ(isRead, problem.isEmpty());
    return problem;
}

QString problemToDoor(QCborMap map)
{
    return problemToDoor(QCborValue(map).toCbor());
}

template <typename Kind, typename All>
Kind again(const All &message)
{
    All read;
    QString problem;
    const QByteArray bytes = encoded(message);
    EXPECT_TRUE(readMessage(bytes, read, problem)) << problem.toStdString();
    EXPECT_EQ(encoded(read), bytes);
    EXPECT_TRUE(std::holds_alternative<Kind>(read));
    return std::get<Kind>(read);
}

} // namespace

TEST(Message, ofABoardComesAsItWas)
{
    Hello hello{QStringLiteral("lesson"), kToken};
    hello.places = {{7, Chain{'a'}}, {6, Chain{'b'}}};
    hello.created = LessonEntry{{{200, 150}, 1.5}, QByteArray(32, 'h'), {1, 3}};
    const Hello read = again<Hello>(ToDoor(hello));
    EXPECT_EQ(read.lesson, hello.lesson);
    EXPECT_EQ(read.token, kToken);
    ASSERT_EQ(read.places.size(), 2U);
    EXPECT_EQ(read.places[1].length, 6U);
    EXPECT_EQ(read.places[1].chain, Chain{'b'});
    EXPECT_EQ(read.created->header.density, 1.5);
    EXPECT_EQ(read.created->authors, (std::vector<int>{1, 3}));

    const Append append{{7, 1}, {{{7, 2}, kNothing, "second", {}}, {{7, 3}, kNothing, "third", {QByteArray(32, 'c')}}}};
    const Append readAppend = again<Append>(ToDoor(append));
    EXPECT_EQ(readAppend.after, (InkLesson::StepId{7, 1}));
    ASSERT_EQ(readAppend.records.size(), 2U);
    EXPECT_EQ(readAppend.records[1].record, "third");
    EXPECT_EQ(readAppend.records[1].contents, std::vector<QByteArray>{QByteArray(32, 'c')});

    const SendPiece piece{{7, QByteArray(32, 'c'), 1, 2, "end"}};
    EXPECT_EQ(again<SendPiece>(ToDoor(piece)).piece.bytes, "end");
    EXPECT_EQ(again<SendLive>(ToDoor(SendLive{"live"})).payload, "live");
    again<Alive>(ToDoor(Alive()));
}

TEST(Message, ofADoorComesAsItWas)
{
    const Welcome welcome = again<Welcome>(FromDoor(Welcome{7, 20, 30}));
    EXPECT_EQ(welcome.author, 7);
    EXPECT_EQ(welcome.from, 20U);
    EXPECT_EQ(welcome.last, 30U);
    const Entries entries = again<Entries>(FromDoor(Entries{3, {"a", "b"}}));
    EXPECT_EQ(entries.from, 3U);
    EXPECT_EQ(entries.entries, (std::vector<QByteArray>{"a", "b"}));
    EXPECT_EQ(again<LiveOf>(FromDoor(LiveOf{7, "live"})).author, 7);
    EXPECT_EQ(again<Refused>(FromDoor(Refused{{7, 2}, Reason::NotYours})).reason, Reason::NotYours);
    EXPECT_EQ(again<Gone>(FromDoor(Gone{Reason::NoLesson})).reason, Reason::NoLesson);
    again<Again>(FromDoor(Again()));
    again<Alive>(FromDoor(Alive()));
}

TEST(Message, whatIsNoneIsRefusedWithWords)
{
    EXPECT_EQ(problemToDoor(QByteArray()), QStringLiteral("nothing that can be read"));
    EXPECT_EQ(problemToDoor(QByteArray("\x80")), QStringLiteral("nothing that can be read")) << "an array";
    EXPECT_EQ(problemToDoor(QByteArray("\xa1\x00\x05x")), QStringLiteral("nothing that can be read")) << "and more";
    EXPECT_EQ(problemToDoor(QByteArray("\xbb\x7f\xff\xff\xff\xff\xff\xff\xff", 9)),
              QStringLiteral("nothing that can be read"))
        << "a map that claims to be endless";
    EXPECT_EQ(problemToDoor(QByteArray(5, '\x81') + QByteArray("\x00", 1)), QStringLiteral("nothing that can be read"))
        << "deep";
    EXPECT_EQ(problemToDoor({{0, 9}}), QStringLiteral("kind: not what it must be"));
    EXPECT_EQ(problemToDoor({{0, QStringLiteral("1")}}), QStringLiteral("kind: not what it must be"));
    const QCborMap hello{{0, 1}, {1, 1}, {2, QStringLiteral("lesson")}, {3, kToken}, {4, QCborArray()}};
    EXPECT_EQ(problemToDoor(hello), QString());
    const auto changed = [&](int key, const QCborValue &value) {
        QCborMap map = hello;
        map.insert(key, value);
        return problemToDoor(map);
    };
    EXPECT_EQ(changed(1, 2), QStringLiteral("protocol: not what it must be"));
    EXPECT_EQ(changed(2, QString(65, 'a')), QStringLiteral("lesson: not what it must be"));
    EXPECT_EQ(changed(3, QByteArray(15, 't')), QStringLiteral("token: not what it must be"));
    EXPECT_EQ(changed(3, QByteArray(65, 't')), QStringLiteral("token: not what it must be"));
    EXPECT_EQ(changed(4, QCborArray{QCborArray{1, QByteArray(15, 'c')}}),
              QStringLiteral("places: not what it must be"));
    EXPECT_EQ(changed(4, QCborArray{QCborArray{-1, QByteArray(16, 'c')}}),
              QStringLiteral("places: not what it must be"));
    EXPECT_EQ(changed(5, QByteArray("x")), QStringLiteral("created: not what it must be"));
    EXPECT_EQ(problemToDoor({{0, 2}, {2, QCborArray()}}), QStringLiteral("records: not what it must be"));
    EXPECT_EQ(problemToDoor({{0, 2}, {2, QCborArray{QByteArray("x")}}}),
              QStringLiteral("records: not what it must be"));
    EXPECT_EQ(problemToDoor({{0, 4}, {1, QByteArray(65537, 'x')}}), QStringLiteral("live: not what it must be"));
}

TEST(Message, bytesThatWereChangedAreReadOrRefused)
{
    const QByteArray right = encoded(ToDoor(Append{{7, 1}, {{{7, 2}, kNothing, "second", {}}}}));
    int refused = 0;
    Random random(1);
    for (int i = 0; i < 20000; ++i) {
        QByteArray bytes = right;
        for (int changes = random.from(1, 3); changes > 0; --changes)
            bytes[random.below(bytes.size())] = char(random.below(256));
        refused += problemToDoor(bytes.left(random.from(1, bytes.size()))).isEmpty() ? 0 : 1;
    }
    EXPECT_GT(refused, 10000);
    EXPECT_LT(refused, 20000);
}

TEST(Contents, largePicturesAndActsTravelByThemselves)
{
    InkLesson::Life life = blockLife({10, 10, 180, 140}, Qt::red);
    quint32 state = 1;
    for (int y = 0; y < life.picture.height(); ++y) {
        for (int x = 0; x < life.picture.width(); ++x)
            life.picture.setPixel(x, y, state = 1664525 * state + 1013904223);
    }
    life.acts.clear();
    for (int i = 0; i < 40000; ++i)
        life.acts.emplace_back(InkLesson::PointerAct{5, {i % 200, i / 200}});
    const QByteArray code = toCbor(record(1, 1, InkLesson::Draw{life}));
    const Detached detached = InkSharing::detached(code);
    EXPECT_EQ(detached.hashes.size(), 2U);
    EXPECT_LT(detached.record.size(), 500);
    const auto content = [&](const QByteArray &hash) { return detached.contents.at(hash); };
    EXPECT_TRUE(attached(detached.record, content) == code);
    for (const auto &[hash, bytes] : detached.contents)
        EXPECT_EQ(hashOf(bytes), hash);
    EXPECT_EQ(attached(detached.record, [](const QByteArray &) { return QByteArray(); }), QByteArray());

    const QByteArray small = toCbor(record(1, 1, InkLesson::Clear()));
    EXPECT_EQ(InkSharing::detached(small).record, small);
    EXPECT_TRUE(InkSharing::detached(small).hashes.empty());
}

TEST(LiveMessage, comesAsItWas)
{
    Presence presence{QStringLiteral("Anna"), QColor(1, 2, 3), {7, 4}, QPoint(-5, 9), true, 3, 12};
    LiveMessage read;
    QString problem;
    ASSERT_TRUE(readLive(encoded(LiveMessage(presence)), read, problem)) << problem.toStdString();
    EXPECT_EQ(std::get<Presence>(read).name, QStringLiteral("Anna"));
    EXPECT_EQ(std::get<Presence>(read).color, QColor(1, 2, 3));
    EXPECT_EQ(std::get<Presence>(read).page, (InkLesson::PageId{7, 4}));
    EXPECT_EQ(std::get<Presence>(read).pointer, QPoint(-5, 9));
    EXPECT_TRUE(std::get<Presence>(read).hasRaised);
    EXPECT_EQ(std::get<Presence>(read).acts, 12U);

    InkLesson::Change change{{7, 2}};
    change.acts = {InkLesson::PointerAct{1, {3, 4}}};
    ASSERT_TRUE(readLive(encoded(LiveMessage(LiveActs{3, 5, record(7, 1, change), {7, 2}})), read, problem));
    EXPECT_EQ(std::get<LiveActs>(read).from, 5U);
    EXPECT_EQ(std::get<LiveActs>(read).held, (InkLesson::ObjectId{7, 2}));
    EXPECT_EQ(actsOf(std::get<LiveActs>(read).record).size(), 1U);
    EXPECT_FALSE(readLive(encoded(LiveMessage(LiveActs{3, 5, record(7, 1, InkLesson::Clear()), {}})), read, problem));
    EXPECT_EQ(problem, QStringLiteral("record: not what it must be"));
    ASSERT_TRUE(readLive(encoded(LiveMessage(LiveActs{3, 5, record(7, 1, change), {}, 1700000000000})), read, problem));
    EXPECT_EQ(std::get<LiveActs>(read).time, 1700000000000);
    QCborMap acts = QCborValue::fromCbor(encoded(LiveMessage(std::get<LiveActs>(read)))).toMap();
    acts.insert(5, 0);
    EXPECT_FALSE(readLive(QCborValue(acts).toCbor(), read, problem)) << "a time that is left out instead";
    EXPECT_EQ(problem, QStringLiteral("time: not what it must be"));
    ASSERT_TRUE(readLive(encoded(LiveMessage(LiveDrop{3, 8})), read, problem));
    EXPECT_EQ(std::get<LiveDrop>(read).number, 8);
    ASSERT_TRUE(readLive(encoded(LiveMessage(LiveAsk{7})), read, problem));
    EXPECT_EQ(std::get<LiveAsk>(read).author, 7);
}
