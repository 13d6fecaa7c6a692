#include "Host.h"

#include <CInk5Stars>
#include <CInkEllipse>
#include <CInkPencil>
#include <CInkPolygon>
#include <CInkRectangle>

namespace {
template <typename Tool>
std::unique_ptr<CInkGraph> make()
{
    return std::make_unique<Tool>();
}

constexpr decltype(&make<CInkPencil>) kTools[] = {make<CInkPencil>, make<CInkRectangle>, make<CInkEllipse>,
                                                  make<CInk5Stars>, make<CInkPolygon>};
} // namespace

Host::Host()
    : m_background(640, 400, QImage::Format_ARGB32_Premultiplied)
    , m_ink(m_background.size(), m_background.format())
{
    m_background.fill(Qt::white);
    m_ink.fill(Qt::transparent);
    m_page = m_surface = m_background;
    setFixedSize(m_page.size());
}

void Host::feed(int code, const QPoint &pt)
{
    if (!m_object && code == PT_DOWN) {
        m_object = kTools[m_tool]();
        m_object->SetColor(Qt::darkBlue);
        m_object->SetWidth(4);
    }
    if (!m_object) // committed by the press before this release
        return;
    QRect update; // null, and united with what the object covered before the event and covers after it
    m_object->AddPoint(code, pt, update);
    draw(update | m_object->GetUpdateRect());
}

void Host::draw(const QRect &area)
{
    showPage(area);
    {
        QPainter page(&m_page), surface(&m_surface), background(&m_background), ink(&m_ink);
        m_object->Draw(page, surface, background, ink, area, /*reserved*/ 0, /*skip*/ 0);
    }
    if (m_object->m_bFinished) { // and on the page now; what is left of its handles goes
        m_finished.push_back(std::move(m_object));
        showPage(rect());
    }
}

void Host::showPage(const QRect &area)
{
    QPainter(&m_surface).drawImage(area, m_page, area); // replaces: the page is opaque
    update(area);
}

// A widget is sent this instead of a quick second press. It is a press to every tool, or the second of two quick
// strokes would be lost. Only an object that takes several gestures is told of the double click as well.
void Host::mouseDoubleClickEvent(QMouseEvent *event)
{
    const bool takesSeveralGestures = m_object && !m_object->m_bEditMode;
    feed(PT_DOWN, event->pos());
    if (takesSeveralGestures)
        feed(PT_DBLCLK, event->pos());
}

void Host::keyPressEvent(QKeyEvent *event)
{
    m_tool = qBound(0, event->key() - Qt::Key_1, 4);
    const QRect before = m_object ? m_object->GetUpdateRect() : QRect();
    if (m_object && m_object->FinishGraph())
        draw(before | m_object->GetUpdateRect());
}
