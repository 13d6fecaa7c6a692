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

// Does what a line of a journal tells. Returns what is wrong with it.
QString repeat(const LogReader::Line &line, const LogReader &reader, Lesson &lesson)
{
    using Kind = Lesson::LogChange::Kind;
    switch (line.kind) {
    case Kind::Added:
        return lesson.apply(line.record);
    case Kind::CameBefore: {
        const QByteArray code = toCbor(line.record);
        for (const Lesson::Refusal &refusal : lesson.settle({code})) {
            if (refusal.id == line.record.id)
                return refusal.problem;
        }
        return {};
    }
    case Kind::Settled:
        return lesson.settleFirst(line.count)
                   ? QString()
                   : translated(QT_TRANSLATE_NOOP("InkLesson::LessonFile", "there are fewer steps"));
    case Kind::SetBack:
        lesson.setBack(line.count, [&](int author) { return reader.isMine(author); });
        return {};
    case Kind::Dropped:
        lesson.drop(line.record.id);
        return {};
    }
    return {};
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
    auto lesson = openLesson(file, problem, tell);
    if (!problem.isEmpty())
        problem = QStringLiteral("%1: %2").arg(fileName, problem);
    return lesson;
}

std::unique_ptr<Lesson> openLesson(QIODevice &device, QString &problem, const std::function<void(double share)> &tell)
{
    LogReader reader(device);
    Header header;
    if (!reader.readHeader(header)) {
        problem = reader.error();
        return nullptr;
    }
    auto lesson = std::make_unique<Lesson>(header);
    const Lesson::Batch batch(*lesson);
    LogReader::Line line;
    QString refusal;
    while (refusal.isEmpty() && reader.readLine(*lesson, line)) {
        refusal = repeat(line, reader, *lesson);
        if (tell)
            tell(double(device.pos()) / double(device.size()));
    }
    problem = refusal.isEmpty() ? reader.error() : reader.named(refusal);
    return lesson;
}

} // namespace InkLesson
