#pragma once

#include "Layers.h"

#include "CInkGraph.h"

#include <memory>
#include <vector>

namespace Board {

// A page with its committed objects and at most one object in progress.
//
// Every operation that changes what is shown returns the area to repaint, in page pixels; nothing outside that
// area has changed. While no object is in progress the surface equals the picture.
class Page
{
public:
    // Blank and white.
    explicit Page(const QSize &size);
    ~Page();

    // There was not enough memory: nothing but the destructor may be called.
    bool isNull() const { return m_layers.isNull(); }

    QRect rect() const { return m_layers.rect(); }
    const QImage &surface() const { return m_layers.surface(); }
    const QImage &picture() const { return m_layers.page(); }
    const QImage &ink() const { return m_layers.ink(); }

    // Where an object in progress paints: in what it reports, or anywhere.
    enum class Reach { Reported, Everywhere };

    // What is edited on in place of an object that was just committed, such as the pixels that it has lifted.
    using Successor = std::unique_ptr<CInkGraph> (*)(CInkGraph &committed, const QSize &canvas);

    // Takes the object that the next events go to; one in progress is finished first.
    QRect begin(std::unique_ptr<CInkGraph> object, Reach reach = Reach::Reported, Successor successor = nullptr);

    // Shows an object that is edited from the start.
    QRect insert(std::unique_ptr<CInkGraph> object);

    // Hands one PointerEvent to the object in progress. An event that commits it also ends its progress. Without
    // such an object the event is lost.
    QRect feed(int code, const QPoint &pt);

    // Hands over several at once, and paints once.
    QRect feed(int code, const std::vector<QPoint> &pts);

    // Commits the object in progress. One that paints nothing is forgotten and has no successor.
    QRect finish();

    // Takes the object in progress away.
    QRect discard();

    bool isBusy() const { return bool(m_object); } // there is an object in progress
    CInkGraph *object() { return m_object.get(); } // in progress, or null
    bool isForming() const;                        // ... and it is still being drawn
    ModifyType handleAt(const QPoint &pt);         // of the object in progress; not during a drag
    float angle() const;                           // of the object in progress, degrees clockwise

    // Finishes the object in progress and takes back the last object, or the last clear(). A successor goes together
    // with the object that it came from.
    QRect undo();
    bool canUndo() const { return isBusy() || !m_steps.empty(); }

    // Finishes the object in progress and takes all ink away.
    QRect clear();

    // Makes the page at least as large as `size`; it never shrinks.
    void grow(const QSize &size);

private:
    // A committed object with the area that it was painted in; without an object, the page was cleared.
    struct Step
    {
        std::unique_ptr<CInkGraph> object;
        QRect reach;
        bool succeeds{}; // the object before
    };

    QRect onPage(const QRect &reach) const { return reach & rect(); }
    QRect paint(const QRect &reach, Background background = Background::Same);
    QRect commit(const QRect &reach);
    void replay(Background background = Background::Same);

    Layers m_layers;
    std::vector<Step> m_steps;
    std::unique_ptr<CInkGraph> m_object;
    Reach m_reach{Reach::Reported}; // all of the object in progress
    Successor m_successor{};
    bool m_succeeds{};
    QRect m_touched; // where it has been painted so far
};

} // namespace Board
