#include "lesson/storage/LessonFile.h"

#include "lesson/log/RecordCode.h"
#include "lesson/storage/DurableFile.h"
#include "lesson/storage/LogReader.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFileInfo>
#include <QtCore/QSaveFile>

namespace InkLesson {

namespace {

QString translated(const char *text)
{
    return QCoreApplication::translate("InkLesson::LessonFile", text);
}

} // namespace

QString saveLesson(const Lesson &lesson, const QString &fileName)
{
    QSaveFile file(fileName);
    bool isWritten = file.open(QIODevice::WriteOnly) && file.write(headerLine(lesson.header()) + '\n') > 0;
    for (std::size_t i = 0; isWritten && i < lesson.log().size(); ++i) {
        const QByteArray line = jsonLine(lesson.log()[i]) + '\n';
        isWritten = file.write(line) == line.size();
    }
    isWritten = isWritten && file.flush();
    const bool isSynced = isWritten && syncHandle(file.handle());
    const QString problem = isWritten && !isSynced ? qt_error_string() : QString();
    if (isSynced && file.commit()) {
        syncFolder(QFileInfo(fileName).path());
        return {};
    }
    return translated(QT_TRANSLATE_NOOP("InkLesson::LessonFile", "%1: cannot be written: %2"))
        .arg(fileName, problem.isEmpty() ? file.errorString() : problem);
}

std::unique_ptr<Lesson> openLesson(const QString &fileName, QString &problem,
                                   const std::function<void(double share)> &tell)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        problem = translated(QT_TRANSLATE_NOOP("InkLesson::LessonFile", "%1: cannot be read: %2"))
                      .arg(fileName, file.errorString());
        return nullptr;
    }
    const auto named = [&](const QString &what) {
        return what.isEmpty() ? QString() : QStringLiteral("%1: %2").arg(fileName, what);
    };
    LogReader reader(file);
    Header header;
    if (!reader.readHeader(header)) {
        problem = named(reader.error());
        return nullptr;
    }
    auto lesson = std::make_unique<Lesson>(header);
    const Lesson::Batch batch(*lesson);
    Record record;
    QString refusal;
    while (refusal.isEmpty() && reader.read(*lesson, record)) {
        refusal = lesson->apply(record);
        if (tell)
            tell(double(file.pos()) / double(file.size()));
    }
    problem = named(refusal.isEmpty() ? reader.error() : reader.named(refusal));
    return lesson;
}

} // namespace InkLesson
