#pragma once

#include "lesson/Export.h"
#include "lesson/log/Record.h"

#include <QtCore/QCborMap>
#include <QtCore/QJsonObject>

namespace InkLesson {

constexpr int kMostLineBytes = 64 << 20; // of a record in a file, with the end of its line

// A record as a map, which CBOR and JSON write alike but for the bytes of pictures: {"author": 1, "number": 7, "time":
// ..., "do": "draw", "life": {...}}. What has its usual value is left out: "step" where the record is the first of its
// step, "page" where it is the first of the lesson. Pictures are PNG files, in JSON as base64 text.
INKLESSON_EXPORT QCborMap toMap(const Record &record);

INKLESSON_EXPORT QByteArray toCbor(const Record &record);
INKLESSON_EXPORT QByteArray toJson(const Record &record); // one line, without its end

// What toCbor() has written, as toJson() writes it.
INKLESSON_EXPORT QByteArray jsonLine(const QByteArray &cbor);

// A picture as the bytes of a PNG file, and back; both bit for bit.
INKLESSON_EXPORT QByteArray pngOf(const QImage &picture);

} // namespace InkLesson
