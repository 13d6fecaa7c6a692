#include "lesson/history/History.h"

#include <algorithm>
#include <utility>

namespace InkLesson {

namespace {

// Where it was; -1 where it was not.
std::ptrdiff_t take(std::vector<StepId> &from, const StepId &id)
{
    const auto found = std::find(from.rbegin(), from.rend(), id);
    return found == from.rend() ? -1 : from.erase(std::next(found).base()) - from.begin();
}

void putBack(std::vector<StepId> &to, std::ptrdiff_t place, const StepId &id)
{
    if (place >= 0)
        to.insert(to.begin() + place, id);
}

} // namespace

bool History::isKnown(const StepId &record) const
{
    const auto author = m_authors.find(record.author);
    return author != m_authors.end() && record.number <= author->second.last;
}

void History::add(const StepId &record, const StepId &step, bool canBeUndone)
{
    Author &author = m_authors[record.author];
    Turn &turn = m_turns.emplace_back(Turn{record, std::exchange(author.last, record.number)});
    if (!canBeUndone || record != step) // a step is told of by its first record
        return;
    turn.isDone = true;
    author.done.push_back(step);
    turn.undos.swap(author.undos);
}

std::vector<StepId> History::addUndo(const StepId &undo, const StepId &step)
{
    Author &author = m_authors[undo.author];
    Turn &turn = m_turns.emplace_back(Turn{undo, std::exchange(author.last, undo.number)});
    if (step.author != undo.author || !counts(step))
        return {};
    const auto before = m_undos.find(step);
    const StepId turned = before == m_undos.end() ? step : before->second;
    if (counts(turned)) {
        turn.place = take(author.done, turned);
        if (turn.place < 0) // nothing that there is
            return {};
        m_undone.insert(turned);
        author.undos.push_back(undo);
    } else {
        turn.place = take(author.undos, step);
        m_undone.erase(turned);
        author.done.push_back(turned);
    }
    m_undos.emplace(undo, turned);
    StepId &last = m_lastUndos[turned];
    if (last != kNothing)
        m_undone.insert(last);
    turn.turned = turned;
    turn.lastUndo = std::exchange(last, undo);
    return {turned};
}

std::vector<StepId> History::takeBack()
{
    Turn turn = std::move(m_turns.back());
    m_turns.pop_back();
    Author &author = m_authors[turn.record.author];
    author.last = turn.last;
    if (turn.isDone) {
        author.done.pop_back();
        author.undos = std::move(turn.undos);
    }
    if (turn.turned == kNothing)
        return {};
    takeBackUndo(author, turn);
    return {turn.turned};
}

void History::takeBackUndo(Author &author, const Turn &turn)
{
    m_undos.erase(turn.record);
    m_undone.erase(turn.lastUndo);
    if (turn.lastUndo == kNothing)
        m_lastUndos.erase(turn.turned);
    else
        m_lastUndos[turn.turned] = turn.lastUndo;
    if (counts(turn.turned)) {
        m_undone.insert(turn.turned);
        author.done.pop_back();
        putBack(author.undos, turn.place, turn.lastUndo);
    } else {
        m_undone.erase(turn.turned);
        author.undos.pop_back();
        putBack(author.done, turn.place, turn.turned);
    }
}

void History::leaveOut(int author, int number)
{
    int &leftOut = m_authors[author].leftOut;
    leftOut = std::max(leftOut, number);
}

int History::nextNumber(int author) const
{
    const auto found = m_authors.find(author);
    return found == m_authors.end() ? 1 : std::max(found->second.last, found->second.leftOut) + 1;
}

int History::lastNumber(int author) const
{
    const auto found = m_authors.find(author);
    return found == m_authors.end() ? 0 : found->second.last;
}

std::optional<StepId> History::toUndo(int author) const
{
    const auto found = m_authors.find(author);
    return found == m_authors.end() || found->second.done.empty() ? std::nullopt
                                                                  : std::make_optional(found->second.done.back());
}

int History::stepsToUndo(int author) const
{
    const auto found = m_authors.find(author);
    return found == m_authors.end() ? 0 : int(found->second.done.size());
}

std::optional<StepId> History::toRedo(int author) const
{
    const auto found = m_authors.find(author);
    return found == m_authors.end() || found->second.undos.empty() ? std::nullopt
                                                                   : std::make_optional(found->second.undos.back());
}

} // namespace InkLesson
