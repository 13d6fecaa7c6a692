#pragma once

#include "sharing/wire/StreamReader.h"

#include <QtCore/QString>

namespace InkSharing {

// What boards and doors tell each other: one binary message each. docs/protocol.md has the tables.

constexpr int kProtocol = 1;
constexpr int kLeastTokenBytes = 16, kMostTokenBytes = 64;
constexpr int kMostLiveBytes = 64 << 10;
constexpr int kMostBatchBytes = 256 << 10;   // of entries or records in one message, unless one alone is larger
constexpr int kMostMessageBytes = 640 << 10; // nothing that is longer is read

// From a board.

struct Hello // once a connection is there, and again whenever the door asks for it
{
    QString lesson; // the name of its stream
    QByteArray token;
    struct Place
    {
        quint64 length;
        Chain chain;
    };
    std::vector<Place> places{};          // of the stream that this board has, the farthest first; at most 64
    std::optional<LessonEntry> created{}; // by who begins the lesson; without the hash
};
struct Append // records that follow each other
{
    InkLesson::StepId after;          // the member's record before the first of them
    std::vector<RecordEntry> records; // without their `after`
};
struct SendPiece
{
    PieceEntry piece; // the author is of no meaning
};
struct SendLive
{
    QByteArray payload;
};
struct Alive // of either side, when it has told nothing else for a second
{
};
using ToDoor = std::variant<Hello, Append, SendPiece, SendLive, Alive>;

// From a door.

struct Welcome
{
    int author{};
    quint64 from{}; // so many entries the board has in common with the stream; the next follow
    quint64 last{}; // so many the stream has now
};
struct Entries
{
    quint64 from{}; // so many stand before them
    std::vector<QByteArray> entries;
};
struct LiveOf
{
    int author{};
    QByteArray payload;
};
enum class Reason {
    Unreadable = 1, // a message, or a record
    NotYours,       // another's record
    OtherProtocol,  // this door speaks another one
    NoLesson,       // of that name
    OthersLesson,   // somebody else has begun one of that name
    NoPlace,        // the token leads to a number that somebody has: another one is to be drawn
    TooMuch,        // more than any board sends
    Elsewhere,      // the same person has come by another connection
    Ended           // whoever has begun the lesson has ended it
};
struct Refused // a record, which will not count
{
    InkLesson::StepId record;
    Reason reason{};
};
struct Again // say hello once more: what was sent may not have come into the stream
{
};
struct Gone // the connection ends, and coming again as before is in vain
{
    Reason reason{};
};
using FromDoor = std::variant<Welcome, Entries, LiveOf, Refused, Again, Gone, Alive>;

QByteArray encoded(const ToDoor &message);
enum class Pack { IfShorter, Never };
QByteArray encoded(const FromDoor &message, Pack pack = Pack::IfShorter);

// False where it is none; `problem` says why.
bool readMessage(const QByteArray &bytes, ToDoor &message, QString &problem);
bool readMessage(const QByteArray &bytes, FromDoor &message, QString &problem);

} // namespace InkSharing
