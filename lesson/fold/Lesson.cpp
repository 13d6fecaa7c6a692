#include "lesson/fold/Lesson.h"

#include "lesson/log/RecordCode.h"
#include "lesson/log/RecordReader.h"

#include <algorithm>
#include <utility>

namespace InkLesson {

namespace {

const auto kDraw = quint8(Deed(Draw()).index());

template <typename... Deeds>
bool isOneOf(const Deed &deed)
{
    return (std::holds_alternative<Deeds>(deed) || ...);
}

qint64 pixels(const QSize &size)
{
    return qint64(size.width()) * size.height();
}

} // namespace

Lesson::Lesson(const Header &header)
    : m_header(header)
    , m_order{kFirstPage}
    , m_toldOrder{kFirstPage}
    , m_pixels(pixels(header.size))
{
    Sheet &first = m_sheets[kFirstPage];
    first.page = newPage(header.size);
    first.sizes = {header.size};
}

Lesson::~Lesson() = default;

std::unique_ptr<Page> Lesson::newPage(const QSize &size) const
{
    auto page = std::make_unique<Page>(size, m_header.density, m_common);
    page->lend(m_workers);
    page->relive = [this](const ObjectId &id) { return live(*life(id)).object; };
    return page;
}

QString Lesson::apply(const Record &record, LivedObject lived)
{
    return isKnown(record) ? QString() : add(record, toCbor(record), std::move(lived));
}

QString Lesson::applyMade(Record &record, LivedObject lived)
{
    const QByteArray code = toCbor(record);
    RecordReader reader;
    Record read;
    if (!reader.readCbor(code, read))
        return reader.error();
    record = std::move(read);
    return add(record, code, std::move(lived));
}

QString Lesson::add(const Record &record, const QByteArray &code, LivedObject lived)
{
    const Batch batch(*this);
    const QString problem = append(record, code, std::move(lived));
    if (problem.isEmpty())
        tell({LogChange::Kind::Added, code});
    return problem;
}

// A number that is passed over never comes: so that none who goes on runs out of them, all beyond a place are taken.
QString Lesson::problemOf(const Record &record) const
{
    if (record.id.number > std::max(kMostLeftOut, m_history.lastNumber(record.id.author) + 1))
        return tr("number: too far beyond the author's last one");
    if (m_pixels + pixelsOf(record) > kMostPixels)
        return tr("size: the pages of a lesson have at most %1 pixels in all").arg(kMostPixels);
    return {};
}

// By which the pages become more.
qint64 Lesson::pixelsOf(const Record &record) const
{
    if (const auto *added = std::get_if<AddPage>(&record.deed))
        return pixels(added->size);
    const auto *grown = std::get_if<Grow>(&record.deed);
    const Sheet *sheet = this->sheet(record.page);
    if (!grown || !sheet)
        return 0;
    const QSize before = sheet->sizes.back();
    return pixels(grown->size.expandedTo(before)) - pixels(before);
}

QString Lesson::append(const Record &record, const QByteArray &code, LivedObject lived)
{
    const QString problem =
        RecordReader::canBeReadAgain(code) ? problemOf(record) : tr("it is longer than any board writes");
    if (!problem.isEmpty())
        return problem;
    m_pixels += pixelsOf(record);
    const int place = int(m_log.size());
    // A record that says to belong to an undo is a step of its own.
    const StepId step = m_history.isUndo(record.stepId()) ? record.id : record.stepId();
    enter(record.id, step, quint8(record.deed.index()), code);
    if (const auto *undo = std::get_if<Undo>(&record.deed)) {
        for (const StepId &turned : m_history.addUndo(record.id, undo->step))
            toggle(turned);
    } else {
        m_history.add(record.id, step, !isOneOf<Grow>(record.deed));
        note(place, record, std::move(lived));
    }
    return {};
}

void Lesson::enter(const StepId &id, const StepId &step, quint8 deed, const QByteArray &code)
{
    m_places[step].push_back(int(m_log.size()));
    m_log.push_back(code);
    m_ids.push_back(id);
    m_steps.push_back(step);
    m_deeds.push_back(deed);
}

void Lesson::endBatch()
{
    if (--m_batches == 0)
        repaint();
}

int Lesson::indexOf(const PageId &id) const
{
    const auto found = std::find(m_order.begin(), m_order.end(), id);
    return found == m_order.end() ? -1 : int(found - m_order.begin());
}

void Lesson::lend(Workers *workers)
{
    m_workers = workers;
    for (auto &[id, sheet] : m_sheets) {
        if (sheet.page)
            sheet.page->lend(workers);
    }
}

Page &Lesson::page(const PageId &id)
{
    return *m_sheets.at(id).page;
}

const Page &Lesson::page(const PageId &id) const
{
    return *m_sheets.at(id).page;
}

PageId Lesson::pageOf(const StepId &step) const
{
    const auto places = m_places.find(step);
    if (places == m_places.end())
        return kNothing;
    const Record record = recordAt(places->second.front());
    return std::holds_alternative<AddPage>(record.deed) ? record.id : record.page;
}

// Null where there is none as far as the log goes.
const Lesson::Sheet *Lesson::sheet(const PageId &id) const
{
    const auto found = m_sheets.find(id);
    return found == m_sheets.end() || found->second.sizes.empty() ? nullptr : &found->second;
}

std::optional<Life> Lesson::life(const ObjectId &object) const
{
    const auto found = m_things.find(object);
    if (found == m_things.end() || !found->second.isShown)
        return std::nullopt;
    return lifeOf(found->second, counting(found->second).value_or(std::vector<int>()));
}

// One that nobody can read, since a host has made it so, has no effect.
Record Lesson::recordAt(int place) const
{
    RecordReader reader;
    Record record;
    if (!reader.readCbor(m_log[std::size_t(place)], record))
        record.deed = Undo();
    return record;
}

bool Lesson::countsAt(int place) const
{
    return m_history.counts(m_steps[std::size_t(place)]);
}

// Takes a record that is no undo into the books of what it is about.
void Lesson::note(int place, const Record &record, LivedObject lived)
{
    if (isOneOf<AddPage, RemovePage, MovePage>(record.deed)) {
        if (const auto *added = std::get_if<AddPage>(&record.deed)) {
            Sheet &made = m_sheets[record.id];
            if (!made.page) // else it was there before a setBack()
                made.page = newPage(added->size);
            made.sizes = {added->size};
        }
        m_pageRecords.push_back(place);
        refreshPages();
        return;
    }
    Sheet *sheet = this->sheet(record.page);
    if (!sheet)
        return;
    const auto change = [&](const ObjectId &id) {
        const auto thing = m_things.find(id);
        if (thing == m_things.end() || thing->second.page != record.page)
            return;
        thing->second.changes.push_back(place);
        refresh(id);
    };
    if (const auto *draw = std::get_if<Draw>(&record.deed)) {
        sheet->drawn.push_back(record.id);
        sheet->order.push_back(record.id);
        m_things.emplace(record.id, Thing{record.page, place, record.step});
        if (m_deferred)
            refreshOrder(*sheet);
        refresh(record.id, &draw->life, std::move(lived));
    } else if (const auto *changed = std::get_if<Change>(&record.deed)) {
        change(changed->object);
    } else if (const auto *replaced = std::get_if<Replace>(&record.deed)) {
        change(replaced->object);
    } else if (const auto *gone = std::get_if<Delete>(&record.deed)) {
        std::for_each(gone->objects.begin(), gone->objects.end(), change);
    } else if (isOneOf<Clear>(record.deed)) {
        std::for_each(sheet->drawn.begin(), sheet->drawn.end(), change);
    } else if (isOneOf<Order>(record.deed)) {
        sheet->orders.push_back(place);
        refreshOrder(*sheet, {}, place);
    } else if (isOneOf<SetPaper>(record.deed)) {
        sheet->papers.push_back(place);
        refreshPaper(*sheet);
    } else if (const auto *grown = std::get_if<Grow>(&record.deed)) {
        sheet->sizes.push_back(grown->size.expandedTo(sheet->sizes.back()));
    }
}

// A step counts from now on and did not before, or the other way round.
void Lesson::toggle(const StepId &step)
{
    for (const int place : m_places[step]) {
        if (m_deeds[std::size_t(place)] == kDraw) { // whose picture need not be read
            refresh(m_ids[std::size_t(place)]);
            continue;
        }
        const Record record = recordAt(place);
        Sheet *sheet = this->sheet(record.page);
        if (isOneOf<AddPage, RemovePage, MovePage>(record.deed))
            refreshPages();
        else if (const auto *changed = std::get_if<Change>(&record.deed))
            refresh(changed->object);
        else if (const auto *replaced = std::get_if<Replace>(&record.deed))
            refresh(replaced->object);
        else if (const auto *gone = std::get_if<Delete>(&record.deed))
            std::for_each(gone->objects.begin(), gone->objects.end(), [&](const ObjectId &id) { refresh(id); });
        else if (sheet && isOneOf<Clear>(record.deed))
            std::for_each(sheet->drawn.begin(), sheet->drawn.end(), [&](const ObjectId &id) { refresh(id); });
        else if (sheet && isOneOf<Order>(record.deed))
            refreshOrder(*sheet, {}, place);
        else if (sheet && isOneOf<SetPaper>(record.deed))
            refreshPaper(*sheet);
    }
}

bool Lesson::takesAway(int place) const
{
    static const auto kDelete = quint8(Deed(Delete()).index()), kClear = quint8(Deed(Clear()).index());
    const quint8 deed = m_deeds[std::size_t(place)];
    return deed == kDelete || deed == kClear;
}

// What of the changes counts; nothing where the object is not there.
std::optional<std::vector<int>> Lesson::counting(const Thing &thing) const
{
    if (!countsAt(thing.drawn))
        return std::nullopt;
    std::vector<int> changes;
    for (const int place : thing.changes) {
        if (!countsAt(place))
            continue;
        if (takesAway(place))
            return std::nullopt;
        changes.push_back(place);
    }
    return changes;
}

std::vector<StepId> Lesson::named(const std::vector<int> &places) const
{
    std::vector<StepId> names;
    names.reserve(places.size());
    for (const int place : places)
        names.push_back(m_ids[std::size_t(place)]);
    return names;
}

Life Lesson::lifeOf(const Thing &thing, const std::vector<int> &changes) const
{
    Record first = recordAt(thing.drawn);
    auto *draw = std::get_if<Draw>(&first.deed);
    Life life = draw ? std::move(draw->life) : Life();
    for (const int place : changes) {
        Record record = recordAt(place);
        if (const auto *change = std::get_if<Change>(&record.deed)) {
            life = changed(std::move(life), *change);
        } else if (auto *replace = std::get_if<Replace>(&record.deed)) {
            if (replace->life.picture.isNull())
                replace->life.picture = life.picture;
            life = std::move(replace->life);
        }
    }
    return life;
}

void Lesson::refresh(const ObjectId &id, const Life *drawn, LivedObject lived)
{
    if (m_deferred) {
        defer(id, drawn, std::move(lived));
        return;
    }
    const auto found = m_things.find(id);
    if (found == m_things.end())
        return;
    Thing &thing = found->second;
    Sheet &sheet = m_sheets.at(thing.page);
    const std::optional<std::vector<int>> changes = counting(thing);
    std::vector<StepId> applied = named(changes.value_or(std::vector<int>()));
    if (changes && thing.isShown && applied == thing.applied)
        return;
    thing.applied = std::move(applied);
    if (changes && !lived.object)
        lived = live(drawn ? *drawn : lifeOf(thing, *changes));
    thing.isShown = changes && lived.object && lived.object->m_bFinished;
    if (!thing.isShown) {
        sheet.page->remove(id);
        return;
    }
    auto item = std::make_shared<Item>();
    item->id = id;
    item->tool = lived.tool;
    item->isWhole = !lived.tool || lived.tool->takesText;
    item->asked = lived.reach;
    item->object = std::move(lived.object);
    sheet.page->put(std::move(item), placeOf(sheet, id), lived.isPainted);
}

// Among the objects that are there.
std::size_t Lesson::placeOf(const Sheet &sheet, const ObjectId &id) const
{
    if (sheet.order.back() == id)
        return sheet.page->items().size();
    std::size_t place = 0;
    for (const ObjectId &other : sheet.order) {
        if (other == id)
            break;
        place += sheet.page->item(other) ? 1 : 0;
    }
    return place;
}

// All objects as they came, and moved as the orders that count say. What orders before `from` do is as it was, unless
// the object is one of `moved`.
void Lesson::refreshOrder(Sheet &sheet, std::vector<ObjectId> moved, int from)
{
    if (m_deferred) {
        auto &later = m_deferred->moved[&sheet];
        later.insert(later.end(), moved.begin(), moved.end());
        return;
    }
    std::vector<ObjectId> order;
    order.reserve(sheet.drawn.size());
    auto drawn = sheet.drawn.begin();
    for (const int place : sheet.orders) {
        const auto later = std::partition_point(
            drawn, sheet.drawn.end(), [&](const ObjectId &object) { return m_things.at(object).drawn < place; });
        order.insert(order.end(), std::exchange(drawn, later), later);
        const Record record = recordAt(place);
        const auto *read = std::get_if<Order>(&record.deed);
        const Order turn = read ? *read : Order();
        if (place >= from)
            moved.push_back(turn.object);
        const auto at = std::find(order.begin(), order.end(), turn.object);
        if (!countsAt(place) || at == order.end() || turn.above == turn.object)
            continue;
        const auto below = std::find(order.begin(), order.end(), turn.above);
        if (below == order.end() && turn.above != kNothing)
            continue;
        const auto to = turn.above == kNothing ? order.begin() : below + 1;
        if (to <= at)
            std::rotate(to, at, at + 1);
        else
            std::rotate(at, at + 1, to);
    }
    order.insert(order.end(), drawn, sheet.drawn.end());
    sheet.order = std::move(order);
    sheet.page->reorder(sheet.order, moved);
}

// The last one that counts.
void Lesson::refreshPaper(Sheet &sheet)
{
    if (m_deferred) {
        m_deferred->papers.insert(&sheet);
        return;
    }
    const auto last =
        std::find_if(sheet.papers.rbegin(), sheet.papers.rend(), [this](int place) { return countsAt(place); });
    const StepId laid = last == sheet.papers.rend() ? kNothing : m_ids[std::size_t(*last)];
    if (laid == std::exchange(sheet.paper, laid))
        return;
    const Record record = laid == kNothing ? Record() : recordAt(*last);
    const auto *set = std::get_if<SetPaper>(&record.deed);
    sheet.page->setPaper(set ? set->paper : Paper());
}

void Lesson::refreshPages()
{
    if (m_deferred) {
        m_deferred->hasPages = true;
        return;
    }
    std::vector<PageId> order{kFirstPage};
    for (const int place : m_pageRecords) {
        if (!countsAt(place))
            continue;
        const Record record = recordAt(place);
        const auto found = std::find(order.begin(), order.end(), record.page);
        const auto at = [&order](int index) { return order.begin() + std::clamp(index, 0, int(order.size())); };
        if (const auto *added = std::get_if<AddPage>(&record.deed)) {
            order.insert(at(added->place), record.id);
        } else if (found == order.end()) {
            continue;
        } else if (const auto *turn = std::get_if<MovePage>(&record.deed)) {
            order.erase(found);
            order.insert(at(turn->place), record.page);
        } else if (order.size() > 1) {
            order.erase(found);
        }
    }
    m_order = std::move(order);
}

// Makes the pages as large as the log says.
void Lesson::fit()
{
    for (auto &[id, sheet] : m_sheets) {
        if (!sheet.sizes.empty())
            sheet.page->resize(sheet.sizes.back());
    }
}

void Lesson::repaint()
{
    fit();
    if (m_order != m_toldOrder) {
        m_toldOrder = m_order;
        if (pagesChanged)
            pagesChanged();
    }
    for (auto &[id, sheet] : m_sheets) {
        const QRegion area = sheet.page->repaint();
        if (!area.isEmpty() && pageChanged)
            pageChanged(id, area);
    }
}

} // namespace InkLesson
