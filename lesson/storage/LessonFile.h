#pragma once

#include "lesson/Export.h"
#include "lesson/fold/Lesson.h"

#include <QtCore/QString>

#include <functional>
#include <memory>

class QIODevice;

namespace InkLesson {

// Writes a lesson, whole or not at all: a file of that name stays as it was when the writing fails, and what is written
// is on the disk, if its file system knows how to tell. Returns what went wrong, empty when nothing did.
INKLESSON_EXPORT QString saveLesson(const Lesson &lesson, const QString &fileName);

// Reads a lesson up to the first line that is wrong or was cut off; `problem` then names file and line. Null where none
// of it can be read. The file is not touched. `tell` hears after each record how much of the file was read, up to 1.
INKLESSON_EXPORT std::unique_ptr<Lesson> openLesson(const QString &fileName, QString &problem,
                                                    const std::function<void(double share)> &tell = {});

// The same from a device that is open; `problem` names the line alone.
INKLESSON_EXPORT std::unique_ptr<Lesson> openLesson(QIODevice &device, QString &problem,
                                                    const std::function<void(double share)> &tell = {});

} // namespace InkLesson
