#include "Check.h"

#include "sharing/wire/Contents.h"
#include "sharing/wire/StreamReader.h"

#include "lesson/log/RecordReader.h"
#include "lesson/storage/LessonFile.h"

#include <QtCore/QBuffer>
#include <QtCore/QCborArray>
#include <QtCore/QCborMap>

#include <algorithm>

namespace Simulator {

using namespace InkLesson;

namespace {

QString pagesDiffer(const Lesson &lesson, const Lesson &plain)
{
    if (lesson.pageCount() != plain.pageCount())
        return QStringLiteral("%1 pages instead of %2").arg(lesson.pageCount()).arg(plain.pageCount());
    for (int i = 0; i < lesson.pageCount(); ++i) {
        const PageId id = plain.pageId(i);
        if (lesson.pageId(i) != id)
            return QStringLiteral("page %1 is another").arg(i);
        if (lesson.page(id).picture() != plain.page(id).picture() || lesson.page(id).ink() != plain.page(id).ink())
            return QStringLiteral("page %1 differs").arg(i);
    }
    return {};
}

// Of no author an undo has taken what another has done.
QString undoneByAnother(const Lesson &plain)
{
    for (std::size_t i = 0; i < plain.ids().size(); ++i) {
        const QCborMap map = QCborValue::fromCbor(plain.log()[i]).toMap();
        const qint64 author = map.value(QLatin1String("of")).toArray().at(0).toInteger();
        if (author != 0 && author != plain.ids()[i].author && plain.history().isUndo(plain.ids()[i]))
            return QStringLiteral("somebody has undone another's step");
    }
    return {};
}

QString journalDiffers(Board &board)
{
    QByteArray bytes = board.journal();
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QString problem;
    const auto opened = openLesson(buffer, problem);
    if (!opened || !problem.isEmpty())
        return QStringLiteral("the journal cannot be read: ") + problem;
    if (opened->log() != board.lesson()->log() || opened->settled() != board.lesson()->settled())
        return QStringLiteral("the journal opens to another lesson");
    return {};
}

} // namespace

std::unique_ptr<Lesson> replayed(const std::vector<QByteArray> &stream)
{
    InkSharing::StreamReader reader(InkSharing::StreamReader::Keep::Contents);
    std::unique_ptr<Lesson> lesson;
    for (const QByteArray &bytes : stream) {
        const auto entry = reader.take(bytes);
        if (!entry)
            continue;
        if (const auto *first = std::get_if<InkSharing::LessonEntry>(&*entry))
            lesson = std::make_unique<Lesson>(first->header);
        const auto *record = std::get_if<InkSharing::RecordEntry>(&*entry);
        if (!record)
            continue;
        const QByteArray code =
            InkSharing::attached(record->record, [&](const auto &hash) { return reader.content(hash); });
        RecordReader records;
        Record read;
        const Lesson::Batch batch(*lesson);
        if (records.readCbor(code, read))
            lesson->apply(read);
    }
    return lesson;
}

QString difference(Board &board, const Lesson &plain)
{
    Lesson *lesson = board.lesson();
    if (!lesson)
        return QStringLiteral("there is no lesson");
    if (lesson->settled() != lesson->log().size())
        return QStringLiteral("%1 steps are pending").arg(lesson->log().size() - lesson->settled());
    if (lesson->log() != plain.log())
        return QStringLiteral("the log is another: %1 and %2").arg(lesson->log().size()).arg(plain.log().size());
    const QString pages = pagesDiffer(*lesson, plain);
    if (!pages.isEmpty())
        return pages;
    for (const StepId &id : board.acknowledged()) {
        if (std::count(plain.ids().begin(), plain.ids().end(), id) != 1)
            return QStringLiteral("step %1.%2 was acknowledged and is not there once").arg(id.author).arg(id.number);
    }
    const QString undone = undoneByAnother(plain);
    if (!undone.isEmpty())
        return undone;
    return board.grievance().isEmpty() ? journalDiffers(board) : board.grievance();
}

Tally tallyOf(const std::vector<QByteArray> &stream)
{
    InkSharing::StreamReader reader;
    Tally tally;
    for (const QByteArray &bytes : stream) {
        const auto entry = reader.take(bytes);
        tally.withoutEffect += entry ? 0 : 1;
        const auto *piece = entry ? std::get_if<InkSharing::PieceEntry>(&*entry) : nullptr;
        tally.pieces += piece && piece->count > 1 ? 1 : 0;
    }
    return tally;
}

} // namespace Simulator
