#include "RecordText.h"

#include "lesson/paper/PageSize.h"

#include <QtCore/QBuffer>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonObject>
#include <QtGui/QImageReader>

#include <cmath>
#include <iterator>

namespace Board {

namespace {

constexpr int kMaxPicturePixels = 64 * 1024 * 1024;

// In the order of Qt::PenStyle, from the solid line on.
const char *const kDashes[] = {"solid", "dash", "dot", "dash-dot", "dash-dot-dot"};

const char *const kPapers[] = {"blank", "ruled", "squared", "picture"}; // in the order of Paper::Kind

QString text(const char *latin1)
{
    return QString::fromLatin1(latin1);
}

QJsonArray pointJson(const QPoint &pt)
{
    return {pt.x(), pt.y()};
}

QJsonArray sizeJson(const QSize &size)
{
    return {size.width(), size.height()};
}

QString dashJson(Qt::PenStyle dash)
{
    return text(kDashes[dash - Qt::SolidLine]);
}

QString pictureJson(const QImage &picture)
{
    QBuffer png;
    png.open(QIODevice::WriteOnly);
    picture.save(&png, "PNG");
    return QString::fromLatin1(png.data().toBase64());
}

struct ActWriter
{
    QJsonValue operator()(const PointerAct &act) const { return QJsonArray{act.code, act.pt.x(), act.pt.y()}; }
    QJsonValue operator()(const FinishAct & /*act*/) const { return text("finish"); }
    QJsonValue operator()(const ReopenAct & /*act*/) const { return text("reopen"); }
    QJsonValue operator()(const InkLesson::PaintAct & /*act*/) const { return {}; } // which this board never does
    QJsonValue operator()(const ColorAct &act) const
    {
        return QJsonObject{{text("color"), act.color.name(QColor::HexArgb)}};
    }
    QJsonValue operator()(const WidthAct &act) const { return QJsonObject{{text("width"), act.width}}; }
    QJsonValue operator()(const DashAct &act) const { return QJsonObject{{text("dash"), dashJson(act.dash)}}; }
    QJsonValue operator()(const TextAct &act) const
    {
        return QJsonObject{{text("text"), act.text}, {text("image"), pictureJson(act.image)}};
    }
};

QJsonObject lifeJson(const Life &life, bool withPicture)
{
    QJsonArray acts;
    for (const Act &act : life.acts)
        acts.append(std::visit(ActWriter(), act));
    QJsonObject json{{text("tool"), life.tool}, {text("canvas"), sizeJson(life.canvas)}, {text("acts"), acts}};
    if (life.tool == QLatin1String(kPictureTool)) {
        json.insert(text("position"), pointJson(life.position));
        if (withPicture)
            json.insert(text("picture"), pictureJson(life.picture));
    } else {
        json.insert(text("color"), life.ink.color.name(QColor::HexArgb));
        json.insert(text("width"), life.ink.width);
        if (life.ink.option)
            json.insert(text("option"), *life.ink.option);
        if (life.ink.dash != Qt::SolidLine)
            json.insert(text("dash"), dashJson(life.ink.dash));
    }
    return json;
}

struct Writer
{
    QJsonObject operator()(const DrawRecord &record) const
    {
        QJsonObject json{{text("do"), text("draw")}, {text("id"), record.id}};
        json.insert(text("life"), lifeJson(record.life, true));
        if (record.succeeds)
            json.insert(text("succeeds"), true);
        return json;
    }
    QJsonObject operator()(const ReplaceRecord &record) const
    {
        return {{text("do"), text("replace")}, {text("id"), record.id}, {text("life"), lifeJson(record.life, false)}};
    }
    QJsonObject operator()(const DeleteRecord &record) const
    {
        return {{text("do"), text("delete")}, {text("id"), record.id}};
    }
    QJsonObject operator()(const OrderRecord &record) const
    {
        return {{text("do"), text("order")}, {text("id"), record.id}, {text("place"), record.place}};
    }
    QJsonObject operator()(const ClearRecord & /*record*/) const { return {{text("do"), text("clear")}}; }
    QJsonObject operator()(const PaperRecord &record) const
    {
        QJsonObject json{{text("do"), text("paper")}, {text("kind"), text(kPapers[int(record.paper.kind)])}};
        if (record.paper.kind == Paper::Kind::Picture)
            json.insert(text("picture"), pictureJson(record.paper.picture));
        return json;
    }
    QJsonObject operator()(const SizeRecord &record) const
    {
        return {{text("do"), text("size")}, {text("size"), sizeJson(record.size)}};
    }
};

} // namespace

QJsonObject toJson(const Record &record)
{
    return std::visit(Writer(), record);
}

bool RecordReader::read(const QJsonObject &object, Record &record)
{
    const QString what = object.value(text("do")).toString();
    int id = 0;
    const bool isOfObject =
        what == text("draw") || what == text("replace") || what == text("delete") || what == text("order");
    if (isOfObject && !readNumber(object.value(text("id")), text("id"), id))
        return false;
    if (what == text("draw") || what == text("replace")) {
        Life life;
        if (!readLife(object.value(text("life")), life))
            return false;
        if (what == text("replace"))
            record = ReplaceRecord{id, std::move(life)};
        else
            record = DrawRecord{id, std::move(life), object.value(text("succeeds")).toBool()};
    } else if (what == text("delete")) {
        record = DeleteRecord{id};
    } else if (what == text("order")) {
        int place = 0;
        if (!readNumber(object.value(text("place")), text("place"), place))
            return false;
        record = OrderRecord{id, place};
    } else if (what == text("clear")) {
        record = ClearRecord();
    } else if (what == text("paper")) {
        Paper paper;
        if (!readPaper(object, paper))
            return false;
        record = PaperRecord{std::move(paper)};
    } else if (what == text("size")) {
        QSize size;
        if (!readSize(object.value(text("size")), text("size"), size))
            return false;
        record = SizeRecord{size};
    } else {
        return fail(text("do"), tr("nothing that can be done"));
    }
    return true;
}

bool RecordReader::readLife(const QJsonValue &value, Life &life)
{
    const QJsonObject object = value.toObject();
    life.tool = object.value(text("tool")).toString();
    if (!readSize(object.value(text("canvas")), text("life.canvas"), life.canvas))
        return false;
    if (life.tool == QLatin1String(kPictureTool)) {
        if (!readPoint(object.value(text("position")), text("life.position"), life.position))
            return false;
        const QJsonValue picture = object.value(text("picture"));
        if (!picture.isUndefined() && !readPicture(picture, text("life.picture"), life.picture))
            return false;
    } else {
        if (!InkLesson::findTool(life.tool))
            return fail(text("life.tool"), tr("no tool of this board"));
        if (!readColor(object.value(text("color")), text("life.color"), life.ink.color) ||
            !readNumber(object.value(text("width")), text("life.width"), life.ink.width))
            return false;
        int option = 0;
        const QJsonValue given = object.value(text("option"));
        if (!given.isUndefined()) {
            if (!readNumber(given, text("life.option"), option))
                return false;
            life.ink.option = option;
        }
        const QJsonValue dash = object.value(text("dash"));
        if (!dash.isUndefined() && !readDash(dash, text("life.dash"), life.ink.dash))
            return false;
    }
    return readActs(object.value(text("acts")), life.acts);
}

bool RecordReader::readActs(const QJsonValue &value, std::vector<Act> &acts)
{
    if (!value.isArray())
        return fail(text("life.acts"), tr("not an array"));
    const QJsonArray array = value.toArray();
    acts.resize(std::size_t(array.size()));
    for (int i = 0; i < array.size(); ++i) {
        if (!readAct(array.at(i), acts[std::size_t(i)]))
            return fail(text("life.acts[%1]").arg(i), tr("nothing that can be done to an object"));
    }
    return true;
}

bool RecordReader::readAct(const QJsonValue &value, Act &act)
{
    if (value.isArray()) {
        const QJsonArray event = value.toArray();
        int code = 0;
        QPoint pt;
        if (event.size() != 3 || !readNumber(event.at(0), {}, code) || !readNumber(event.at(1), {}, pt.rx()) ||
            !readNumber(event.at(2), {}, pt.ry()))
            return false;
        act = PointerAct{code, pt};
        return true;
    }
    if (value == text("finish") || value == text("reopen")) {
        act = value == text("finish") ? Act(FinishAct()) : Act(ReopenAct());
        return true;
    }
    const QJsonObject object = value.toObject();
    if (object.contains(text("color"))) {
        ColorAct color;
        if (!readColor(object.value(text("color")), {}, color.color))
            return false;
        act = color;
    } else if (object.contains(text("width"))) {
        WidthAct width{};
        if (!readNumber(object.value(text("width")), {}, width.width))
            return false;
        act = width;
    } else if (object.contains(text("dash"))) {
        DashAct dash{};
        if (!readDash(object.value(text("dash")), {}, dash.dash))
            return false;
        act = dash;
    } else {
        TextAct entered{object.value(text("text")).toString(), {}};
        if (!readPicture(object.value(text("image")), {}, entered.image))
            return false;
        act = entered;
    }
    return true;
}

bool RecordReader::readPaper(const QJsonValue &value, Paper &paper)
{
    const QJsonObject object = value.toObject();
    const QString kind = object.value(text("kind")).toString();
    const auto *found = std::find_if(std::begin(kPapers), std::end(kPapers),
                                     [&](const char *name) { return kind == QLatin1String(name); });
    if (found == std::end(kPapers))
        return fail(text("kind"), tr("no kind of paper"));
    paper.kind = Paper::Kind(found - std::begin(kPapers));
    return paper.kind != Paper::Kind::Picture ||
           readPicture(object.value(text("picture")), text("picture"), paper.picture);
}

bool RecordReader::readPicture(const QJsonValue &value, const QString &place, QImage &picture)
{
    QByteArray bytes = QByteArray::fromBase64(value.toString().toLatin1());
    QBuffer png(&bytes);
    QImageReader reader(&png, "PNG");
    const QSize size = reader.size();
    if (qint64(size.width()) * size.height() <= kMaxPicturePixels)
        picture = exactImage(reader.read());
    return !picture.isNull() || fail(place, tr("not a picture"));
}

bool RecordReader::readDash(const QJsonValue &value, const QString &place, Qt::PenStyle &dash)
{
    const QString name = value.toString();
    const auto *found = std::find_if(std::begin(kDashes), std::end(kDashes),
                                     [&](const char *known) { return name == QLatin1String(known); });
    if (found == std::end(kDashes))
        return fail(place, tr("no kind of line"));
    dash = Qt::PenStyle(Qt::SolidLine + (found - std::begin(kDashes)));
    return true;
}

bool RecordReader::readColor(const QJsonValue &value, const QString &place, QColor &color)
{
    color.setNamedColor(value.toString());
    return color.isValid() || fail(place, tr("not a colour"));
}

bool RecordReader::readNumber(const QJsonValue &value, const QString &place, int &number)
{
    const double real = value.toDouble(NAN);
    if (!(real >= -2147483648.0 && real <= 2147483647.0) || std::trunc(real) != real)
        return fail(place, tr("not a whole number"));
    number = int(real);
    return true;
}

bool RecordReader::readPoint(const QJsonValue &value, const QString &place, QPoint &point)
{
    const QJsonArray pair = value.toArray();
    return (pair.size() == 2 && readNumber(pair.at(0), {}, point.rx()) && readNumber(pair.at(1), {}, point.ry())) ||
           fail(place, tr("not a point"));
}

bool RecordReader::readSize(const QJsonValue &value, const QString &place, QSize &size)
{
    QPoint pair;
    if (!readPoint(value, place, pair))
        return fail(place, tr("not a size"));
    size = QSize(pair.x(), pair.y());
    const QString problem = InkLesson::pageSizeProblem(size);
    return problem.isEmpty() || fail(place, problem);
}

bool RecordReader::fail(const QString &place, const QString &what)
{
    m_error = text("%1: %2").arg(place, what);
    return false;
}

} // namespace Board
