// What settles, and what is taken back: the log is changed at its end alone, one record after the other.

#include "lesson/fold/Lesson.h"

#include "lesson/log/RecordReader.h"

#include <algorithm>
#include <iterator>

namespace InkLesson {

namespace {

const auto kDraw = quint8(Deed(Draw()).index());
constexpr StepId kUnknown{-1, -1};
constexpr std::size_t kMany = 8, kMost = 16; // records that are read together; their pictures take much memory

} // namespace

void Lesson::tell(const LogChange &change)
{
    if (logChanged)
        logChanged(change);
}

// While one is there, the log is taken back and goes on, and nothing is shown before its end.
class Lesson::Rearranging
{
public:
    explicit Rearranging(Lesson &lesson)
        : m_lesson(lesson)
        , m_batch(lesson)
    {
    }
    ~Rearranging() { m_lesson.flush(); }

private:
    Q_DISABLE_COPY(Rearranging)
    Lesson &m_lesson;
    const Batch m_batch;
};

void Lesson::defer(const ObjectId &id, const Life *drawn, LivedObject lived)
{
    const auto found = m_things.find(id);
    if (found == m_things.end())
        return;
    m_deferred->objects.emplace_back(found->second.page, id);
    const auto shown = m_deferred->shown.find(id);
    if (drawn && shown == m_deferred->shown.end())
        m_deferred->lived[id] = lived.object ? std::move(lived) : live(*drawn);
}

// Shows what has become of what was deferred.
void Lesson::flush()
{
    const std::unique_ptr<Deferred> deferred = std::move(m_deferred);
    if (!deferred)
        return;
    for (const auto &[page, id] : deferred->objects) {
        if (m_things.count(id) == 0)
            m_sheets.at(page).page->remove(id);
    }
    for (const auto &[sheet, moved] : deferred->moved)
        refreshOrder(*sheet, moved);
    for (const auto &[page, id] : deferred->objects) {
        const auto thing = m_things.find(id);
        if (thing == m_things.end())
            continue;
        thing->second.isShown = thing->second.isShown && !deferred->isStale;
        const auto lived = deferred->lived.find(id);
        const bool isAsDrawn = lived != deferred->lived.end() && lived->second.object && thing->second.changes.empty();
        refresh(id, nullptr, isAsDrawn ? std::move(lived->second) : LivedObject());
    }
    for (Sheet *sheet : deferred->papers) {
        sheet->paper = deferred->isStale ? kUnknown : sheet->paper;
        refreshPaper(*sheet);
    }
    if (deferred->hasPages)
        refreshPages();
}

// Makes the log as it was before the last record.
Lesson::Shelved Lesson::takeBack()
{
    const int place = int(m_log.size()) - 1;
    Shelved shelved{m_log.back(), m_ids.back()};
    shelved.isDrawn = m_deeds.back() == kDraw && m_things.count(shelved.id) != 0;
    const Record record = shelved.isDrawn ? Record() : recordAt(place);
    const auto step = m_places.find(m_steps.back());
    step->second.pop_back();
    if (step->second.empty())
        m_places.erase(step);
    m_log.pop_back();
    m_ids.pop_back();
    m_steps.pop_back();
    m_deeds.pop_back();
    for (const StepId &turned : m_history.takeBack())
        toggle(turned);
    if (shelved.isDrawn)
        takeOutDrawn(shelved);
    else
        takeOut(place, record);
    return shelved;
}

// The object stays on its page for now.
void Lesson::takeOutDrawn(Shelved &shelved)
{
    const auto found = m_things.find(shelved.id);
    Thing &thing = found->second;
    Sheet &sheet = m_sheets.at(thing.page);
    shelved.step = thing.step;
    shelved.page = thing.page;
    m_deferred->objects.emplace_back(thing.page, shelved.id);
    m_deferred->shown[shelved.id] = {std::move(thing.applied), thing.isShown};
    sheet.drawn.pop_back();
    refreshOrder(sheet);
    m_things.erase(found);
}

// Out of the books of what it is about.
void Lesson::takeOut(int place, const Record &record)
{
    if (std::holds_alternative<Undo>(record.deed))
        return;
    if (!m_pageRecords.empty() && m_pageRecords.back() == place) {
        m_pageRecords.pop_back();
        if (std::holds_alternative<AddPage>(record.deed)) {
            m_pixels -= pixelsOf(record);
            m_sheets.at(record.id).sizes.clear();
        }
        refreshPages();
        return;
    }
    Sheet *sheet = this->sheet(record.page);
    if (!sheet)
        return;
    const auto change = [&](const ObjectId &id) {
        const auto thing = m_things.find(id);
        if (thing == m_things.end() || thing->second.changes.empty() || thing->second.changes.back() != place)
            return;
        thing->second.changes.pop_back();
        refresh(id);
    };
    if (const auto *changed = std::get_if<Change>(&record.deed)) {
        change(changed->object);
    } else if (const auto *replaced = std::get_if<Replace>(&record.deed)) {
        change(replaced->object);
    } else if (const auto *gone = std::get_if<Delete>(&record.deed)) {
        for (const ObjectId &id : gone->objects)
            change(id);
    } else if (std::holds_alternative<Clear>(record.deed)) {
        std::for_each(sheet->drawn.begin(), sheet->drawn.end(), change);
    } else if (const auto *order = std::get_if<Order>(&record.deed)) {
        sheet->orders.pop_back();
        refreshOrder(*sheet, {order->object});
    } else if (std::holds_alternative<SetPaper>(record.deed)) {
        sheet->papers.pop_back();
        refreshPaper(*sheet);
    } else if (std::holds_alternative<Grow>(record.deed)) {
        sheet->sizes.pop_back();
        m_pixels -= pixelsOf(record);
    }
}

// The last comes last.
std::deque<Lesson::Shelved> Lesson::takeBackTo(std::size_t length)
{
    std::deque<Shelved> shelved;
    if (m_log.size() > length && !m_deferred)
        m_deferred = std::make_unique<Deferred>();
    while (m_log.size() > length)
        shelved.push_front(takeBack());
    return shelved;
}

// Returns what is wrong with it at this place of the log.
QString Lesson::putBack(const Shelved &shelved)
{
    if (m_history.isKnown(shelved.id))
        return tr("another record has this number");
    Sheet *sheet = this->sheet(shelved.page);
    if (!shelved.isDrawn || !sheet) {
        RecordReader reader;
        Record record;
        return reader.readCbor(shelved.code, record) ? append(record, shelved.code, {}) : reader.error();
    }
    const StepId said{shelved.id.author, shelved.step};
    const StepId step = m_history.isUndo(said) ? shelved.id : said;
    Thing thing{shelved.page, int(m_log.size()), shelved.step};
    const auto shown = m_deferred->shown.find(shelved.id);
    if (shown != m_deferred->shown.end()) {
        thing.applied = shown->second.applied;
        thing.isShown = shown->second.isShown;
    }
    enter(shelved.id, step, kDraw, shelved.code);
    m_history.add(shelved.id, step, true);
    sheet->drawn.push_back(shelved.id);
    m_things.emplace(shelved.id, std::move(thing));
    refreshOrder(*sheet);
    refresh(shelved.id);
    return {};
}

void Lesson::putBackAll(std::deque<Shelved> &pending, Refusals &refusals)
{
    for (Shelved &shelved : pending) {
        const QString problem = putBack(shelved);
        if (problem.isEmpty())
            continue;
        leaveOut(shelved.id.author, shelved.id.number);
        refusals.push_back({shelved.id, problem});
        tell({LogChange::Kind::Dropped, {}, {}, shelved.id});
    }
}

Lesson::Arriving Lesson::arriving(const QByteArray &code)
{
    Arriving one;
    RecordReader reader;
    if (!reader.readCbor(code, one.record))
        one.problem = reader.error();
    else if (const auto *draw = std::get_if<Draw>(&one.record.deed))
        one.lived = live(draw->life);
    return one;
}

// Nothing of it depends on what stands before: all workers read at once.
std::vector<Lesson::Arriving> Lesson::arriving(const QByteArray *codes, std::size_t count) const
{
    std::vector<Arriving> all(count);
    shareOut(m_workers, int(count), [&](int i, int) { all[std::size_t(i)] = arriving(codes[i]); });
    return all;
}

Lesson::Refusals Lesson::settle(const std::vector<QByteArray> &codes, std::vector<std::size_t> *places, Arriving *first)
{
    const Rearranging rearranging(*this);
    Refusals refusals;
    std::deque<Shelved> pending; // once something has come in before them
    std::vector<Arriving> ahead;
    std::size_t aheadFrom = 0; // of the codes
    for (std::size_t i = 0; i < codes.size(); ++i) {
        const QByteArray &code = codes[i];
        if (pending.empty() && m_settled < m_log.size() && m_log[m_settled] == code) {
            settleFirst(1);
        } else {
            if (pending.empty())
                pending = takeBackTo(m_settled);
            const bool isRead = i == 0 && first;
            if (!isRead && i >= aheadFrom + ahead.size() && codes.size() - i >= kMany) {
                aheadFrom = i;
                ahead = arriving(&codes[i], std::min(kMost, codes.size() - i));
            }
            Arriving *const read = isRead ? first : i < aheadFrom + ahead.size() ? &ahead[i - aheadFrom] : nullptr;
            StepId id;
            const QString problem = settleOne(code, read, pending, id);
            if (!problem.isEmpty()) {
                leaveOut(id.author, id.number);
                refusals.push_back({id, problem});
            }
        }
        if (places)
            places->push_back(m_settled);
    }
    putBackAll(pending, refusals);
    return refusals;
}

bool Lesson::settleFirst(std::size_t count)
{
    if (count > m_log.size() - m_settled)
        return false;
    m_settled += count;
    tell({LogChange::Kind::Settled, {}, count});
    return true;
}

// While the pending ones are taken back. It has been read already, or not.
QString Lesson::settleOne(const QByteArray &code, Arriving *read, std::deque<Shelved> &pending, StepId &id)
{
    const auto own =
        std::find_if(pending.begin(), pending.end(), [&](const Shelved &shelved) { return shelved.code == code; });
    QString problem;
    LogChange change{LogChange::Kind::CameBefore, code};
    if (own != pending.end()) {
        id = own->id;
        problem = putBack(*own);
        if (own == pending.begin() && problem.isEmpty())
            change = {LogChange::Kind::Settled, {}, 1};
        else
            tell({LogChange::Kind::Dropped, {}, {}, id});
        pending.erase(own);
    } else {
        Arriving one = read ? std::move(*read) : arriving(code);
        const Record &record = one.record;
        if (!one.problem.isEmpty())
            return one.problem;
        id = record.id;
        if (isKnown(record))
            return {};
        if (m_deferred)
            m_deferred->isStale =
                m_deferred->isStale ||
                std::any_of(pending.begin(), pending.end(), [&](const Shelved &shelved) { return shelved.id == id; });
        problem = append(record, code, std::move(one.lived));
    }
    if (!problem.isEmpty())
        return problem;
    ++m_settled;
    tell(change);
    return {};
}

Lesson::Refusals Lesson::setBack(std::size_t length, const std::function<bool(int)> &isMine)
{
    const Rearranging rearranging(*this);
    Refusals refusals;
    if (length >= m_settled)
        return refusals;
    std::deque<Shelved> shelved = takeBackTo(length);
    const auto pending = shelved.begin() + std::ptrdiff_t(m_settled - length);
    const auto gone =
        std::remove_if(shelved.begin(), pending, [&](const Shelved &one) { return !isMine(one.id.author); });
    shelved.erase(gone, pending);
    m_settled = length;
    tell({LogChange::Kind::SetBack, {}, length});
    putBackAll(shelved, refusals);
    return refusals;
}

bool Lesson::drop(const StepId &record)
{
    const auto found = std::find(m_ids.begin() + std::ptrdiff_t(m_settled), m_ids.end(), record);
    if (found == m_ids.end())
        return false;
    const Rearranging rearranging(*this);
    Refusals refusals;
    std::deque<Shelved> pending = takeBackTo(std::size_t(found - m_ids.begin()));
    pending.pop_front();
    leaveOut(record.author, record.number);
    tell({LogChange::Kind::Dropped, {}, {}, record});
    putBackAll(pending, refusals);
    return true;
}

} // namespace InkLesson
