#include "Page.h"

#include "lesson/paper/PaperPainter.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <utility>

namespace Board {

namespace {

constexpr qint64 kMaxPatchBytes = 256 * 1024 * 1024; // of one page's steps

// Whether two objects of one tool look the same.
bool isAlike(const CInkGraph &first, const CInkGraph &second)
{
    return first.m_graphData == second.m_graphData && first.m_rcHot == second.m_rcHot &&
           first.m_fRotateAngle == second.m_fRotateAngle && first.m_color == second.m_color &&
           first.m_nWidth == second.m_nWidth;
}

} // namespace

Page::Page(const QSize &size, double density)
    : m_layers(size)
    , m_density(density)
{
}

Page::~Page() = default;

QRect Page::begin(Life life, std::unique_ptr<CInkGraph> object, Reach reach, Successor successor)
{
    const QRect changed = finish();
    m_life = std::move(life);
    m_object = std::move(object);
    m_reach = reach;
    m_successor = successor;
    m_succeeds = false;
    return changed;
}

QRect Page::begin(std::unique_ptr<CInkGraph> object, Reach reach)
{
    return begin(Life(), std::move(object), reach);
}

QRect Page::insert(Life life)
{
    std::unique_ptr<CInkGraph> object = createObject(life);
    const QRect changed = begin(std::move(life), std::move(object));
    return m_object ? changed | paint(m_object->GetUpdateRect()) : changed;
}

QRect Page::reopen(int id)
{
    const QRect changed = finish();
    const auto index = indexOf(id);
    if (!index || !canReopen(m_items[*index]->life))
        return changed;
    const std::shared_ptr<Item> item = m_items[*index];
    LivedObject lived = live(item->life);
    m_reopened = Reopened{item, m_items, pixels(rect())};
    m_items = without(id);
    replay();
    m_life = item->life;
    m_object = std::move(lived.object);
    m_reach = Reach::Reported;
    m_successor = nullptr;
    m_succeeds = false;
    act(ReopenAct());
    return rect();
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
        m_life.acts.emplace_back(PointerAct{code, pt});
        reach |= perform(m_life.acts.back(), *m_object);
    }
    if (m_object->m_bFinished)
        return commit(reach);
    return paint(m_reach == Reach::Everywhere ? rect() : reach);
}

QRect Page::act(const Act &act)
{
    if (!m_object)
        return {};
    const QRect before = m_object->GetUpdateRect();
    m_life.acts.push_back(act);
    const QRect reach = before | perform(act, *m_object);
    return m_object->m_bFinished ? QRect() : paint(reach); // one that its text has committed is shown by finish()
}

QRect Page::finish()
{
    QRect changed;
    while (m_object) { // then its successor, which has none
        m_life.acts.emplace_back(FinishAct());
        const QRect reach = perform(m_life.acts.back(), *m_object);
        changed |= m_object->m_bFinished ? commit(reach) : discard();
    }
    return changed;
}

QRect Page::discard()
{
    if (!m_reopened)
        return drop();
    drop();
    const auto before = *std::exchange(m_reopened, std::nullopt);
    const Items others = std::exchange(m_items, before.items);
    return change(others, before.pixels, DeleteRecord{before.item->id});
}

bool Page::isForming() const
{
    return m_object && !m_object->m_bEditMode;
}

int Page::reopened() const
{
    return m_reopened ? m_reopened->item->id : 0;
}

ModifyType Page::handleAt(const QPoint &pt)
{
    return m_object ? m_object->AroundHotPts(pt) : MT_NONE;
}

float Page::angle() const
{
    return m_object ? m_object->GetRotateAngle() : 0.0f;
}

Page::Pixels Page::pixels(const QRect &area) const
{
    if (area.isEmpty())
        return {}; // a copy of an empty rectangle would be a copy of everything
    return {m_layers.page().copy(area), m_layers.ink().copy(area), area.topLeft()};
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
    if (m_reopened)
        return commitReopened();
    const Pixels before = pixels(onPage(reach));
    paint(reach);
    std::optional<Life> next;
    Step step;
    keepDifference(step, before);
    if (!step.page.isEmpty() || !step.ink.isEmpty()) {
        next = m_successor ? m_successor(*m_object, rect().size()) : std::nullopt;
        const auto item =
            std::make_shared<Item>(Item{m_nextId++, std::move(m_life), std::move(m_object), reach, m_backgrounds});
        m_items.push_back(item);
        step.succeeds = m_succeeds;
        step.added = item;
        push(std::move(step), DrawRecord{item->id, item->life, m_succeeds});
    }
    QRect changed = drop();
    if (next) {
        changed |= insert(*std::move(next));
        m_succeeds = true;
    }
    return changed;
}

