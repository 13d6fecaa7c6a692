#include "Page.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace Board {

Page::Page(const QSize &size)
    : m_layers(size)
{
}

Page::~Page() = default;

QRect Page::begin(std::unique_ptr<CInkGraph> object, Reach reach, Successor successor)
{
    const QRect changed = finish();
    m_reach = reach;
    m_successor = successor;
    m_succeeds = false;
    m_object = std::move(object);
    return changed;
}

QRect Page::insert(std::unique_ptr<CInkGraph> object)
{
    const QRect changed = begin(std::move(object));
    return changed | paint(m_object->GetUpdateRect());
}

QRect Page::feed(int code, const QPoint &pt)
{
    return feed(code, std::vector<QPoint>{pt});
}

QRect Page::feed(int code, const std::vector<QPoint> &pts)
{
    if (!m_object)
        return {};
    QRect reach;
    for (const QPoint &pt : pts) {
        QRect update; // fresh: some objects assign it
        m_object->AddPoint(code, pt, update);
        reach |= update | m_object->GetUpdateRect();
    }
    if (m_object->m_bFinished)
        return commit(reach);
    return paint(m_reach == Reach::Everywhere ? rect() : reach);
}

QRect Page::finish()
{
    QRect changed;
    while (m_object) { // then its successor, which has none
        // What its editor has committed is as it should be: a frame of text would be laid out anew.
        const bool kept = m_object->m_bFinished || m_object->FinishGraph();
        changed |= kept ? commit(m_object->GetUpdateRect()) : discard();
    }
    return changed;
}

bool Page::isForming() const
{
    return m_object && !m_object->m_bEditMode;
}

ModifyType Page::handleAt(const QPoint &pt)
{
    return m_object ? m_object->AroundHotPts(pt) : MT_NONE;
}

float Page::angle() const
{
    return m_object ? m_object->GetRotateAngle() : 0.0f;
}

QRect Page::paint(const QRect &reach, Background background)
{
    const QRect area = onPage(reach);
    m_touched |= area;
    m_layers.showPage(area);
    m_layers.draw(*m_object, area, background);
    return area;
}

// The painting of a committed object also puts it on the page and into the ink.
QRect Page::commit(const QRect &reach)
{
    const QRect area = onPage(reach);
    const auto layers = [&] {
        // A copy of an empty rectangle would be a copy of everything.
        return area.isEmpty() ? std::pair<QImage, QImage>()
                              : std::make_pair(m_layers.page().copy(area), m_layers.ink().copy(area));
    };
    const auto before = layers();
    paint(reach);
    std::unique_ptr<CInkGraph> next;
    if (layers() != before) {
        next = m_successor ? m_successor(*m_object, rect().size()) : nullptr;
        m_steps.push_back({std::move(m_object), reach, m_succeeds});
    }
    QRect changed = discard();
    if (next) {
        changed |= insert(std::move(next));
        m_succeeds = true;
    }
    return changed;
}

// Forgets the object in progress and what it has left on the surface. A thick stroke is clipped to a tighter
// rectangle once it is committed, so this is not only for abandoned objects.
QRect Page::discard()
{
    m_object.reset();
    m_layers.showPage(m_touched);
    return std::exchange(m_touched, QRect());
}

QRect Page::undo()
{
    const QRect finished = finish();
    if (m_steps.empty())
        return finished;
    while (m_steps.back().succeeds)
        m_steps.pop_back();
    m_steps.pop_back();
    replay();
    return rect();
}

QRect Page::clear()
{
    const QRect finished = finish();
    if (m_steps.empty() || !m_steps.back().object)
        return finished;
    m_steps.push_back({});
    replay();
    return rect();
}

void Page::grow(const QSize &size)
{
    const QSize grown = size.expandedTo(rect().size());
    if (grown == rect().size())
        return;
    Layers layers(grown);
    if (layers.isNull())
        return; // a smaller page is better than none
    m_layers = std::move(layers);
    replay(Background::New);
}

void Page::replay(Background background)
{
    m_layers.reset();
    const auto cleared = std::find_if(m_steps.rbegin(), m_steps.rend(), [](const Step &step) { return !step.object; });
    // Each in the area of its commit, so that its clip, and with it every pixel, is the same again.
    for (auto step = cleared.base(); step != m_steps.end(); ++step)
        m_layers.draw(*step->object, onPage(step->reach), background);
    m_layers.showPage(rect());
    if (m_object)
        paint(rect(), background);
}

} // namespace Board
