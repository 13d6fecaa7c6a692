#include "board/sharing/SharedLesson.h"

#include "board/sharing/LessonLink.h"

#include <QtCore/QDateTime>
#include <QtCore/QRandomGenerator>
#include <QtWebSockets/QWebSocket>

#include <array>

namespace Board {

using namespace InkSharing;
using InkLesson::Lesson;

namespace {

constexpr int kTick = 20; // milliseconds
constexpr int kBeginner = 1;

QByteArray freshToken()
{
    std::array<quint32, 8> bits;
    QRandomGenerator::system()->fillRange(bits.data(), qsizetype(bits.size()));
    return {reinterpret_cast<const char *>(bits.data()), int(sizeof bits)};
}

} // namespace

SharedLesson::SharedLesson(const LessonLink &link, const QString &name, std::unique_ptr<Lesson> begun)
    : m_door(link.socket())
    , m_name(name)
    , m_lesson(std::move(begun))
    , m_client({link.lesson, freshToken(), m_lesson ? std::vector<int>{kBeginner} : std::vector<int>{}}, *this,
               [] { return QRandomGenerator::global()->generate(); })
{
    m_clock.start();
    if (m_lesson) {
        m_client.take(*m_lesson, Client::From::Here);
        follow();
        take();
    }
    m_ticks.setTimerType(Qt::PreciseTimer);
    connect(&m_ticks, &QTimer::timeout, this, &SharedLesson::tick);
    m_ticks.start(kTick);
}

SharedLesson::~SharedLesson()
{
    dropSocket();
    if (m_lesson)
        m_lesson->logChanged = {};
}

void SharedLesson::take()
{
    m_author = std::make_unique<InkLesson::Author>(
        *m_lesson, m_client.author(), [] { return QDateTime::currentMSecsSinceEpoch(); },
        [this](const InkLesson::Record &) { m_client.done(m_clock.elapsed()); });
    const auto sendLive = [this](const QByteArray &payload) { m_client.sendLive(payload, m_clock.elapsed()); };
    m_sender = std::make_unique<LiveSender>(*m_author, sendLive);
    Presence presence;
    presence.name = m_name.left(kMostName);
    m_sender->setPresence(presence);
    m_others = std::make_unique<Others>(*m_lesson, m_client.author(), sendLive);
}

void SharedLesson::follow()
{
    m_lesson->logChanged = [this](const Lesson::LogChange &change) { noted(change); };
}

void SharedLesson::noted(const Lesson::LogChange &change)
{
    using Kind = Lesson::LogChange::Kind;
    if (change.kind == Kind::CameBefore)
        emit settled(m_lesson->ids()[m_lesson->settled() - 1]);
}

void SharedLesson::tick()
{
    const qint64 now = m_clock.elapsed();
    m_client.tick(now);
    if (m_sender) {
        m_sender->tick(now);
        m_others->tick(now);
    }
    emit advanced();
}

// What the socket tells comes later: nothing comes back into the client from inside its calls.
void SharedLesson::connectToDoor()
{
    dropSocket();
    m_socket = std::make_unique<QWebSocket>();
    QWebSocket *const socket = m_socket.get();
    const auto later = [this, socket](auto signal, auto act) {
        const auto ifThere = [this, socket, act](const auto &...arguments) {
            if (m_socket.get() == socket)
                act(arguments...);
        };
        connect(socket, signal, this, ifThere, Qt::QueuedConnection);
    };
    later(&QWebSocket::connected, [this] { m_client.opened(m_clock.elapsed()); });
    later(&QWebSocket::disconnected, [this] {
        dropSocket();
        m_client.closed(m_clock.elapsed());
    });
    later(&QWebSocket::binaryMessageReceived,
          [this](const QByteArray &message) { m_client.received(message, m_clock.elapsed()); });
    socket->open(m_door);
}

void SharedLesson::dropSocket()
{
    if (!m_socket)
        return;
    m_socket->disconnect(this);
    m_socket->abort();
    m_socket.release()->deleteLater();
}

void SharedLesson::send(const QByteArray &message)
{
    if (m_socket)
        m_socket->sendBinaryMessage(message);
}

void SharedLesson::disconnectFromDoor()
{
    dropSocket();
}

// The client has the lesson once this returns.
Lesson &SharedLesson::begin(const InkLesson::Header &header)
{
    m_lesson = std::make_unique<Lesson>(header);
    follow();
    QTimer::singleShot(0, this, [this] {
        take();
        emit joined();
    });
    return *m_lesson;
}

void SharedLesson::heard(int author, const QByteArray &payload)
{
    if (m_others)
        m_others->heard(author, payload, m_clock.elapsed());
}

} // namespace Board
