#pragma once

#include "lesson/Export.h"

#include <QtCore/QString>

namespace InkLesson {

// A file as it was when a lesson was saved there or opened from there last.
struct INKLESSON_EXPORT SavedFile
{
    QString name{}; // empty where there is none
    qint64 time{};  // of its last change, milliseconds since 1970
    qint64 bytes{};

    // As it is now.
    static SavedFile at(const QString &name);

    // Whether another program has changed it since. One that is gone is not changed.
    bool isTouched() const;
};

} // namespace InkLesson
