#include "Log.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDateTime>
#include <QtCore/QDir>
#include <QtCore/QSaveFile>
#include <QtCore/QUuid>

namespace Board {

namespace {

constexpr const char *kSuffix = ".inkboard";
constexpr const char *kLockSuffix = ".lock";

std::unique_ptr<QLockFile> lockOf(const QString &journal)
{
    auto lock = std::make_unique<QLockFile>(journal + QLatin1String(kLockSuffix));
    lock->setStaleLockTime(0); // only the death of its program frees a journal
    return lock;
}

// More than the line that every document begins with, and that of the window's size.
bool holdsSteps(const QString &journal)
{
    QFile file(journal);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    while (!file.atEnd()) {
        const QByteArray line = file.readLine();
        if (line.contains("\"do\":") && !line.contains("\"do\":\"size\""))
            return true;
    }
    return false;
}

} // namespace

Log::~Log() = default;

bool Log::keep(const QString &folder, QString &problem)
{
    const QString name = QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd_hh-mm-ss_")) +
                         QUuid::createUuid().toString(QUuid::Id128).left(8) + QLatin1String(kSuffix);
    const QString path = QDir(folder).filePath(name);
    m_lock = lockOf(path);
    m_journal.setFileName(path);
    if (QDir().mkpath(folder) && m_lock->tryLock(0) && m_journal.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return m_rests || writePending();
    problem = QCoreApplication::translate("Board::Log", "%1: no journal can be kept: %2").arg(path, error());
    return false;
}

bool Log::append(const QByteArray &line)
{
    m_lines.push_back(line);
    m_rests = false;
    return writePending();
}

void Log::rest()
{
    emptyJournal();
    m_rests = true;
}

void Log::emptyJournal()
{
    m_written = 0;
    m_good = 0;
    if (m_journal.isOpen())
        m_journal.resize(0);
}

// What was written in part, on a full disk, is written again.
bool Log::writePending()
{
    if (!m_journal.isOpen())
        return false;
    while (m_written < m_lines.size()) {
        const QByteArray line = m_lines[m_written] + '\n';
        const bool written = m_journal.seek(m_good) && m_journal.write(line) == line.size();
        if (!written) {
            m_journal.resize(m_good);
            return false;
        }
        m_good += line.size();
        ++m_written;
    }
    return true;
}

void Log::clear()
{
    m_lines.clear();
    m_rests = false;
    emptyJournal();
}

void Log::discardJournal()
{
    if (m_journal.isOpen())
        m_journal.remove();
    m_lock.reset();
}

QString Log::save(const QString &fileName) const
{
    QSaveFile file(fileName);
    bool written = file.open(QIODevice::WriteOnly);
    for (const QByteArray &line : m_lines)
        written = written && file.write(line + '\n') == line.size() + 1;
    if (written && file.commit())
        return {};
    return QCoreApplication::translate("Board::Log", "%1: cannot be written: %2").arg(fileName, file.errorString());
}

QStringList Log::abandoned(const QString &folder)
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

} // namespace Board
