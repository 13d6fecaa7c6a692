#include "lesson/authoring/Pointer.h"

#include "CInkText.h"
#include "PointerEvent.h"

#include <QtGui/QPainter>

namespace InkLesson {

namespace {

constexpr int kInset = 5; // page pixels; a text paints its image that far inside its frame

} // namespace

Pointer::Pointer(Author &author, quint32 seed)
    : m_author(author)
    , m_scatter(seed)
{
}

void Pointer::setTool(const QString &name)
{
    m_author.finish();
    m_tool = name;
}

const Tool *Pointer::toolInHand() const
{
    const Hand *hand = m_author.hand();
    return hand ? hand->tool : nullptr;
}

bool Pointer::mayBeTap() const
{
    const Tool *tool = toolInHand();
    return m_isTapping && tool && tool->tapsWithOnePoint;
}

void Pointer::press(const QPoint &pt)
{
    const Hand *hand = m_author.hand();
    m_continues = hand && hand->isForming();
    m_last = pt;
    m_isDown = m_isTapping = true;
    if (!hand && m_tool == QLatin1String(kAreaTool)) {
        m_author.pour(pt, m_ink.color);
        return;
    }
    if (!hand)
        m_author.begin({m_tool, m_ink, m_author.canvas()});
    m_author.feed(PT_DOWN, pt);
    scatter();
}

void Pointer::move(const QPoint &pt)
{
    if (!m_isDown)
        return;
    m_isTapping = m_isTapping && pt == m_last;
    m_last = pt;
    const Tool *tool = toolInHand();
    if (tool && tool->scatters)
        scatter();
    else if (!mayBeTap())
        m_author.feed(PT_MOVE, pt);
}

void Pointer::release(const QPoint &pt)
{
    if (!m_isDown)
        return;
    m_isDown = false;
    m_isTapping = m_isTapping && pt == m_last;
    if (mayBeTap())
        m_author.finish();
    else
        m_author.feed(PT_UP, pt);
}

// Where it stands for a press, it is one to every tool, or the second of two quick strokes would be lost. Only an
// object that takes several gestures is told of the double click as well: to the others it would be one more point.
void Pointer::doubleClick(const QPoint &pt)
{
    if (!m_isDown)
        press(pt);
    if (m_continues)
        m_author.feed(PT_DBLCLK, pt);
}

void Pointer::scatter()
{
    const Tool *tool = toolInHand();
    if (tool && tool->scatters)
        m_author.feed(PT_MOVE, m_scatter.around(m_last, m_author.hand()->life.ink.width));
}

bool Pointer::awaitsText() const
{
    const Tool *tool = toolInHand();
    return tool && tool->takesText && !m_author.hand()->isForming();
}

void Pointer::enterText(const QString &text, const QFont &font)
{
    const auto *frame = awaitsText() ? dynamic_cast<CInkText *>(m_author.object()) : nullptr;
    if (!frame)
        return;
    QImage image(frame->m_rcImage.size() - QSize(2 * kInset, 2 * kInset), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    {
        QPainter painter(&image);
        painter.setFont(font);
        painter.setPen(frame->m_color);
        painter.drawText(image.rect(), Qt::TextWordWrap, text);
    }
    m_author.act(TextAct{text, exactImage(image)});
    m_author.finish();
}

} // namespace InkLesson
