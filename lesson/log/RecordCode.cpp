#include "lesson/log/RecordCode.h"

#include "lesson/log/ActText.h"
#include "lesson/log/Words_p.h"

#include <QtCore/QBuffer>
#include <QtCore/QCborArray>
#include <QtCore/QCborValue>
#include <QtCore/QJsonDocument>

namespace InkLesson {

using namespace Words;

namespace {

QCborArray pair(const QPoint &pt)
{
    return {pt.x(), pt.y()};
}

QCborArray pair(const QSize &size)
{
    return {size.width(), size.height()};
}

QCborArray pair(const StepId &id)
{
    return {id.author, id.number};
}

QString colorName(const QColor &color)
{
    return color.name(QColor::HexArgb);
}

QCborMap mapOf(const Act &act)
{
    if (const auto *color = std::get_if<ColorAct>(&act))
        return {{kColor, colorName(color->color)}};
    if (const auto *width = std::get_if<WidthAct>(&act))
        return {{kWidth, width->width}};
    if (const auto *dash = std::get_if<DashAct>(&act))
        return {{kDash, dashName(dash->dash)}};
    const auto &text = std::get<TextAct>(act);
    return {{kText, text.text}, {kImage, pngOf(text.image)}};
}

// Texts for what a letter can tell, maps for the rest.
QCborArray arrayOf(const std::vector<Act> &acts)
{
    QCborArray array;
    ActText writer;
    QByteArray text;
    const auto flush = [&] {
        if (!text.isEmpty())
            array.append(QString::fromLatin1(text));
        text.clear();
    };
    for (const Act &act : acts) {
        if (writer.write(act, text))
            continue;
        flush();
        array.append(mapOf(act));
    }
    flush();
    return array;
}

// Whether its pixels lie at a position.
bool isPlaced(const Life &life)
{
    const Tool *tool = findTool(life.tool);
    return tool ? tool->takePicture != nullptr : life.tool == QLatin1String(kPictureTool);
}

QCborMap mapOf(const Life &life)
{
    QCborMap map{{kTool, life.tool}, {kCanvas, pair(life.canvas)}, {kActs, arrayOf(life.acts)}};
    if (!life.picture.isNull())
        map.insert(kPicture, pngOf(life.picture));
    if (map.contains(kPicture) || isPlaced(life)) // also where it is that of the life before
        map.insert(kPosition, pair(life.position));
    if (life.tool == QLatin1String(kPictureTool))
        return map;
    map.insert(kColor, colorName(life.ink.color));
    map.insert(kWidth, life.ink.width);
    if (life.ink.option)
        map.insert(kOption, *life.ink.option);
    if (life.ink.dash != Qt::SolidLine)
        map.insert(kDash, dashName(life.ink.dash));
    return map;
}

// Adds what the deed tells to the map of its record.
struct DeedWriter
{
    QCborMap &map;

    void operator()(const Draw &draw) const { map.insert(kLife, mapOf(draw.life)); }
    void operator()(const Change &change) const
    {
        map.insert(kObject, pair(change.object));
        if (change.color)
            map.insert(kColor, colorName(*change.color));
        if (change.width)
            map.insert(kWidth, *change.width);
        if (change.dash)
            map.insert(kDash, dashName(*change.dash));
        if (change.option)
            map.insert(kOption, *change.option);
        if (!change.by.isNull())
            map.insert(kBy, pair(change.by));
        if (!change.acts.empty())
            map.insert(kActs, arrayOf(change.acts));
    }
    void operator()(const Replace &replace) const
    {
        map.insert(kObject, pair(replace.object));
        map.insert(kLife, mapOf(replace.life));
    }
    void operator()(const Delete &gone) const
    {
        QCborArray objects;
        for (const ObjectId &id : gone.objects)
            objects.append(pair(id));
        map.insert(kObjects, objects);
    }
    void operator()(const Order &order) const
    {
        map.insert(kObject, pair(order.object));
        if (order.above != kNothing)
            map.insert(kAbove, pair(order.above));
    }
    void operator()(const Clear & /*clear*/) const {}
    void operator()(const SetPaper &paper) const
    {
        map.insert(kKind, QLatin1String(kPapers[int(paper.paper.kind)]));
        if (paper.paper.kind == Paper::Kind::Picture)
            map.insert(kPicture, pngOf(paper.paper.picture));
    }
    void operator()(const Grow &grow) const { map.insert(kSize, pair(grow.size)); }
    void operator()(const AddPage &page) const
    {
        map.insert(kAt, page.place);
        map.insert(kSize, pair(page.size));
    }
    void operator()(const RemovePage & /*page*/) const {}
    void operator()(const MovePage &page) const { map.insert(kAt, page.place); }
    void operator()(const Undo &undo) const { map.insert(kUndone, pair(undo.step)); }
};

} // namespace

QByteArray pngOf(const QImage &picture)
{
    QBuffer png;
    png.open(QIODevice::WriteOnly);
    picture.save(&png, "PNG");
    return png.data();
}

QCborMap toMap(const Record &record)
{
    QCborMap map{{kAuthor, record.id.author}, {kNumber, record.id.number}, {kTime, record.time}};
    if (record.step != record.id.number)
        map.insert(kStep, record.step);
    if (record.page != kFirstPage)
        map.insert(kPage, pair(record.page));
    map.insert(kDo, QLatin1String(kDeeds[record.deed.index()]));
    std::visit(DeedWriter{map}, record.deed);
    return map;
}

QByteArray toCbor(const Record &record)
{
    return toMap(record).toCborValue().toCbor();
}

QByteArray toJson(const Record &record)
{
    return QJsonDocument(toMap(record).toJsonObject()).toJson(QJsonDocument::Compact);
}

QByteArray jsonLine(const QByteArray &cbor)
{
    return QJsonDocument(QCborValue::fromCbor(cbor).toMap().toJsonObject()).toJson(QJsonDocument::Compact);
}

} // namespace InkLesson
