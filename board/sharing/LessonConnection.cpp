#include "board/sharing/LessonConnection.h"

#include "board/sharing/LessonLink.h"

#include <QtCore/QRandomGenerator>
#include <QtWebSockets/QWebSocket>

#include <array>
#ifdef Q_OS_LINUX
#include <sys/resource.h>
#endif

namespace Board {

using namespace InkSharing;
using InkLesson::Lesson;
using InkLesson::Sharing;

namespace {

constexpr int kTick = 11;             // milliseconds: three of them for a frame
constexpr int kLargeRecord = 1 << 18; // bytes, which a slow machine reads in as long as a frame lasts

// So that ink is not held up where there are fewer processors than threads.
void makeThreadPatient()
{
#ifdef Q_OS_LINUX
    constexpr int kPatience = 4;
    setpriority(PRIO_PROCESS, 0, kPatience); // of this thread
#endif
}

QByteArray freshToken()
{
    std::array<quint32, 8> bits;
    QRandomGenerator::system()->fillRange(bits.data(), qsizetype(bits.size()));
    return {reinterpret_cast<const char *>(bits.data()), int(sizeof bits)};
}

// Who has joined brings nobody.
Client::Settings settingsOf(const LessonLink &link, const Sharing &sharing)
{
    return {link.lesson, sharing.token, isBegunHere(sharing) ? sharing.authors : std::vector<int>()};
}

} // namespace

Sharing freshSharing(const LessonLink &link, const std::vector<int> &authors)
{
    const QByteArray token = freshToken();
    return {authors.empty() ? std::vector<int>{authorOf(hashOf(token))} : authors, link.text(), token};
}

bool isBegunHere(const Sharing &sharing)
{
    return sharing.authors != std::vector<int>{authorOf(hashOf(sharing.token))};
}

LessonConnection::LessonConnection(const LessonLink &link, const Sharing &sharing, Begin begin)
    : m_door(link.socket())
    , m_begin(std::move(begin))
    , m_client(settingsOf(link, sharing), *this, [] { return QRandomGenerator::global()->generate(); })
{
    m_clock.start();
    m_ticks.setTimerType(Qt::PreciseTimer);
    connect(&m_ticks, &QTimer::timeout, this, &LessonConnection::tick);
    m_ticks.start(kTick);
    m_reading.setMaxThreadCount(1);
}

LessonConnection::~LessonConnection()
{
    dropSocket();
}

void LessonConnection::take(Lesson &lesson, Client::From from)
{
    m_lesson = &lesson;
    m_client.take(lesson, from);
}

void LessonConnection::setAuthor(InkLesson::Author &author)
{
    const auto sendLive = [this](const QByteArray &payload) { m_client.sendLive(payload, m_clock.elapsed()); };
    m_sender.reset(); // before the next one hears from the author
    m_sender = std::make_unique<LiveSender>(author, sendLive);
    m_sender->setPresence(m_presence);
    m_others = std::make_unique<Others>(*m_lesson, m_client.author(), sendLive);
    m_others->changed = [this] { emit othersChanged(); };
}

void LessonConnection::done()
{
    m_client.done(m_clock.elapsed());
}

void LessonConnection::setPresence(const Presence &presence)
{
    m_presence = presence;
    if (m_sender)
        m_sender->setPresence(presence);
}

void LessonConnection::tick()
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
void LessonConnection::connectToDoor()
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
    later(&QWebSocket::binaryMessageReceived, [this](const QByteArray &message) {
        m_client.received(message, m_clock.elapsed());
        if (m_others)
            m_others->tick(m_clock.elapsed()); // what has settled is painted once
    });
    socket->open(m_door);
}

void LessonConnection::dropSocket()
{
    if (!m_socket)
        return;
    m_socket->disconnect(this);
    m_socket->abort();
    m_socket.release()->deleteLater();
}

void LessonConnection::send(const QByteArray &message)
{
    if (m_socket)
        m_socket->sendBinaryMessage(message);
}

void LessonConnection::disconnectFromDoor()
{
    dropSocket();
}

Lesson &LessonConnection::begin(const InkLesson::Header &header)
{
    m_lesson = &m_begin(header);
    return *m_lesson;
}

void LessonConnection::lostStep(const Lesson::Refusal &refusal)
{
    emit stepLost(refusal.problem);
}

void LessonConnection::heard(int author, const QByteArray &payload)
{
    if (m_others && m_others->heard(author, payload, m_clock.elapsed()))
        m_sender->asked();
    emit shown(author, payload);
}

bool LessonConnection::readsBeside(const QByteArray &code)
{
    if (code.size() < kLargeRecord)
        return false;
    m_reading.start([this, code] {
        makeThreadPatient();
        auto arriving = std::make_shared<Lesson::Arriving>(Lesson::arriving(code));
        const auto tell = [this, code, arriving] { m_client.wasRead(code, std::move(*arriving), m_clock.elapsed()); };
        QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection);
    });
    return true;
}

} // namespace Board