// One that was only looked at is as before.
QRect Page::commitReopened()
{
    const auto before = *std::exchange(m_reopened, std::nullopt);
    const bool isSame = isAlike(*m_object, *before.item->object) && dashOf(m_life) == dashOf(before.item->life);
    const Life life = std::move(m_life);
    drop();
    m_items = before.items;
    if (isSame || replace(before.item->id, life, before.pixels).isEmpty())
        replay();
    return rect();
}

// Forgets the object in progress and what it has left on the surface. A thick stroke is clipped to a tighter
// rectangle once it is committed, so this is not only for abandoned objects.
QRect Page::drop()
{
    m_object.reset();
    m_layers.showPage(m_touched);
    return std::exchange(m_touched, QRect());
}

const Page::Item *Page::item(int id) const
{
    const auto index = indexOf(id);
    return index ? m_items[*index].get() : nullptr;
}

std::optional<std::size_t> Page::indexOf(int id) const
{
    const auto found = std::find_if(m_items.begin(), m_items.end(), [&](const auto &item) { return item->id == id; });
    return found == m_items.end() ? std::nullopt : std::make_optional(std::size_t(found - m_items.begin()));
}

Page::Items Page::without(int id) const
{
    Items others;
    std::copy_if(m_items.begin(), m_items.end(), std::back_inserter(others),
                 [&](const auto &item) { return item->id != id; });
    return others;
}

int Page::topmostAt(const QPoint &pt, int reach) const
{
    const auto found = std::find_if(m_items.rbegin(), m_items.rend(),
                                    [&](const auto &item) { return InkLesson::paintsNear(*item->object, pt, reach); });
    return found == m_items.rend() ? 0 : (*found)->id;
}

QRect Page::replace(int id, Life life)
{
    const QRect changed = finish();
    return changed | replace(id, std::move(life), pixels(rect()));
}

QRect Page::replace(int id, Life life, const Pixels &before)
{
    const auto index = indexOf(id);
    LivedObject lived = live(life);
    if (!index || !lived.object || !lived.object->m_bFinished)
        return {};
    Items items = m_items;
    items[*index] =
        std::make_shared<Item>(Item{id, std::move(life), std::move(lived.object), lived.reach, m_backgrounds});
    const Life &now = items[*index]->life;
    return change(items, before, ReplaceRecord{id, now});
}

QRect Page::remove(int id)
{
    const QRect changed = finish();
    return indexOf(id) ? change(without(id), pixels(rect()), DeleteRecord{id}) : changed;
}

QRect Page::reorder(int id, int place)
{
    const QRect changed = finish();
    const auto index = indexOf(id);
    if (!index || place < 0 || place >= int(m_items.size()) || place == int(*index))
        return changed;
    Items items = without(id);
    items.insert(items.begin() + place, m_items[*index]);
    return change(items, pixels(rect()), OrderRecord{id, place});
}

QRect Page::clear()
{
    const QRect changed = finish();
    return m_items.empty() ? changed : change({}, pixels(rect()), ClearRecord());
}

int Page::duplicate(int id, const QPoint &by)
{
    finish();
    const Item *original = item(id);
    if (!original)
        return 0;
    Life life = original->life;
    shift(life, by);
    const int copy = m_nextId;
    return play(DrawRecord{copy, life, false}) ? copy : 0;
}

// Paints the page with other objects.
QRect Page::change(Items items, const Pixels &before, const Record &record)
{
    Step step;
    step.items = std::exchange(m_items, std::move(items));
    replay();
    keepDifference(step, before);
    push(std::move(step), record);
    return rect();
}

QRect Page::setPaper(const Paper &paper)
{
    finish();
    const Pixels before = pixels(rect());
    Step step;
    step.paper = std::exchange(m_paper, paper);
    layPaper();
    replay();
    keepDifference(step, before);
    push(std::move(step), PaperRecord{paper});
    return rect();
}

