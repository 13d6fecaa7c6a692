#include "board/desk/Desk.h"

#include "lesson/layers/HitTest.h"
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

int Desk::holderAt(const QPoint &pt)
{
    const auto &hands = page().hands();
    const auto found = std::find_if(hands.begin(), hands.end(), [&](const InkLesson::Hand &hand) {
        return hand.author != document.author().number() && hand.held != InkLesson::kNothing &&
               InkLesson::paintsNear(*hand.object, pt, reach());
    });
    return found == hands.end() ? 0 : found->author;
}

InkLesson::ObjectId Desk::topmostAt(const QPoint &pt)
{
    return page().topmostAt(pt, reach());
}

} // namespace Board
