#include "lesson/history/History.h"

#include <algorithm>

namespace InkLesson {

namespace {

// Whether it was there.
bool take(std::vector<StepId> &from, const StepId &id)
{
    const auto found = std::find(from.rbegin(), from.rend(), id);
    if (found == from.rend())
        return false;
    from.erase(std::next(found).base());
    return true;
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
    author.last = record.number;
    if (!canBeUndone || record != step) // a step is told of by its first record
        return;
    author.done.push_back(step);
    author.undos.clear();
}

std::vector<StepId> History::addUndo(const StepId &undo, const StepId &step)
{
    Author &author = m_authors[undo.author];
    author.last = undo.number;
    if (step.author != undo.author || !counts(step))
        return {};
    const auto before = m_undos.find(step);
    const StepId turned = before == m_undos.end() ? step : before->second;
    if (counts(turned)) {
        if (!take(author.done, turned)) // nothing that there is
            return {};
        m_undone.insert(turned);
        author.undos.push_back(undo);
    } else {
        take(author.undos, step);
        m_undone.erase(turned);
        author.done.push_back(turned);
    }
    m_undos.emplace(undo, turned);
    StepId &last = m_lastUndos[turned];
    if (last != kNothing)
        m_undone.insert(last);
    last = undo;
    return {turned};
}

int History::nextNumber(int author) const
{
    const auto found = m_authors.find(author);
    return found == m_authors.end() ? 1 : found->second.last + 1;
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
