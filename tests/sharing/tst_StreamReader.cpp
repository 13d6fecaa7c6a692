// The rules of what counts in a stream, by their numbers in docs/protocol.md.

#include "sharing/wire/StreamReader.h"

#include <QtCore/QCryptographicHash>

#include <gtest/gtest.h>

using namespace InkSharing;
using InkLesson::kNothing;
using InkLesson::StepId;

namespace {

QByteArray token(char letter)
{
    return hashOf(QByteArray(16, letter));
}

QByteArray lesson(char letter, std::vector<int> authors = {1, 5})
{
    return encoded(LessonEntry{{{200, 150}, 1}, token(letter), std::move(authors)});
}

QByteArray member(int author, char letter)
{
    return encoded(MemberEntry{author, token(letter), Role::Pupil});
}

QByteArray record(const StepId &id, const StepId &after, std::vector<QByteArray> contents = {})
{
    return encoded(RecordEntry{id, after, "record", std::move(contents)});
}

QByteArray piece(int author, const QByteArray &content, int index)
{
    const int count = (content.size() + kPieceBytes - 1) / kPieceBytes;
    return encoded(PieceEntry{author, hashOf(content), index, count, content.mid(index * kPieceBytes, kPieceBytes)});
}

} // namespace

class StreamRules : public ::testing::Test
{
protected:
    bool counts(const QByteArray &entry) { return reader.take(entry).has_value(); }

    StreamReader reader{StreamReader::Keep::Contents};
};

TEST_F(StreamRules, rule1TheFirstLessonCountsAndNothingBeforeIt)
{
    EXPECT_FALSE(counts("nothing that can be read"));
    EXPECT_FALSE(counts(member(7, 'b')));
    EXPECT_FALSE(counts(record({1, 1}, kNothing)));
    EXPECT_TRUE(counts(lesson('a')));
    EXPECT_FALSE(counts(lesson('b')));
    EXPECT_EQ(reader.lesson()->header.size, QSize(200, 150));
    EXPECT_EQ(reader.authorsOf(token('a')), (std::vector<int>{1, 5}));
    EXPECT_TRUE(reader.authorsOf(token('b')).empty());
    EXPECT_EQ(reader.length(), 5U);
}

TEST_F(StreamRules, rule2AMemberHasAnAuthorAndATokenOfTheirOwn)
{
    counts(lesson('a'));
    EXPECT_FALSE(counts(member(5, 'b'))) << "who has begun the lesson brings that author";
    EXPECT_FALSE(counts(member(7, 'a')));
    EXPECT_TRUE(counts(member(7, 'b')));
    EXPECT_FALSE(counts(member(7, 'c')));
    EXPECT_FALSE(counts(member(8, 'b')));
    EXPECT_TRUE(counts(member(8, 'c')));
    EXPECT_FALSE(counts(member(7, 'b'))) << "twice";
    EXPECT_TRUE(reader.isClaimed(7));
    EXPECT_FALSE(reader.isClaimed(9));
}

TEST_F(StreamRules, membersHavePlacesInTheOrderOfTheirComing)
{
    EXPECT_EQ(reader.placeOf(1), 0);
    counts(lesson('a'));
    counts(member(8, 'b'));
    counts(member(8, 'c'));
    counts(member(7, 'd'));
    EXPECT_EQ(reader.placeOf(1), 1);
    EXPECT_EQ(reader.placeOf(5), 1) << "the same person";
    EXPECT_EQ(reader.placeOf(8), 2);
    EXPECT_EQ(reader.placeOf(7), 3);
    EXPECT_EQ(reader.placeOf(9), 0);
    reader.takeBackTo(2);
    EXPECT_EQ(reader.placeOf(8), 2);
    EXPECT_EQ(reader.placeOf(7), 0);
}

TEST_F(StreamRules, rule3PiecesCountInTheirOrderAndOnce)
{
    const QByteArray content(2 * kPieceBytes + 1, 'x');
    counts(lesson('a'));
    EXPECT_FALSE(counts(piece(7, content, 0))) << "of nobody";
    EXPECT_FALSE(counts(piece(1, content, 1)));
    EXPECT_TRUE(counts(piece(1, content, 0)));
    EXPECT_FALSE(counts(piece(1, content, 0)));
    EXPECT_EQ(reader.nextPiece(1, hashOf(content)), 1);
    EXPECT_TRUE(counts(piece(1, content, 1)));
    EXPECT_FALSE(reader.isWhole(hashOf(content)));
    EXPECT_TRUE(counts(piece(1, content, 2)));
    EXPECT_TRUE(reader.isWhole(hashOf(content)));
    EXPECT_EQ(reader.content(hashOf(content)), content);
    EXPECT_FALSE(counts(piece(1, content, 0))) << "it is there";
}

