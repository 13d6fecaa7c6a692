#include "lesson/strokes/StrokeReader.h"

#include "lesson/paper/PageSize.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QRegularExpression>

#include <limits>

namespace InkLesson {

namespace {

constexpr int kMaxWidth = 1000; // pen width, pixels

QString element(const QString &list, int index)
{
    return QStringLiteral("%1[%2]").arg(list).arg(index);
}

QString member(const QString &object, const char *key)
{
    return object + QLatin1Char('.') + QLatin1String(key);
}

} // namespace

bool StrokeReader::read(const QByteArray &json, StrokeFile &file)
{
    QJsonParseError syntax;
    const QJsonDocument document = QJsonDocument::fromJson(json, &syntax);
    if (syntax.error != QJsonParseError::NoError) {
        const QByteArray before = json.left(syntax.offset);
        const QByteArray line = before.mid(before.lastIndexOf('\n') + 1);
        return fail(tr("line %1, column %2").arg(before.count('\n') + 1).arg(QString::fromUtf8(line).size() + 1),
                    syntax.errorString());
    }
    if (!document.isObject()) {
        m_error = tr("not a JSON object");
        return false;
    }
    const QJsonObject object = document.object();
    return readText(object, QStringLiteral("title"), file.title) &&
           readText(object, QStringLiteral("license"), file.license) && readSize(object, file.size) &&
           readStrokes(object, file.strokes);
}

bool StrokeReader::readText(const QJsonObject &object, const QString &key, QString &text)
{
    const QJsonValue value = object.value(key);
    if (!value.isUndefined() && !value.isString())
        return fail(key, tr("not a text"));
    text = value.toString();
    return true;
}

bool StrokeReader::readSize(const QJsonObject &object, QSize &size)
{
    int width = 0;
    int height = 0;
    if (!readSide(object, QStringLiteral("width"), width) || !readSide(object, QStringLiteral("height"), height))
        return false;
    size = QSize(width, height);
    const QString problem = pageSizeProblem(size);
    return problem.isEmpty() || fail(QStringLiteral("width, height"), problem);
}

bool StrokeReader::readSide(const QJsonObject &object, const QString &key, int &side)
{
    const QJsonValue value = object.value(key);
    if (value.isUndefined())
        return fail(key, tr("missing"));
    if (!value.isDouble())
        return fail(key, tr("not a number"));
    if (!isPageSide(value.toDouble()))
        return fail(key, tr("must be 1 to %1").arg(kMaxPageSide));
    side = int(value.toDouble());
    return true;
}

bool StrokeReader::readStrokes(const QJsonObject &object, std::vector<Stroke> &strokes)
{
    const QString place = QStringLiteral("strokes");
    const QJsonValue value = object.value(place);
    if (value.isUndefined())
        return fail(place, tr("missing"));
    if (!value.isArray())
        return fail(place, tr("not a list"));
    const QJsonArray list = value.toArray();
    strokes.resize(std::size_t(list.size()));
    for (int i = 0; i < list.size(); ++i) {
        if (!readStroke(list.at(i), element(place, i), strokes[std::size_t(i)]))
            return false;
    }
    return true;
}

bool StrokeReader::readStroke(const QJsonValue &value, const QString &place, Stroke &stroke)
{
    if (!value.isObject())
        return fail(place, tr("not an object"));
    const QJsonObject object = value.toObject();
    return readColor(object.value(QLatin1String("color")), member(place, "color"), stroke.color) &&
           readWidth(object.value(QLatin1String("width")), member(place, "width"), stroke.width) &&
           readPoints(object.value(QLatin1String("points")), member(place, "points"), stroke.points);
}

bool StrokeReader::readColor(const QJsonValue &value, const QString &place, QColor &color)
{
    static const QRegularExpression form(QStringLiteral("^#[0-9A-Fa-f]{6}\\z"));
    if (value.isUndefined())
        return fail(place, tr("missing"));
    if (!form.match(value.toString()).hasMatch())
        return fail(place, tr("not a colour of the form #rrggbb"));
    color = QColor(value.toString());
    return true;
}

bool StrokeReader::readWidth(const QJsonValue &value, const QString &place, int &width)
{
    if (value.isUndefined())
        return fail(place, tr("missing"));
    if (!value.isDouble())
        return fail(place, tr("not a number"));
    if (value.toDouble() < 1 || value.toDouble() > kMaxWidth)
        return fail(place, tr("must be 1 to %1").arg(kMaxWidth));
    width = int(value.toDouble());
    return true;
}

bool StrokeReader::readPoints(const QJsonValue &value, const QString &place, std::vector<QPoint> &points)
{
    if (value.isUndefined())
        return fail(place, tr("missing"));
    if (!value.isArray())
        return fail(place, tr("not a list"));
    const QJsonArray list = value.toArray();
    if (list.isEmpty())
        return fail(place, tr("no point"));
    points.resize(std::size_t(list.size()));
    for (int i = 0; i < list.size(); ++i) {
        if (!readPoint(list.at(i), element(place, i), points[std::size_t(i)]))
            return false;
    }
    return true;
}

bool StrokeReader::readPoint(const QJsonValue &value, const QString &place, QPoint &point)
{
    const QJsonArray pair = value.toArray();
    if (!value.isArray() || pair.size() != 2)
        return fail(place, tr("not a pair [x, y]"));
    return readCoordinate(pair.at(0), place, point.rx()) && readCoordinate(pair.at(1), place, point.ry());
}

bool StrokeReader::readCoordinate(const QJsonValue &value, const QString &place, int &coordinate)
{
    if (!value.isDouble())
        return fail(place, tr("not a number"));
    const double pixels = value.toDouble();
    // Written so that a NaN is refused as well.
    if (!(pixels > std::numeric_limits<int>::min() - 1.0 && pixels < std::numeric_limits<int>::max() + 1.0))
        return fail(place, tr("too large"));
    coordinate = int(pixels);
    return true;
}

bool StrokeReader::fail(const QString &place, const QString &what)
{
    m_error = QStringLiteral("%1: %2").arg(place, what);
    return false;
}

} // namespace InkLesson
