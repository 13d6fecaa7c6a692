#include "lesson/storage/FileClaim.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>

namespace InkLesson {

namespace {

std::unique_ptr<QLockFile> lockOf(const QString &name)
{
    auto lock = std::make_unique<QLockFile>(name);
    lock->setStaleLockTime(0); // only the death of its program frees a file
    return lock;
}

} // namespace

QString FileClaim::lockName(const QString &fileName) const
{
    const QFileInfo file(fileName);
    const QString path = file.exists() ? file.canonicalFilePath() : file.absoluteFilePath();
    const QByteArray name = QCryptographicHash::hash(path.toUtf8(), QCryptographicHash::Sha1).toHex();
    return QDir(m_folder).filePath(QString::fromLatin1(name) + QStringLiteral(".open"));
}

bool FileClaim::mayHave(const QString &fileName) const
{
    if (m_folder.isEmpty())
        return true;
    const QString name = lockName(fileName);
    if (m_lock && name == m_name)
        return true;
    const auto lock = lockOf(name);
    return lock->tryLock(0) || lock->error() != QLockFile::LockFailedError;
}

void FileClaim::take(const QString &fileName)
{
    release();
    if (m_folder.isEmpty() || !QDir().mkpath(m_folder))
        return;
    m_name = lockName(fileName);
    m_lock = lockOf(m_name);
    if (!m_lock->tryLock(0))
        m_lock.reset();
}

void FileClaim::release()
{
    m_lock.reset();
}

} // namespace InkLesson
