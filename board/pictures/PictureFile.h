#pragma once

#include <QtCore/QString>
#include <QtGui/QImage>

#include <optional>

class QMimeData;

namespace Board {

// Reads a picture of any kind, turned as its camera was held. On failure `error` names the file and says what is
// wrong, in one line.
std::optional<QImage> readPicture(const QString &fileName, QString &error);

// The picture, or the first of the files, that is pasted or dropped.
bool mayHoldPicture(const QMimeData &data);
std::optional<QImage> readPicture(const QMimeData &data, QString &error);

// For the dialogs that ask for a picture: first the formats that can be read, then all files.
QString pictureFilters();

} // namespace Board
