#pragma once

#include "sharing/door/DoorOutlet.h"
#include "sharing/engine/Engine.h"

#include <map>

namespace InkSharing {

// One lesson at a door: its stream, and those who are there.
class DoorLesson : public StreamListener
{
public:
    // Engine and outlet outlive it.
    DoorLesson(const QString &name, Engine &engine, DoorOutlet &outlet);
    ~DoorLesson() override;

    // A board says hello, for the first time or again. It is told whatever comes of it once the stream is known.
    void hello(int connection, const Hello &hello, qint64 now);
    void append(int connection, const Append &append);
    void piece(int connection, const SendPiece &piece);
    void live(int connection, const QByteArray &payload);
    void written(int connection) { pump(connection); }
    void leave(int connection) { m_guests.erase(connection); }
    void tick(qint64 now);

    // Takes nothing more for the stream. True once nothing is on its way there, and everybody has been handed what
    // there is.
    bool drain();

    bool isEmpty() const { return m_guests.empty(); }
    bool has(int connection) const { return m_guests.count(connection) != 0; }

    void absent() override;
    void entries(const std::vector<QByteArray> &entries) override;
    void caughtUp() override;
    void lost() override;
    void heard(const QByteArray &bytes) override;

private:
    struct Guest
    {
        Hello hello;
        QByteArray tokenHash;
        enum class State {
            Came,    // has said hello
            Welcome, // has been answered, and all below is known
            Asked    // has to say hello anew
        } state{State::Came};
        std::optional<qint64> joining{}; // when it was tried last to make it a member
        std::vector<int> authors{};
        std::size_t next{};       // entry that it is handed
        std::size_t late{};       // before which all are handed to it as fast as can be: it has come late
        qint64 bulk{};            // bytes of the large batch that may be unsent yet
        InkLesson::StepId last{}; // of its records that are in the stream or on their way there
        qint64 onItsWay{};        // bytes
    };

    struct Batch
    {
        std::size_t from{}, end{};
        QByteArray message{};
        qint64 bytes{};     // of the entries
        bool hasPictures{}; // which no packing makes shorter
    };

    void open(Engine::Open how);
    void keep(const QByteArray &entry, bool isPicture);
    const Batch &batchFrom(std::size_t from);
    void consider(int connection, Guest &guest);
    void join(Guest &guest, const Entry &entry);
    void welcome(int connection, Guest &guest);
    void pump(int connection);
    void pumpAll();
    void turnAway(int connection, Reason reason);
    void again(int connection, Guest &guest);
    bool put(int connection, Guest &guest, const QByteArray &entry);
    std::optional<Reason> problemOf(const Guest &guest, const RecordEntry &record) const;
    void tellOthers(int connection, const LiveOf &live);
    Guest *welcomed(int connection);
    bool mayHandOut(Guest &guest, qint64 unsent, qint64 bytes);
    std::size_t blockOf(std::size_t entry) const;
    qint64 bytesFrom(std::size_t entry) const;
    static bool isWelcome(const Guest &guest) { return guest.state == Guest::State::Welcome; }

    const QString m_name;
    Engine &m_engine;
    DoorOutlet &m_outlet;
    std::map<int, Guest> m_guests;
    std::vector<QByteArray> m_entries;
    std::vector<Batch> m_blocks = {Batch()}; // all entries; none is added to but the last block
    Batch m_batch{};                         // that was told last, but for those of blocks that are kept
    StreamReader m_reader;
    bool m_isCaughtUp{};
    bool m_isCreating{}; // it may come into being here
    bool m_isDraining{};
    qint64 m_now{};
    int m_appends{};                  // on their way
    std::unique_ptr<Stream> m_stream; // let go first
};

} // namespace InkSharing
