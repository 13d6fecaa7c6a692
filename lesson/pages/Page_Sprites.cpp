// What objects have painted, kept to be painted again.

#include "lesson/pages/Page.h"

#include "lesson/objects/Tools.h"

#include "CInkPenGraph.h"

#include <algorithm>
#include <utility>

namespace InkLesson {

namespace {

constexpr std::size_t kMostSpriteBytes = 3 << 24; // of one page

} // namespace

void Page::prepare(const std::function<void(double)> &tell)
{
    constexpr std::size_t kAtOnce = 64; // objects
    while (prepareNext(kAtOnce))
        tell(double(m_prepared) / double(m_items.size()));
    tell(1);
}

// Objects paint themselves at once, each alone; what comes of it is kept in their order, as ever.
bool Page::prepareNext(std::size_t count)
{
    m_sketches.resize(std::size_t(m_workers ? m_workers->count() : 1));
    const std::size_t first = std::min(m_prepared, m_items.size()), end = std::min(first + count, m_items.size());
    std::vector<std::shared_ptr<const Sprite>> sprites(end - first);
    shareOut(m_workers, int(end - first), [&](int i, int worker) {
        Item &item = *m_items[first + std::size_t(i)];
        if (awaitsSprite(item))
            sprites[std::size_t(i)] = sketched(item, m_sketches[std::size_t(worker)]);
    });
    for (std::size_t i = first; i < end; ++i) {
        if (awaitsSprite(*m_items[i])) // still, since there is room for so many
            keepSprite(*m_items[i], std::move(sprites[i - first]));
    }
    m_prepared = end;
    if (end < m_items.size())
        return true;
    m_sketches.resize(1);
    return false;
}

void Page::keepSprites(bool keeps)
{
    m_keepsSprites = keeps;
    forgetSprites();
}

void Page::forgetSprites()
{
    for (const auto &item : m_items)
        item->sprite.reset();
    m_spriteBytes = 0;
    m_sketches = std::vector<Sketch>(1);
    m_prepared = 0;
    m_ahead = {};
}

// Qt paints lines of one pixel piece by piece, and where two meet, one over the other.
bool Page::canHaveSprite(const CInkGraph &object, const Tool *tool) const
{
    return m_keepsSprites && m_spriteBytes < kMostSpriteBytes && tool && tool->paintsOnce && object.m_nWidth > 1;
}

bool Page::awaitsSprite(const Item &item) const
{
    return !item.sprite && !item.isTooRich && canHaveSprite(*item.object, item.tool);
}

std::shared_ptr<const Sprite> Page::sketched(Item &item, Sketch &sketch) const
{
    CInkGraph &object = whole(item);
    const QRect asked = onPage(item.asked), reach = onPage(item.reach);
    const auto canvasOf = item.tool->rendersInto;
    if (!relive || !canvasOf || canvasOf(object) != rect().size() || object.m_pImage)
        return sketch.spriteOf(object, asked, reach, rect().size());
    auto sprite = sketch.spriteOfPen(static_cast<CInkPenGraph &>(object), asked, reach, rect().size());
    item.isBare = !object.m_pImage;
    return sprite;
}

void Page::makeSprite(Item &item)
{
    if (awaitsSprite(item))
        keepSprite(item, sketched(item, m_sketches.front()));
}

// What the object has rendered for itself alone is given back then.
void Page::keepSprite(Item &item, std::shared_ptr<const Sprite> sprite)
{
    item.isTooRich = !sprite;
    item.sprite = std::move(sprite);
    item.spritePage = rect().size();
    if (!item.sprite)
        return;
    m_spriteBytes += item.sprite->bytes();
    if (!item.tool->rendersInto || !relive)
        return;
    delete std::exchange(item.object->m_pImage, nullptr);
    item.isBare = true;
}

CInkGraph &Page::whole(Item &item) const
{
    if (item.isBare)
        item.object = relive(item.id);
    item.isBare = false;
    return *item.object;
}

} // namespace InkLesson
