#pragma once

#include "door/engine/EngineProcess.h"
#include "door/gate/Gate.h"
#include "door/gate/Wires.h"
#include "door/jetstream/JetStreamEngine.h"
#include "door/metrics/TimedEngine.h"
#include "door/program/CommandLine.h"
#include "sharing/engine/MemoryEngine.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QTimer>

namespace InkDoor {

// The door with all that it needs, from the command line to the end of the program.
class Program : public QObject
{
public:
    explicit Program(const CommandLine &line);
    ~Program() override;

    // The event loop then runs until the application is told to exit, with 0 or with 2 after one line on stderr.
    void start();

    // Listens no more, hands everybody what there is, for 10 s at most, and exits. The boards come again, unless their
    // lessons are over.
    enum class Lessons { GoOn, AreOver };
    void end(Lessons lessons);

private:
    void startOwnEngine();
    void serve(std::unique_ptr<InkSharing::Engine> engine);
    void serveJetStream(const QString &addresses);
    void serveMemory();
    QString setTls();
    QString listen();
    void tick();
    void tellEngine(bool isUp);
    void fail(const QString &words);
    bool isWell() const;
    QByteArray metrics() const;

    const CommandLine m_line;
    std::unique_ptr<EngineProcess> m_ownEngine;
    InkSharing::MemoryStore m_store;
    std::unique_ptr<InkSharing::Engine> m_engine;
    JetStreamEngine *m_jetStream{}; // the engine, where it is one
    std::unique_ptr<TimedEngine> m_timed;
    Wires m_wires;
    std::unique_ptr<InkSharing::Door> m_door;
    std::unique_ptr<Gate> m_gate;
    QTimer m_ticks;
    QElapsedTimer m_clock;
    Histogram m_lateness; // of ticks
    qint64 m_tickDue{};   // ns
    qint64 m_endBy{};     // ms; 0 until it is to end
    Lessons m_lessons{Lessons::GoOn};
    bool m_hasSaidGoodbye{};
};

} // namespace InkDoor
