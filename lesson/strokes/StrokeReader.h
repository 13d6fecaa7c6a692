#pragma once

#include "lesson/strokes/StrokeFile.h"

#include <QtCore/QCoreApplication>

class QJsonObject;
class QJsonValue;

namespace InkLesson {

// Reads the text of a StrokeFile. Every operation stops at the first error and returns false.
class INKLESSON_EXPORT StrokeReader
{
    Q_DECLARE_TR_FUNCTIONS(InkLesson::StrokeReader)

public:
    bool read(const QByteArray &json, StrokeFile &file);

    // "place: what is wrong there", for example "strokes[12].points[3]: not a number".
    QString error() const { return m_error; }

private:
    bool readText(const QJsonObject &object, const QString &key, QString &text);
    bool readSize(const QJsonObject &object, QSize &size);
    bool readSide(const QJsonObject &object, const QString &key, int &side);
    bool readStrokes(const QJsonObject &object, std::vector<Stroke> &strokes);
    bool readStroke(const QJsonValue &value, const QString &place, Stroke &stroke);
    bool readColor(const QJsonValue &value, const QString &place, QColor &color);
    bool readWidth(const QJsonValue &value, const QString &place, int &width);
    bool readPoints(const QJsonValue &value, const QString &place, std::vector<QPoint> &points);
    bool readPoint(const QJsonValue &value, const QString &place, QPoint &point);
    bool readCoordinate(const QJsonValue &value, const QString &place, int &coordinate);
    bool fail(const QString &place, const QString &what);

    QString m_error;
};

} // namespace InkLesson
