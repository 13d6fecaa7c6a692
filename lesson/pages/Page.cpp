#include "lesson/pages/Page.h"

#include "lesson/layers/HitTest.h"
#include "lesson/objects/Tools.h"
#include "lesson/pages/Difference.h"

#include <algorithm>
#include <utility>

namespace InkLesson {

namespace {

// Where an object may paint when it is asked to repaint `asked`: an eraser goes one pixel farther than it says.
QRect reachOf(CInkGraph &object, const QRect &asked)
{
    constexpr int kFar = 1 << 24; // beyond every page, and an int goes on beyond it
    const QRect near(QPoint(-kFar, -kFar), QPoint(kFar, kFar));
    return ((asked | object.GetUpdateRect()) & near).adjusted(-1, -1, 1, 1);
}

// Qt cuts outlines that go farther, at the edge of what it may paint just then.
const QRect kUncut(QPoint(-16384, -16384), QPoint(16384, 16384));

constexpr std::size_t kMostParts = 4; // of what has changed

// Where it paints.
QRect extentOf(const Item &item)
{
    return item.sprite ? item.sprite->rect() : item.reach;
}

qint64 pixels(const QRect &area)
{
    return qint64(area.width()) * area.height();
}

} // namespace

Page::Page(const QSize &size, double density, std::shared_ptr<CommonPixels> common)
    : m_rect(QPoint(), size)
    , m_density(density)
    , m_common(std::move(common))
{
}

Page::~Page() = default;

const PageLayers &Page::layers() const
{
    if (!isPainted())
        const_cast<Page *>(this)->paintAnew();
    return *m_layers;
}

void Page::paintAnew()
{
    if (m_packed) {
        m_layers = m_packed->unpacked(m_common->papers.of(m_paper, rect().size(), m_density), m_workers,
                                      std::move(m_common->spare));
        ++m_backgrounds;
    }
    if (isPainted()) {
        showHands(rect());
        return;
    }
    m_common->spare.reset();
    m_layers = std::make_unique<PageLayers>(rect().size());
    if (m_layers->isNull())
        return;
    m_layers->lend(m_workers);
    m_change = Change::Any; // what has changed since the last repaint() is painted here
    layPaper();
    repaint(rect());
    show(rect());
}

void Page::lend(Workers *workers)
{
    m_workers = workers;
    if (m_layers)
        m_layers->lend(workers);
}

void Page::release()
{
    if (isPainted()) {
        m_layers->setBackground({}); // of which there may be no other
        m_common->spare = std::move(m_layers);
    }
    m_layers.reset();
    forgetSprites();
}

void Page::pack()
{
    if (isPainted() && m_changed.empty() && !m_packed)
        m_packed = std::make_unique<PackedLayers>(*m_layers);
}

void Page::show(std::unique_ptr<PackedLayers> packed)
{
    m_changed.clear();
    m_packed = std::move(packed);
}

std::size_t Page::indexOf(const ObjectId &id) const
{
    const auto found = std::find_if(m_items.begin(), m_items.end(), [&](const auto &item) { return item->id == id; });
    return std::size_t(found - m_items.begin());
}

const Item *Page::item(const ObjectId &id) const
{
    const auto found = m_byName.find(id);
    return found == m_byName.end() ? nullptr : found->second;
}

ObjectId Page::topmostAt(const QPoint &pt, int reach) const
{
    const QRect near(pt - QPoint(reach, reach), pt + QPoint(reach, reach));
    if (m_flooding != 0)
        layers(); // such a fill has no pixels before
    for (auto item = m_items.rbegin(); item != m_items.rend(); ++item) {
        if ((*item)->reach.intersects(near) && !isHeld((*item)->id) && isSeenNear(**item, pt, reach))
            return (*item)->id;
    }
    return kNothing;
}

bool Page::isSeenNear(Item &item, const QPoint &pt, int reach) const
{
    const QPoint corner(reach, reach);
    return item.sprite ? item.sprite->paintsIn(QRect(pt - corner, pt + corner)) : paintsNear(whole(item), pt, reach);
}

bool Page::isHeld(const ObjectId &id) const
{
    return std::any_of(m_hands.begin(), m_hands.end(), [&](const Hand &hand) { return hand.held == id; });
}

// In few parts: those that are painted faster together become one.
void Page::touch(const QRect &reach)
{
    m_change = Change::Any;
    m_packed.reset();
    QRect part = onPage(reach);
    if (part.isEmpty())
        return;
    for (std::size_t i = 0; i < m_changed.size();) {
        const QRect both = m_changed[i] | part;
        if (m_changed.size() < kMostParts && pixels(both) > pixels(m_changed[i]) + pixels(part)) {
            ++i;
            continue;
        }
        part = both;
        m_changed.erase(m_changed.begin() + std::ptrdiff_t(i));
        i = 0;
    }
    m_changed.push_back(part);
}

void Page::count(const Item &item, int by)
{
    m_flooding += item.tool && item.tool->floods ? by : 0;
    m_onPixels += item.tool && item.tool->paintFlat ? by : 0;
    m_whole += item.isWhole ? by : 0;
    if (by < 0 && item.sprite)
        m_spriteBytes -= item.sprite->bytes();
}

void Page::put(std::shared_ptr<Item> item, std::size_t place, bool isPainted)
{
    item->reach = reachOf(*item->object, item->asked);
    item->isWhole = item->isWhole || !kUncut.contains(item->reach);
    item->background = isPainted ? m_backgrounds : 0;
    if (item->spritePage != rect().size() || !m_keepsSprites)
        item->sprite.reset(); // it has been away
    m_spriteBytes += item->sprite ? item->sprite->bytes() : 0;
    const Ahead ahead = std::exchange(m_ahead, {});
    if (isPainted && ahead.object == item->object.get() && ahead.sprite)
        keepSprite(*item, ahead.sprite);
    const bool isFirst = m_changed.empty();
    const std::size_t now = m_byName.count(item->id) != 0 ? indexOf(item->id) : m_items.size();
    const bool appends = now == m_items.size() && place >= m_items.size();
    if (this->isPainted() && !appends)
        makeSprite(*item);
    touch(extentOf(*item));
    count(*item, 1);
    m_byName[item->id] = item.get();
    if (now < m_items.size()) {
        touch(extentOf(*m_items[now]));
        count(*m_items[now], -1);
        m_items[now] = std::move(item);
        return;
    }
    m_items.insert(m_items.begin() + std::ptrdiff_t(std::min(place, m_items.size())), std::move(item));
    if (isFirst && appends)
        m_change = isPainted ? Change::Painted : Change::Append;
}

std::shared_ptr<Item> Page::remove(const ObjectId &id)
{
    if (m_byName.erase(id) == 0)
        return nullptr;
    const auto at = m_items.begin() + std::ptrdiff_t(indexOf(id));
    std::shared_ptr<Item> item = std::move(*at);
    m_items.erase(at);
    touch(extentOf(*item));
    count(*item, -1);
    return item;
}

void Page::reorder(const std::vector<ObjectId> &order, const std::vector<ObjectId> &moved)
{
    std::unordered_map<ObjectId, std::size_t> places;
    for (std::size_t i = 0; i < order.size(); ++i)
        places.emplace(order[i], i);
    std::vector<std::pair<std::size_t, std::shared_ptr<Item>>> items;
    items.reserve(m_items.size());
    for (auto &item : m_items)
        items.emplace_back(places.at(item->id), std::move(item));
    std::sort(items.begin(), items.end());
    std::transform(items.begin(), items.end(), m_items.begin(), [](auto &placed) { return std::move(placed.second); });
    for (const ObjectId &id : moved) {
        if (const Item *one = item(id))
            touch(extentOf(*one));
    }
}

void Page::setPaper(const Paper &paper)
{
    m_paper = paper;
    if (!isPainted()) {
        touch(rect());
        return;
    }
    const QImage before = m_layers->background();
    const bool isFirst = m_changed.empty(), isAnother = m_change == Change::Paper;
    layPaper();
    touch(rect());
    if (keepsInk() && (isFirst || isAnother)) {
        m_change = Change::Paper;
        m_before = isFirst ? before : QImage();
    }
}

// What works on the layers' pixels may read the paper, and then show it.
bool Page::keepsInk() const
{
    return m_keepsSprites && m_onPixels == 0;
}

bool Page::grow(const QSize &size)
{
    return resize(size.expandedTo(rect().size()));
}

bool Page::resize(const QSize &size)
{
    if (size == rect().size())
        return true;
    if (isPainted()) {
        PageLayers layers(size);
        if (layers.isNull())
            return false; // a smaller page is better than none
        *m_layers = std::move(layers);
        m_layers->lend(m_workers);
    }
    m_rect = QRect(QPoint(), size);
    forgetSprites();
    if (isPainted())
        layPaper();
    m_changed.clear();
    touch(rect()); // objects reach farther, or less far
    return true;
}

void Page::layPaper()
{
    m_layers->setBackground(m_common->papers.of(m_paper, rect().size(), m_density));
    ++m_backgrounds;
}

// An area that holds every object wholly of which no part can be painted alone.
QRect Page::closed(QRect area) const
{
    if (m_flooding > 0)
        return rect();
    for (bool isClosed = m_whole == 0; !isClosed;) {
        isClosed = true;
        for (const auto &item : m_items) {
            const QRect reach = onPage(item->reach);
            if (!item->isWhole || !area.intersects(reach) || area.contains(reach))
                continue;
            area |= reach;
            isClosed = false;
        }
    }
    return area;
}

// What works on the background has the present one.
CInkGraph &Page::prepared(CInkGraph &object, const Tool *tool, int &background) const
{
    if (std::exchange(background, m_backgrounds) != m_backgrounds && tool && tool->takeBackground)
        tool->takeBackground(object, m_layers->background());
    return object;
}

// Each in the area of its commit, so that its clip, and with it every pixel, is the same again.
void Page::paint(LayerPainting &painting, Item &item)
{
    makeSprite(item);
    if (item.sprite)
        painting.paint(*item.sprite);
    else
        painting.paint(prepared(whole(item), item.tool, item.background), onPage(item.asked));
}

bool Page::paintOnTop(CInkGraph &object, const QRect &asked, const Tool *tool)
{
    return leavesMark(object, asked, tool, true);
}

bool Page::leavesMark(CInkGraph &object, const QRect &asked, const Tool *tool)
{
    return leavesMark(object, asked, tool, false);
}

bool Page::leavesMark(CInkGraph &object, const QRect &asked, const Tool *tool, bool stays)
{
    const QRect area = onPage(reachOf(object, asked));
    if (area.isEmpty())
        return false; // a copy of an empty rectangle would be a copy of everything
    if (layers().isNull())
        return true; // nobody knows
    int background = 0;
    prepared(object, tool, background);
    const QImage page = picture().copy(area), inked = ink().copy(area);
    m_ahead = {&object, canHaveSprite(object, tool)
                            ? m_sketches.front().spriteOf(object, onPage(asked), area, rect().size())
                            : nullptr};
    {
        LayerPainting painting(*m_layers, LayerPainting::On::PageAndInk, rect());
        if (m_ahead.sprite)
            painting.paint(*m_ahead.sprite);
        else
            painting.paint(object, onPage(asked));
    }
    const bool isSeen = page != picture().copy(area) || inked != ink().copy(area);
    if (!stays)
        m_layers->restore(area.topLeft(), page, inked);
    return isSeen;
}

QRegion Page::repaint()
{
    const std::vector<QRect> parts = std::exchange(m_changed, {});
    const Change change = std::exchange(m_change, Change::Any);
    const QImage before = std::exchange(m_before, {});
    QRegion shown;
    for (const QRect &part : parts) {
        if (isPainted() && change == Change::Append && !isHeld(m_items.back()->id)) {
            LayerPainting painting(*m_layers, LayerPainting::On::PageAndInk, rect());
            paint(painting, *m_items.back());
        }
        if (isPainted() && change == Change::Paper)
            repaintPaper(before);
        shown |= change == Change::Any ? repaint(part) : part;
    }
    return show(shown);
}

// A rectangle at a time: what is clipped to another shape may differ in a bit.
QRect Page::repaint(const QRect &part)
{
    const QRect area = closed(part);
    if (!isPainted())
        return area;
    prepareFor(area);
    m_layers->clear(area);
    LayerPainting painting(*m_layers, LayerPainting::On::PageAndInk, area);
    layInk(painting, area);
    return area;
}

// Those who do together what takes long do it for all objects that come at once, as in a lesson that is joined.
void Page::prepareFor(const QRect &area)
{
    if (m_workers && 2 * pixels(area) >= pixels(rect()))
        prepare([](double) {});
}

// The ink stays. What paints nothing but sprites is painted anew where the paper differs, and nowhere else.
void Page::repaintPaper(const QImage &before)
{
    prepareFor(rect());
    std::vector<const Sprite *> sprites;
    bool isWhole = true; // of sprites
    for (const auto &item : m_items) {
        if (isHeld(item->id))
            continue;
        makeSprite(*item);
        isWhole = isWhole && item->sprite;
        sprites.push_back(item->sprite.get());
    }
    const auto where = isWhole && !before.isNull() ? Difference::of(before, background()) : std::nullopt;
    if (where) {
        m_layers->layPage(*where, sprites);
        return;
    }
    m_layers->clearPage(rect());
    LayerPainting painting(*m_layers, LayerPainting::On::Page, rect());
    layInk(painting, rect());
}

void Page::layInk(LayerPainting &painting, const QRect &area)
{
    for (const auto &item : m_items) {
        if (area.intersects(extentOf(*item)) && !isHeld(item->id))
            paint(painting, *item);
    }
}

QRegion Page::show(const QRegion &area)
{
    if (area.isEmpty() || !isPainted())
        return area;
    m_layers->showPage(area);
    showHands(area);
    return area;
}

void Page::showHands(const QRegion &area)
{
    for (const QRect &part : m_hands.empty() ? QRegion() : area) {
        LayerPainting painting(*m_layers, LayerPainting::On::Surface, part);
        for (Hand &hand : m_hands) {
            if (part.intersects(hand.touched))
                painting.paint(prepared(*hand.object, hand.tool, hand.background), part);
        }
    }
}

Hand *Page::hand(int author)
{
    const auto found =
        std::find_if(m_hands.begin(), m_hands.end(), [&](const Hand &hand) { return hand.author == author; });
    return found == m_hands.end() ? nullptr : &*found;
}

QRegion Page::take(Hand hand)
{
    QRegion shown = drop(hand.author);
    if (const Item *held = item(hand.held))
        touch(extentOf(*held));
    hand.tool = findTool(hand.life.tool);
    hand.asked = hand.object->GetUpdateRect();
    hand.touched = onPage(hand.asked);
    m_hands.push_back(std::move(hand));
    shown |= repaint();
    return shown | show(m_hands.back().touched);
}

QRegion Page::reached(Hand &hand, const QRect &reach)
{
    const QRect area = hand.tool && hand.tool->movesAsItGrows ? rect() : onPage(reach);
    hand.touched |= area;
    return show(area);
}

QRegion Page::feed(int author, int code, const std::vector<QPoint> &pts)
{
    Hand *hand = this->hand(author);
    if (!hand)
        return {};
    QRect reach;
    for (const QPoint &pt : pts) {
        hand->life.acts.emplace_back(PointerAct{code, pt});
        hand->asked = perform(hand->life.acts.back(), *hand->object);
        reach |= hand->asked;
    }
    const bool isCommitted = hand->object->m_bFinished != 0;
    if (isCommitted)
        return {}; // it is painted where it comes to lie
    if (hand->tool && hand->tool->rendersAsPainted) {
        hand->life.acts.emplace_back(PaintAct());
        perform(hand->life.acts.back(), *hand->object); // also where nothing of it is seen
    }
    return reached(*hand, reach);
}

QRegion Page::act(int author, const Act &act)
{
    Hand *hand = this->hand(author);
    if (!hand)
        return {};
    const QRect before = hand->object->GetUpdateRect();
    hand->life.acts.push_back(act);
    hand->asked = perform(act, *hand->object);
    return hand->object->m_bFinished ? QRegion() : reached(*hand, before | hand->asked);
}

QRegion Page::act(int author, const std::vector<Act> &acts)
{
    Hand *hand = this->hand(author);
    if (!hand)
        return {};
    QRect reach = hand->object->GetUpdateRect();
    for (const Act &act : acts) {
        hand->life.acts.push_back(act);
        hand->asked = perform(act, *hand->object);
        reach |= hand->asked;
    }
    return reached(*hand, reach);
}

QRegion Page::drop(int author, Hand *dropped)
{
    const auto found =
        std::find_if(m_hands.begin(), m_hands.end(), [&](const Hand &hand) { return hand.author == author; });
    if (found == m_hands.end())
        return {};
    const QRect touched = found->touched;
    if (const Item *held = item(found->held)) {
        const bool isOnTop = m_changed.empty() && m_items.back().get() == held;
        touch(extentOf(*held));
        if (isOnTop)
            m_change = Change::Append;
    }
    if (dropped)
        *dropped = std::move(*found);
    m_hands.erase(found);
    QRegion shown = repaint();
    return shown | show(touched);
}

} // namespace InkLesson
