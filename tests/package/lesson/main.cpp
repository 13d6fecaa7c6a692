// A host that lives the life of a line again, and draws a box as docs/lesson.md shows.

#include "lesson/objects/Life.h"

#include "CInkGraph.h"

//! [drawing]
#include "lesson/authoring/Author.h"

#include <PointerEvent>

#include <QtCore/QDateTime>

void drawABox(InkLesson::Lesson &lesson)
{
    lesson.pageChanged = [](const InkLesson::PageId &, const QRegion &) { /* show that area of the page */ };

    InkLesson::Author author(lesson, 1, [] { return QDateTime::currentMSecsSinceEpoch(); });
    author.begin({"rectangle", {Qt::red, 4}, {1280, 800}});
    author.feed(PT_DOWN, {100, 100});
    author.feed(PT_MOVE, {200, 160});
    author.feed(PT_UP, {200, 160}); // a step of its own; the box stays in the hand, with its handles
    author.undo();                  // takes back what this author has done, and nothing else
    author.redo();
    author.finish(); // lets the box go
}
//! [drawing]

namespace {

bool livesALine()
{
    using namespace InkLesson;

    Life life{QStringLiteral("line"), {Qt::red, 4}, {400, 300}};
    life.acts = {PointerAct{PT_DOWN, {10, 20}}, PointerAct{PT_UP, {110, 20}}, FinishAct()};
    const LivedObject lived = live(life);
    return lived.object && lived.object->m_bFinished && lived.object->m_graphData.size() == 2;
}

bool drawsABox()
{
    InkLesson::Lesson lesson({{1280, 800}});
    drawABox(lesson);
    const InkLesson::Page &page = lesson.page(InkLesson::kFirstPage);
    return page.items().size() == 1 && page.picture().pixelColor(100, 130) == QColor(Qt::red) &&
           page.picture().pixelColor(150, 130) == QColor(Qt::white);
}

} // namespace

int main()
{
    return livesALine() && drawsABox() ? 0 : 1;
}
