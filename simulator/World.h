#pragma once

#include "RandomCases.h"

#include <QtCore/QByteArray>

#include <functional>
#include <map>
#include <queue>
#include <vector>

namespace Simulator {

// Kinds of faults and races, of which each must come about in a run of many seeds.
enum class Sight {
    Delay,            // a second and more between two machines
    AppendLost,       // on its way to the engine
    AnswerLost,       // of an append that was stored
    StoredTwice,      // an append came late once more
    Overtaken,        // an append came before one that another door had sent earlier
    NoEffect,         // an entry of the stream did not count
    ConnectionCut,    // both ends are told
    ConnectionSilent, // neither is
    BoardKilled,
    StepsForgotten,  // that its journal had not brought onto the disk
    OwnStepReturned, // forgotten by its board, but in the stream
    DoorKilled,
    EngineKilled,
    EngineSetBack,
    TakenBack,         // a board had what the engine lost
    PendingAgain,      // settled steps of its own among them
    DiskFull,          // and a step was not written
    WholeClass,        // twelve boards, for minutes
    LateJoin,          // into a lesson that has a while behind it
    CameBefore,        // a foreign step, before pending ones
    UndoWhilePending,  // of a step that was pending
    Contents,          // in several pieces
    ContentsAnew,      // a content was sent again from the middle
    OneObjectTwoHands, // changed by two people before either knew
    PageGone,          // under a hand
    Lived,             // an object in progress was seen elsewhere
    LiveLost,          // acts in progress were missed, and asked for
    ReadBeside,        // a record, while the rest went on
    Settled,           // where it stood
    Count
};
const char *nameOf(Sight sight);

// The virtual clock, chance, and what has come about: all that a simulation has of the world.
class World
{
public:
    explicit World(unsigned seed)
        : random(seed)
    {
    }

    qint64 now() const { return m_now; } // milliseconds

    // Calls at a time, or after some time, in the order of the times and then of the calls to this.
    void at(qint64 time, std::function<void()> call);
    void after(qint64 delay, std::function<void()> call) { at(m_now + delay, std::move(call)); }

    void runUntil(qint64 time);

    void saw(Sight sight) { ++m_sights[std::size_t(sight)]; }
    const std::vector<quint64> &sights() const { return m_sights; }

    Random random;

private:
    struct Event
    {
        qint64 time;
        quint64 order;
        std::function<void()> call;
        friend bool operator<(const Event &a, const Event &b)
        {
            return a.time != b.time ? a.time > b.time : a.order > b.order; // the first on top
        }
    };

    qint64 m_now{};
    quint64 m_order{};
    std::priority_queue<Event> m_events;
    std::vector<quint64> m_sights = std::vector<quint64>(std::size_t(Sight::Count));
};

// A way on which nothing overtakes: what is sent later comes later.
class Way
{
public:
    explicit Way(World &world)
        : m_world(world)
    {
    }
    void send(qint64 delay, std::function<void()> call)
    {
        m_last = std::max(m_last, m_world.now() + delay);
        m_world.at(m_last, std::move(call));
    }

private:
    World &m_world;
    qint64 m_last{};
};

} // namespace Simulator
