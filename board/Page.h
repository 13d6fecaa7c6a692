#pragma once

#include "Record.h"

#include "lesson/layers/Layers.h"
#include "lesson/layers/Patch.h"

#include "CInkGraph.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace Board {

using InkLesson::Background;
using InkLesson::Layers;
using InkLesson::Patch;

// A page with its committed objects and at most one object in progress.
//
// Every operation that changes what is shown returns the area to repaint, in page pixels; nothing outside that
// area has changed. While no object is in progress the surface equals the picture.
class Page
{
public:
    // Blank and white. `density` is how many of its pixels lie along one of a plain screen.
    explicit Page(const QSize &size, double density = 1);
    ~Page();

    // There was not enough memory: nothing but the destructor may be called.
    bool isNull() const { return m_layers.isNull(); }

    QRect rect() const { return m_layers.rect(); }
    double density() const { return m_density; }
    const QImage &surface() const { return m_layers.surface(); }
    const QImage &picture() const { return m_layers.page(); }
    const QImage &ink() const { return m_layers.ink(); }
    const QImage &background() const { return m_layers.background(); }
    const Paper &paper() const { return m_paper; }

    // Is told of each step once it is done. What is undone and redone is none.
    using Listener = std::function<void(const Record &record)>;
    void setListener(Listener listener) { m_listener = std::move(listener); }

    // Does again what a listener was told of. False when it does not fit the page, which is then as before.
    bool play(const Record &record);

    // Where an object in progress paints: in what it reports, or anywhere.
    enum class Reach { Reported, Everywhere };

    // What is edited on in place of an object that was just committed, such as the pixels that it has lifted.
    using Successor = std::optional<Life> (*)(CInkGraph &committed, const QSize &canvas);

    // Takes the object that the next events go to, with its life so far; one in progress is finished first.
    QRect begin(Life life, std::unique_ptr<CInkGraph> object, Reach reach = Reach::Reported,
                Successor successor = nullptr);

    // Takes one that cannot be told to a listener.
    QRect begin(std::unique_ptr<CInkGraph> object, Reach reach = Reach::Reported);

    // Shows an object that is edited from the start.
    QRect insert(Life life);

    // Gives a committed object its handles again. It is shown on top of the others until it is let go.
    QRect reopen(int id);

    // Hands one PointerEvent to the object in progress. An event that commits it also ends its progress. Without
    // such an object the event is lost.
    QRect feed(int code, const QPoint &pt);

    // Hands over several at once, and paints once.
    QRect feed(int code, const std::vector<QPoint> &pts);

    // Does something else to the object in progress.
    QRect act(const Act &act);

    // Commits the object in progress. One that paints nothing is forgotten and has no successor.
    QRect finish();

    // Takes the object in progress away.
    QRect discard();

    bool isBusy() const { return bool(m_object); }                      // there is an object in progress
    CInkGraph *object() { return m_object.get(); }                      // in progress, or null
    QString tool() const { return m_object ? m_life.tool : QString(); } // of the object in progress
    bool isForming() const;                                             // ... and it is still being drawn
    int reopened() const;                  // the number of the object in progress where that was committed before, or 0
    ModifyType handleAt(const QPoint &pt); // of the object in progress; not during a drag
    float angle() const;                   // of the object in progress, degrees clockwise

    // A committed object.
    struct Item
    {
        int id;
        Life life;
        std::unique_ptr<CInkGraph> object;
        QRect reach;    // that it was painted in
        int background; // that it was last painted over, one of those that there have been
    };
    using Items = std::vector<std::shared_ptr<Item>>; // the lowest first

    const Items &items() const { return m_items; }
    const Item *item(int id) const; // null when there is none

    // The topmost object that has painted within `reach` pixels to all sides; 0 when there is none.
    int topmostAt(const QPoint &pt, int reach = 3) const;

    // Steps on committed objects; one in progress is finished first. Nothing happens when they change nothing.
    QRect replace(int id, Life life);
    QRect remove(int id);
    QRect reorder(int id, int place);
    QRect clear();
    QRect setPaper(const Paper &paper);

    // A copy of an object, moved, on top of all. Returns the number of the copy, or 0.
    int duplicate(int id, const QPoint &by);

    // Finishes the object in progress and takes back the last step. A successor goes together with the object that it
    // came from.
    QRect undo();
    QRect redo();
    bool canUndo() const { return isBusy() || m_done > 0; }
    bool canRedo() const { return m_done < m_steps.size(); }

    // Makes the page at least as large as `size`; it never shrinks.
    void grow(const QSize &size);

private:
    // What one step has exchanged, for the way back. The first of all steps may have lost their pixels to a bound on
    // memory: their way back is to paint the page anew.
    struct Step
    {
        bool succeeds{}; // the step before
        std::shared_ptr<Item> added{};
        std::optional<Items> items{};
        std::optional<Paper> paper{};
        bool hasPixels{true};
        Patch page{};
        Patch ink{};
    };

    // The layers as they were.
    struct Pixels
    {
        QImage page;
        QImage ink;
        QPoint origin;
    };

    QRect onPage(const QRect &reach) const { return reach & rect(); }
    Pixels pixels(const QRect &area) const;
    QRect paint(const QRect &reach, Background background = Background::Same);
    QRect commit(const QRect &reach);
    QRect commitReopened();
    QRect drop();
    QRect replace(int id, Life life, const Pixels &before);
    QRect change(Items items, const Pixels &before, const Record &record);
    Items without(int id) const;
    std::optional<std::size_t> indexOf(int id) const;
    void keepDifference(Step &step, const Pixels &before) const;
    void push(Step step, const Record &record);
    void exchange(Step &step, bool undoes);
    void boundMemory();
    void layPaper();
    void replay();
    bool play(const DrawRecord &record);

    Layers m_layers;
    const double m_density;
    Items m_items;
    Paper m_paper;
    int m_backgrounds{}; // that there have been: an eraser keeps a copy of the one it was painted over
    std::vector<Step> m_steps;
    std::size_t m_done{}; // of the steps; the others are undone
    int m_nextId{1};
    Listener m_listener;

    std::unique_ptr<CInkGraph> m_object;
    Life m_life; // all of the object in progress
    Reach m_reach{Reach::Reported};
    Successor m_successor{};
    bool m_succeeds{};
    QRect m_touched; // where it has been painted so far

    // The page before its object was reopened.
    struct Reopened
    {
        std::shared_ptr<Item> item;
        Items items;
        Pixels pixels;
    };
    std::optional<Reopened> m_reopened;
};

} // namespace Board
