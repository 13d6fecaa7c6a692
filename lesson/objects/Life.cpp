#include "lesson/objects/Life.h"

#include "CInkPicTure.h"
#include "CInkText.h"

#include <QtGui/QPainter>

#include <algorithm>
#include <limits>

namespace InkLesson {

namespace {

struct Performer
{
    CInkGraph &object;

    QRect operator()(const PointerAct &act) const
    {
        QRect update; // fresh: some objects assign it
        object.AddPoint(act.code, act.pt, update);
        return update | object.GetUpdateRect();
    }
    QRect operator()(const FinishAct & /*act*/) const
    {
        // What its editor has committed is as it should be: a frame of text would be laid out anew.
        if (!object.m_bFinished && object.FinishGraph())
            object.m_bFinished = 1;
        return object.GetUpdateRect();
    }
    QRect operator()(const ReopenAct & /*act*/) const
    {
        object.m_bFinished = 0;
        object.m_bHideHotShape = 0;
        return object.GetUpdateRect();
    }
    QRect operator()(const PaintAct & /*act*/) const
    {
        QImage unseen(1, 1, QImage::Format_ARGB32_Premultiplied);
        QPainter painter(&unseen);
        QRect area;
        object.Draw(painter, area);
        return object.GetUpdateRect();
    }
    QRect operator()(const ColorAct &act) const
    {
        object.SetColor(act.color);
        return object.GetUpdateRect();
    }
    QRect operator()(const WidthAct &act) const
    {
        object.SetWidth(act.width);
        return object.GetUpdateRect();
    }
    QRect operator()(const DashAct &act) const
    {
        setDash(object, act.dash);
        return object.GetUpdateRect();
    }
    QRect operator()(const TextAct &act) const
    {
        QImage image = act.image;
        if (auto *text = dynamic_cast<CInkText *>(&object))
            text->SetTextImage(&image);
        return object.GetUpdateRect();
    }
};

QColor exactColor(const QColor &color)
{
    return QColor::fromRgba(color.rgba());
}

Qt::PenStyle exactDash(Qt::PenStyle dash)
{
    return dash >= Qt::SolidLine && dash <= Qt::DashDotDotLine ? dash : Qt::SolidLine;
}

QImage unseenImage()
{
    QImage image(1, 1, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    return image;
}

// Places beyond those that an int holds are the last ones there.
QPoint shifted(const QPoint &pt, const QPoint &by)
{
    const auto sum = [](qint64 a, qint64 b) {
        return int(std::clamp<qint64>(a + b, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
    };
    return {sum(pt.x(), by.x()), sum(pt.y(), by.y())};
}

} // namespace

QRect perform(const Act &act, CInkGraph &object)
{
    return std::visit(Performer{object}, act);
}

QImage exactImage(const QImage &image)
{
    QImage exact = image.convertToFormat(QImage::Format_ARGB32);
    exact.setDevicePixelRatio(1);
    return exact;
}

Act exactAct(Act act)
{
    if (auto *color = std::get_if<ColorAct>(&act))
        color->color = exactColor(color->color);
    else if (auto *dash = std::get_if<DashAct>(&act))
        dash->dash = exactDash(dash->dash);
    else if (auto *text = std::get_if<TextAct>(&act))
        text->image = text->image.isNull() ? unseenImage() : exactImage(text->image);
    return act;
}

Life exactLife(Life life)
{
    life.ink.color = exactColor(life.ink.color);
    life.ink.dash = exactDash(life.ink.dash);
    life.picture = exactImage(life.picture);
    std::transform(life.acts.begin(), life.acts.end(), life.acts.begin(), exactAct);
    return life;
}

bool canReopen(const Life &life)
{
    const Tool *tool = findTool(life.tool);
    return tool ? tool->hasHandles : life.tool == QLatin1String(kPictureTool);
}

Qt::PenStyle dashOf(const Life &life)
{
    Qt::PenStyle dash = life.ink.dash;
    for (const Act &act : life.acts) {
        if (const auto *other = std::get_if<DashAct>(&act))
            dash = other->dash;
    }
    return dash;
}

void shift(Life &life, const QPoint &by)
{
    life.position = shifted(life.position, by);
    for (Act &act : life.acts) {
        if (auto *event = std::get_if<PointerAct>(&act))
            event->pt = shifted(event->pt, by);
    }
}

std::unique_ptr<CInkGraph> createObject(const Life &life)
{
    if (life.tool == QLatin1String(kPictureTool)) {
        QImage picture = life.picture;
        auto object = std::make_unique<CInkPicTure>(&picture, life.position);
        object->SetCanvasSize(life.canvas);
        setDrawnHere(*object);
        return object;
    }
    const Tool *tool = findTool(life.tool);
    if (!tool)
        return nullptr;
    std::unique_ptr<CInkGraph> object = createObject(*tool, life.ink, life.canvas);
    if (tool->takePicture)
        tool->takePicture(*object, life);
    return object;
}

LivedObject live(const Life &life)
{
    LivedObject lived{createObject(life), {}, findTool(life.tool)};
    if (lived.object) {
        for (const Act &act : life.acts)
            lived.reach = perform(act, *lived.object);
    }
    return lived;
}

} // namespace InkLesson
