#pragma once

#include "door/http/Site.h"

#include <QtCore/QElapsedTimer>
#include <QtNetwork/QSslConfiguration>
#include <QtNetwork/QTcpServer>
#include <QtWebSockets/QWebSocketServer>

#include <functional>
#include <map>
#include <memory>
#include <optional>

namespace InkDoor {

class Visitor;

// One port for everybody: a request for a WebSocket is handed on, any other is answered. Who has not said within 5 s
// what he wants is sent away.
class Gate : public QTcpServer
{
public:
    // The path that WebSockets are asked for at.
    static const QByteArray kSocketPath;

    using Accepted = std::function<void(std::unique_ptr<QWebSocket>)>;
    Gate(Site site, int mostConnections, Accepted accepted);
    ~Gate() override;

    // All that comes from now on is spoken over TLS.
    void setTls(const QSslConfiguration &configuration) { m_tls = configuration; }

    // How many there are besides those who have not been accepted yet.
    void setOthers(std::function<int()> others) { m_others = std::move(others); }

    void tick();

    int visitors() const { return static_cast<int>(m_visitors.size()); }
    quint64 requests() const { return m_requests; }
    quint64 sentAway() const { return m_sentAway; } // at once, since there are too many, or for a wrong request

protected:
    void incomingConnection(qintptr handle) override;

private:
    std::unique_ptr<QTcpSocket> makeSocket(qintptr handle);
    void read(quint64 number);
    void answer(Visitor &visitor, const HttpAnswer &answer, bool isHeadAlone);
    void accept();

    const Site m_site;
    const int m_mostConnections;
    const Accepted m_accepted;
    std::function<int()> m_others;
    std::optional<QSslConfiguration> m_tls;
    QWebSocketServer m_webSockets;
    std::map<quint64, std::unique_ptr<Visitor>> m_visitors;
    quint64 m_last{};
    quint64 m_requests{};
    quint64 m_sentAway{};
    bool m_isPaused{};
    QElapsedTimer m_clock;
};

} // namespace InkDoor
