#pragma once

#include "sharing/client/Client.h"
#include "sharing/live/LiveSender.h"
#include "sharing/live/Others.h"

#include "lesson/storage/Sharing.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QObject>
#include <QtCore/QThreadPool>
#include <QtCore/QTimer>
#include <QtCore/QUrl>

#include <functional>
#include <memory>

class QWebSocket;

namespace Board {

struct LessonLink;

// Who this board is in a lesson that it begins, with a token that nobody can guess; the authors whose steps it has come
// along, the own one first. Without authors it joins what somebody else has begun.
InkLesson::Sharing freshSharing(const LessonLink &link, const std::vector<int> &authors = {});

// Whether it was begun by this board.
bool isBegunHere(const InkLesson::Sharing &sharing);

// Between a lesson and its door: brings every step to the others and theirs here, whatever becomes of the connection,
// and tells what is done just now. Nothing here waits.
class LessonConnection : public QObject, private InkSharing::ClientHost
{
    Q_OBJECT

public:
    // A lesson that is joined begins by a call of `begin`; what that returns outlives the connection.
    using Begin = std::function<InkLesson::Lesson &(const InkLesson::Header &header)>;
    LessonConnection(const LessonLink &link, const InkLesson::Sharing &sharing, Begin begin);
    ~LessonConnection() override;

    // The lesson is there already. Once, at the start. It outlives the connection.
    void take(InkLesson::Lesson &lesson, InkSharing::Client::From from);

    // Who draws here, once the lesson is there; outlives the connection, and calls done() after each step.
    void setAuthor(InkLesson::Author &author);
    void done();

    void setPresence(const InkSharing::Presence &presence);

    const InkSharing::Client &client() const { return m_client; }
    const InkSharing::Others *others() const { return m_others.get(); } // null without an author
    bool isOpen() const { return m_client.state() == InkSharing::Client::State::Open; }
    bool isGone() const { return m_client.state() == InkSharing::Client::State::Gone; }

signals:
    void advanced();                                   // time has gone on, and perhaps the lesson with it
    void othersChanged();                              // who is there, and where
    void shown(int author, const QByteArray &payload); // what another does just now
    void stepLost(const QString &words);               // a step of this board does not count

private:
    void connectToDoor() override;
    void send(const QByteArray &message) override;
    void disconnectFromDoor() override;
    InkLesson::Lesson &begin(const InkLesson::Header &header) override;
    void lostStep(const InkLesson::Lesson::Refusal &refusal) override;
    void heard(int author, const QByteArray &payload) override;
    bool readsBeside(const QByteArray &code) override;

    void dropSocket();
    void tick();

    const QUrl m_door;
    const Begin m_begin;
    QElapsedTimer m_clock;
    InkLesson::Lesson *m_lesson{};
    InkSharing::Client m_client;
    InkSharing::Presence m_presence;
    std::unique_ptr<InkSharing::LiveSender> m_sender;
    std::unique_ptr<InkSharing::Others> m_others;
    std::unique_ptr<QWebSocket> m_socket;
    QTimer m_ticks;
    QThreadPool m_reading; // of large records, one after the other
};

} // namespace Board
