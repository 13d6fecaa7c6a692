#pragma once

#include "lesson/Export.h"

#include <QtCore/QString>

class QImage;

namespace InkLesson {

// Writes a PNG file, whole or not at all: a file of that name is kept when the writing fails. Returns what went
// wrong, empty when nothing did.
INKLESSON_EXPORT QString savePng(const QImage &picture, const QString &fileName);

} // namespace InkLesson