TEST_F(StreamRules, rule3AContentThatIsNotWhatItsHashSaysIsNeverWhole)
{
    const QByteArray content(10, 'x');
    counts(lesson('a'));
    counts(member(7, 'b'));
    EXPECT_TRUE(counts(encoded(PieceEntry{7, hashOf(content), 0, 1, "wrong"})));
    EXPECT_FALSE(reader.isWhole(hashOf(content)));
    EXPECT_FALSE(counts(piece(7, content, 0))) << "who has sent it has spoilt it for themselves";
    EXPECT_TRUE(counts(piece(1, content, 0))) << "and for nobody else";
    EXPECT_TRUE(reader.isWhole(hashOf(content)));
}

TEST_F(StreamRules, rule4ARecordFollowsTheLastOfItsMember)
{
    counts(lesson('a'));
    counts(member(7, 'b'));
    EXPECT_FALSE(counts(record({9, 1}, kNothing))) << "of nobody";
    EXPECT_FALSE(counts(record({7, 2}, {7, 1}))) << "there is none before";
    EXPECT_TRUE(counts(record({7, 1}, kNothing)));
    EXPECT_FALSE(counts(record({7, 1}, kNothing))) << "twice";
    EXPECT_FALSE(counts(record({7, 2}, kNothing)));
    EXPECT_TRUE(counts(record({7, 5}, {7, 1}))) << "numbers may be left out";
    EXPECT_FALSE(counts(record({7, 2}, {7, 5}))) << "but do not fall";
    EXPECT_TRUE(counts(record({1, 1}, kNothing))) << "members go on by themselves";
    EXPECT_TRUE(counts(record({5, 3}, {1, 1}))) << "with all authors that they bring";
    EXPECT_FALSE(counts(record({1, 2}, {1, 1})));
    EXPECT_TRUE(counts(record({1, 2}, {5, 3})));
    EXPECT_EQ(reader.lastOf(5), (StepId{1, 2}));
    EXPECT_EQ(reader.lastOf(7), (StepId{7, 5}));
}

TEST_F(StreamRules, rule4ARecordWaitsForItsContents)
{
    const QByteArray content(10, 'x');
    counts(lesson('a'));
    EXPECT_FALSE(counts(record({1, 1}, kNothing, {hashOf(content)})));
    counts(piece(1, content, 0));
    EXPECT_TRUE(counts(record({1, 1}, kNothing, {hashOf(content)})));
}

TEST_F(StreamRules, whatIsTakenBackIsAsItWasBefore)
{
    const QByteArray content(kPieceBytes + 1, 'x');
    const std::vector<QByteArray> entries{
        lesson('a'), member(7, 'b'),       record({7, 1}, kNothing), piece(7, content, 0),
        "nothing",   piece(7, content, 1), record({7, 4}, {7, 1}),   record({1, 1}, kNothing)};
    for (const QByteArray &entry : entries)
        reader.take(entry);
    const Chain whole = reader.chainAt(8);
    for (std::size_t length = 0; length <= entries.size(); ++length) {
        reader.takeBackTo(length);
        EXPECT_EQ(reader.length(), length);
        StreamReader plain(StreamReader::Keep::Contents);
        for (std::size_t i = 0; i < length; ++i)
            plain.take(entries[i]);
        EXPECT_EQ(reader.chainAt(length), plain.chainAt(length));
        EXPECT_EQ(reader.lastOf(7), plain.lastOf(7)) << length;
        EXPECT_EQ(reader.isClaimed(7), plain.isClaimed(7)) << length;
        EXPECT_EQ(reader.lesson().has_value(), plain.lesson().has_value()) << length;
        EXPECT_EQ(reader.nextPiece(7, hashOf(content)), plain.nextPiece(7, hashOf(content))) << length;
        EXPECT_EQ(reader.isWhole(hashOf(content)), plain.isWhole(hashOf(content))) << length;
        for (std::size_t i = length; i < entries.size(); ++i)
            EXPECT_EQ(reader.take(entries[i]).has_value(), plain.take(entries[i]).has_value()) << length << ' ' << i;
        EXPECT_EQ(reader.chainAt(8), whole);
    }
    EXPECT_EQ(reader.content(hashOf(content)), content);
}

TEST(Chain, tellsEveryEntryAndTheirOrder)
{
    StreamReader one, two;
    for (const char *entry : {"a", "b"})
        one.take(entry);
    for (const char *entry : {"b", "a"})
        two.take(entry);
    EXPECT_EQ(one.chainAt(0), two.chainAt(0));
    EXPECT_NE(one.chainAt(1), two.chainAt(1));
    EXPECT_NE(one.chainAt(2), two.chainAt(2));
    // SHA-256 of sixteen zeros and "a", its first sixteen bytes.
    const Chain &chain = one.chainAt(1);
    EXPECT_EQ(QByteArray(chain.data(), int(chain.size())),
              QCryptographicHash::hash(QByteArray(16, '\0') + 'a', QCryptographicHash::Sha256).left(16));
}
