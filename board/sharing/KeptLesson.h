#pragma once

#include "board/sharing/SharedLesson.h"

#include "lesson/storage/Journal.h"

namespace Board {

// The journal of a board without a window, so that one that was killed comes back as the one it was, with all that it
// had not sent yet.
class KeptLesson : public QObject
{
    Q_OBJECT

public:
    explicit KeptLesson(const QString &folder);

    // What a board that has ended too early has left in the folder: of the lesson at that address, or of any that it
    // has begun itself where that is empty. Its lesson is null where there is none.
    struct Left
    {
        std::unique_ptr<InkLesson::Lesson> lesson{};
        InkLesson::Sharing sharing{};
        QString journal{};
    };
    static Left leftIn(const QString &folder, const QString &address);

    // Writes all that the lesson has, and from now on whatever comes into it, each time before it is sent. `before` is
    // a journal that is of no use any more then. Returns what went wrong, empty when nothing did.
    QString keep(SharedLesson &lesson, const InkLesson::Sharing &sharing, const QString &before);

    // The lesson was held to its end.
    void discard() { m_journal.discard(); }

private:
    const QString m_folder;
    InkLesson::Journal m_journal;
    QTimer m_syncing;
};

} // namespace Board
