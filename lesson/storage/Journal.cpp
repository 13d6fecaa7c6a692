#include "lesson/storage/Journal.h"

#include "lesson/log/RecordCode.h"
#include "lesson/storage/LogReader.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

namespace InkLesson {

namespace {

constexpr const char *kSuffix = ".inkboard";
constexpr const char *kLockSuffix = ".lock";
const QString kFile = QStringLiteral("file");
const QString kFileTime = QStringLiteral("file-time");
const QString kFileBytes = QStringLiteral("file-bytes");

std::unique_ptr<QLockFile> lockOf(const QString &journal)
{
    auto lock = std::make_unique<QLockFile>(journal + QLatin1String(kLockSuffix));
    lock->setStaleLockTime(0); // only the death of its program frees a journal
    return lock;
}

// More than the line that every lesson begins with, and those of the window's size.
bool holdsSteps(const QString &journal)
{
    QFile file(journal);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    while (!file.atEnd()) {
        const QByteArray line = file.readLine(LogReader::kMostBytes);
        if (line.contains("\"do\":") && !line.contains("\"do\":\"size\""))
            return true;
    }
    return false;
}

// The first line, which tells of the lesson's file as well.
QByteArray firstLine(const Header &header, const SavedFile &saved, const Sharing *sharing = nullptr)
{
    QJsonObject line = QJsonDocument::fromJson(headerLine(header)).object();
    if (sharing)
        insert(*sharing, line);
    if (!saved.name.isEmpty()) {
        line.insert(kFile, saved.name);
        line.insert(kFileTime, saved.time);
        line.insert(kFileBytes, saved.bytes);
    }
    return QJsonDocument(line).toJson(QJsonDocument::Compact) + '\n';
}

QJsonObject firstLineOf(const QString &journal)
{
    QFile file(journal);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QJsonDocument::fromJson(file.readLine(LogReader::kMostBytes)).object();
}

bool isStep(const QByteArray &line)
{
    return !line.contains("\"do\":\"size\"");
}

} // namespace

Journal::Journal(std::unique_ptr<DurableFile> file)
    : m_file(std::move(file))
{
}

Journal::~Journal() = default;

QString Journal::error() const
{
    return m_file->error();
}

bool Journal::keep(const QString &folder, const QString &name, QString &problem)
{
    m_path = QDir(folder).filePath(name + QLatin1String(kSuffix));
    const bool hasFolder = QDir().mkpath(folder);
    m_lock = lockOf(m_path);
    m_isKept = hasFolder && m_lock->tryLock(0) && m_file->create(m_path);
    if (!m_isKept)
        problem =
            QCoreApplication::translate("InkLesson::Journal", "%1: no journal can be kept: %2").arg(m_path, error());
    return m_isKept;
}

bool Journal::follow(const Lesson &lesson, const SavedFile &saved)
{
    if (!m_isKept)
        return false;
    if (m_isShared)
        return writeLines();
    // A page that has only grown is nothing to recover.
    bool hasMore = false;
    for (std::size_t i = m_isEmpty ? m_resting : m_written; i < lesson.log().size() && !hasMore; ++i)
        hasMore = isStep(jsonLine(lesson.log()[i]));
    return !hasMore || write(lesson, saved);
}

bool Journal::write(const Lesson &lesson, const SavedFile &saved)
{
    if (m_isEmpty) {
        if (!m_file->append(firstLine(lesson.header(), saved)))
            return false;
        m_isEmpty = false;
        m_written = 0;
    }
    for (; m_written < lesson.log().size(); ++m_written) {
        if (!m_file->append(jsonLine(lesson.log()[m_written]) + '\n'))
            return false;
        m_isDue = true;
    }
    return true;
}

bool Journal::share(const Lesson &lesson, const SavedFile &saved, const Sharing &sharing)
{
    m_isShared = true;
    m_lines = {firstLine(lesson.header(), saved, &sharing)};
    for (std::size_t i = 0; i < lesson.log().size(); ++i)
        m_lines.push_back((i < lesson.settled() ? settledLine(lesson.log()[i]) : jsonLine(lesson.log()[i])) + '\n');
    return m_isKept && writeLines();
}

void Journal::note(const Lesson::LogChange &change)
{
    if (m_isShared)
        m_lines.push_back(changeLine(change) + '\n');
}

bool Journal::writeLines()
{
    const std::size_t before = m_lines.size();
    while (!m_lines.empty() && m_file->append(m_lines.front()))
        m_lines.pop_front();
    m_isDue = m_isDue || m_lines.size() < before;
    return m_lines.empty();
}

void Journal::sync()
{
    m_isDue = false;
    m_file->sync();
}

void Journal::rest(const Lesson &lesson)
{
    if (m_isShared)
        return;
    begin();
    m_resting = lesson.log().size();
}

void Journal::begin()
{
    m_file->clear();
    m_isEmpty = true;
    m_isShared = false;
    m_lines.clear();
    m_written = m_resting = 0;
}

void Journal::discard()
{
    m_file->remove();
    m_isKept = false;
    m_lock.reset();
}

QStringList Journal::abandoned(const QString &folder)
{
    QStringList paths;
    const QDir dir(folder);
    for (const QString &name : dir.entryList({QLatin1Char('*') + QLatin1String(kSuffix)}, QDir::Files, QDir::Time)) {
        const QString path = dir.filePath(name);
        if (holdsSteps(path) && lockOf(path)->tryLock(0))
            paths.append(path);
    }
    return paths;
}

SavedFile Journal::savedFileOf(const QString &journal)
{
    const QJsonObject line = firstLineOf(journal);
    if (line.isEmpty())
        return {};
    const QString name = line.value(kFile).toString();
    if (!line.contains(kFileTime))
        return SavedFile::at(name); // an older board wrote nothing but the name
    return {name, qint64(line.value(kFileTime).toDouble()), qint64(line.value(kFileBytes).toDouble())};
}

Sharing Journal::sharingOf(const QString &journal)
{
    return LogReader::sharingOf(firstLineOf(journal));
}

} // namespace InkLesson
