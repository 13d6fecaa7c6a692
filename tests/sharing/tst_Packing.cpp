// What is told in fewer bytes comes out as it was, and nothing else is believed.

#include "sharing/wire/Message.h"
#include "sharing/wire/Packing.h"

#include <QtCore/QCborArray>
#include <QtCore/QCborMap>
#include <QtCore/QCborValue>

#include <gtest/gtest.h>

using namespace InkSharing;

namespace {

qint64 kindOf(const QByteArray &message)
{
    return QCborValue::fromCbor(message).toMap().value(0).toInteger();
}

QString problemOf(const QByteArray &frame)
{
    FromDoor message;
    QString problem;
    const bool isRead = readMessage(QCborValue(QCborMap{{0, 8}, {1, frame}}).toCbor(), message, problem);
    EXPECT_EQ(isRead, problem.isEmpty());
    return problem;
}

// Each after the one before, but for its bits, so that nothing is the same twice.
QByteArray noise(int size)
{
    QByteArray bytes(size, '\0');
    quint32 state = 1;
    for (char &byte : bytes)
        byte = char((state = 1664525 * state + 1013904223) >> 24);
    return bytes;
}

} // namespace

TEST(Packing, bytesComeOutAsTheyWere)
{
    const QByteArray strokes = QByteArray("m3 -1m-2 4").repeated(1000);
    const QByteArray frame = packed(strokes);
    EXPECT_LT(frame.size(), 100);
    EXPECT_EQ(frame.left(4), QByteArray("\x28\xb5\x2f\xfd")); // of every frame of Zstandard
    EXPECT_EQ(unpacked(frame, 10'000).value(), strokes);
    EXPECT_EQ(unpacked(packed(QByteArray()), 0).value(), QByteArray());
}

TEST(Packing, noMoreIsUnpackedThanThereMayBe)
{
    const QByteArray bomb = packed(QByteArray(100'000'000, 'x'));
    EXPECT_LT(bomb.size(), 20'000);
    EXPECT_FALSE(unpacked(bomb, 99'999'999));
    EXPECT_EQ(unpacked(bomb, 100'000'000)->size(), 100'000'000);
}

TEST(Packing, whatIsNoFrameIsNone)
{
    const QByteArray frame = packed(noise(1000));
    EXPECT_FALSE(unpacked(QByteArray(), 1000));
    EXPECT_FALSE(unpacked("no frame", 1000));
    EXPECT_FALSE(unpacked(frame.left(frame.size() - 1), 1000));
    EXPECT_FALSE(unpacked(frame + frame, 1000)) << "more than it says";
    EXPECT_EQ(unpacked(frame, 1000).value(), noise(1000));
}

// From 16 KiB on, where that makes it shorter.
TEST(Packing, manyEntriesAreToldPacked)
{
    const auto told = [](const QByteArray &entry) { return encoded(FromDoor(Entries{3, {entry}})); };
    const auto sized = [&](int size) { return QByteArray(size - told(QByteArray(10'000, 'x')).size() + 10'000, 'x'); };
    ASSERT_EQ(told(sized((16 << 10) - 1)).size(), (16 << 10) - 1);
    EXPECT_EQ(kindOf(told(sized((16 << 10) - 1))), 2);
    EXPECT_EQ(kindOf(told(sized(16 << 10))), 8);
    EXPECT_EQ(kindOf(told(noise(100'000))), 2);
    EXPECT_EQ(kindOf(encoded(FromDoor(LiveOf{7, QByteArray(20'000, 'x')}))), 3);

    FromDoor read;
    QString problem;
    ASSERT_TRUE(readMessage(told(sized(300'000)), read, problem)) << problem.toStdString();
    EXPECT_EQ(std::get<Entries>(read).from, 3U);
    EXPECT_EQ(std::get<Entries>(read).entries, std::vector<QByteArray>{sized(300'000)});
}

TEST(Packing, nothingButEntriesComesPacked)
{
    const QString wrong = QStringLiteral("packed: not what it must be");
    const QByteArray entries = QCborValue(QCborMap{{0, 2}, {1, 3}, {2, QCborArray{QByteArray("a")}}}).toCbor();
    EXPECT_EQ(problemOf(packed(entries)), QString());
    EXPECT_EQ(problemOf("no frame"), wrong);
    EXPECT_EQ(problemOf(packed("no message")), wrong);
    EXPECT_EQ(problemOf(packed(encoded(FromDoor(Again())))), wrong);
    EXPECT_EQ(problemOf(packed(QCborValue(QCborMap{{0, 1}, {1, 3}, {2, QCborArray{QByteArray("a")}}}).toCbor())),
              wrong);
    EXPECT_EQ(problemOf(packed(QCborValue(QCborMap{{0, 8}, {1, packed(entries)}}).toCbor())), wrong) << "twice";
    EXPECT_EQ(
        problemOf(packed(QCborValue(QCborMap{{0, 2}, {1, 3}, {2, QCborArray{QByteArray(640 << 10, 'a')}}}).toCbor())),
        wrong)
        << "more than a message may hold";
}
