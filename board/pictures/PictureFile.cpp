#include "board/pictures/PictureFile.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QMimeData>
#include <QtCore/QStringList>
#include <QtCore/QUrl>
#include <QtGui/QImageReader>

namespace Board {

namespace {

constexpr qint64 kMaxPicturePixels = 256 * 1024 * 1024; // one gigabyte once it is read

QString translated(const char *text)
{
    return QCoreApplication::translate("Board::PictureFile", text);
}

QString localFile(const QMimeData &data)
{
    for (const QUrl &url : data.urls()) {
        if (url.isLocalFile())
            return url.toLocalFile();
    }
    return {};
}

} // namespace

std::optional<QImage> readPicture(const QString &fileName, QString &error)
{
    QImageReader reader(fileName);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    const bool fits = qint64(size.width()) * size.height() <= kMaxPicturePixels;
    const QImage picture = fits ? reader.read() : QImage();
    if (!picture.isNull())
        return picture;
    const QString reason =
        fits ? reader.errorString() : translated(QT_TRANSLATE_NOOP("Board::PictureFile", "it is too large"));
    error = translated(QT_TRANSLATE_NOOP("Board::PictureFile", "%1: cannot be shown: %2")).arg(fileName, reason);
    return {};
}

bool mayHoldPicture(const QMimeData &data)
{
    return data.hasImage() || !localFile(data).isEmpty();
}

// A file first: a file manager adds the small picture that it shows for the file.
std::optional<QImage> readPicture(const QMimeData &data, QString &error)
{
    const QString fileName = localFile(data);
    if (!fileName.isEmpty())
        return readPicture(fileName, error);
    const auto picture = qvariant_cast<QImage>(data.imageData());
    if (!picture.isNull())
        return picture;
    error = translated(QT_TRANSLATE_NOOP("Board::PictureFile", "there is no picture to paste"));
    return {};
}

QString pictureFilters()
{
    QStringList patterns;
    for (const QByteArray &format : QImageReader::supportedImageFormats())
        patterns.append(QStringLiteral("*.") + QString::fromLatin1(format));
    return translated(QT_TRANSLATE_NOOP("Board::PictureFile", "Pictures (%1)")).arg(patterns.join(QLatin1Char(' '))) +
           QStringLiteral(";;") + translated(QT_TRANSLATE_NOOP("Board::PictureFile", "All files (*)"));
}

} // namespace Board
