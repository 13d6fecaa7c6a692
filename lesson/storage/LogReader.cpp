#include "lesson/storage/LogReader.h"

#include "lesson/log/RecordReader.h"
#include "lesson/log/Words_p.h"
#include "lesson/paper/PageSize.h"

#include <QtCore/QCborArray>
#include <QtCore/QCborValue>
#include <QtCore/QIODevice>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

#include <algorithm>
#include <limits>

namespace InkLesson {

using namespace Words;

namespace {

constexpr int kOnlyAuthor = 1;  // of a lesson of version 1
constexpr int kPiece = 1 << 16; // bytes that room is made for at once: most lines are short
const QString kFormat = QStringLiteral("inkboard");
const QString kDensity = QStringLiteral("density");
const QString kShared = QStringLiteral("shared");
const QString kAuthors = QStringLiteral("authors");
const QString kAddress = QStringLiteral("address");
const QString kToken = QStringLiteral("token");
const QLatin1String kSettled("settled");
const QLatin1String kSetBack("set-back");
const QLatin1String kDropped("dropped");
using Kind = Lesson::LogChange::Kind;

QCborArray pair(const StepId &id)
{
    return {id.author, id.number};
}

// -1 for what is none.
qint64 whole(const QCborValue &value)
{
    return value.isInteger() ? value.toInteger() : -1;
}

} // namespace

QByteArray headerLine(const Header &header)
{
    QJsonObject line{{kFormat, LogReader::kVersion}, {kSize, QJsonArray{header.size.width(), header.size.height()}}};
    if (header.density != 1)
        line.insert(kDensity, header.density);
    return QJsonDocument(line).toJson(QJsonDocument::Compact);
}

LogReader::LogReader(QIODevice &device)
    : m_device(device)
    , m_piece(kPiece + 1, Qt::Uninitialized)
{
}

QString LogReader::named(const QString &what) const
{
    return tr("line %1: %2").arg(m_line).arg(what);
}

bool LogReader::fail(const QString &what)
{
    m_error = named(what);
    return false;
}

bool LogReader::readBytes(QByteArray &line)
{
    if (m_device.atEnd())
        return false;
    ++m_line;
    line.clear();
    while (!line.endsWith('\n') && line.size() < kMostBytes) {
        // One more than is read: Qt ends it with a null.
        const qint64 read = m_device.readLine(m_piece.data(), std::min(kPiece, kMostBytes - line.size()) + 1);
        if (read <= 0)
            break;
        line.append(m_piece.constData(), int(read));
    }
    if (line.endsWith('\n')) {
        line.chop(1);
        return true;
    }
    return fail(line.size() >= kMostBytes ? tr("it is longer than any board writes") : tr("it was cut off here"));
}

bool LogReader::readHeader(Header &header)
{
    QByteArray line;
    m_line = 1;
    if (m_device.atEnd())
        return fail(tr("this is not a lesson of this board"));
    m_line = 0;
    if (!readBytes(line))
        return false;
    const QJsonObject first = QJsonDocument::fromJson(line).object();
    if (!first.value(kFormat).isDouble())
        return fail(tr("this is not a lesson of this board"));
    const bool isShared = first.value(kFormat).toDouble() == kSharedVersion;
    m_sharing = isShared ? sharingOf(first) : Sharing();
    if (first.value(kFormat).toDouble() > kVersion && m_sharing.token.isEmpty())
        return fail(tr("the lesson was written by a later version of this board"));
    m_version = first.value(kFormat).toInt();
    if (m_version < 1)
        return fail(tr("this is not a lesson of this board"));
    const QJsonArray size = first.value(kSize).toArray();
    header.size = QSize(size.at(0).toInt(), size.at(1).toInt());
    header.density = first.contains(kDensity) ? first.value(kDensity).toDouble() : 1;
    const QString problem = pageSizeProblem(header.size);
    if (!problem.isEmpty())
        return fail(problem);
    return isDensity(header.density) || fail(tr("no density of a page"));
}

bool LogReader::read(const Lesson &lesson, Record &record)
{
    Line line;
    const bool isRead = readLine(lesson, line);
    record = std::move(line.record);
    return isRead;
}

bool LogReader::readLine(const Lesson &lesson, Line &line)
{
    QByteArray bytes;
    if (!readBytes(bytes))
        return false;
    QCborMap map;
    if (!RecordReader::parseJson(bytes, map))
        return fail(tr("nothing that can be read"));
    line = {};
    if (m_version == kSharedVersion && !map.contains(kDo))
        return readMark(map, line);
    if (m_version == kSharedVersion && map.contains(kSettled))
        line.kind = Kind::CameBefore;
    if (m_version < 2) {
        QCborMap translated;
        if (!translate(map, lesson, translated))
            return false;
        map = translated;
    }
    RecordReader reader;
    return reader.read(map, line.record) || fail(reader.error());
}

bool LogReader::readMark(const QCborMap &map, Line &line)
{
    constexpr qint64 kMost = std::numeric_limits<int>::max();
    const QCborArray name = map.value(kDropped).toArray();
    const qint64 author = whole(name.at(0)), number = whole(name.at(1));
    if (name.size() == 2 && author > 0 && author <= kMost && number > 0 && number <= kMost) {
        line.kind = Kind::Dropped;
        line.record.id = {int(author), int(number)};
        return true;
    }
    line.kind = map.contains(kSettled) ? Kind::Settled : Kind::SetBack;
    const qint64 count = whole(map.value(map.contains(kSettled) ? kSettled : kSetBack));
    line.count = std::size_t(std::max<qint64>(count, 0));
    return (count >= 0 && count <= kMost) || fail(tr("nothing that can be read"));
}

bool LogReader::isMine(int author) const
{
    return std::find(m_sharing.authors.begin(), m_sharing.authors.end(), author) != m_sharing.authors.end();
}

Sharing LogReader::sharingOf(const QJsonObject &firstLine)
{
    const QJsonObject object = firstLine.value(kShared).toObject();
    Sharing sharing;
    for (const QJsonValue author : object.value(kAuthors).toArray())
        sharing.authors.push_back(author.toInt());
    sharing.address = object.value(kAddress).toString();
    sharing.token = QByteArray::fromBase64(object.value(kToken).toString().toLatin1());
    return sharing;
}

QByteArray settledLine(const QByteArray &code)
{
    QJsonObject line = QCborValue::fromCbor(code).toMap().toJsonObject();
    line.insert(kSettled, true);
    return QJsonDocument(line).toJson(QJsonDocument::Compact);
}

QByteArray changeLine(const Lesson::LogChange &change)
{
    switch (change.kind) {
    case Kind::Added:
        return jsonLine(change.code);
    case Kind::CameBefore:
        return settledLine(change.code);
    case Kind::Settled:
        return "{\"settled\":" + QByteArray::number(qulonglong(change.count)) + '}';
    case Kind::SetBack:
        return "{\"set-back\":" + QByteArray::number(qulonglong(change.count)) + '}';
    case Kind::Dropped:
        break;
    }
    return "{\"dropped\":[" + QByteArray::number(change.record.author) + ',' +
           QByteArray::number(change.record.number) + "]}";
}

void insert(const Sharing &sharing, QJsonObject &firstLine)
{
    QJsonArray authors;
    for (const int author : sharing.authors)
        authors.append(author);
    firstLine.insert(kFormat, LogReader::kSharedVersion);
    firstLine.insert(kShared, QJsonObject{{kAuthors, authors},
                                          {kAddress, sharing.address},
                                          {kToken, QString::fromLatin1(sharing.token.toBase64())}});
}

// Each line is one step of the only author; one that succeeds belongs to the step before.
bool LogReader::translate(const QCborMap &line, const Lesson &lesson, QCborMap &map)
{
    const QString what = line.value(kDo).toString();
    const int number = lesson.history().nextNumber(kOnlyAuthor);
    map = {{kAuthor, kOnlyAuthor}, {kNumber, number}};
    if (what == QLatin1String("undo") || what == QLatin1String("redo")) {
        const bool undoes = what == QLatin1String("undo");
        const auto step = undoes ? lesson.history().toUndo(kOnlyAuthor) : lesson.history().toRedo(kOnlyAuthor);
        if (!step)
            return fail(undoes ? tr("there is nothing to undo") : tr("there is nothing to redo"));
        map.insert(kDo, QLatin1String("undo"));
        map.insert(kUndone, pair(*step));
        return true;
    }
    map.insert(kDo, what);
    if (what.endsWith(QLatin1String("-page")))
        return translatePage(line, lesson, what, map);
    return translateObject(line, lesson, what, map);
}

bool LogReader::translatePage(const QCborMap &line, const Lesson &lesson, const QString &what, QCborMap &map)
{
    const bool adds = what == QLatin1String("add-page");
    const qint64 from = whole(line.value(what == QLatin1String("move-page") ? QLatin1String("from") : kAt));
    if (from < 0 || from > lesson.pageCount() - (adds ? 0 : 1))
        return fail(adds ? tr("there is no place for this page") : tr("there is no such page"));
    if (adds) {
        m_pages[whole(line.value(kPage))] = {kOnlyAuthor, int(map.value(kNumber).toInteger())};
        map.insert(kAt, from);
        map.insert(kSize, line.value(kSize));
    } else {
        map.insert(kPage, pair(lesson.pageId(int(from))));
        if (what == QLatin1String("move-page"))
            map.insert(kAt, line.value(QLatin1String("to")));
    }
    return true;
}

bool LogReader::translateObject(const QCborMap &line, const Lesson &lesson, const QString &what, QCborMap &map)
{
    const qint64 number = whole(line.value(kPage));
    const auto page = m_pages.find(number);
    if (page == m_pages.end() || lesson.indexOf(page->second) < 0)
        return fail(tr("there is no such page"));
    map.insert(kPage, pair(page->second));
    for (const QLatin1String key : {kLife, kKind, kPicture, kSize}) {
        if (line.contains(key))
            map.insert(key, line.value(key));
    }
    if (!line.contains(QLatin1String("id")))
        return true;
    const qint64 id = whole(line.value(QLatin1String("id")));
    if (what == QLatin1String("draw")) {
        qint64 &last = m_lastObject[number];
        if (id <= last)
            return fail(tr("this cannot be done on the page"));
        last = id;
        m_objects[{number, id}] = {kOnlyAuthor, int(map.value(kNumber).toInteger())};
        const auto step = lesson.history().toUndo(kOnlyAuthor);
        if (line.value(QLatin1String("succeeds")).toBool() && step)
            map.insert(kStep, step->number);
        return true;
    }
    const auto object = m_objects.find({number, id});
    if (object == m_objects.end())
        return fail(tr("there is no such object"));
    if (what == QLatin1String("delete"))
        map.insert(kObjects, QCborArray{pair(object->second)});
    else
        map.insert(kObject, pair(object->second));
    if (what != QLatin1String("order"))
        return true;
    // So many of the others lay below it.
    qint64 place = whole(line.value(QLatin1String("place")));
    if (place < 0)
        return fail(tr("there is no such place"));
    ObjectId above = kNothing;
    for (const auto &item : lesson.page(page->second).items()) {
        if (place == 0)
            break;
        if (item->id == object->second)
            continue;
        above = item->id;
        --place;
    }
    if (above != kNothing)
        map.insert(kAbove, pair(above));
    return true;
}

} // namespace InkLesson
