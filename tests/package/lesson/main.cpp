// A host that lives the life of a line again.

#include "lesson/objects/Life.h"

#include "CInkGraph.h"
#include "PointerEvent.h"

int main()
{
    using namespace InkLesson;

    Life life{QStringLiteral("line"), {Qt::red, 4}, {400, 300}};
    life.acts = {PointerAct{PT_DOWN, {10, 20}}, PointerAct{PT_UP, {110, 20}}, FinishAct()};
    const LivedObject lived = live(life);
    return lived.object && lived.object->m_bFinished && lived.object->m_graphData.size() == 2 ? 0 : 1;
}
