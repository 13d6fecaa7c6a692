#pragma once

#include "board/sharing/LessonLink.h"

#include "lesson/storage/Sharing.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QObject>
#include <QtCore/QPoint>
#include <QtCore/QTimer>
#include <QtGui/QColor>

#include <memory>
#include <optional>
#include <vector>

namespace InkLesson {
class Lesson;
}
namespace InkSharing {
class Others;
enum class Reason;
} // namespace InkSharing

namespace Board {

class Document;
class DoorProcess;
class LessonConnection;

// The document of a window as a shared lesson: begins that at a door of our own, joins what somebody else has begun,
// comes back to one after a crash, and ends it, after which the document is an ordinary lesson. Who draws waits for
// nothing of it.
class DocumentSharing : public QObject
{
    Q_OBJECT

public:
    // The document outlives this object.
    explicit DocumentSharing(Document &document);
    ~DocumentSharing() override;

    void setFolder(const QString &folder) { m_folder = folder; } // where engines of our own keep lessons
    void setPort(int port) { m_port = port; }                    // that is tried first, 0 for any

    // What others see of the person here.
    void setPerson(const QString &name, const QColor &color);
    void setPointer(const std::optional<QPoint> &pointer); // page pixels

    // Soon begun() or failed().
    void share();
    void join(const LessonLink &link);

    // The same for a lesson that was shared when the board ended by itself; the document has it again.
    void resume(const InkLesson::Sharing &sharing);

    // Lets go of a lesson that was not joined yet. Else the others are told what they have not got, for three seconds
    // at most; then ended(), and the door of our own hands out what it has, and ends.
    void end();

    enum class State {
        Off,
        Starting, // its door
        Joining,
        On,
        Ending
    };
    State state() const { return m_state; }
    bool isOwn() const { return m_isOwn; }                // it was begun here, and others lose it with this board
    bool isIdle() const { return m_state == State::Off; } // nothing is left to be handed out
    bool isKept() const { return m_isKept; }              // by an engine of our own; else by the door until that ends

    // Where this board has the lesson from: for itself alone where that is a door of our own.
    const LessonLink &link() const { return m_link; }
    int port() const;

    const InkSharing::Others *others() const; // null while it is not shared
    int people() const;                       // others who are there
    int unsent() const;                       // steps
    int placeOf(int author) const;            // among all who ever came, the same on every board; 0 if not known yet
    bool isConnected() const;

    // How it stands, for people.
    QString words() const;

signals:
    void progressed(const QString &words);
    void begun();                      // the document is shared
    void failed(const QString &words); // it was not, or is not any more
    void ended();
    void endedByOwner();                 // after ended(): whoever has begun the lesson has ended it for everybody
    void changed();                      // words(), or who is there
    void stepLost(const QString &words); // of the person here, that cannot count

private:
    void openDoor(int port);
    void doorReady(int port);
    void doorFailed(const QString &words);
    void waitForPort();
    void connectTo(const LessonLink &link, const InkLesson::Sharing &sharing);
    void begin();
    void advance();
    void leaveForGood(InkSharing::Reason reason);
    void finishJoining();
    void fail(const QString &words);
    void close();
    void endDoor();
    void forgetDoors();
    void look();
    void tellPresence();
    QString joiningWords() const;
    QString sharedWords() const;
    QString unsentWords() const;
    QString timeWords() const;

    Document &m_document;
    QString m_folder;
    int m_port{4640};
    QString m_name;
    QColor m_color;
    std::optional<QPoint> m_pointer;
    State m_state{State::Off};
    bool m_isOwn{};
    bool m_isKept{};
    LessonLink m_link{};
    InkLesson::Sharing m_sharing{};
    bool m_isBack{};                             // from its journal
    std::unique_ptr<InkLesson::Lesson> m_joined; // until all of it is there
    std::unique_ptr<LessonConnection> m_connection;
    std::unique_ptr<DoorProcess> m_door;
    std::vector<std::unique_ptr<DoorProcess>> m_endingDoors; // of lessons before
    int m_tries{};                                           // to start the door again
    QElapsedTimer m_since;                                   // when the connection, or the waiting for it, has begun
    bool m_wasConnected{};
    QElapsedTimer m_ending;
    QTimer m_looking;
    QString m_told;      // words() that were told of last
    int m_looksUnsent{}; // at which something was unsent, in succession
};

} // namespace Board
