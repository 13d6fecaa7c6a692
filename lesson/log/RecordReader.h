#pragma once

#include "lesson/Export.h"
#include "lesson/log/Record.h"

#include <QtCore/QCborMap>
#include <QtCore/QCoreApplication>

class QCborArray;
class QCborValue;

namespace InkLesson {

// Reads records, whoever wrote them: what comes out holds nothing that the rest of the library has to look at again.
// Every operation stops at the first error and returns false.
class INKLESSON_EXPORT RecordReader
{
    Q_DECLARE_TR_FUNCTIONS(InkLesson::RecordReader)

public:
    bool read(const QCborMap &map, Record &record);
    bool readCbor(const QByteArray &bytes, Record &record);
    bool readJson(const QByteArray &line, Record &record);

    // The map of a record. False where the bytes are none, or of more parts than a record may have.
    static bool parseCbor(const QByteArray &bytes, QCborMap &map);

    // The map of a line. False where the line is no object, or one of more parts than a record may have.
    static bool parseJson(const QByteArray &line, QCborMap &map);

    // Whether what toCbor() has written is no more than can be read again, also as a line of a file.
    static bool canBeReadAgain(const QByteArray &cbor);

    // "place: what is wrong there", for example "acts: not an array".
    QString error() const { return m_error; }

private:
    bool readDeed(const QCborMap &map, Deed &deed);
    bool readChange(const QCborMap &map, Change &change);
    bool readLife(const QCborMap &map, Life &life);
    bool readInk(const QCborMap &map, Ink &ink);
    bool readActs(const QCborMap &map, std::vector<Act> &acts);
    bool readAct(const QCborMap &map, Act &act);
    bool readPaper(const QCborMap &map, Paper &paper);
    bool readPicture(const QCborMap &map, QLatin1String key, QImage &picture);
    bool readDash(const QCborMap &map, QLatin1String key, Qt::PenStyle &dash);
    bool readColor(const QCborMap &map, QLatin1String key, QColor &color);
    bool readNumber(const QCborMap &map, QLatin1String key, int &number, int least, int most);
    bool readId(const QCborMap &map, QLatin1String key, StepId &id);
    bool readPoint(const QCborMap &map, QLatin1String key, QPoint &point);
    bool readSize(const QCborMap &map, QLatin1String key, QSize &size);
    bool fail(QLatin1String place, const QString &what);

    QString m_error;
};

} // namespace InkLesson