// From the layers as they were to what they are now.
void Page::keepDifference(Step &step, const Pixels &before) const
{
    step.page = Patch(before.page, m_layers.page(), before.origin);
    step.ink = Patch(before.ink, m_layers.ink(), before.origin);
}

void Page::push(Step step, const Record &record)
{
    m_steps.resize(m_done);
    m_steps.push_back(std::move(step));
    ++m_done;
    boundMemory();
    if (m_listener)
        m_listener(record);
}

void Page::boundMemory()
{
    qint64 bytes = 0;
    for (auto step = m_steps.rbegin(); step != m_steps.rend(); ++step) {
        bytes += step->page.bytes() + step->ink.bytes();
        if (bytes > kMaxPatchBytes) {
            step->hasPixels = false;
            step->page = Patch();
            step->ink = Patch();
        }
    }
}

QRect Page::undo()
{
    const QRect finished = finish();
    if (m_done == 0)
        return finished;
    bool succeeds = true;
    while (succeeds && m_done > 0) {
        Step &step = m_steps[--m_done];
        exchange(step, true);
        succeeds = step.succeeds;
    }
    m_layers.showPage(rect());
    return rect();
}

QRect Page::redo()
{
    const QRect finished = finish();
    if (!canRedo())
        return finished;
    do {
        exchange(m_steps[m_done++], false);
    } while (m_done < m_steps.size() && m_steps[m_done].succeeds);
    m_layers.showPage(rect());
    return rect();
}

void Page::exchange(Step &step, bool undoes)
{
    if (step.items)
        m_items.swap(*step.items);
    else if (step.added && undoes)
        m_items.pop_back();
    else if (step.added)
        m_items.push_back(step.added);
    if (step.paper) {
        std::swap(m_paper, *step.paper);
        layPaper();
    }
    if (step.hasPixels)
        m_layers.exchange(step.page, step.ink);
    else
        replay();
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
    layPaper();
    for (Step &step : m_steps) {
        step.hasPixels = false; // objects reach farther now
        step.page = Patch();
        step.ink = Patch();
    }
    replay();
    if (m_object)
        paint(rect(), Background::New);
    if (m_reopened)
        m_reopened->pixels = pixels(rect());
    if (m_listener)
        m_listener(SizeRecord{grown});
}

void Page::layPaper()
{
    m_layers.setBackground(paintedPaper(m_paper, rect().size(), m_density));
    ++m_backgrounds;
}

void Page::replay()
{
    m_layers.reset();
    // Each in the area of its commit, so that its clip, and with it every pixel, is the same again.
    for (const auto &item : m_items) {
        const bool isSame = std::exchange(item->background, m_backgrounds) == m_backgrounds;
        m_layers.draw(*item->object, onPage(item->reach), isSame ? Background::Same : Background::New);
    }
    m_layers.showPage(rect());
}

bool Page::play(const DrawRecord &record)
{
    if (record.id < m_nextId || record.id == std::numeric_limits<int>::max())
        return false;
    if (record.succeeds && (m_done == 0 || !m_steps[m_done - 1].added))
        return false;
    LivedObject lived = live(record.life);
    if (!lived.object || !lived.object->m_bFinished)
        return false;
    begin(record.life, std::move(lived.object));
    m_nextId = record.id;
    m_succeeds = record.succeeds;
    commit(lived.reach);
    return m_nextId > record.id;
}

bool Page::play(const Record &record)
{
    finish();
    const std::size_t done = m_done;
    if (const auto *draw = std::get_if<DrawRecord>(&record))
        return play(*draw);
    if (const auto *other = std::get_if<ReplaceRecord>(&record)) {
        Life life = other->life;
        const Item *now = item(other->id);
        if (now && life.picture.isNull())
            life.picture = now->life.picture;
        replace(other->id, std::move(life));
    } else if (const auto *gone = std::get_if<DeleteRecord>(&record)) {
        remove(gone->id);
    } else if (const auto *order = std::get_if<OrderRecord>(&record)) {
        reorder(order->id, order->place);
    } else if (std::get_if<ClearRecord>(&record)) {
        clear();
    } else if (const auto *paper = std::get_if<PaperRecord>(&record)) {
        setPaper(paper->paper);
    } else if (const auto *size = std::get_if<SizeRecord>(&record)) {
        if (size->size.expandedTo(rect().size()) != size->size)
            return false;
        grow(size->size);
        return rect().size() == size->size;
    }
    return m_done > done;
}

} // namespace Board
