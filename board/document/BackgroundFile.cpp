#include "board/document/BackgroundFile.h"

#include <QtCore/QFileInfo>
#include <QtCore/QThreadPool>

#include <unistd.h>

namespace Board {

void BackgroundFile::sync()
{
    const int handle = dup(this->handle()); // which lives as long as it takes
    if (handle < 0)
        return;
    const QString folder = std::exchange(m_isNamed, true) ? QString() : QFileInfo(path()).path();
    QThreadPool::globalInstance()->start([handle, folder] {
        InkLesson::syncHandle(handle);
        close(handle);
        if (!folder.isEmpty())
            InkLesson::syncFolder(folder);
    });
}

} // namespace Board
