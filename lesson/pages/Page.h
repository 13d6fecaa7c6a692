#pragma once

#include "lesson/Export.h"
#include "lesson/log/StepId.h"
#include "lesson/objects/Life.h"
#include "lesson/pages/Hand.h"
#include "lesson/pages/PackedLayers.h"
#include "lesson/pages/PageLayers.h"
#include "lesson/pages/Sketch.h"
#include "lesson/pages/Workers.h"
#include "lesson/paper/Paper.h"
#include "lesson/paper/PaperPainter.h"

#include "CInkGraph.h"

#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

namespace InkLesson {

// A committed object as a page shows it.
struct Item
{
    ObjectId id;
    const Tool *tool; // null for a placed picture
    std::unique_ptr<CInkGraph> object;
    QRect asked;                            // to be repainted by each Draw
    bool isWhole{};                         // a part of it, painted alone, may differ in a pixel
    QRect reach{};                          // that it may paint in
    int background{};                       // that it was last painted over, one of those that there have been
    std::shared_ptr<const Sprite> sprite{}; // what it has painted, where that can be painted again
    QSize spritePage{};                     // the size of the page then
    bool isTooRich{};                       // for a sprite
    bool isBare{};                          // the object has no pixels of its own any more
};

// What the pages of a lesson have in common.
struct CommonPixels
{
    PaintedPapers papers;
    std::unique_ptr<PageLayers> spare; // of a page that gave its pixels back; null without
};

// What a page shows: its paper, its committed objects, and over them those that its authors have in hand.
//
// Every change of the committed objects is painted by the next repaint(), in the area that has changed and with the
// objects alone whose ink meets that, to the same pixels as if the whole page were painted anew. A page that nobody
// looks at has no pixels, whatever is done to it.
class INKLESSON_EXPORT Page
{
public:
    // Blank and white. `density` is how many of its pixels lie along one of a plain screen.
    explicit Page(const QSize &size, double density = 1,
                  std::shared_ptr<CommonPixels> common = std::make_shared<CommonPixels>());
    ~Page();

    // There is not enough memory for its pixels.
    bool isNull() const { return layers().isNull(); }

    QRect rect() const { return m_rect; }
    double density() const { return m_density; }
    const Paper &paper() const { return m_paper; }

    // The pixels. They are made, and painted, when they are asked for first; null where there is not enough memory.
    const QImage &surface() const { return layers().surface(); }
    const QImage &picture() const { return layers().page(); }
    const QImage &ink() const { return layers().ink(); }
    const QImage &background() const { return layers().background(); }

    // Whether there are pixels. Those of a page that is not shown any more may be given back until they are asked for
    // again; what was given back last is kept for the next page that comes back from a note.
    bool isPainted() const { return m_layers && !m_layers->isNull(); }
    void release();

    // Notes what its pixels show, in less memory. Until something changes, or the note is dropped, it is painted from
    // that. A page without pixels is left as it is.
    void pack();
    std::size_t packedBytes() const { return m_packed ? m_packed->bytes() : 0; }
    const PackedLayers *packed() const { return m_packed.get(); } // null without
    void dropPacked() { m_packed.reset(); }

    // The same with a note that was made elsewhere of a page of this size with the same objects. The page has no pixels
    // yet.
    void show(std::unique_ptr<PackedLayers> packed);

    // Gives an object of the page anew, as it was put there. Where there is such a function, objects whose sprites are
    // kept give back what they have rendered for themselves.
    std::function<std::unique_ptr<CInkGraph>(const ObjectId &id)> relive;

    // The object of an item, whole.
    CInkGraph &whole(Item &item) const;

    // May do what takes long together, from now on; null for none.
    void lend(Workers *workers);

    // Does ahead what takes longest of the first painting of each object. `tell` hears now and then how much of that is
    // done, up to 1.
    void prepare(const std::function<void(double share)> &tell);

    // The same for so many of the objects that this has not come to before. False once there are no more.
    bool prepareNext(std::size_t count);

    // Whether objects are painted again by what they have painted, which takes memory for each; they are from the
    // start.
    void keepSprites(bool keeps);

    // The committed objects, the lowest first.
    using Items = std::vector<std::shared_ptr<Item>>;
    const Items &items() const { return m_items; }
    const Item *item(const ObjectId &id) const; // null when there is none

    // The topmost object that paints within `reach` pixels of the point to all sides; kNothing when there is none.
    // Those in hand are passed over.
    ObjectId topmostAt(const QPoint &pt, int reach = 3) const;

