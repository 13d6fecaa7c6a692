#include "board/gestures/Drawing.h"

#include "board/desk/Desk.h"
#include "board/tools/Tools.h"

#include "CInkGraph.h"
#include "PointerEvent.h"

#include <QtCore/QLineF>

#include <algorithm>
#include <cstdlib>

namespace Board {

using namespace InkLesson;

namespace {

constexpr int kScatterInterval = 16; // milliseconds, about sixty times a second
constexpr double kSnapAngle = 15.0;  // degrees
constexpr int kTapReach = 6;         // pixels of a plain screen that a tap may slip

// The line from the press turns to the nearest multiple of 15 degrees, or its box becomes a square.
QPoint snappedTo(Snap snap, const QPoint &from, const QPoint &to)
{
    const QPoint by = to - from;
    if (snap == Snap::Angle) {
        const QLineF line(from, to);
        return QLineF::fromPolar(line.length(), qRound(line.angle() / kSnapAngle) * kSnapAngle)
            .translated(from)
            .p2()
            .toPoint();
    }
    if (snap == Snap::Square) {
        const int side = std::max(std::abs(by.x()), std::abs(by.y()));
        return from + QPoint(by.x() < 0 ? -side : side, by.y() < 0 ? -side : side);
    }
    return to;
}

} // namespace

Drawing::Drawing(Desk &desk)
    : m_desk(desk)
    , m_tool(*desk.tool)
{
    m_scattering.setInterval(kScatterInterval);
    m_scattering.callOnTimeout([this] { scatter(); });
}

void Drawing::press(const PointerSpot &at)
{
    m_last = m_press = at.pt;
    const Hand *hand = m_desk.inHand.author().hand();
    m_continues = hand && hand->isForming();
    if (!hand)
        takeObject();
    m_desk.inHand.feed(PT_DOWN, m_last);
    m_desk.inHand.expectMoves();
    if (m_tool.scatters()) {
        m_scattering.start();
        scatter();
    }
}

void Drawing::takeObject()
{
    m_desk.inHand.setEdit(m_tool.edit);
    const QSize size = m_desk.page().rect().size();
    const Ink ink = m_desk.pageInk();
    auto object = createObject(*m_tool.kind, ink, size);
    m_desk.nameTag.sign(*object);
    m_desk.inHand.author().begin({QLatin1String(m_tool.name), ink, size}, std::move(object));
}

// Only an object whose drawing takes several gestures is told of the double click as well: to all others it would be
// one more point of a stroke that has just begun.
void Drawing::pressTwice(const PointerSpot & /*at*/)
{
    if (m_continues)
        m_desk.inHand.author().feed(PT_DBLCLK, m_last);
}

void Drawing::move(const PointerSpot &at)
{
    const QPoint pt = snapped(at);
    m_isTap = m_isTap && pt == m_last;
    m_last = pt;
    if (m_isTap && m_tool.tapsWithOnePoint())
        return;
    if (m_tool.scatters())
        scatter();
    else if (m_desk.inHand.hand())
        m_desk.inHand.addMoves({m_last});
}

void Drawing::scatter()
{
    if (m_desk.inHand.hand())
        m_desk.inHand.addMoves(m_desk.scatter.around(m_last, m_desk.pageInk().width));
    else
        m_scattering.stop();
}

void Drawing::release(const PointerSpot &at)
{
    if (isTapForBox(at.pt))
        drawTapped();
    else
        end(snapped(at));
}

bool Drawing::isTapForBox(const QPoint &pt) const
{
    const Hand *hand = m_desk.inHand.hand();
    return !m_tool.tapSize.isEmpty() && hand && hand->isForming() &&
           (pt - m_press).manhattanLength() <= kTapReach * m_desk.document.density();
}

// Anew, since the box begins elsewhere where what is seen of the page has too little room beside the press.
void Drawing::drawTapped()
{
    const QRect seen = m_desk.view().seen();
    const QSize size = m_tool.tapSize * m_desk.document.density();
    const QPoint corner(std::max(std::min(m_press.x(), seen.right() - size.width()), seen.left()),
                        std::max(std::min(m_press.y(), seen.bottom() - size.height()), seen.top()));
    m_desk.inHand.author().discard();
    takeObject();
    m_desk.inHand.feed(PT_DOWN, corner);
    end(corner + QPoint(size.width(), size.height()));
}

void Drawing::end(const QPoint &pt)
{
    m_scattering.stop();
    if (m_tool.tapsWithOnePoint() && m_isTap && pt == m_last)
        m_desk.inHand.author().finish();
    else
        m_desk.inHand.feed(PT_UP, pt);
}

void Drawing::letGo()
{
    if (m_desk.inHand.author().hand())
        end(m_last);
}

// What a palm has drawn before its pen came is taken away.
void Drawing::cancel()
{
    m_scattering.stop();
    const Hand *hand = m_desk.inHand.author().hand();
    if (hand && hand->isForming())
        m_desk.inHand.author().discard();
    else if (hand)
        end(m_last);
}

QPoint Drawing::snapped(const PointerSpot &at) const
{
    const Hand *hand = m_desk.inHand.hand();
    return at.snaps && hand && hand->isForming() ? snappedTo(m_tool.snap, m_press, at.pt) : at.pt;
}

} // namespace Board
