#include "lesson/strokes/StrokeFile.h"

#include "lesson/strokes/StrokeReader.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>

namespace InkLesson {

namespace {

constexpr int kChunk = 1024 * 1024;
constexpr int kMaxBytes = 256 * kChunk;

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(InkLesson::StrokeFile)
};

// Piece by piece, since a pipe or a device does not say how long it is. Returns what went wrong.
QString readBytes(const QString &fileName, QByteArray &bytes)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return Texts::tr("cannot be read: %1").arg(file.errorString());
    for (QByteArray chunk = file.read(kChunk); !chunk.isEmpty(); chunk = file.read(kChunk)) {
        if (bytes.size() + chunk.size() > kMaxBytes)
            return Texts::tr("larger than 256 MiB");
        bytes += chunk;
    }
    return file.error() == QFile::NoError ? QString() : Texts::tr("cannot be read: %1").arg(file.errorString());
}

} // namespace

std::optional<StrokeFile> readStrokeFile(const QString &fileName, QString &error)
{
    QByteArray bytes;
    StrokeFile file;
    QString problem = readBytes(fileName, bytes);
    if (problem.isEmpty()) {
        StrokeReader reader;
        if (reader.read(bytes, file))
            return file;
        problem = reader.error();
    }
    error = QStringLiteral("%1: %2").arg(fileName, problem);
    return std::nullopt;
}

} // namespace InkLesson
