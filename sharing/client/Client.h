#pragma once

#include "sharing/wire/Contents.h"
#include "sharing/wire/Message.h"

#include "lesson/fold/Lesson.h"

#include <deque>
#include <functional>
#include <unordered_set>

namespace InkSharing {

// What a client needs of the board around it. None of these calls comes back into the client.
class ClientHost
{
public:
    virtual ~ClientHost();

    // Begins a connection to a door, which opened() or closed() answers.
    virtual void connectToDoor() = 0;
    virtual void send(const QByteArray &message) = 0;
    virtual void disconnectFromDoor() = 0; // closed() is not told of it

    // The lesson that is joined begins like this. It outlives the client.
    virtual InkLesson::Lesson &begin(const InkLesson::Header &header) = 0;

    // A step of this board does not count, and is not in the lesson any more.
    virtual void lostStep(const InkLesson::Lesson::Refusal &refusal) = 0;

    // What another is doing just now.
    virtual void heard(int author, const QByteArray &payload) = 0;

    // A record of somebody else comes. True where the host has it read beside everything else, since that takes long:
    // then it calls Client::wasRead(), and until it does no other record comes, but what others are doing is heard.
    virtual bool readsBeside(const QByteArray & /*code*/) { return false; }
};

// One board's side of a shared lesson: brings its lesson to what the stream says, and what is pending in it into the
// stream, whatever connections, doors and engines do meanwhile.
//
// The host tells the time, in milliseconds from anywhere, with each call; tick() comes at least thirty times a second.
class Client
{
public:
    struct Settings
    {
        QString lesson;             // the name of its stream
        QByteArray token;           // drawn by this board once: 16 to 64 random bytes
        std::vector<int> authors{}; // of who begins a lesson: the own first, then all whose records it has
    };
    using Random = std::function<quint32()>;

    Client(Settings settings, ClientHost &host, Random random);

    // The lesson is there already: it is begun by this board, or one that was joined before comes from its journal.
    // Then steps that the journal had not yet may stand in the stream: numbers are left out for them.
    enum class From { Here, Journal };
    void take(InkLesson::Lesson &lesson, From from);

    int author() const { return m_authors.front(); }

    enum class State {
        Waiting,    // for the next attempt
        Connecting, // a connection was asked for
        Greeting,   // the door was told who comes
        CatchingUp, // entries come that the stream had at the welcome
        Open,       // everything goes both ways
        Gone        // for good; reason() tells why
    };
    State state() const { return m_state; }
    Reason reason() const { return m_reason; } // that a door gave last
    std::size_t pending() const { return m_lesson ? m_lesson->log().size() - m_lesson->settled() : 0; }
    quint64 length() const { return m_reader.length(); }               // of the stream, as far as it is known here
    int placeOf(int author) const { return m_reader.placeOf(author); } // the same at every board; 0 before it is known
    Chain chain() const { return m_reader.chainAt(m_reader.length()); }

    void opened(qint64 now);
    void received(const QByteArray &message, qint64 now);
    void closed(qint64 now);
    void tick(qint64 now);

    // Something was done here.
    void done(qint64 now);

    // What became of a record that the host reads beside. Nothing happens if that is not waited for any more.
    void wasRead(const QByteArray &code, InkLesson::Lesson::Arriving arriving, qint64 now);

    // Tells the others something, now or never.
    void sendLive(const QByteArray &payload, qint64 now);

private:
    struct Sent
    {
        InkLesson::StepId id; // of a piece the author alone
        QByteArray hash{};    // of a piece
        int index{};
        qint64 bytes{};
    };
    struct Outgoing // the record that is sent next
    {
        InkLesson::StepId id;
        Detached detached;
        std::vector<InkLesson::StepId> named{}; // pages and objects of others that it builds on
    };

    void take(const Welcome &welcome);
    void take(const Entries &entries);
    void take(const LiveOf &live);
    void take(const Refused &refused);
    void take(const Again &again);
    void take(const Gone &gone);
    void take(const Alive & /*alive*/) {}

    void hello();
    void send(const ToDoor &message);
    void giveUp();
    void waitAWhile(qint64 least);
    void catchUp();
    void setBackTo(std::size_t records);
    void takeWaiting();
    bool isReadBeside(const RecordEntry &entry, const QByteArray &code);
    void settle(const std::vector<QByteArray> &codes, InkLesson::Lesson::Arriving *first = nullptr);
    void settleWaiting();
    void goOn();
    QByteArray codeOf(const RecordEntry &entry) const;
    void tell(const InkLesson::Lesson::Refusals &refusals);
    bool isMine(int author) const;
    void sendPending();
    bool sendNext(Append &append);
    bool sendPieces(const Detached &detached);
    void flush(Append &append);
    void forgetSent();
    void arrived(const Entry &entry);
    void note(const Sent &sent);
    bool isWindowFull() const;
    bool mustWait() const;

    const Settings m_settings;
    const std::vector<int> m_authors;
    ClientHost &m_host;
    const Random m_random;
    InkLesson::Lesson *m_lesson{};
    std::unique_ptr<InkLesson::Lesson::Batch> m_batch; // while much comes at once: it is painted once
    StreamReader m_reader{StreamReader::Keep::Contents};
    std::vector<std::size_t> m_places;  // in the lesson's log, after each record of the stream that counts
    std::vector<std::size_t> m_counted; // so many records count, after each entry
    quint64 m_last{};                   // entries that the stream had at the welcome
    std::optional<QByteArray> m_beside; // the record that is read beside; it stands in the stream, but is not settled
    std::deque<QByteArray> m_waiting;   // entries that come after it

    State m_state{State::Waiting};
    Reason m_reason{};
    qint64 m_now{};
    qint64 m_heard{}; // when the door told something last
    qint64 m_ticked{};
    qint64 m_told{};     // when it was told something last
    qint64 m_progress{}; // when something that was sent came back last
    qint64 m_retryAt{};
    qint64 m_patience; // milliseconds before the next attempt
    std::deque<Sent> m_sent;
    std::unordered_set<InkLesson::StepId> m_sentRecords;
    std::map<QByteArray, int> m_pieces;          // of each content, the next to be sent
    std::optional<InkLesson::StepId> m_lastSent; // of records on this connection
    qint64 m_onItsWay{};                         // bytes
    Outgoing m_outgoing{};
    std::unordered_set<InkLesson::StepId> m_missing; // steps of others that the stream has lost
    qint64 m_missingUntil{};                         // when they are not waited for any more
    bool m_mustGreet{};                              // what was sent may not count
};

} // namespace InkSharing
