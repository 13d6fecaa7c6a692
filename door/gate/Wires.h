#pragma once

#include "sharing/door/Door.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QObject>
#include <QtWebSockets/QWebSocketProtocol>

#include <map>
#include <memory>

class QWebSocket;

namespace InkDoor {

// The WebSockets of a door by their numbers. One that reads nothing for a while, or does not close when it was told to,
// is cut off.
class Wires : public QObject, public InkSharing::DoorWires
{
public:
    // Whom the connections speak to, by their numbers.
    struct Listener
    {
        std::function<void(int connection)> connected;
        std::function<void(int connection, const QByteArray &message)> received;
        std::function<void(int connection)> written;
        std::function<void(int connection)> disconnected;
    };

    explicit Wires(Listener listener);
    ~Wires() override;

    void add(std::unique_ptr<QWebSocket> socket);
    void tick();

    // Tells everybody that this door goes away (code 1001 of RFC 6455), and hears nothing more of them.
    void closeAll();

    // Ends all without a word. To be called before the gate goes: it is Qt's server of WebSockets that takes away what
    // lies below one.
    void clear();

    int count() const { return static_cast<int>(m_wires.size()); }
    qint64 unsentBytes() const;
    quint64 cutOff() const { return m_cutOff; }

    void send(int connection, const QByteArray &message) override;
    void close(int connection) override;
    qint64 unsent(int connection) const override;

private:
    struct Wire
    {
        std::unique_ptr<QWebSocket> socket;
        qint64 movedAt{}; // ms: when it last wrote something, or had nothing to write
        qint64 closeBy{}; // ms; 0 while it is open
        bool isKnown{};   // has sent a message
        bool isCutOff{};
    };

    void close(Wire &wire, QWebSocketProtocol::CloseCode code);
    void received(int connection, const QByteArray &message);
    void written(int connection);
    void disconnected(int connection);
    void cutOff(int connection);

    const Listener m_listener;
    std::map<int, Wire> m_wires;
    int m_last{};
    quint64 m_cutOff{};
    QElapsedTimer m_clock;
};

} // namespace InkDoor
