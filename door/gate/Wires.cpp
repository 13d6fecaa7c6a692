#include "door/gate/Wires.h"

#include "sharing/wire/Message.h"

#include <QtCore/QTimer>
#include <QtWebSockets/QWebSocket>

namespace InkDoor {

namespace {

constexpr qint64 kLongestStandstill = 10'000;    // ms with something to be written
constexpr qint64 kLongestClosing = 5'000;        // ms
constexpr qint64 kMostUnsent = 16 << 20;         // bytes; the door sends far less ahead
constexpr quint64 kMostGreetingBytes = 16 << 10; // the first message, of whoever it is

// A whole frame has to fit into what is read ahead.
void setMostBytes(QWebSocket &socket, quint64 bytes)
{
    socket.setReadBufferSize(static_cast<qint64>(2 * bytes));
    socket.setMaxAllowedIncomingFrameSize(bytes);
    socket.setMaxAllowedIncomingMessageSize(bytes);
}

} // namespace

Wires::Wires(Listener listener)
    : m_listener{std::move(listener)}
{
    m_clock.start();
}

Wires::~Wires()
{
    clear();
}

void Wires::clear()
{
    for (const auto &[connection, wire] : m_wires) {
        wire.socket->disconnect(this);
        wire.socket->abort();
    }
    m_wires.clear();
}

void Wires::add(std::unique_ptr<QWebSocket> socket)
{
    const int connection = ++m_last;
    QWebSocket *const added = socket.get();
    added->setParent(nullptr);
    setMostBytes(*added, kMostGreetingBytes);
    m_wires[connection] = {std::move(socket), m_clock.elapsed(), 0, false, false};
    connect(added, &QWebSocket::binaryMessageReceived, this,
            [this, connection](const QByteArray &message) { received(connection, message); });
    connect(added, &QWebSocket::textMessageReceived, this, [this, connection] { cutOff(connection); });
    // Later, since it may come of what the door does.
    connect(
        added, &QWebSocket::bytesWritten, this, [this, connection] { written(connection); }, Qt::QueuedConnection);
    connect(
        added, &QWebSocket::disconnected, this, [this, connection] { disconnected(connection); }, Qt::QueuedConnection);
    m_listener.connected(connection);
}

void Wires::received(int connection, const QByteArray &message)
{
    const auto wire = m_wires.find(connection);
    if (wire == m_wires.end() || wire->second.closeBy != 0 || wire->second.isCutOff)
        return;
    if (!std::exchange(wire->second.isKnown, true))
        setMostBytes(*wire->second.socket, InkSharing::kMostMessageBytes);
    m_listener.received(connection, message);
}

void Wires::written(int connection)
{
    const auto wire = m_wires.find(connection);
    if (wire == m_wires.end())
        return;
    wire->second.movedAt = m_clock.elapsed();
    if (wire->second.closeBy == 0)
        m_listener.written(connection);
}

void Wires::disconnected(int connection)
{
    const auto wire = m_wires.find(connection);
    if (wire == m_wires.end())
        return;
    wire->second.socket->disconnect(this);
    wire->second.socket.release()->deleteLater();
    m_wires.erase(wire);
    m_listener.disconnected(connection);
}

void Wires::send(int connection, const QByteArray &message)
{
    const auto wire = m_wires.find(connection);
    if (wire == m_wires.end() || wire->second.closeBy != 0 || wire->second.isCutOff)
        return;
    if (wire->second.socket->bytesToWrite() == 0)
        wire->second.movedAt = m_clock.elapsed();
    if (wire->second.socket->bytesToWrite() + message.size() > kMostUnsent)
        return cutOff(connection);
    wire->second.socket->sendBinaryMessage(message);
}

void Wires::close(int connection)
{
    const auto wire = m_wires.find(connection);
    if (wire != m_wires.end())
        close(wire->second, QWebSocketProtocol::CloseCodeNormal);
}

void Wires::closeAll()
{
    for (auto &[connection, wire] : m_wires)
        close(wire, QWebSocketProtocol::CloseCodeGoingAway);
}

void Wires::close(Wire &wire, QWebSocketProtocol::CloseCode code)
{
    if (wire.closeBy != 0)
        return;
    wire.closeBy = m_clock.elapsed() + kLongestClosing;
    wire.socket->close(code);
}

qint64 Wires::unsent(int connection) const
{
    const auto wire = m_wires.find(connection);
    return wire == m_wires.end() ? 0 : wire->second.socket->bytesToWrite();
}

qint64 Wires::unsentBytes() const
{
    qint64 all = 0;
    for (const auto &[connection, wire] : m_wires)
        all += wire.socket->bytesToWrite();
    return all;
}

// Not from inside a call of the door: its end comes as that of any other.
void Wires::cutOff(int connection)
{
    Wire &wire = m_wires.at(connection);
    if (std::exchange(wire.isCutOff, true))
        return;
    ++m_cutOff;
    QTimer::singleShot(0, wire.socket.get(), &QWebSocket::abort);
}

void Wires::tick()
{
    const qint64 now = m_clock.elapsed();
    for (auto &[connection, wire] : m_wires) {
        const bool isStuck = wire.socket->bytesToWrite() > 0 && now - wire.movedAt > kLongestStandstill;
        if (isStuck || (wire.closeBy != 0 && now > wire.closeBy))
            cutOff(connection);
    }
}

} // namespace InkDoor
