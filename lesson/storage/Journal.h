#pragma once

#include "lesson/Export.h"
#include "lesson/fold/Lesson.h"
#include "lesson/storage/DurableFile.h"
#include "lesson/storage/SavedFile.h"
#include "lesson/storage/Sharing.h"

#include <QtCore/QLockFile>
#include <QtCore/QStringList>

#include <deque>
#include <memory>

namespace InkLesson {

// A second copy of the steps of a lesson that no file has yet, in a file of its own, so that they outlive the program
// and, but for the last second, the machine.
class INKLESSON_EXPORT Journal
{
public:
    explicit Journal(std::unique_ptr<DurableFile> file = std::make_unique<DiskFile>());
    ~Journal();

    // Keeps a journal of this name in `folder`, which is made if need be. False when that cannot be; `problem` says
    // why.
    bool keep(const QString &folder, const QString &name, QString &problem);
    bool isKept() const { return m_isKept; }
    QString fileName() const { return m_path; }
    QString error() const;

    // Writes what the lesson has that the journal has not. What cannot be written now is written with the next.
    // `saved` is the file that the lesson has; recovery finds it.
    bool follow(const Lesson &lesson, const SavedFile &saved);

    // The lesson is shared: all that it has is written, as it is settled or pending, and from then on what note() is
    // told, in place of its log. The journal is empty before. What cannot be written now is written by follow().
    bool share(const Lesson &lesson, const SavedFile &saved, const Sharing &sharing);
    void note(const Lesson::LogChange &change);

    // Whether something was written that sync() has not been called for. To be called within a second of that.
    bool isDue() const { return m_isDue; }
    void sync();

    // All that the lesson has now is safe in a file: the journal is empty until there is more, and then has all of it.
    // That of a shared lesson stays, since no file tells what is settled.
    void rest(const Lesson &lesson);

    // Another lesson is followed from now on, or one that is not shared any more.
    void begin();

    // What is in it is saved, or not wanted.
    void discard();

    // The journals in `folder` that hold a step and that no running program keeps, the newest first.
    static QStringList abandoned(const QString &folder);

    // The file that the lesson of a journal had, as it was then.
    static SavedFile savedFileOf(const QString &journal);

    // How the lesson of a journal was shared. Without a token where it was not.
    static Sharing sharingOf(const QString &journal);

private:
    bool write(const Lesson &lesson, const SavedFile &saved);
    bool writeLines();

    std::unique_ptr<DurableFile> m_file;
    std::unique_ptr<QLockFile> m_lock;
    QString m_path;
    bool m_isKept{};
    bool m_isDue{};
    bool m_isEmpty{true};
    bool m_isShared{};
    std::deque<QByteArray> m_lines{}; // of a shared lesson, that are not written yet
    std::size_t m_written{};          // records
    std::size_t m_resting{};          // records that are safe elsewhere
};

} // namespace InkLesson
