#pragma once

#include "lesson/Export.h"

#include <QtCore/QFile>
#include <QtCore/QString>

namespace InkLesson {

// A file that grows at its end. What was appended outlives the program at once, and the machine once it was synced.
class INKLESSON_EXPORT DurableFile
{
public:
    virtual ~DurableFile() = default;

    // Makes the file, which is not there yet.
    virtual bool create(const QString &path) = 0;

    // False, and the file is as before, where not all can be written.
    virtual bool append(const QByteArray &bytes) = 0;

    // Takes everything out of it again.
    virtual bool clear() = 0;

    // Brings all that was appended, and the name in its folder, onto the disk, soon if not at once: nobody waits for
    // it.
    virtual void sync() = 0;

    virtual void remove() = 0;
    virtual QString error() const = 0;
};

// On the disk of this machine; sync() waits for that.
class INKLESSON_EXPORT DiskFile : public DurableFile
{
public:
    bool create(const QString &path) override;
    bool append(const QByteArray &bytes) override;
    bool clear() override;
    void sync() override;
    void remove() override;
    QString error() const override { return m_file.errorString(); }

protected:
    int handle() const { return m_file.handle(); }
    QString path() const { return m_file.fileName(); }

private:
    QFile m_file;
    qint64 m_size{}; // of what is whole
    bool m_isNamed{};
};

// Brings a file, or what a folder holds, onto the disk, where its file system knows how to. False where that fails.
INKLESSON_EXPORT bool syncHandle(int handle);
INKLESSON_EXPORT bool syncFolder(const QString &path);

} // namespace InkLesson
