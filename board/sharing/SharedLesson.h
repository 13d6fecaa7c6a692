#pragma once

#include "sharing/client/Client.h"
#include "sharing/live/LiveSender.h"
#include "sharing/live/Others.h"

#include "lesson/authoring/Author.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QObject>
#include <QtCore/QTimer>
#include <QtCore/QUrl>

#include <memory>

class QWebSocket;

namespace Board {

struct LessonLink;

// A lesson that is shared over a door: the connection, the person who draws here, and what the others do just now.
class SharedLesson : public QObject, private InkSharing::ClientHost
{
    Q_OBJECT

public:
    // Begins it with `begun`, or joins what somebody else has begun where that is null.
    SharedLesson(const LessonLink &link, const QString &name, std::unique_ptr<InkLesson::Lesson> begun);
    ~SharedLesson() override;

    // Null until it was joined.
    InkLesson::Lesson *lesson() { return m_lesson.get(); }
    InkLesson::Author *author() { return m_author.get(); }

    const InkSharing::Client &client() const { return m_client; }
    bool isOpen() const { return m_client.state() == InkSharing::Client::State::Open; }
    bool isGone() const { return m_client.state() == InkSharing::Client::State::Gone; }

signals:
    void joined();                                 // lesson() and author() are there
    void advanced();                               // time has gone on, and perhaps the lesson with it
    void settled(const InkLesson::StepId &record); // of another one, in the lesson now

private:
    void connectToDoor() override;
    void send(const QByteArray &message) override;
    void disconnectFromDoor() override;
    InkLesson::Lesson &begin(const InkLesson::Header &header) override;
    void lostStep(const InkLesson::Lesson::Refusal & /*refusal*/) override {}
    void heard(int author, const QByteArray &payload) override;

    void dropSocket();
    void follow();
    void take();
    void noted(const InkLesson::Lesson::LogChange &change);
    void tick();

    const QUrl m_door;
    const QString m_name;
    QElapsedTimer m_clock;
    std::unique_ptr<InkLesson::Lesson> m_lesson;
    InkSharing::Client m_client;
    std::unique_ptr<InkLesson::Author> m_author;
    std::unique_ptr<InkSharing::LiveSender> m_sender;
    std::unique_ptr<InkSharing::Others> m_others;
    std::unique_ptr<QWebSocket> m_socket;
    QTimer m_ticks;
};

} // namespace Board
