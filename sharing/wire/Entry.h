#pragma once

#include "lesson/fold/Lesson.h"

#include <QtCore/QByteArray>

#include <variant>
#include <vector>

namespace InkSharing {

// What stands in the stream of a lesson. docs/protocol.md tells what each means and which of them count.

constexpr int kHashBytes = 32;              // SHA-256
constexpr int kPieceBytes = 256 << 10;      // of all pieces of a content but its last
constexpr int kMostPieces = 256;            // of a content
constexpr int kMostRecordBytes = 384 << 10; // without its contents
constexpr int kMostContents = 64;           // of one record

enum class Role { Teacher = 1, Pupil, Guest };

struct LessonEntry // the first one that counts
{
    InkLesson::Header header;
    QByteArray tokenHash;     // of who has begun it
    std::vector<int> authors; // that this person brings, their own first
};
struct MemberEntry
{
    int author{};
    QByteArray tokenHash;
    Role role{Role::Pupil};
};
struct RecordEntry
{
    InkLesson::StepId id;
    InkLesson::StepId after;            // the same member's record before, kNothing for their first
    QByteArray record;                  // encoded, with the hashes of contents in their places
    std::vector<QByteArray> contents{}; // these hashes
};
struct PieceEntry
{
    int author{};
    QByteArray hash; // of the whole content
    int index{};
    int count{};
    QByteArray bytes;
};
using Entry = std::variant<LessonEntry, MemberEntry, RecordEntry, PieceEntry>;

QByteArray encoded(const Entry &entry);

// False where it is none; `problem` says why.
bool readEntry(const QByteArray &bytes, Entry &entry, QString &problem);

// SHA-256.
QByteArray hashOf(const QByteArray &bytes);

// The number that one who joins with a token has as an author: from 2^20 on, so that it is none of those that lessons
// without sharing give.
int authorOf(const QByteArray &tokenHash);

} // namespace InkSharing
