#include "lesson/storage/SavedFile.h"

#include <QtCore/QDateTime>
#include <QtCore/QFileInfo>

namespace InkLesson {

SavedFile SavedFile::at(const QString &name)
{
    const QFileInfo file(name);
    return {name, file.lastModified().toMSecsSinceEpoch(), file.size()};
}

bool SavedFile::isTouched() const
{
    const SavedFile now = at(name);
    return QFileInfo::exists(name) && (now.time != time || now.bytes != bytes);
}

} // namespace InkLesson
