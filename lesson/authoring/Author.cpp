#include "lesson/authoring/Author.h"

#include "lesson/authoring/Pour.h"
#include "lesson/paper/PageSize.h"

#include "PointerEvent.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace InkLesson {

namespace {

// Whether two objects of one tool look the same.
bool isAlike(const CInkGraph &first, const CInkGraph &second)
{
    return first.m_graphData == second.m_graphData && first.m_rcHot == second.m_rcHot &&
           first.m_fRotateAngle == second.m_fRotateAngle && first.m_color == second.m_color &&
           first.m_nWidth == second.m_nWidth;
}

// How far all points of an object were moved; nothing where they were not moved alike, or not by whole pixels.
QPoint movedBy(const CInkGraph &from, const CInkGraph &to)
{
    const auto &before = from.m_graphData;
    const auto &after = to.m_graphData;
    if (before.isEmpty() || before.size() != after.size() || from.m_fRotateAngle != to.m_fRotateAngle)
        return {};
    const QPoint by = (after.front() - before.front()).toPoint();
    const bool isMove = std::equal(before.begin(), before.end(), after.begin(),
                                   [&](const QPointF &a, const QPointF &b) { return b - a == QPointF(by); });
    return isMove ? by : QPoint();
}

// The smallest of the objects that reach all around an area.
ObjectId innermostAround(const Page &page, const QRect &area)
{
    const auto size = [](const QRect &rect) { return qint64(rect.width()) * rect.height(); };
    const Item *innermost = nullptr;
    for (const auto &item : page.items()) {
        if (item->reach.contains(area) && (!innermost || size(item->reach) <= size(innermost->reach)))
            innermost = item.get();
    }
    return innermost ? innermost->id : kNothing;
}

constexpr qint64 kMostTime = 1LL << 53; // that every file keeps to the last digit

} // namespace

Author::Author(Lesson &lesson, int number, Clock clock, Listener listener)
    : m_lesson(lesson)
    , m_number(number)
    , m_clock(std::move(clock))
    , m_listener(std::move(listener))
{
}

StepId Author::emitDeed(Deed deed, int step, LivedObject lived)
{
    const int number = m_lesson.history().nextNumber(m_number);
    return emitRecord({{m_number, number}, step == 0 ? number : step, {}, m_page, std::move(deed)}, std::move(lived));
}

StepId Author::emitRecord(Record record, LivedObject lived)
{
    record.time = std::clamp(m_clock(), -kMostTime, kMostTime);
    m_problem = m_lesson.applyMade(record, std::move(lived));
    if (!m_problem.isEmpty())
        return kNothing;
    if (m_listener)
        m_listener(record);
    return record.id;
}

void Author::show(const QRegion &area)
{
    if (!area.isEmpty() && m_lesson.pageChanged)
        m_lesson.pageChanged(m_page, area);
}

void Author::turnTo(const PageId &page)
{
    if (!m_lesson.hasPage(page))
        return;
    finish();
    m_page = page;
}

void Author::begin(Life life, std::unique_ptr<CInkGraph> object)
{
    finish();
    m_problem = pageSizeProblem(life.canvas);
    if (!object || !m_problem.isEmpty())
        return;
    m_known = m_actsBefore = 0;
    m_actTimes.clear();
    ++m_taken;
    Hand hand{m_number, exactLife(std::move(life)), std::move(object)};
    if (hand.object->m_color != hand.life.ink.color)
        hand.object->SetColor(hand.life.ink.color);
    show(lessonPage().take(std::move(hand)));
}

void Author::begin(const Life &life)
{
    begin(life, createObject(exactLife(life)));
}

void Author::insert(Life life)
{
    finish();
    insert(std::move(life), 0);
}

void Author::insert(Life life, int step)
{
    life.acts.emplace_back(FinishAct());
    const StepId id = emitDeed(Draw{exactLife(std::move(life))}, step);
    if (id != kNothing)
        reopen(id);
}

bool Author::reopen(const ObjectId &object)
{
    finish();
    const std::optional<Life> life = m_lesson.life(object);
    if (!life || !canReopen(*life) || !lessonPage().item(object))
        return false;
    hold({m_number, *life, live(*life).object}, object);
    return true;
}

// The acts so far are in the log.
void Author::hold(Hand hand, const ObjectId &object)
{
    hand.held = object;
    m_dash = dashOf(hand.life);
    m_known = m_actsBefore = hand.life.acts.size();
    ++m_taken;
    m_lifting = 0;
    hand.life.acts.emplace_back(ReopenAct());
    perform(hand.life.acts.back(), *hand.object);
    show(lessonPage().take(std::move(hand)));
    m_actTimes.clear();
    timeActs(m_clock());
}

