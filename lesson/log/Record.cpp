#include "lesson/log/Record.h"

#include "lesson/objects/Tools.h"

namespace InkLesson {

// What has handles is what it is after all that was done to it; what has none is drawn again with the other pen.
Life changed(Life life, const Change &change)
{
    const bool again = !canReopen(life);
    if (change.color && again)
        life.ink.color = *change.color;
    else if (change.color)
        life.acts.emplace_back(ColorAct{*change.color});
    if (change.width && again)
        life.ink.width = *change.width;
    else if (change.width)
        life.acts.emplace_back(WidthAct{*change.width});
    if (change.dash && again)
        life.ink.dash = *change.dash;
    else if (change.dash)
        life.acts.emplace_back(DashAct{*change.dash});
    if (change.option)
        life.ink.option = change.option;
    shift(life, change.by);
    life.acts.insert(life.acts.end(), change.acts.begin(), change.acts.end());
    return life;
}

} // namespace InkLesson
