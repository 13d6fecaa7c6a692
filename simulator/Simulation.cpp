#include "Simulation.h"

#include "Check.h"

#include <QtCore/QCryptographicHash>

namespace Simulator {

namespace {

constexpr qint64 kLateCopies = 12500; // milliseconds after which none of an append comes any more
constexpr qint64 kLiveIsKnown = 8000; // milliseconds after which everybody has what others have in hand
constexpr qint64 kStep = 500;         // milliseconds
constexpr qint64 kQuiet = 180000;     // milliseconds in which all must have come to rest

constexpr unsigned kWholeClassEvery = 100; // seeds
constexpr int kWholeClass = 12;            // boards
constexpr qint64 kMinutes = 300000;        // milliseconds, in which they do some two thousand things

class Simulation
{
public:
    Simulation(unsigned seed, const QString &folder, const Tap &tap)
        : m_world(seed * 7919 + 1)
        , m_server(m_world)
        , m_folder(folder)
        , m_isWholeClass(seed % kWholeClassEvery == 0)
    {
        Random &random = m_world.random;
        m_server.tap = tap;
        m_server.slowness = random.of({2, 40, 300, 1500});
        for (int doors = random.from(1, 3); doors > 0; --doors)
            m_doors.push_back(std::make_unique<DoorProcess>(m_world, m_server));
        const int few = random.from(2, random.oneIn(6) ? 8 : 4), boards = m_isWholeClass ? kWholeClass : few;
        for (int name = 0; name < boards; ++name)
            m_boards.push_back(std::make_unique<Board>(m_world, name, m_doors, m_folder, name == 0));
    }

    Outcome run()
    {
        Random &random = m_world.random;
        const qint64 shortEnd = random.from(10000, 28000), end = m_isWholeClass ? kMinutes : shortEnd;
        if (m_isWholeClass)
            m_world.saw(Sight::WholeClass);
        for (const auto &board : m_boards)
            m_world.at(board == m_boards.front() ? 0 : random.below(int(end) * 2 / 3),
                       [this, b = board.get()] { come(*b); });
        m_world.after(1500, [this, end] { goWrong(end); });
        m_world.runUntil(end);
        calmDown();
        m_world.runUntil(m_world.now() + kLateCopies);
        waitUntilQuiet();
        m_world.runUntil(m_world.now() + kLiveIsKnown);
        const QString missing = isQuiet() ? liveIsMissing() : QString();
        for (const auto &board : m_boards)
            board->rest();
        m_world.runUntil(m_world.now() + kLiveIsKnown);
        waitUntilQuiet();
        Outcome outcome = this->outcome();
        outcome.problem = outcome.problem.isEmpty() ? missing : outcome.problem;
        return outcome;
    }

private:
    void come(Board &board)
    {
        if (m_server.entries().size() > 20)
            m_world.saw(Sight::LateJoin);
        board.start();
        board.actNowAndThen();
    }

    // One thing after the other, until it is time to calm down.
    void goWrong(qint64 end)
    {
        if (m_world.now() >= end)
            return;
        Random &random = m_world.random;
        Board &board = *m_boards[std::size_t(random.below(int(m_boards.size())))];
        switch (random.below(7)) {
        case 0:
        case 1:
            board.cut(random.oneIn(3));
            break;
        case 2:
            killBoard(board);
            break;
        case 3:
            killDoor(*m_doors[std::size_t(random.below(int(m_doors.size())))]);
            break;
        case 4:
            killEngine();
            break;
        case 5:
            if (board.isUp() && board.lesson())
                fillDisk(board);
            break;
        default:
            break;
        }
        m_world.after(random.from(200, 3500), [this, end] { goWrong(end); });
    }

    void killBoard(Board &board)
    {
        if (!board.isUp())
            return;
        board.kill(m_world.random.oneIn(2) ? Board::Death::Machine : Board::Death::Program);
        m_world.after(m_world.random.below(6000), [&board] {
            if (!board.isUp())
                board.start();
        });
    }

