#include "door/engine/FolderLock.h"

#include <QtCore/QFile>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace InkDoor {

FolderLock::FolderLock(const QString &folder)
    : m_handle{::open(QFile::encodeName(folder + QStringLiteral("/lock")).constData(),
                      O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR)}
{
}

FolderLock::~FolderLock()
{
    if (m_handle >= 0)
        ::close(m_handle);
}

bool FolderLock::take()
{
    return m_handle >= 0 && ::flock(m_handle, LOCK_EX | LOCK_NB) == 0;
}

void FolderLock::keepInChild() const
{
    ::fcntl(m_handle, F_SETFD, 0);
}

} // namespace InkDoor
