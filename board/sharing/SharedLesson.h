#pragma once

#include "board/sharing/LessonConnection.h"

#include "lesson/authoring/Author.h"

#include <memory>

namespace Board {

// A shared lesson without a window: the lesson, the person who draws here, and the connection.
class SharedLesson : public QObject
{
    Q_OBJECT

public:
    // Begins it with a lesson, comes back to one from a journal, or joins what somebody else has begun where that is
    // null.
    SharedLesson(const LessonLink &link, const InkLesson::Sharing &sharing, const QString &name,
                 std::unique_ptr<InkLesson::Lesson> lesson, InkSharing::Client::From from);
    ~SharedLesson() override;

    // Null until it was joined.
    InkLesson::Lesson *lesson() { return m_lesson.get(); }
    InkLesson::Author *author() { return m_author.get(); }

    void setPresence(const InkSharing::Presence &presence) { m_connection->setPresence(presence); }
    const InkSharing::Others *others() const { return m_connection->others(); } // null until it was joined

    const InkSharing::Client &client() const { return m_connection->client(); }
    bool isOpen() const { return m_connection->isOpen(); }
    bool isGone() const { return m_connection->isGone(); }

signals:
    void joined();                                            // lesson() and author() are there
    void advanced();                                          // time has gone on, and perhaps the lesson with it
    void changed(const InkLesson::Lesson::LogChange &change); // in the midst of the lesson's work
    void settled(const InkLesson::StepId &record);            // of another one, in the lesson now
    void shown(int author, const QByteArray &payload);        // what another one does just now

private:
    InkLesson::Lesson &begin(const InkLesson::Header &header);
    void take();
    void noted(const InkLesson::Lesson::LogChange &change);

    std::unique_ptr<InkLesson::Lesson> m_lesson;
    std::unique_ptr<InkLesson::Author> m_author;
    std::unique_ptr<LessonConnection> m_connection;
};

} // namespace Board