    void killDoor(DoorProcess &door)
    {
        if (!door.isUp())
            return;
        if (!door.connections().empty())
            m_world.saw(Sight::DoorKilled);
        door.kill();
        m_world.after(m_world.random.below(4000), [&door] {
            if (!door.isUp())
                door.start();
        });
    }

    void killEngine()
    {
        if (!m_server.isUp)
            return;
        m_world.saw(Sight::EngineKilled);
        m_server.isUp = false;
        const qint64 lost = m_world.random.oneIn(2) ? m_world.random.below(m_isWholeClass ? 60000 : 20000) : 0;
        m_world.after(m_world.random.below(6000), [this, lost] { startEngine(lost); });
    }

    void startEngine(qint64 lost)
    {
        if (m_server.isUp)
            return;
        if (lost > 0)
            m_server.setBack(lost);
        m_server.isUp = true;
    }

    void fillDisk(Board &board)
    {
        board.fillDisk();
        m_world.after(m_world.random.below(8000), [&board] { board.clearDisk(); });
    }

    // From now on nothing goes wrong, and nobody does anything.
    void calmDown()
    {
        m_server.isFaulty = false;
        m_server.isUp = true;
        for (const auto &door : m_doors) {
            if (!door->isUp())
                door->start();
        }
        for (const auto &board : m_boards) {
            if (!board->isUp())
                board->start();
            board->pause();
            if (board->lesson())
                board->clearDisk();
        }
    }

    void waitUntilQuiet()
    {
        const qint64 latest = m_world.now() + kQuiet;
        while (m_world.now() < latest && !isQuiet())
            m_world.runUntil(m_world.now() + kStep);
    }

    QString liveIsMissing() const
    {
        for (const auto &board : m_boards) {
            for (const auto &other : m_boards) {
                const QString missing = board == other ? QString() : board->misses(*other);
                if (!missing.isEmpty())
                    return missing;
            }
        }
        return {};
    }

    bool isQuiet() const
    {
        return std::all_of(m_boards.begin(), m_boards.end(), [this](const auto &board) {
            const InkSharing::Client *client = board->client();
            return board->lesson() && client->state() == InkSharing::Client::State::Open && client->pending() == 0 &&
                   client->length() == m_server.entries().size();
        });
    }

    Outcome outcome()
    {
        Outcome outcome;
        QCryptographicHash digest(QCryptographicHash::Sha256);
        for (const QByteArray &entry : m_server.entries())
            digest.addData(entry);
        const auto plain = isQuiet() ? replayed(m_server.entries()) : nullptr;
        for (const auto &board : m_boards) {
            const QString problem = plain ? difference(*board, *plain) : QStringLiteral("never quiet");
            if (!problem.isEmpty() && outcome.problem.isEmpty())
                outcome.problem = QStringLiteral("board %1: %2").arg(&board - m_boards.data()).arg(problem);
            for (const QByteArray &code : board->lesson() ? board->lesson()->log() : std::vector<QByteArray>())
                digest.addData(code);
        }
        const Tally tally = tallyOf(m_server.entries());
        outcome.sights = m_world.sights();
        outcome.sights[std::size_t(Sight::NoEffect)] += tally.withoutEffect;
        outcome.sights[std::size_t(Sight::Contents)] += tally.pieces;
        for (const quint64 count : outcome.sights)
            digest.addData(QByteArray::number(count) + ' ');
        outcome.digest = digest.result().toHex();
        outcome.entries = m_server.entries().size();
        outcome.milliseconds = m_world.now();
        return outcome;
    }

    World m_world;
    Server m_server;
    const QString m_folder;
    const bool m_isWholeClass; // and loses up to a minute
    std::vector<std::unique_ptr<DoorProcess>> m_doors;
    std::vector<std::unique_ptr<Board>> m_boards;
};

} // namespace

Outcome simulate(unsigned seed, const QString &folder, const Tap &tap)
{
    return Simulation(seed, folder, tap).run();
}

} // namespace Simulator
