#pragma once

#include "lesson/Export.h"
#include "lesson/log/StepId.h"

#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace InkLesson {

// Which steps of a lesson count. An undo names a step that counts, or the undo that turned a step last, both of its own
// author, and turns the step: one that counted does not from then on, one that did not does again. Any other undo has
// no effect, nor can it be named. What others do in between changes nothing, and there is no limit to the depth.
class INKLESSON_EXPORT History
{
public:
    // Whether the author has come as far already: such a record came twice.
    bool isKnown(const StepId &record) const;

    // Takes note of a record of a step. Steps that cannot be undone are kept by the author's numbers alone.
    void add(const StepId &record, const StepId &step, bool canBeUndone);

    // Takes note of an undo. Returns the steps that count from now on and did not before, or the other way round; none
    // where the undo has no effect.
    std::vector<StepId> addUndo(const StepId &undo, const StepId &step);

    // Makes everything as it was before the last record of all. Returns the same as addUndo().
    std::vector<StepId> takeBack();

    // The author's next number is beyond this one, which may come all the same.
    void leaveOut(int author, int number);

    // Of an undo: whether it is the last that has turned its step.
    bool counts(const StepId &step) const { return m_undone.count(step) == 0; }

    // Whether it is an undo that had an effect.
    bool isUndo(const StepId &step) const { return m_undos.count(step) != 0; }

    // The author's next number, and that of the last record.
    int nextNumber(int author) const;
    int lastNumber(int author) const;

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
        int leftOut{};              // numbers up to this one are not the next
        std::vector<StepId> done{}; // the newest last
        std::vector<StepId> undos{};
    };

    // What a record has changed.
    struct Turn
    {
        StepId record;
        int last{};                  // number of the author, before
        bool isDone{};               // it began a step
        std::vector<StepId> undos{}; // from then on they had nothing to do again
        StepId turned{};             // by an undo; kNothing where that had no effect
        StepId lastUndo{};           // that had turned the step before
        std::ptrdiff_t place{-1};    // where the step stood in `done`, or that undo in `undos`; -1 where it did not
    };

    void takeBackUndo(Author &author, const Turn &turn);

    std::unordered_map<int, Author> m_authors;
    std::vector<Turn> m_turns;                      // of all records
    std::unordered_map<StepId, StepId> m_undos;     // and the steps that they have turned
    std::unordered_map<StepId, StepId> m_lastUndos; // the other way round: the last of each step
    std::unordered_set<StepId> m_undone;            // steps and undos that do not count
};

} // namespace InkLesson
