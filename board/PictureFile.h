#pragma once

#include <QtCore/QString>

class QImage;

namespace Board {

// Writes a PNG file, whole or not at all: a file of that name is kept when the writing fails. Returns what went
// wrong, empty when nothing did.
QString savePng(const QImage &picture, const QString &fileName);

} // namespace Board
