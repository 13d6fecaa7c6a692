#pragma once

#include "sharing/wire/Entry.h"
#include "sharing/wire/Sha256.h"

#include <array>
#include <map>
#include <memory>
#include <optional>

namespace InkSharing {

// Sixteen bytes that tell all entries up to a place of the stream from any others.
using Chain = std::array<char, 16>;

// Reads a stream entry by entry, and knows which of them count: whoever reads the same stream finds the same. Entries
// that do not count change nothing.
//
// 1. The first lesson entry counts, and nothing does before it.
// 2. A member counts whose author and token nobody has.
// 3. A piece counts whose author is a member's, if it is the next of a content that is not whole yet.
// 4. A record counts if its author is a member's, `after` is that member's last record that has counted, its number is
//    higher than those of its author before, and all contents that it names are whole.
class StreamReader
{
public:
    enum class Keep { Nothing, Contents };
    explicit StreamReader(Keep keep = Keep::Nothing);

    // Null where the entry does not count.
    std::optional<Entry> take(const QByteArray &bytes);

    std::size_t length() const { return m_taken.size(); }
    Chain chainAt(std::size_t length) const { return length == 0 ? Chain{} : m_taken[length - 1].chain; }

    // As it was after so many entries. For a reader that keeps contents.
    void takeBackTo(std::size_t length);

    const std::optional<LessonEntry> &lesson() const { return m_lesson; }

    // The authors of a member, their own first; empty where nobody has the token.
    std::vector<int> authorsOf(const QByteArray &tokenHash) const;
    bool isClaimed(int author) const { return m_memberOf.count(author) != 0; }

    // The place of the author's member among all, from 1 for who has begun the lesson; 0 where nobody has the author.
    int placeOf(int author) const;

    // The record that the next one of the author's member names.
    InkLesson::StepId lastOf(int author) const;

    bool isWhole(const QByteArray &hash) const { return m_contents.count(hash) != 0; }
    QByteArray content(const QByteArray &hash) const; // where contents are kept

    // Which piece of a content the author's member sends next.
    int nextPiece(int author, const QByteArray &hash) const;

private:
    struct Taken
    {
        Chain chain;
        enum class What { Nothing, Lesson, Member, Record, Piece } what{What::Nothing};
        InkLesson::StepId id{};   // of a record; of others the author alone
        InkLesson::StepId last{}; // of the member, before
        int number{};             // of the author, before
        QByteArray hash{};        // of a piece
    };
    struct Member
    {
        QByteArray tokenHash;
        std::vector<int> authors;
        InkLesson::StepId last{};
    };
    struct Partial
    {
        int next{};
        int count{};
        QByteArray bytes{};
        std::shared_ptr<Sha256> hash{};
    };
    using PartialKey = std::pair<std::size_t, QByteArray>; // member and content

    bool counts(const LessonEntry &entry, Taken &taken);
    bool counts(const MemberEntry &entry, Taken &taken);
    bool counts(const RecordEntry &entry, Taken &taken);
    bool counts(const PieceEntry &entry, Taken &taken);
    void join(const QByteArray &tokenHash, const std::vector<int> &authors);
    void takeBack(const Taken &taken);
    void takeBackPiece(const Taken &taken);

    Keep m_keep;
    std::vector<Taken> m_taken;
    std::optional<LessonEntry> m_lesson;
    std::vector<Member> m_members;
    std::map<int, std::size_t> m_memberOf;
    std::map<int, int> m_numbers; // of each author, the last
    std::map<PartialKey, Partial> m_partials;
    std::map<QByteArray, QByteArray> m_contents; // that are whole; empty where they are not kept
};

} // namespace InkSharing
