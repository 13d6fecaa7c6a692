#include "board/sharing/KeptLesson.h"

#include "lesson/storage/LessonFile.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDateTime>
#include <QtCore/QFile>

namespace Board {

using InkLesson::Lesson;

namespace {

constexpr int kSyncDelay = 500; // milliseconds

} // namespace

KeptLesson::KeptLesson(const QString &folder)
    : m_folder(folder)
{
    m_syncing.setSingleShot(true);
    m_syncing.setInterval(kSyncDelay);
    connect(&m_syncing, &QTimer::timeout, this, [this] { m_journal.sync(); });
}

KeptLesson::Left KeptLesson::leftIn(const QString &folder, const QString &address)
{
    for (const QString &journal : InkLesson::Journal::abandoned(folder)) {
        const InkLesson::Sharing sharing = InkLesson::Journal::sharingOf(journal);
        const bool isMeant = address.isEmpty() ? isBegunHere(sharing) : sharing.address == address;
        QString problem;
        if (auto lesson = sharing.token.isEmpty() || !isMeant ? nullptr : InkLesson::openLesson(journal, problem))
            return {std::move(lesson), sharing, journal};
    }
    return {};
}

QString KeptLesson::keep(SharedLesson &lesson, const InkLesson::Sharing &sharing, const QString &before)
{
    QString problem;
    const QString name =
        QStringLiteral("%1-%2").arg(QDateTime::currentMSecsSinceEpoch()).arg(QCoreApplication::applicationPid());
    if (!m_journal.keep(m_folder, name, problem))
        return problem;
    if (!m_journal.share(*lesson.lesson(), {}, sharing))
        return tr("%1: cannot be written: %2").arg(m_journal.fileName(), m_journal.error());
    m_journal.sync();
    if (!before.isEmpty())
        QFile::remove(before);
    connect(&lesson, &SharedLesson::changed, this, [this, &lesson](const Lesson::LogChange &change) {
        m_journal.note(change);
        m_journal.follow(*lesson.lesson(), {});
        if (m_journal.isDue() && !m_syncing.isActive())
            m_syncing.start();
    });
    return {};
}

} // namespace Board
