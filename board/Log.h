#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QFile>
#include <QtCore/QLockFile>
#include <QtCore/QString>

#include <memory>
#include <vector>

namespace Board {

// The lines of a document in the order in which they came. Each is also written to a journal at once, so that it
// outlives the program.
class Log
{
public:
    ~Log();

    // Keeps a journal in a new file in `folder`, which is made if need be. False when that cannot be; `problem` says
    // why.
    bool keep(const QString &folder, QString &problem);

    // Adds a line without its end. False when the journal could not be written; the line is then kept in memory, and
    // written with the next.
    bool append(const QByteArray &line);

    // All lines are safe in a file: the journal stays empty until the next one comes, and then has them all again.
    void rest();

    // Forgets all lines.
    void clear();

    const std::vector<QByteArray> &lines() const { return m_lines; }
    QString journalName() const { return m_journal.fileName(); }
    QString error() const { return m_journal.errorString(); }

    // Removes the journal: what is in it is saved, or not wanted.
    void discardJournal();

    // Writes all lines to a file, whole or not at all. Returns what went wrong, empty when nothing did.
    QString save(const QString &fileName) const;

    // The journals in `folder` that hold more than an empty page and that no running program keeps, the newest first.
    static QStringList abandoned(const QString &folder);

private:
    bool writePending();
    void emptyJournal();

    std::vector<QByteArray> m_lines;
    QFile m_journal;
    std::unique_ptr<QLockFile> m_lock;
    std::size_t m_written{}; // of the lines, to the journal
    bool m_rests{};
    qint64 m_good{}; // bytes of the journal that are whole lines
};

} // namespace Board
