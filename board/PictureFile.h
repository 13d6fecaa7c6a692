#pragma once

#include <QtCore/QString>
#include <QtGui/QImage>

#include <optional>

class QMimeData;

namespace Board {

// Writes a PNG file, whole or not at all: a file of that name is kept when the writing fails. Returns what went
// wrong, empty when nothing did.
QString savePng(const QImage &picture, const QString &fileName);

// Reads a picture of any kind, turned as its camera was held. On failure `error` names the file and says what is
// wrong, in one line.
std::optional<QImage> readPicture(const QString &fileName, QString &error);

// The picture, or the first of the files, that is pasted or dropped.
bool mayHoldPicture(const QMimeData &data);
std::optional<QImage> readPicture(const QMimeData &data, QString &error);

} // namespace Board
