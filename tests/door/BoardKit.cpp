#include "BoardKit.h"

#include <QtNetwork/QTcpSocket>

namespace DoorTest {

using namespace InkSharing;
using InkLesson::Lesson;

namespace {

constexpr int kTick = 20;    // ms
constexpr int kBeginner = 1; // the author's number of who begins a lesson
constexpr int kTokenBytes = 16;

Client::Settings settingsOf(const QString &lesson, unsigned seed, Board::Role role)
{
    Random random{seed};
    QByteArray token;
    for (int i = 0; i < kTokenBytes; ++i)
        token += static_cast<char>(random.below(256));
    return {lesson, token, role == Board::Role::Begins ? std::vector<int>{kBeginner} : std::vector<int>{}};
}

} // namespace

Board::Board(const QUrl &door, const QString &lesson, unsigned seed, Role role)
    : m_door{door}
    , m_random(seed + 1000)
    , m_jitter(seed + 2000)
    , m_client{settingsOf(lesson, seed, role), *this, [this] { return static_cast<quint32>(m_jitter.below(1 << 30)); }}
{
    m_clock.start();
    if (role == Role::Begins) {
        m_lesson = std::make_unique<Lesson>(InkLesson::Header{RandomActs::kSize, 1});
        m_client.take(*m_lesson, Client::From::Here);
        startDrawing();
    }
    QObject::connect(&m_ticks, &QTimer::timeout, &m_ticks, [this] { m_client.tick(m_clock.elapsed()); });
    m_ticks.start(kTick);
}

Board::~Board()
{
    dropSocket();
}

void Board::startDrawing()
{
    m_author = std::make_unique<InkLesson::Author>(*m_lesson, m_client.author(), [this] { return m_clock.elapsed(); });
    m_acts = std::make_unique<RandomActs>(m_random, *m_lesson);
}

void Board::act()
{
    if (!m_acts)
        return;
    m_acts->actOnce(*m_author);
    m_client.done(m_clock.elapsed());
}

void Board::letGo()
{
    if (!m_author)
        return;
    m_author->finish();
    m_client.done(m_clock.elapsed());
}

std::vector<QImage> Board::pictures()
{
    std::vector<QImage> all;
    for (int i = 0; i < m_lesson->pageCount(); ++i)
        all.push_back(m_lesson->page(m_lesson->pageId(i)).surface());
    return all;
}

// What the socket tells comes later: nothing comes back into the client from inside its calls.
void Board::connectToDoor()
{
    dropSocket();
    m_socket = std::make_unique<QWebSocket>();
    QWebSocket *const socket = m_socket.get();
    const auto isThere = [this, socket] { return m_socket.get() == socket; };
    QObject::connect(
        socket, &QWebSocket::connected, &m_ticks,
        [this, isThere] {
            if (isThere())
                m_client.opened(m_clock.elapsed());
        },
        Qt::QueuedConnection);
    QObject::connect(
        socket, &QWebSocket::disconnected, &m_ticks,
        [this, isThere] {
            if (!isThere())
                return;
            dropSocket();
            m_client.closed(m_clock.elapsed());
        },
        Qt::QueuedConnection);
    QObject::connect(
        socket, &QWebSocket::binaryMessageReceived, &m_ticks,
        [this, isThere](const QByteArray &message) {
            if (!isThere())
                return;
            if (tap)
                tap(false, message);
            m_client.received(message, m_clock.elapsed());
        },
        Qt::QueuedConnection);
    socket->open(m_door);
}

void Board::dropSocket()
{
    if (!m_socket)
        return;
    m_socket->disconnect();
    m_socket->abort();
    m_socket.release()->deleteLater();
}

void Board::send(const QByteArray &message)
{
    if (tap)
        tap(true, message);
    if (m_socket)
        m_socket->sendBinaryMessage(message);
}

void Board::disconnectFromDoor()
{
    dropSocket();
}

Lesson &Board::begin(const InkLesson::Header &header)
{
    m_lesson = std::make_unique<Lesson>(header);
    QTimer::singleShot(0, &m_ticks, [this] { startDrawing(); });
    return *m_lesson;
}

void Board::lostStep(const Lesson::Refusal &)
{
    ++m_lostSteps;
}

void Board::heard(int, const QByteArray &) {}

Cable::Cable(const QUrl &door)
    : m_door{door}
{
    m_server.listen(QHostAddress::LocalHost);
    QObject::connect(&m_server, &QTcpServer::newConnection, [this] { accept(); });
}

QUrl Cable::address() const
{
    QUrl address = m_door;
    address.setPort(m_server.serverPort());
    return address;
}

void Cable::accept()
{
    while (QTcpSocket *const accepted = m_server.nextPendingConnection()) {
        accepted->setParent(nullptr);
        Link link{std::unique_ptr<QTcpSocket>{accepted}, std::make_unique<QTcpSocket>()};
        if (m_isPulled)
            continue;
        QTcpSocket *const near = link.near.get();
        QTcpSocket *const far = link.far.get();
        for (const auto &[from, to] : {std::make_pair(near, far), std::make_pair(far, near)}) {
            QObject::connect(from, &QTcpSocket::readyRead, to, [from = from, to = to] { to->write(from->readAll()); });
            QObject::connect(from, &QTcpSocket::disconnected, to, [to = to] { to->disconnectFromHost(); });
        }
        far->connectToHost(m_door.host(), static_cast<quint16>(m_door.port()));
        m_links.push_back(std::move(link));
    }
}

void Cable::pull()
{
    m_isPulled = true;
    for (const Link &link : m_links) {
        link.near->disconnect();
        link.far->disconnect();
        link.near->abort();
        link.far->abort();
    }
    m_links.clear();
}

} // namespace DoorTest