    // Puts an object at a place in the order, or in the stead of the one that has its name.
    void put(std::shared_ptr<Item> item, std::size_t place, bool isPainted = false);
    std::shared_ptr<Item> remove(const ObjectId &id); // null where there is none

    // Gives the objects the order of their names in `order`, which may hold others as well. `moved` are those that may
    // have come to lie above or below others.
    void reorder(const std::vector<ObjectId> &order, const std::vector<ObjectId> &moved);

    void setPaper(const Paper &paper);

    // All of it is painted by the next repaint(), whatever has changed.
    void spoil() { touch(rect()); }

    // Makes the page at least as large as `size`. False where there is not enough memory.
    bool grow(const QSize &size);
    bool resize(const QSize &size);

    // Paints a committed object on top of all others, ahead of its put(). Tells whether it leaves a mark.
    bool paintOnTop(CInkGraph &object, const QRect &asked, const Tool *tool);

    // The same, without the painting.
    bool leavesMark(CInkGraph &object, const QRect &asked, const Tool *tool);

    // Paints what has changed since the last time. Returns the area, which is to be shown.
    QRegion repaint();

    // Those that draw here, each with one object in hand. A committed object that is held is hidden on the page. Every
    // operation paints, and returns the area to be shown.
    QRegion take(Hand hand);
    QRegion feed(int author, int code, const std::vector<QPoint> &pts);
    QRegion act(int author, const Act &act);
    QRegion act(int author, const std::vector<Act> &acts);     // painted once
    QRegion drop(int author, Hand *dropped = nullptr);         // which is handed over
    QRegion show(const QRegion &area);                         // as it is now
    Hand *hand(int author);                                    // null where the author holds nothing
    const std::vector<Hand> &hands() const { return m_hands; } // the first that was taken lowest

private:
    const PageLayers &layers() const;
    void paintAnew();
    QRect onPage(const QRect &reach) const { return reach & rect(); }
    std::size_t indexOf(const ObjectId &id) const;
    bool isHeld(const ObjectId &id) const;
    void touch(const QRect &reach);
    void count(const Item &item, int by);
    QRect closed(QRect area) const;
    QRect repaint(const QRect &part);
    void prepareFor(const QRect &area);
    void layInk(LayerPainting &painting, const QRect &area);
    bool keepsInk() const;
    void repaintPaper(const QImage &before);
    bool leavesMark(CInkGraph &object, const QRect &asked, const Tool *tool, bool stays);
    CInkGraph &prepared(CInkGraph &object, const Tool *tool, int &background) const;
    void paint(LayerPainting &painting, Item &item);
    bool canHaveSprite(const CInkGraph &object, const Tool *tool) const;
    bool awaitsSprite(const Item &item) const;
    std::shared_ptr<const Sprite> sketched(Item &item, Sketch &sketch) const;
    void makeSprite(Item &item);
    void keepSprite(Item &item, std::shared_ptr<const Sprite> sprite);
    bool isSeenNear(Item &item, const QPoint &pt, int reach) const;
    void forgetSprites();
    void showHands(const QRegion &area);
    QRegion reached(Hand &hand, const QRect &reach);
    void layPaper();

    QRect m_rect;
    Workers *m_workers{};
    std::unique_ptr<PageLayers> m_layers;     // null until somebody asks for pixels
    std::unique_ptr<PackedLayers> m_packed{}; // null unless page and ink are as it says
    const double m_density;
    const std::shared_ptr<CommonPixels> m_common;
    Paper m_paper;
    int m_backgrounds{1}; // that there have been
    Items m_items;
    std::unordered_map<ObjectId, const Item *> m_byName;
    bool m_keepsSprites{true};
    std::size_t m_spriteBytes{};       // of all items
    std::vector<Sketch> m_sketches{1}; // one for each of the workers, while they prepare objects
    std::size_t m_prepared{};          // of the items, the first so many
    struct Ahead
    {
        const CInkGraph *object;
        std::shared_ptr<const Sprite> sprite;
    };
    Ahead m_ahead{};              // what has been painted ahead of its put()
    int m_whole{};                // of the items, those of which no part can be painted alone
    int m_flooding{};             // of the items, those that depend on the pixels below them
    int m_onPixels{};             // of the items, those that work on the layers' pixels
    std::vector<QRect> m_changed; // of page and ink, since the last repaint
    // One object came on top of all others, or was painted there before, and nothing else; another paper was laid.
    enum class Change { Any, Append, Painted, Paper };
    Change m_change{Change::Any};
    QImage m_before{}; // the background then, where one other was laid
    std::vector<Hand> m_hands;
};

} // namespace InkLesson
