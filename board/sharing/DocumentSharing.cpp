#include "board/sharing/DocumentSharing.h"

#include "board/document/Document.h"
#include "board/sharing/DoorProcess.h"
#include "board/sharing/LessonConnection.h"

#include "lesson/fold/Lesson.h"

#include <QtCore/QDir>

#include <algorithm>
#include <utility>

namespace Board {

using namespace InkSharing;
using InkLesson::Sharing;

namespace {

constexpr int kLook = 250;              // milliseconds
constexpr qint64 kHandingOut = 3000;    // milliseconds
constexpr qint64 kPortPatience = 12000; // milliseconds, until the door before has ended
constexpr int kMostTries = 5;
constexpr int kPause = 1000;      // milliseconds before a door is started again
constexpr qint64 kShortly = 3000; // milliseconds in which a door should have answered
constexpr int kLooksUnsent = 4;   // in succession: what takes longer than a moment is told

LessonLink linkHere(int port, const QString &lesson)
{
    return {QUrl(QStringLiteral("http://127.0.0.1:%1/").arg(port)), lesson};
}

// Why a door lets nobody in.
QString goneWords(Reason reason)
{
    switch (reason) {
    case Reason::OtherProtocol:
        return DocumentSharing::tr("The door and this board are of different versions.");
    case Reason::OthersLesson:
        return DocumentSharing::tr("Somebody else has begun a lesson of this name.");
    case Reason::Elsewhere:
        return DocumentSharing::tr("This lesson is open in another window of the board.");
    case Reason::Ended:
        return DocumentSharing::tr("The lesson has been ended.");
    default:
        return DocumentSharing::tr("The door does not let this board in (%1).").arg(int(reason));
    }
}

} // namespace

DocumentSharing::DocumentSharing(Document &document)
    : m_document(document)
{
    m_looking.setInterval(kLook);
    connect(&m_looking, &QTimer::timeout, this, &DocumentSharing::look);
    connect(&document, &Document::stepDone, this, [this] {
        if (m_connection && !m_joined)
            m_connection->done();
    });
    connect(&document, &Document::currentChanged, this, &DocumentSharing::tellPresence);
    connect(&document, &Document::leaving, this, [this] {
        if (m_state != State::Off && m_state != State::Joining)
            close();
    });
}

// Doors end first, which may take until they have handed out what they have. A lesson that was not ended goes on with
// the next board that has it.
DocumentSharing::~DocumentSharing()
{
    disconnect(&m_document, nullptr, this, nullptr);
}

void DocumentSharing::setPerson(const QString &name, const QColor &color)
{
    m_name = name;
    m_color = color;
    tellPresence();
}

void DocumentSharing::setPointer(const std::optional<QPoint> &pointer)
{
    if (m_pointer == pointer)
        return;
    m_pointer = pointer;
    tellPresence();
}

void DocumentSharing::tellPresence()
{
    if (!m_connection)
        return;
    Presence presence;
    presence.name = m_name.left(kMostName);
    presence.color = m_color;
    presence.page = m_document.author().page();
    presence.pointer = m_pointer;
    m_connection->setPresence(presence);
}

void DocumentSharing::share()
{
    if (m_state != State::Off)
        return;
    m_state = State::Starting;
    m_isOwn = true;
    m_isBack = false;
    m_link = LessonLink::fresh(linkHere(m_port, {}).door);
    m_since.start();
    emit progressed(tr("The lesson is being made ready for others …"));
    if (m_endingDoors.empty())
        openDoor(DoorProcess::freePort(m_port));
    else
        waitForPort(); // so that the address stays
}

void DocumentSharing::resume(const Sharing &sharing)
{
    const auto link = LessonLink::fromText(sharing.address);
    if (m_state != State::Off || !link || sharing.token.isEmpty() || sharing.authors.empty())
        return;
    m_link = *link;
    m_sharing = sharing;
    m_isBack = true;
    m_isOwn = isBegunHere(sharing);
    if (m_isOwn) {
        m_state = State::Starting;
        m_since.start();
        emit progressed(tr("The lesson is being made ready for others …"));
        waitForPort();
    } else {
        connectTo(*link, sharing);
        begin();
    }
}

// The others come again to where the lesson was. The door before may still be handing out what it has.
void DocumentSharing::waitForPort()
{
    if (m_state != State::Starting)
        return;
    const int port = this->port();
    const int free = DoorProcess::freePort(port);
    if (free == port || port == 0 || m_since.elapsed() >= kPortPatience)
        openDoor(free);
    else
        QTimer::singleShot(kLook, this, &DocumentSharing::waitForPort);
}

void DocumentSharing::openDoor(int port)
{
    m_isKept = DoorProcess::hasEngine();
    m_door = std::make_unique<DoorProcess>();
    connect(m_door.get(), &DoorProcess::ready, this, [this](const QUrl &address) { doorReady(address.port()); });
    connect(m_door.get(), &DoorProcess::failed, this, &DocumentSharing::doorFailed, Qt::QueuedConnection);
    m_door->start(port, QDir(m_folder).filePath(QStringLiteral("shared/") + m_link.lesson));
}

void DocumentSharing::doorReady(int port)
{
    m_tries = 0;
    if (m_state != State::Starting)
        return; // it was started again
    m_link = linkHere(port, m_link.lesson);
    if (m_isBack)
        m_sharing.address = m_link.text();
    else
        m_sharing = freshSharing(m_link, m_document.authors());
    connectTo(m_link, m_sharing);
    begin();
}

// Others go on with what they have; so does the person here.
void DocumentSharing::doorFailed(const QString &words)
{
    if (!m_door)
        return;
    const int port = this->port();
    if (m_state == State::Starting)
        return fail(words);
    m_door.reset();
    if (m_state != State::On)
        return;
    if (++m_tries > kMostTries)
        return fail(words);
    QTimer::singleShot(kPause, this, [this, port] {
        if (m_state == State::On && !m_door)
            openDoor(port);
    });
}

int DocumentSharing::port() const
{
    return m_link.door.port(m_port);
}

void DocumentSharing::connectTo(const LessonLink &link, const Sharing &sharing)
{
    m_connection = std::make_unique<LessonConnection>(link, sharing,
                                                      [this](const InkLesson::Header &header) -> InkLesson::Lesson & {
                                                          m_joined = std::make_unique<InkLesson::Lesson>(header);
                                                          return *m_joined;
                                                      });
    connect(m_connection.get(), &LessonConnection::advanced, this, &DocumentSharing::advance, Qt::QueuedConnection);
    connect(m_connection.get(), &LessonConnection::othersChanged, this, &DocumentSharing::changed);
    connect(m_connection.get(), &LessonConnection::stepLost, this, &DocumentSharing::stepLost);
    m_since.start();
    m_wasConnected = false;
    m_told.clear();
    m_looking.start();
    tellPresence();
}

// The document has the lesson.
void DocumentSharing::begin()
{
    m_document.share(m_sharing);
    m_connection->take(m_document.lesson(), m_isBack ? Client::From::Journal : Client::From::Here);
    m_connection->setAuthor(m_document.author());
    tellPresence();
    m_state = State::On;
    emit begun();
    emit changed();
}

void DocumentSharing::join(const LessonLink &link)
{
    if (m_state != State::Off)
        return;
    m_state = State::Joining;
    m_isOwn = false;
    m_link = link;
    m_sharing = freshSharing(link);
    connectTo(link, m_sharing);
    emit progressed(joiningWords());
}

void DocumentSharing::advance()
{
    if (!m_connection)
        return;
    const bool isConnected = m_connection->isOpen();
    if (isConnected != std::exchange(m_wasConnected, isConnected))
        m_since.start();
    if (m_connection->isGone())
        leaveForGood(m_connection->client().reason());
    else if (m_state == State::Joining && isConnected && m_joined)
        finishJoining();
    else if (m_state == State::Ending && (!isConnected || unsent() == 0 || m_ending.elapsed() >= kHandingOut))
        close();
}

// Who has the lesson already keeps it as it is here, with what was not sent any more.
void DocumentSharing::leaveForGood(Reason reason)
{
    const State state = m_state;
    if (reason != Reason::Ended || state == State::Joining)
        return fail(goneWords(reason));
    close();
    if (state == State::On)
        emit endedByOwner();
}

void DocumentSharing::finishJoining()
{
    m_document.join(std::move(m_joined), m_sharing);
    m_connection->setAuthor(m_document.author());
    m_state = State::On;
    tellPresence();
    emit begun();
    emit changed();
}

void DocumentSharing::end()
{
    if (m_state == State::On && isConnected() && unsent() > 0) {
        m_state = State::Ending;
        m_ending.start();
        return;
    }
    if (m_state != State::Off && m_state != State::Ending)
        close();
}

void DocumentSharing::fail(const QString &words)
{
    close();
    emit failed(words);
}

// Ends everything; the lesson stays.
void DocumentSharing::close()
{
    m_looking.stop();
    m_connection.reset();
    m_joined.reset();
    m_state = State::Off;
    m_document.endSharing();
    endDoor();
    emit ended();
    emit changed();
}

// It takes its time.
void DocumentSharing::endDoor()
{
    if (!m_door)
        return;
    m_door->disconnect(this);
    m_door->end();
    m_endingDoors.push_back(std::move(m_door));
    connect(m_endingDoors.back().get(), &DoorProcess::failed, this, &DocumentSharing::forgetDoors,
            Qt::QueuedConnection);
}

void DocumentSharing::forgetDoors()
{
    m_endingDoors.erase(
        std::remove_if(m_endingDoors.begin(), m_endingDoors.end(), [](const auto &door) { return !door->isRunning(); }),
        m_endingDoors.end());
}

const Others *DocumentSharing::others() const
{
    return m_connection ? m_connection->others() : nullptr;
}

int DocumentSharing::people() const
{
    return others() ? int(others()->all().size()) : 0;
}

int DocumentSharing::unsent() const
{
    return m_connection ? int(m_connection->client().pending()) : 0;
}

int DocumentSharing::placeOf(int author) const
{
    return m_connection ? m_connection->client().placeOf(author) : 0;
}

bool DocumentSharing::isConnected() const
{
    return m_connection && m_connection->isOpen();
}

// What has changed is told, be it that time has gone on.
void DocumentSharing::look()
{
    m_looksUnsent = unsent() > 0 ? m_looksUnsent + 1 : 0;
    const QString words = this->words();
    if (std::exchange(m_told, words) != words)
        emit changed();
    if (m_state == State::Joining)
        emit progressed(words);
}

QString DocumentSharing::words() const
{
    switch (m_state) {
    case State::Off:
        break;
    case State::Starting:
        return tr("The lesson is being made ready for others …");
    case State::Joining:
        return joiningWords();
    case State::On:
        return isConnected() ? sharedWords() : tr("Reconnecting since %1").arg(timeWords()) + unsentWords();
    case State::Ending:
        return tr("The others are being sent what they have not got yet …");
    }
    return {};
}

QString DocumentSharing::joiningWords() const
{
    if (m_connection->client().reason() == Reason::NoLesson)
        return tr("This lesson is not there just now. It is asked for again and again.");
    if (m_since.elapsed() < kShortly)
        return tr("The lesson is being joined …");
    return tr("%1 has not answered for %2. It is tried again and again.\n"
              "Are both machines in the same network? If they are, ask for a new link.")
        .arg(m_link.door.authority(), timeWords());
}

QString DocumentSharing::sharedWords() const
{
    const QString words = people() == 0 ? tr("Shared, nobody else is here") : tr("Shared with %1").arg(people());
    return m_looksUnsent >= kLooksUnsent ? words + unsentWords() : words;
}

QString DocumentSharing::unsentWords() const
{
    if (unsent() == 0)
        return {};
    return unsent() == 1 ? tr(", 1 step not yet sent") : tr(", %1 steps not yet sent").arg(unsent());
}

QString DocumentSharing::timeWords() const
{
    constexpr qint64 kSecond = 1000, kMinute = 60 * kSecond;
    const qint64 time = m_since.elapsed();
    return time < 2 * kMinute ? tr("%1 s").arg(time / kSecond) : tr("%1 min").arg(time / kMinute);
}

} // namespace Board
