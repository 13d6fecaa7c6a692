#include "door/program/Program.h"

#include "door/metrics/MetricText.h"
#include "door/program/Log.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QTextStream>
#include <QtNetwork/QSslCertificate>
#include <QtNetwork/QSslKey>
#include <QtNetwork/QSslSocket>
#include <QtWebSockets/QWebSocket>

#include <algorithm>
#include <utility>

namespace InkDoor {

namespace {

constexpr int kTick = 100;             // ms
constexpr qint64 kLongestEnd = 10'000; // ms
constexpr qint64 kLongestGoodbye = 1'000;
constexpr int kWrong = 2;
constexpr qint64 kMillion = 1'000'000;

} // namespace

Program::Program(const CommandLine &line)
    : m_line(line)
    , m_wires{{[this](int connection) { m_door->connected(connection); },
               [this](int connection, const QByteArray &message) { m_door->received(connection, message); },
               [this](int connection) { m_door->written(connection); },
               [this](int connection) { m_door->disconnected(connection); }}}
{
    m_clock.start();
    m_ticks.setTimerType(Qt::PreciseTimer);
    connect(&m_ticks, &QTimer::timeout, this, &Program::tick);
}

Program::~Program()
{
    m_wires.clear();
    m_gate.reset();
    m_door.reset();
    m_timed.reset();
    m_engine.reset();
}

void Program::start()
{
    if (!m_line.engineFolder.isEmpty())
        startOwnEngine();
    else if (!m_line.engine.isEmpty())
        serveJetStream(m_line.engine);
    else
        serveMemory();
}

void Program::startOwnEngine()
{
    m_ownEngine = std::make_unique<EngineProcess>(m_line.engineFolder);
    connect(m_ownEngine.get(), &EngineProcess::ready, this, [this] {
        if (!m_engine)
            serveJetStream(m_ownEngine->address());
    });
    connect(m_ownEngine.get(), &EngineProcess::ended, this,
            [](const QString &words) { say(words + QStringLiteral("; it is started again")); });
    connect(m_ownEngine.get(), &EngineProcess::failed, this, &Program::fail);
    m_ownEngine->start();
}

void Program::serveJetStream(const QString &addresses)
{
    auto engine = std::make_unique<JetStreamEngine>(JetStreamEngine::Settings{addresses, m_line.replicas});
    m_jetStream = engine.get();
    engine->whenChanged([this](bool isUp) { tellEngine(isUp); });
    serve(std::move(engine));
}

void Program::serveMemory()
{
    say(QStringLiteral("lessons are kept in memory: when this program ends, the journals of the boards are the only "
                       "copies"));
    serve(std::make_unique<InkSharing::MemoryEngine>(
        m_store, [this](std::function<void()> call) { QTimer::singleShot(0, this, std::move(call)); }));
}

void Program::serve(std::unique_ptr<InkSharing::Engine> engine)
{
    m_engine = std::move(engine);
    m_timed = std::make_unique<TimedEngine>(*m_engine);
    m_door = std::make_unique<InkSharing::Door>(*m_timed, m_wires, [this] { return m_clock.elapsed(); });
    m_gate = std::make_unique<Gate>(Site{[this] { return isWell(); }, QCoreApplication::applicationVersion().toUtf8(),
                                         [this] { return metrics(); }},
                                    m_line.mostConnections,
                                    [this](std::unique_ptr<QWebSocket> socket) { m_wires.add(std::move(socket)); });
    m_gate->setOthers([this] { return m_wires.count(); });
    QString problem = setTls();
    if (problem.isEmpty())
        problem = listen();
    if (!problem.isEmpty())
        return fail(problem);
    m_tickDue = m_clock.nsecsElapsed() + kTick * kMillion;
    m_ticks.start(kTick);
}

QString Program::setTls()
{
    if (m_line.certificateFile.isEmpty())
        return {};
    const QList<QSslCertificate> chain = QSslCertificate::fromPath(m_line.certificateFile);
    if (chain.isEmpty())
        return QStringLiteral("%1 holds no certificate").arg(m_line.certificateFile);
    QFile file{m_line.keyFile};
    if (!file.open(QIODevice::ReadOnly))
        return QStringLiteral("%1: %2").arg(m_line.keyFile, file.errorString());
    const QByteArray text = file.readAll();
    QSslKey key{text, QSsl::Rsa};
    if (key.isNull())
        key = QSslKey{text, QSsl::Ec};
    if (key.isNull())
        return QStringLiteral("%1 holds no key").arg(m_line.keyFile);
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setLocalCertificateChain(chain);
    configuration.setPrivateKey(key);
    configuration.setPeerVerifyMode(QSslSocket::VerifyNone); // nobody needs a certificate to come in
    configuration.setProtocol(QSsl::TlsV1_2OrLater);
    m_gate->setTls(configuration);
    return {};
}

QString Program::listen()
{
    const QHostAddress address =
        m_line.address.isEmpty() ? QHostAddress{QHostAddress::Any} : QHostAddress{m_line.address};
    if (!m_gate->listen(address, m_line.port))
        return QStringLiteral("port %1 cannot be listened at: %2").arg(m_line.port).arg(m_gate->errorString());
    const QString scheme = m_line.certificateFile.isEmpty() ? QStringLiteral("http") : QStringLiteral("https");
    const QString host = m_line.address.isEmpty() ? QStringLiteral("0.0.0.0") : m_line.address;
    const bool isLong = host.contains(QLatin1Char(':'));
    QTextStream(stdout)
        << QStringLiteral("%1://%2:%3/").arg(scheme, isLong ? '[' + host + ']' : host).arg(m_gate->serverPort())
        << Qt::endl;
    return {};
}

void Program::tick()
{
    const qint64 now = m_clock.nsecsElapsed();
    m_lateness.add(now - m_tickDue);
    m_tickDue = now + kTick * kMillion;
    m_gate->tick();
    m_wires.tick();
    m_door->tick();
    if (m_endBy == 0)
        return;
    if (m_door->drain() && m_wires.unsentBytes() == 0 && !std::exchange(m_hasSaidGoodbye, true)) {
        if (m_lessons == Lessons::AreOver)
            m_door->endLessons();
        m_wires.closeAll();
        m_endBy = std::min(m_endBy, m_clock.elapsed() + kLongestGoodbye);
    }
    if ((m_hasSaidGoodbye && m_wires.count() == 0) || m_clock.elapsed() > m_endBy)
        QCoreApplication::exit(EXIT_SUCCESS);
}

void Program::end(Lessons lessons)
{
    if (!m_gate || !m_gate->isListening())
        return QCoreApplication::exit(EXIT_SUCCESS);
    say(QStringLiteral("is ending"));
    m_gate->close();
    m_lessons = lessons;
    m_endBy = m_clock.elapsed() + kLongestEnd;
    tick();
}

void Program::tellEngine(bool isUp)
{
    say(isUp ? QStringLiteral("the engine is there")
             : QStringLiteral("the engine cannot be reached; it is tried again"));
}

void Program::fail(const QString &words)
{
    say(words);
    QCoreApplication::exit(kWrong);
}

bool Program::isWell() const
{
    return m_endBy == 0 && (!m_jetStream || m_jetStream->isUp());
}

QByteArray Program::metrics() const
{
    const InkSharing::DoorCounts &done = m_door->counts();
    const AppendCounts &appends = m_timed->counts();
    const qint64 waiting = m_jetStream ? static_cast<qint64>(m_jetStream->waitingBytes()) : 0;
    return gaugeText("inkboard_connections", "Boards that are connected.", m_door->connections()) +
           gaugeText("inkboard_visitors", "Connections that have not said yet what they want.", m_gate->visitors()) +
           gaugeText("inkboard_lessons", "Lessons that are open.", m_door->lessons()) +
           gaugeText("inkboard_engine_up", "Whether the engine can be reached.", isWell() ? 1 : 0) +
           gaugeText("inkboard_unsent_bytes", "What waits to be sent to boards.", m_wires.unsentBytes()) +
           gaugeText("inkboard_engine_waiting_bytes", "What waits to be sent to the engine.", waiting) +
           gaugeText("inkboard_appends_under_way", "Appends that the engine has not answered yet.", appends.underWay) +
           counterText("inkboard_http_requests_total", "Requests that were understood.", m_gate->requests()) +
           counterText("inkboard_sent_away_total", "Connections ended before they were let in.", m_gate->sentAway()) +
           counterText("inkboard_cut_off_total", "Boards cut off since they read too slowly.", m_wires.cutOff()) +
           counterText("inkboard_records_total", "Records put into streams.", done.records) +
           counterText("inkboard_received_bytes_total", "Bytes of messages from boards.", done.bytesIn) +
           counterText("inkboard_sent_bytes_total", "Bytes of messages to boards.", done.bytesOut) +
           counterText("inkboard_refusals_total", "Records refused.", done.refusals) +
           counterText("inkboard_wrong_messages_total", "Messages that nobody could read.", done.wrongMessages) +
           counterText("inkboard_live_dropped_total", "Live acts dropped for slow readers.", done.liveDropped) +
           counterText("inkboard_lost_streams_total", "Streams that were set back.", done.lostStreams) +
           counterText("inkboard_appends_unknown_total", "Appends without an answer.", appends.unknown) +
           appends.stored.text("inkboard_append_seconds", "From an append to the engine's answer.") +
           m_lateness.text("inkboard_lateness_seconds", "How late the program does what is due.");
}

} // namespace InkDoor
