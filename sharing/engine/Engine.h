#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <functional>
#include <memory>
#include <vector>

namespace InkSharing {

// How an append has ended. Unknown: the bytes may be in the stream, or come into it yet, or neither.
enum class Appended { Stored, Unknown };

// Hears one stream. Every call comes from the event loop of the one who listens, never from inside a call to the
// engine, and none after the stream was let go, which may be done from inside of each of these.
class StreamListener
{
public:
    virtual ~StreamListener();

    // There is no such stream, and it was opened by one who does not create it. Nothing else follows.
    virtual void absent() = 0;

    // The next entries from the first of all on, each once, in the order of the stream and without gaps.
    virtual void entries(const std::vector<QByteArray> &entries) = 0;

    // All that was in the stream when it was opened has been told. Comes once.
    virtual void caughtUp() = 0;

    // The stream is no longer the one whose entries were told: an engine that has lost its last minute was set back, or
    // it was removed. Nothing else follows; whoever wants to go on lets it go and opens it anew.
    virtual void lost() = 0;

    // What another engine has published, or was lost on the way.
    virtual void heard(const QByteArray &bytes) = 0;
};

// One lesson's stream of entries, and what passes beside it unstored. Letting it go ends both.
class Stream
{
public:
    virtual ~Stream();

    // Puts an entry at the end. Appends are stored in the order of their calls, or not at all; `done` is told once,
    // after some seconds of no answer that it is unknown. What is appended twice is stored twice.
    virtual void append(const QByteArray &bytes, std::function<void(Appended)> done) = 0;

    // Tells the same lesson's listeners at all other engines, at most once, and not those at this one.
    virtual void publish(const QByteArray &bytes) = 0;
};

// Keeps the streams of lessons: their only order. Nothing here looks into an entry.
//
// An entry has at most kMostEntryBytes, a name of a lesson 1 to 64 letters of A-Z, a-z, 0-9, - and _.
class Engine
{
public:
    static constexpr int kMostEntryBytes = 512 << 10;

    virtual ~Engine();

    // Opens a stream, which outlives neither the engine nor the listener. An engine that cannot be reached now is tried
    // again until it can be; until then nothing is told. One that has been away goes on with the next entry, or says
    // that the stream is lost: where the very entry that was told last is not at its place any more, with the time at
    // which it was stored, those before it may be others as well.
    enum class Open { Existing, Create };
    virtual std::unique_ptr<Stream> open(const QString &lesson, Open how, StreamListener &listener) = 0;

    // Takes a stream away with all its entries. One that is not there is taken away.
    virtual void remove(const QString &lesson, std::function<void(bool isRemoved)> done) = 0;
};

// Whether a stream can have this name.
bool isLessonName(const QString &name);

} // namespace InkSharing
