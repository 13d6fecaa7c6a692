#pragma once

#include "lesson/Export.h"
#include "lesson/fold/Lesson.h"
#include "lesson/log/RecordCode.h"
#include "lesson/storage/Sharing.h"

#include <QtCore/QCborMap>
#include <QtCore/QCoreApplication>

#include <map>

class QIODevice;

namespace InkLesson {

// Reads the log of a lesson line by line, from files of version 2 and of version 1, whose records are told in the words
// of version 2 then, and from the journals of shared lessons. A line of version 1 may depend on what came before, so
// each record is to be applied before the next is read.
class INKLESSON_EXPORT LogReader
{
    Q_DECLARE_TR_FUNCTIONS(InkLesson::LogReader)

public:
    static constexpr int kVersion = 2;                // of files that are written
    static constexpr int kSharedVersion = 3;          // of the journals of shared lessons
    static constexpr int kMostBytes = kMostLineBytes; // in one line

    // `device` is open, and outlives the reader.
    explicit LogReader(QIODevice &device);

    // The first line. False where this is no lesson, or one of a later version.
    bool readHeader(Header &header);

    // The next record. False at the end, and where something is wrong; error() is then empty or says what.
    bool read(const Lesson &lesson, Record &record);

    // What the next line does to the log. Of a lesson that was not shared each adds a record at its end.
    struct Line
    {
        Lesson::LogChange::Kind kind{Lesson::LogChange::Kind::Added};
        Record record{}; // that is added, or came before; of one that was dropped the name alone
        std::size_t count{};
    };
    bool readLine(const Lesson &lesson, Line &line);

    // Whose records are this board's.
    bool isMine(int author) const;

    // What the first line of a journal tells. Without a token where its lesson was not shared.
    static Sharing sharingOf(const QJsonObject &firstLine);

    // "line 7: what is wrong".
    QString error() const { return m_error; }

    // The same of something that is wrong with the record that was read last.
    QString named(const QString &what) const;

private:
    bool readBytes(QByteArray &line);
    bool readMark(const QCborMap &map, Line &line);
    bool translate(const QCborMap &line, const Lesson &lesson, QCborMap &map);
    bool translateObject(const QCborMap &line, const Lesson &lesson, const QString &what, QCborMap &map);
    bool translatePage(const QCborMap &line, const Lesson &lesson, const QString &what, QCborMap &map);
    bool fail(const QString &what);

    QIODevice &m_device;
    QByteArray m_piece; // of a line
    int m_version{kVersion};
    Sharing m_sharing{};
    int m_line{};
    QString m_error;

    // Of version 1, where pages and the objects of each page had numbers of their own.
    std::map<qint64, PageId> m_pages{{1, kFirstPage}};
    std::map<std::pair<qint64, qint64>, ObjectId> m_objects;
    std::map<qint64, qint64> m_lastObject; // of each page
};

// The line that every file begins with, without its end.
INKLESSON_EXPORT QByteArray headerLine(const Header &header);

// Lines of a shared lesson's journal, without their ends: a settled record, any change of the log, and what the first
// line holds besides.
INKLESSON_EXPORT QByteArray settledLine(const QByteArray &code);
INKLESSON_EXPORT QByteArray changeLine(const Lesson::LogChange &change);
INKLESSON_EXPORT void insert(const Sharing &sharing, QJsonObject &firstLine);

} // namespace InkLesson
