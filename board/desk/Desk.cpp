#include "board/desk/Desk.h"

#include "lesson/pages/Page.h"

#include <algorithm>

namespace Board {

namespace {

constexpr double kReach = 3.0; // widget pixels around the pointer that an object is met in

} // namespace

Desk::Desk(Document &lesson, QWidget &canvas)
    : document(lesson)
    , navigator(canvas)
    , inHand(lesson, navigator, canvas)
    , scatter(QRandomGenerator::global()->generate())
    , tool(&tools().front())
{
}

Ink Desk::pageInk() const
{
    Ink inPage = ink;
    inPage.width = std::max(qRound(ink.width * document.density()), 1);
    return inPage;
}

int Desk::reach()
{
    return view().pageLength(kReach);
}

InkLesson::ObjectId Desk::topmostAt(const QPoint &pt)
{
    return page().topmostAt(pt, reach());
}

} // namespace Board
