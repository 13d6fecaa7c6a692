#pragma once

#include "lesson/Export.h"

#include <QtCore/QLockFile>
#include <QtCore/QString>

#include <memory>

namespace InkLesson {

// Keeps the programs of one person from writing over each other's lessons: the file that is open here is claimed by a
// lock in a folder that they share, not beside the file, whose folder may be read-only.
class INKLESSON_EXPORT FileClaim
{
public:
    // Without a folder every file may be had.
    void setFolder(const QString &folder) { m_folder = folder; }

    // Whether no other program has it open.
    bool mayHave(const QString &fileName) const;

    // In the place of the file before.
    void take(const QString &fileName);
    void release();

private:
    QString lockName(const QString &fileName) const;

    QString m_folder;
    QString m_name; // of the lock
    std::unique_ptr<QLockFile> m_lock;
};

} // namespace InkLesson
