#pragma once

#include <QtCore/QLoggingCategory>

namespace InkInternal {

// Whether a line at debug level in the category "default" reaches anyone. qDebug() itself finds out only when the line
// has been put together.
inline bool writesDebugLines()
{
    const QLoggingCategory *category = QLoggingCategory::defaultCategory(); // null while the program ends
    return !category || category->isDebugEnabled();
}

} // namespace InkInternal