// Those of the object in hand that have no time yet.
void Author::timeActs(qint64 time)
{
    if (const Hand *hand = this->hand())
        m_actTimes.resize(hand->life.acts.size() - m_actsBefore, time);
}

void Author::feed(int code, const std::vector<QPoint> &pts)
{
    const Hand *hand = this->hand();
    if (!hand || !hasRoom(pts.size()))
        return;
    const qint64 now = m_clock();
    show(lessonPage().feed(m_number, code, pts));
    timeActs(now);
    if (hand->object->m_bFinished)
        settle();
    else if (code == PT_UP && !hand->isForming() && canReopen(hand->life))
        keepChange();
    timeActs(now);
}

void Author::act(const Act &act)
{
    const Hand *hand = this->hand();
    const auto *text = std::get_if<TextAct>(&act);
    m_problem = text && text->text.size() > kMostText ? tr("a text has at most %1 letters").arg(kMostText) : QString();
    if (!hand || !m_problem.isEmpty() || !hasRoom(1))
        return;
    const qint64 now = m_clock();
    show(lessonPage().act(m_number, exactAct(act)));
    if (hand->held != kNothing && !hand->object->m_bFinished)
        keepChange();
    timeActs(now);
}

// Of the object in hand, beside those that end and begin its steps.
bool Author::hasRoom(std::size_t acts) const
{
    constexpr std::size_t kOwn = 8;
    return hand()->life.acts.size() + acts + kOwn <= kMostActs;
}

// Whether the object in hand looks as the log has it.
bool Author::isKept(const Hand &hand) const
{
    const Item *item = m_lesson.page(m_page).item(hand.held);
    return item && isAlike(*hand.object, *item->object) && dashOf(hand.life) == m_dash;
}

// What was done to the object in hand since it came into the log becomes a step, and the object stays in the hand.
void Author::keepChange()
{
    Hand &hand = *lessonPage().hand(m_number);
    if (isKept(hand))
        return;
    hand.life.acts.emplace_back(FinishAct());
    LivedObject lived;
    if (hand.held == kNothing) {
        lived = live(hand.life);
        if (!lessonPage().leavesMark(*lived.object, lived.reach, lived.tool)) {
            hand.life.acts.pop_back();
            return;
        }
    }
    perform(hand.life.acts.back(), *hand.object);
    emitChange(hand, std::move(lived));
    m_dash = dashOf(hand.life);
    m_known = hand.life.acts.size();
    hand.life.acts.emplace_back(ReopenAct());
    perform(hand.life.acts.back(), *hand.object);
    show(lessonPage().show(hand.touched));
}

void Author::emitChange(Hand &hand, LivedObject lived)
{
    if (hand.held == kNothing) {
        hand.held = {m_number, m_lesson.history().nextNumber(m_number)}; // hidden on the page from the start
        hand.held = emitDeed(Draw{hand.life}, 0, std::move(lived));
        return;
    }
    const Item *before = lessonPage().item(hand.held);
    const QPoint by = before ? movedBy(*before->object, *hand.object) : QPoint();
    const bool takesFill = takesFillAlong(hand.held);
    const auto first = hand.life.acts.begin() + std::ptrdiff_t(m_known);
    const int joined = std::exchange(m_lifting, 0);
    const StepId id = emitDeed(Change{hand.held, {}, {}, {}, {}, {}, {first, hand.life.acts.end()}}, joined);
    if (takesFill)
        takeFillAlong(by, joined == 0 ? id.number : joined);
}

// Whoever fills a shape and moves it right after means both.
bool Author::takesFillAlong(const ObjectId &shape) const
{
    const std::optional<StepId> last = m_lesson.history().toUndo(m_number);
    return last && (last->number == m_poured.step || last->number == m_poured.moved) && shape == m_poured.shape &&
           lessonPage().item(m_poured.fill);
}

void Author::takeFillAlong(const QPoint &by, int step)
{
    if (by.isNull())
        return;
    emitDeed(Change{m_poured.fill, {}, {}, {}, {}, by}, step);
    m_poured.moved = step;
}

void Author::finish()
{
    while (Hand *hand = lessonPage().hand(m_number)) { // then its successor, which has none
        hand->life.acts.emplace_back(FinishAct());
        hand->asked = perform(hand->life.acts.back(), *hand->object);
        if (hand->object->m_bFinished)
            settle();
        else
            show(lessonPage().drop(m_number));
    }
}

// The object in hand is committed.
void Author::settle()
{
    if (aboutToSettle)
        aboutToSettle();
    Hand &hand = *lessonPage().hand(m_number);
    if (hand.held == kNothing) {
        settleNew();
    } else {
        if (!isKept(hand))
            emitChange(hand);
        show(lessonPage().drop(m_number));
    }
    if (settled)
        settled();
}

