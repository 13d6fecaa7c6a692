#pragma once

#include "Record.h"

#include <QtCore/QCoreApplication>

class QJsonObject;
class QJsonValue;

namespace Board {

// A record as a JSON object: {"do": "draw", "id": 7, "life": {...}}. A picture is the base64 text of a PNG file; that
// of an object to be replaced is left out.
QJsonObject toJson(const Record &record);

// Reads them. Every operation stops at the first error and returns false.
class RecordReader
{
    Q_DECLARE_TR_FUNCTIONS(Board::RecordReader)

public:
    bool read(const QJsonObject &object, Record &record);

    // "place: what is wrong there", for example "life.acts[3]: not a point".
    QString error() const { return m_error; }

private:
    bool readLife(const QJsonValue &value, Life &life);
    bool readActs(const QJsonValue &value, std::vector<Act> &acts);
    bool readAct(const QJsonValue &value, Act &act);
    bool readPaper(const QJsonValue &value, Paper &paper);
    bool readPicture(const QJsonValue &value, const QString &place, QImage &picture);
    bool readDash(const QJsonValue &value, const QString &place, Qt::PenStyle &dash);
    bool readColor(const QJsonValue &value, const QString &place, QColor &color);
    bool readNumber(const QJsonValue &value, const QString &place, int &number);
    bool readPoint(const QJsonValue &value, const QString &place, QPoint &point);
    bool readSize(const QJsonValue &value, const QString &place, QSize &size);
    bool fail(const QString &place, const QString &what);

    QString m_error;
};

} // namespace Board
