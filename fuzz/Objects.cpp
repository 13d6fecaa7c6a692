#include "Objects.h"

#include "lesson/objects/Tools.h"

#include "PointerEvent.h"

namespace Fuzz {

using namespace InkLesson;

namespace {

constexpr int kMostActs = 12;

} // namespace

QSize pageSize(Bytes &bytes)
{
    return {bytes.below(64), bytes.below(64)};
}

QImage picture(Bytes &bytes)
{
    const QImage image = bytes.image();
    return exactImage(image.isNull() ? QImage(1, 1, QImage::Format_RGB32) : image);
}

QPoint point(Bytes &bytes)
{
    return bytes.below(8) == 7 ? bytes.point() : QPoint(bytes.below(64), bytes.below(64));
}

QColor color(Bytes &bytes)
{
    return bytes.below(16) == 15 ? bytes.color() : QColor(bytes.byte(), 0, bytes.byte(), 255 - bytes.below(128));
}

int width(Bytes &bytes)
{
    return bytes.below(8) == 7 ? bytes.integer() : 1 + bytes.below(24);
}

Act act(Bytes &bytes)
{
    switch (bytes.below(16)) {
    case 0:
        return FinishAct();
    case 1:
        return ReopenAct();
    case 2:
        return ColorAct{color(bytes)};
    case 3:
        return WidthAct{width(bytes)};
    case 4:
        return TextAct{bytes.text(), picture(bytes)};
    case 5:
        return PointerAct{bytes.integer(), point(bytes)};
    case 6:
    case 7:
        return PointerAct{PT_DOWN, point(bytes)};
    case 8:
    case 9:
        return PointerAct{PT_UP, point(bytes)};
    default:
        return PointerAct{PT_MOVE, point(bytes)};
    }
}

Life life(Bytes &bytes)
{
    Life life;
    const int tool = bytes.below(int(InkLesson::tools().size()) + 2);
    life.canvas = bytes.below(8) == 7 ? pageSize(bytes) : QSize(64, 64);
    if (std::size_t(tool) < InkLesson::tools().size()) {
        life.tool = QString::fromLatin1(InkLesson::tools()[std::size_t(tool)].name);
        life.ink.color = color(bytes);
        life.ink.width = width(bytes);
        if (bytes.below(4) == 3)
            life.ink.option = bytes.integer();
    } else {
        life.tool = QLatin1String(kPictureTool);
        life.picture = picture(bytes);
        life.position = point(bytes);
    }
    if (bytes.below(8) != 7) {
        life.acts.push_back(PointerAct{PT_DOWN, point(bytes)});
        life.acts.push_back(PointerAct{PT_MOVE, point(bytes)});
        life.acts.push_back(PointerAct{PT_UP, point(bytes)});
    }
    for (int acts = bytes.below(kMostActs); acts > 0; --acts)
        life.acts.push_back(act(bytes));
    if (bytes.below(16) != 15)
        life.acts.push_back(FinishAct());
    return life;
}

} // namespace Fuzz