// One that paints nothing is forgotten, and has no successor.
void Author::settleNew()
{
    Page &page = lessonPage();
    Hand hand{m_number, {}, {}};
    show(page.drop(m_number, &hand));
    LivedObject lived{std::move(hand.object), hand.asked, hand.tool};
    if (!page.paintOnTop(*lived.object, lived.reach, lived.tool))
        return;
    lived.isPainted = true;
    const StepId id = emitDeed(Draw{std::move(hand.life)}, 0, std::move(lived));
    if (id == kNothing) {
        page.spoil(); // without it
        show(page.repaint());
    }
    const Item *item = page.item(id);
    if (!item || !item->tool || !item->tool->lift)
        return;
    if (std::optional<Life> next = item->tool->lift(*item->object, page.rect().size())) {
        insert(*std::move(next), id.number);
        m_lifting = id.number;
    }
}

void Author::discard()
{
    const Hand *hand = this->hand();
    if (!hand)
        return;
    const ObjectId held = hand->held;
    show(lessonPage().drop(m_number));
    if (held != kNothing)
        emitDeed(Delete{{held}});
}

bool Author::pour(const QPoint &seed, const QColor &color)
{
    finish();
    std::optional<Life> life = poured(lessonPage().picture(), seed, color);
    if (!life)
        return false;
    const ObjectId shape = innermostAround(lessonPage(), {life->position, life->picture.size()});
    const ObjectId fill = emitDeed(Draw{*std::move(life)});
    m_poured = {fill, shape, fill.number, fill.number};
    return true;
}

void Author::change(const Change &change)
{
    this->change(std::vector<Change>{change});
}

void Author::change(const std::vector<Change> &changes)
{
    finish();
    int step = 0;
    for (const Change &change : changes) {
        if (!m_lesson.life(change.object))
            continue;
        const bool takesFill = takesFillAlong(change.object);
        const StepId id = emitDeed(change, step);
        step = step == 0 ? id.number : step;
        if (takesFill && changes.size() == 1)
            takeFillAlong(change.by, step);
    }
}

int Author::remove(const std::vector<ObjectId> &objects, int step)
{
    finish();
    Delete gone;
    std::copy_if(objects.begin(), objects.end(), std::back_inserter(gone.objects),
                 [&](const ObjectId &id) { return lessonPage().item(id) != nullptr; });
    if (gone.objects.empty())
        return step;
    const bool joins = step != 0 && m_lesson.history().counts({m_number, step});
    const StepId id = emitDeed(std::move(gone), joins ? step : 0);
    return joins ? step : id.number;
}

void Author::order(const ObjectId &object, const ObjectId &above)
{
    finish();
    if (lessonPage().item(object) && object != above)
        emitDeed(Order{object, above});
}

void Author::clear()
{
    finish();
    if (!lessonPage().items().empty())
        emitDeed(Clear());
}

void Author::setPaper(const Paper &paper)
{
    finish();
    emitDeed(SetPaper{paper});
}

ObjectId Author::duplicate(const ObjectId &object, const QPoint &by)
{
    finish();
    std::optional<Life> life = m_lesson.life(object);
    if (!life)
        return kNothing;
    shift(*life, by);
    return emitDeed(Draw{*std::move(life)});
}

void Author::grow(const QSize &size)
{
    const QSize grown = size.expandedTo(lessonPage().rect().size());
    if (grown != lessonPage().rect().size())
        emitDeed(Grow{grown});
}

PageId Author::addPage(int place, const QSize &size)
{
    finish();
    return emitDeed(AddPage{place, size});
}

void Author::removePage(const PageId &page)
{
    turnTo(page);
    if (m_page == page && m_lesson.pageCount() > 1)
        emitDeed(RemovePage());
}

void Author::movePage(const PageId &page, int place)
{
    turnTo(page);
    if (m_page == page && m_lesson.indexOf(page) != place)
        emitDeed(MovePage{place});
}

bool Author::canUndo() const
{
    return hand() || m_lesson.history().toUndo(m_number);
}

bool Author::canRedo() const
{
    return m_lesson.history().toRedo(m_number).has_value();
}

bool Author::undo()
{
    finish();
    return emitUndo(m_lesson.history().toUndo(m_number));
}

bool Author::redo()
{
    finish();
    return emitUndo(m_lesson.history().toRedo(m_number));
}

bool Author::emitUndo(const std::optional<StepId> &step)
{
    if (!step)
        return false;
    const int number = m_lesson.history().nextNumber(m_number);
    return emitRecord({{m_number, number}, number, {}, m_lesson.pageOf(*step), Undo{*step}}, {}) != kNothing;
}

} // namespace InkLesson
