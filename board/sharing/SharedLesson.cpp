#include "board/sharing/SharedLesson.h"

#include "board/sharing/LessonLink.h"

#include <QtCore/QDateTime>
#include <QtCore/QTimer>

namespace Board {

using namespace InkSharing;
using InkLesson::Lesson;

SharedLesson::SharedLesson(const LessonLink &link, const InkLesson::Sharing &sharing, const QString &name,
                           std::unique_ptr<Lesson> lesson, Client::From from)
    : m_lesson(std::move(lesson))
    , m_connection(std::make_unique<LessonConnection>(
          link, sharing, [this](const InkLesson::Header &header) -> Lesson & { return begin(header); }))
{
    Presence presence;
    presence.name = name.left(kMostName);
    m_connection->setPresence(presence);
    connect(m_connection.get(), &LessonConnection::advanced, this, &SharedLesson::advanced);
    connect(m_connection.get(), &LessonConnection::shown, this, &SharedLesson::shown);
    if (!m_lesson)
        return;
    m_connection->take(*m_lesson, from);
    take();
}

SharedLesson::~SharedLesson()
{
    if (m_lesson)
        m_lesson->logChanged = {};
}

void SharedLesson::take()
{
    m_lesson->logChanged = [this](const Lesson::LogChange &change) { noted(change); };
    m_author = std::make_unique<InkLesson::Author>(
        *m_lesson, client().author(), [] { return QDateTime::currentMSecsSinceEpoch(); },
        [this](const InkLesson::Record &) { m_connection->done(); });
    m_connection->setAuthor(*m_author);
}

void SharedLesson::noted(const Lesson::LogChange &change)
{
    using Kind = Lesson::LogChange::Kind;
    emit changed(change);
    if (change.kind == Kind::CameBefore)
        emit settled(m_lesson->ids()[m_lesson->settled() - 1]);
}

// The client has the lesson once this returns.
Lesson &SharedLesson::begin(const InkLesson::Header &header)
{
    m_lesson = std::make_unique<Lesson>(header);
    m_lesson->logChanged = [this](const Lesson::LogChange &change) { noted(change); };
    QTimer::singleShot(0, this, [this] {
        take();
        emit joined();
    });
    return *m_lesson;
}

} // namespace Board
