#include "door/gate/Gate.h"

#include <QtCore/QPointer>
#include <QtNetwork/QSslSocket>
#include <QtWebSockets/QWebSocket>

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

namespace InkDoor {

const QByteArray Gate::kSocketPath = "/socket";

namespace {

constexpr qint64 kPatience = 5'000;               // ms for TLS, a request and its answer together
constexpr qint64 kReadAhead = 2 * kMostHeadBytes; // bytes

// What the network does not take yet waits in this program, which knows how much that is, and not in the system, which
// would hold megabytes: ink goes behind them.
void keepSystemShort(qintptr handle)
{
#ifdef TCP_NOTSENT_LOWAT
    constexpr int kMostBytes = 128 << 10;
    ::setsockopt(int(handle), IPPROTO_TCP, TCP_NOTSENT_LOWAT, &kMostBytes, sizeof kMostBytes);
#else
    Q_UNUSED(handle)
#endif
}

} // namespace

// One who has connected, until it is known what he wants and that is done.
class Visitor
{
public:
    Visitor(std::unique_ptr<QTcpSocket> taken, qint64 until)
        : socket{taken.release()}
        , deadline{until}
    {
    }
    ~Visitor()
    {
        if (!socket || isAccepted)
            return;
        socket->disconnect();
        socket->abort();
        socket->deleteLater();
    }
    Visitor(const Visitor &) = delete;
    Visitor &operator=(const Visitor &) = delete;

    // Those of a handshake belong to the server of WebSockets, which may delete them.
    const QPointer<QTcpSocket> socket;
    const qint64 deadline;
    bool isAnswered{};
    bool isHandedOn{};
    bool isAccepted{};
};

Gate::Gate(Site site, int mostConnections, Accepted accepted)
    : m_site(std::move(site))
    , m_mostConnections{mostConnections}
    , m_accepted{std::move(accepted)}
    , m_webSockets{QStringLiteral("inkboard-door"), QWebSocketServer::NonSecureMode}
{
    m_clock.start();
    // Where there are no more handles, it would never listen again.
    connect(this, &QTcpServer::acceptError, this, [this] { m_isPaused = true; });
    connect(&m_webSockets, &QWebSocketServer::newConnection, this, &Gate::accept);
}

Gate::~Gate() = default;

std::unique_ptr<QTcpSocket> Gate::makeSocket(qintptr handle)
{
    if (!m_tls) {
        auto socket = std::make_unique<QTcpSocket>();
        return socket->setSocketDescriptor(handle) ? std::move(socket) : nullptr;
    }
    auto socket = std::make_unique<QSslSocket>();
    if (!socket->setSocketDescriptor(handle))
        return nullptr;
    socket->setSslConfiguration(*m_tls);
    socket->startServerEncryption();
    return socket;
}

void Gate::incomingConnection(qintptr handle)
{
    if (visitors() + (m_others ? m_others() : 0) >= m_mostConnections) {
        ++m_sentAway;
        ::close(static_cast<int>(handle));
        return;
    }
    std::unique_ptr<QTcpSocket> socket = makeSocket(handle);
    if (!socket)
        return;
    socket->setReadBufferSize(kReadAhead);
    socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    socket->setSocketOption(QAbstractSocket::KeepAliveOption, 1);
    keepSystemShort(handle);
    const quint64 number = ++m_last;
    connect(socket.get(), &QTcpSocket::readyRead, this, [this, number] { read(number); });
    connect(
        socket.get(), &QTcpSocket::disconnected, this, [this, number] { m_visitors.erase(number); },
        Qt::QueuedConnection);
    m_visitors[number] = std::make_unique<Visitor>(std::move(socket), m_clock.elapsed() + kPatience);
}

// Looks at what has come without taking it: a WebSocket's handshake reads it once more.
void Gate::read(quint64 number)
{
    const auto found = m_visitors.find(number);
    if (found == m_visitors.end() || found->second->isAnswered || found->second->isHandedOn)
        return;
    Visitor &visitor = *found->second;
    RequestHead head;
    switch (readHead(visitor.socket->peek(kMostHeadBytes), head)) {
    case HeadState::Partial:
        return;
    case HeadState::Wrong:
        ++m_sentAway;
        return answer(visitor, {400, "this is no request that is answered here\n"}, false);
    case HeadState::Whole:
        break;
    }
    ++m_requests;
    if (head.asksForWebSocket && head.path == kSocketPath) {
        visitor.isHandedOn = true;
        visitor.socket->disconnect(this);
        m_webSockets.handleConnection(visitor.socket);
    } else {
        answer(visitor, m_site.answer(head), head.method == "HEAD");
    }
}

void Gate::answer(Visitor &visitor, const HttpAnswer &answer, bool isHeadAlone)
{
    visitor.isAnswered = true;
    visitor.socket->write(toBytes(answer, isHeadAlone));
    visitor.socket->disconnectFromHost();
}

void Gate::accept()
{
    while (std::unique_ptr<QWebSocket> socket{m_webSockets.nextPendingConnection()}) {
        for (auto visitor = m_visitors.begin(); visitor != m_visitors.end(); ++visitor) {
            const QPointer<QTcpSocket> &held = visitor->second->socket;
            if (visitor->second->isHandedOn && held && held->peerPort() == socket->peerPort() &&
                held->peerAddress() == socket->peerAddress()) {
                visitor->second->isAccepted = true;
                m_visitors.erase(visitor);
                break;
            }
        }
        m_accepted(std::move(socket));
    }
}

void Gate::tick()
{
    if (std::exchange(m_isPaused, false))
        resumeAccepting();
    const qint64 now = m_clock.elapsed();
    for (auto visitor = m_visitors.begin(); visitor != m_visitors.end();) {
        const bool isGone = !visitor->second->socket;
        const bool isLate = now > visitor->second->deadline;
        m_sentAway += isLate && !visitor->second->isAnswered ? 1 : 0;
        visitor = isGone || isLate ? m_visitors.erase(visitor) : std::next(visitor);
    }
}

} // namespace InkDoor
