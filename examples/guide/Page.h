#pragma once

#include "Layers.h"

#include <CInkGraph>

#include <QtCore/QPoint>

#include <memory>
#include <vector>

namespace Guide {

// A page with committed objects, and with any number of objects in progress above them.
//
// Every operation returns what of the surface is to be shown anew.
class Page
{
public:
    using Object = std::unique_ptr<CInkGraph>;

    explicit Page(const QSize &size);

    const Layers &layers() const { return m_layers; }
    const std::vector<Object> &committed() const { return m_committed; }

    // Takes an object whose events are to come. It lies above those that are in progress already.
    CInkGraph &begin(Object object);

    // Hands one event to an object in progress.
    QRect feed(CInkGraph &object, int code, const QPoint &pt);

    // Commits an object in progress; one that holds nothing to commit is dropped.
    QRect finish(CInkGraph &object);

    // Drops an object in progress.
    QRect cancel(CInkGraph &object);

    // Puts an object that has become finished onto the page.
    QRect commit(CInkGraph &object);

    // Takes a committed object away.
    QRect remove(CInkGraph &object);

    // Gives a committed object its handles again.
    QRect reopen(CInkGraph &object);

    // Replaces the background, which has the page's size.
    QRect setBackground(const QImage &background);

    // Paints the committed objects anew.
    QRect rebuild(int reserved = 0);

private:
    QRect reachOf(CInkGraph &object, const QRect &update) const;
    QRect repaint(QRect area);
    QRect rect() const { return m_layers.rect(); }

    Layers m_layers;
    std::vector<Object> m_committed;  // the first lowest
    std::vector<Object> m_inProgress; // the first lowest
};

// Whether a committed object can be edited again.
bool canReopen(const CInkGraph &object);

} // namespace Guide
