#include "lesson/storage/DurableFile.h"

#include <QtCore/QFileInfo>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>
#endif

namespace InkLesson {

bool syncHandle(int handle)
{
#ifdef Q_OS_UNIX
    return fsync(handle) == 0 || errno == EINVAL || errno == ENOTSUP || errno == ENOSYS;
#else
    Q_UNUSED(handle)
    return false;
#endif
}

bool syncFolder(const QString &path)
{
#ifdef Q_OS_UNIX
    const int folder = open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0)
        return false;
    const bool isSynced = syncHandle(folder);
    close(folder);
    return isSynced;
#else
    Q_UNUSED(path)
    return false;
#endif
}

bool DiskFile::create(const QString &path)
{
    m_file.setFileName(path);
    m_size = 0;
    m_isNamed = false;
    return m_file.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered);
}

// What was written in part, on a full disk, is taken back.
bool DiskFile::append(const QByteArray &bytes)
{
    if (!m_file.isOpen())
        return false;
    if (m_file.seek(m_size) && m_file.write(bytes) == bytes.size()) {
        m_size += bytes.size();
        return true;
    }
    m_file.resize(m_size);
    return false;
}

bool DiskFile::clear()
{
    if (!m_file.isOpen() || !m_file.resize(0))
        return false;
    m_size = 0;
    return true;
}

void DiskFile::sync()
{
    if (!m_file.isOpen())
        return;
    syncHandle(m_file.handle());
    if (!m_isNamed)
        m_isNamed = syncFolder(QFileInfo(m_file).path());
}

void DiskFile::remove()
{
    if (m_file.isOpen())
        m_file.remove();
}

} // namespace InkLesson
