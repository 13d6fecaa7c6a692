#include "Page.h"

#include <CInkColorBrush>
#include <CInkCrayon>
#include <CInkEraser>
#include <CInkFlatBrush>
#include <CInkFloodFillEx>
#include <CInkPenGraph>
#include <CInkRgnSelect>
#include <CInkSprayGun>
#include <CInkText>

#include <algorithm>

namespace Guide {

namespace {

// Takes an object out of a list that holds it.
Page::Object take(std::vector<Page::Object> &objects, const CInkGraph &object)
{
    const auto found =
        std::find_if(objects.begin(), objects.end(), [&](const auto &one) { return one.get() == &object; });
    Page::Object taken = std::move(*found);
    objects.erase(found);
    return taken;
}

} // namespace

Page::Page(const QSize &size)
    : m_layers(size)
{
}

CInkGraph &Page::begin(Object object)
{
    m_inProgress.push_back(std::move(object));
    return *m_inProgress.back();
}

//! [feed]
QRect Page::feed(CInkGraph &object, int code, const QPoint &pt)
{
    if (object.m_bFinished)
        return {}; // by its press or its move; the release is not for it any more
    QRect update;  // a null rectangle for each event
    object.AddPoint(code, pt, update);
    return object.m_bFinished ? commit(object) : repaint(reachOf(object, update));
}
//! [feed]

//! [reach]
QRect Page::reachOf(CInkGraph &object, const QRect &update) const
{
    // Each point of the flat brush shifts its whole stroke. The others report the newest of their new points alone.
    if (dynamic_cast<CInkFlatBrush *>(&object) || dynamic_cast<CInkColorBrush *>(&object) ||
        dynamic_cast<CInkCrayon *>(&object) || dynamic_cast<CInkSprayGun *>(&object))
        return rect();
    return update | object.GetUpdateRect();
}
//! [reach]

//! [repaint]
QRect Page::repaint(QRect area)
{
    for (const Object &object : m_inProgress)
        area |= object->GetUpdateRect(); // it paints there, whatever rectangle it is handed
    area.adjust(-1, -1, 1, 1);
    m_layers.restore(area);
    for (const Object &object : m_inProgress) {
        if (dynamic_cast<CInkFloodFillEx *>(object.get()))
            continue; // paints nothing here before its commit, but would fill the page
        const bool erases = dynamic_cast<CInkEraser *>(object.get());
        m_layers.draw(*object, erases ? area.adjusted(1, 1, -1, -1) : area); // the eraser adds a pixel on each side
    }
    return area & rect();
}
//! [repaint]

//! [commit]
QRect Page::commit(CInkGraph &object)
{
    m_committed.push_back(take(m_inProgress, object));
    m_layers.draw(object, rect()); // once
    return repaint(rect());
}
//! [commit]

//! [finish]
QRect Page::finish(CInkGraph &object)
{
    return object.FinishGraph() ? commit(object) : cancel(object);
}

QRect Page::cancel(CInkGraph &object)
{
    take(m_inProgress, object); // and let it go: it has painted on the surface alone
    return repaint(rect());
}
//! [finish]

//! [rebuild]
QRect Page::rebuild(int reserved)
{
    m_layers.clear();
    for (const Object &object : m_committed)
        m_layers.draw(*object, rect(), reserved);
    return repaint(rect());
}

QRect Page::remove(CInkGraph &object)
{
    take(m_committed, object);
    return rebuild();
}

QRect Page::setBackground(const QImage &background)
{
    m_layers.background = background.convertToFormat(QImage::Format_RGB32);
    return rebuild(/*reserved*/ 1); // the erasers take the new one
}
//! [rebuild]

//! [reopen]
bool canReopen(const CInkGraph &object)
{
    const bool isStroke = dynamic_cast<const CInkPenGraph *>(&object);
    const bool isSelection = dynamic_cast<const CInkRgnSelect *>(&object);
    return object.m_bFinished && object.m_bEditMode && !isStroke && !isSelection;
}

QRect Page::reopen(CInkGraph &object)
{
    if (!canReopen(object))
        return {};
    m_inProgress.push_back(take(m_committed, object));
    object.m_bFinished = 0;
    object.m_bHideHotShape = 0;
    if (auto *text = dynamic_cast<CInkText *>(&object))
        text->m_bClickOutside = 0;
    return rebuild();
}
//! [reopen]

} // namespace Guide
