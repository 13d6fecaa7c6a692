#pragma once

#include "lesson/Export.h"
#include "lesson/fold/Lesson.h"

#include <functional>

namespace InkLesson {

// One who draws on a lesson at this machine: makes records of what the hand does, each step once it is done.
//
// A step is what the hand did at once: a stroke, a drag, a colour, a width. An object with handles stays in the hand
// after it was drawn and after each change, until it is let go.
class INKLESSON_EXPORT Author
{
    Q_DECLARE_TR_FUNCTIONS(InkLesson::Author)

public:
    using Clock = std::function<qint64()>;                      // milliseconds since 1970
    using Listener = std::function<void(const Record &record)>; // of what has just been applied

    // The lesson outlives the author.
    Author(Lesson &lesson, int number, Clock clock, Listener listener = {});

    int number() const { return m_number; }
    int lastNumber() const { return m_lesson.history().lastNumber(m_number); } // of a record, 0 before the first

    // What was wrong with what was to be done last, and was not done for that; empty where nothing was.
    const QString &problem() const { return m_problem; }

    // Where the hand is. Another page lets go what is in it; one that never was there is passed over.
    const PageId &page() const { return m_page; }
    void turnTo(const PageId &page);
    QSize canvas() const { return lessonPage().rect().size(); } // of objects that are begun now

    // Takes the object that the next events go to, with its life so far; another one is let go first.
    void begin(Life life, std::unique_ptr<CInkGraph> object);
    void begin(const Life &life);

    // Puts an object that is edited from the start on the page, and into the hand.
    void insert(Life life);

    // Takes a committed object into the hand, which gives it its handles. False where it has none, or is not there.
    bool reopen(const ObjectId &object);

    // Hands events to the object in hand. Without one they are lost, and so are those that no record has room for.
    void feed(int code, const std::vector<QPoint> &pts);
    void feed(int code, const QPoint &pt) { feed(code, std::vector<QPoint>{pt}); }

    // Does something else to the object in hand.
    void act(const Act &act);

    // Lets the object go. A new one that leaves no mark is forgotten.
    void finish();

    // Takes the object in hand away from the page.
    void discard();

    const Hand *hand() const { return const_cast<Author *>(this)->lessonPage().hand(m_number); }
    CInkGraph *object() const { return hand() ? hand()->object.get() : nullptr; }

    // For who tells others of what is in the hand: which of the objects that were taken it is, from 1 on, and how many
    // acts of its life were done before it was taken. Those after them only become more.
    int taken() const { return m_taken; }
    std::size_t actsBefore() const { return m_actsBefore; }

    // When each of those after them was done, by the clock.
    const std::vector<qint64> &actTimes() const { return m_actTimes; }

    // Hear that the object in hand is about to be let go into the log, while it is still there, and that it was.
    std::function<void()> aboutToSettle, settled;

    // Fills the area of one colour around a point of the page, as it is seen now. False where there is nothing to fill.
    // The fill belongs to the innermost object around it while the author does nothing but move that: it moves along,
    // in the same step.
    bool pour(const QPoint &seed, const QColor &color);

    // Steps on committed objects; the one in hand is let go first. Nothing happens where they name none.
    void change(const Change &change);
    void change(const std::vector<Change> &changes); // one step

    // Objects that are removed one after the other, as a pointer comes to them, are one step: of the number that the
    // call before has returned. What was undone meanwhile stays so, and the rest is another step.
    int remove(const std::vector<ObjectId> &objects, int step = 0);

    void order(const ObjectId &object, const ObjectId &above);
    void clear();
    void setPaper(const Paper &paper);

    // A copy of an object, moved, on top of all. Returns its name, or kNothing.
    ObjectId duplicate(const ObjectId &object, const QPoint &by);

    // Makes the page at least as large as `size`; no step.
    void grow(const QSize &size);

    PageId addPage(int place, const QSize &size);
    void removePage(const PageId &page);
    void movePage(const PageId &page, int place);

    // The author's own last step, whatever others have done since. False without one.
    bool undo();
    bool redo();
    bool canUndo() const;
    bool canRedo() const;

private:
    Page &lessonPage() const { return m_lesson.page(m_page); }
    StepId emitDeed(Deed deed, int step = 0, LivedObject lived = {});
    StepId emitRecord(Record record, LivedObject lived);
    bool emitUndo(const std::optional<StepId> &step);
    bool takesFillAlong(const ObjectId &shape) const;
    void takeFillAlong(const QPoint &by, int step);
    void emitChange(Hand &hand, LivedObject lived = {});
    void show(const QRegion &area);
    void settle();
    void settleNew();
    bool isKept(const Hand &hand) const;
    void keepChange();
    void hold(Hand hand, const ObjectId &object);
    void insert(Life life, int step);
    bool hasRoom(std::size_t acts) const;
    void timeActs(qint64 time);

    Lesson &m_lesson;
    const int m_number;
    const Clock m_clock;
    const Listener m_listener;
    PageId m_page{kFirstPage};
    QString m_problem;

    // What was filled last, what lies around it, and the last step that has moved both, or has filled.
    struct Poured
    {
        ObjectId fill;
        ObjectId shape;
        int step;
        int moved;
    };
    Poured m_poured{};
    int m_taken{};              // objects so far
    std::size_t m_actsBefore{}; // of the object in hand, when it was taken
    std::vector<qint64> m_actTimes{};
    std::size_t m_known{};              // of the acts of the object in hand, those that are in the log
    int m_lifting{};                    // the step that has lifted the object in hand; its first change joins that
    Qt::PenStyle m_dash{Qt::SolidLine}; // of the object in hand, as the log has it
};

} // namespace InkLesson
