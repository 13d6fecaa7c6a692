#pragma once

#include "lesson/Export.h"
#include "lesson/log/StepId.h"

#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace InkLesson {

// Which steps of a lesson count: all but those that an undo names which counts itself. An undo is a step, so the way
// back from it is an undo, too. What others do in between changes nothing, and there is no limit to the depth.
class INKLESSON_EXPORT History
{
public:
    // Whether the author has come as far already: such a record came twice.
    bool isKnown(const StepId &record) const;

    // Takes note of a record of a step. Steps that cannot be undone are kept by the author's numbers alone.
    void add(const StepId &record, const StepId &step, bool canBeUndone);

    // Takes note of an undo. Returns the steps that count from now on and did not before, or the other way round; none
    // where the step is not the author's, or not there.
    std::vector<StepId> addUndo(const StepId &undo, const StepId &step);

    bool counts(const StepId &step) const { return m_undone.count(step) == 0; }

    // The author's next number.
    int nextNumber(int author) const;

    // What the author would undo next, and what an undo would have to name to do it again. Steps that are done after an
    // undo leave nothing to do again.
    std::optional<StepId> toUndo(int author) const;
    std::optional<StepId> toRedo(int author) const;

    // How many steps the author could undo.
    int stepsToUndo(int author) const;

private:
    struct Author
    {
        int last{};                 // number
        std::vector<StepId> done{}; // the newest last
        std::vector<StepId> undos{};
    };

    std::unordered_map<int, Author> m_authors;
    std::unordered_map<StepId, StepId> m_undos; // and the steps that they name
    std::unordered_set<StepId> m_undone;        // steps and undos that do not count
};

} // namespace InkLesson
