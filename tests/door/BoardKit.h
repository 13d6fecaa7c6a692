#pragma once

#include "RandomActs.h"

#include "lesson/authoring/Author.h"
#include "sharing/client/Client.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QTimer>
#include <QtNetwork/QTcpServer>
#include <QtWebSockets/QWebSocket>

#include <memory>
#include <optional>
#include <vector>

namespace DoorTest {

// A board without a window: a lesson, one who draws on it by chance, and a real connection to a door.
class Board : private InkSharing::ClientHost
{
public:
    enum class Role { Begins, Joins };

    // Drawing and tokens follow from the seed alone.
    Board(const QUrl &door, const QString &lesson, unsigned seed, Role role);
    ~Board() override;

    void act(); // once, as soon as there is a lesson
    void letGo();

    bool isOpen() const { return m_client.state() == InkSharing::Client::State::Open; }
    bool isQuiet() const { return isOpen() && m_client.pending() == 0; }
    const InkSharing::Client &client() const { return m_client; }
    InkLesson::Lesson &lesson() { return *m_lesson; }
    int lostSteps() const { return m_lostSteps; }
    std::vector<QImage> pictures(); // of all pages

    // Hears every message that goes over the wire; may be none.
    std::function<void(bool isToDoor, const QByteArray &message)> tap;

private:
    void connectToDoor() override;
    void send(const QByteArray &message) override;
    void disconnectFromDoor() override;
    InkLesson::Lesson &begin(const InkLesson::Header &header) override;
    void lostStep(const InkLesson::Lesson::Refusal &refusal) override;
    void heard(int author, const QByteArray &payload) override;

    void dropSocket();
    void startDrawing();

    const QUrl m_door;
    Random m_random;
    Random m_jitter;
    QElapsedTimer m_clock;
    std::unique_ptr<InkLesson::Lesson> m_lesson;
    InkSharing::Client m_client;
    std::unique_ptr<InkLesson::Author> m_author;
    std::unique_ptr<RandomActs> m_acts;
    std::unique_ptr<QWebSocket> m_socket;
    QTimer m_ticks;
    int m_lostSteps{};
};

// A cable between boards and a door, which can be pulled.
class Cable
{
public:
    explicit Cable(const QUrl &door);

    QUrl address() const; // to be used instead of the door's
    void pull();
    void plugIn() { m_isPulled = false; }

private:
    struct Link
    {
        std::unique_ptr<QTcpSocket> near, far;
    };
    void accept();

    const QUrl m_door;
    QTcpServer m_server;
    std::vector<Link> m_links;
    bool m_isPulled{};
};

} // namespace DoorTest
