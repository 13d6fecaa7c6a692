#include "lesson/output/PngFile.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QSaveFile>
#include <QtGui/QImage>
#include <QtGui/QImageWriter>

namespace InkLesson {

QString savePng(const QImage &picture, const QString &fileName)
{
    const auto failed = [&](const QString &reason) {
        return QCoreApplication::translate("InkLesson::PngFile", "%1: cannot be written: %2").arg(fileName, reason);
    };
    QSaveFile file(fileName);
    if (!file.open(QIODevice::WriteOnly))
        return failed(file.errorString());
    QImageWriter writer(&file, "PNG");
    if (!writer.write(picture)) {
        file.cancelWriting();
        return failed(writer.errorString());
    }
    return file.commit() ? QString() : failed(file.errorString());
}

} // namespace InkLesson
