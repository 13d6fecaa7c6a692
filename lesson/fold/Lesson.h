#pragma once

#include "lesson/Export.h"
#include "lesson/history/History.h"
#include "lesson/log/Record.h"
#include "lesson/pages/Page.h"

#include <QtCore/QByteArray>
#include <QtCore/QCoreApplication>

#include <deque>
#include <functional>
#include <memory>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace InkLesson {

// What every lesson begins with.
struct Header
{
    QSize size;        // of the first page, page pixels
    double density{1}; // of all pages: how many of their pixels lie along one of a plain screen
};

// Pages in their order: the fold of all steps of a log that count, in the order of the log. The same log gives the same
// pixels, whoever reads it and whatever was undone in between. A page has pixels once somebody looks at it.
//
// What no longer counts has no effect, nor has what builds on it; nothing is refused for what the pages happen to show.
class INKLESSON_EXPORT Lesson
{
    Q_DECLARE_TR_FUNCTIONS(InkLesson::Lesson)

public:
    static constexpr int kMostLeftOut = 1 << 30;     // numbers of an author, up to which any may come next
    static constexpr qint64 kMostPixels = 1LL << 34; // of all pages that there have been
    explicit Lesson(const Header &header);
    ~Lesson();

    const Header &header() const { return m_header; }

    // Whether the record came before: each author's numbers rise.
    bool isKnown(const Record &record) const { return m_history.isKnown(record.id); }

    // Applies the next record of the log. One that is known changes nothing. `lived`, where there is one, is what the
    // life of a Draw gives. Returns what is wrong with a record that no log holds, which changes nothing either; empty
    // where nothing is.
    QString apply(const Record &record, LivedObject lived = {});

    // The same for a record that was made here. It becomes what everybody will read; one that nobody could read is
    // wrong.
    QString applyMade(Record &record, LivedObject lived = {});

    // Takes the painting of all pages together until the last of these has ended, for a log that is read at once.
    class Batch
    {
    public:
        explicit Batch(Lesson &lesson)
            : m_lesson(lesson)
        {
            ++m_lesson.m_batches;
        }
        ~Batch() { m_lesson.endBatch(); }

    private:
        Q_DISABLE_COPY(Batch)
        Lesson &m_lesson;
    };

    // A lesson that is shared. Its log is settled up to a place: these records stand there in the order that everybody
    // has. The others are pending: they were applied here and settle at the place that they get. At each time the pages
    // are the fold of both.

    // A record that is not in the log any more, or did not come into it, and why. Its number is not given again.
    struct Refusal
    {
        StepId id; // kNothing where nobody can read it
        QString problem;
    };
    using Refusals = std::vector<Refusal>;

    std::size_t settled() const { return m_settled; }

    // A record that comes, and its object where it makes one. Nothing of it depends on what stands before: another
    // thread may read it.
    struct Arriving
    {
        Record record{};
        QString problem{}; // why nobody can read it
        LivedObject lived{};
    };
    static Arriving arriving(const QByteArray &code);

    // The next records, encoded, of the order that everybody has: those that are pending here settle, others come in
    // before all that are pending. For each of them settled() after it is put into `places`. The first of them may have
    // been read before.
    Refusals settle(const std::vector<QByteArray> &codes, std::vector<std::size_t> *places = nullptr,
                    Arriving *first = nullptr);

    // The same for so many of those that are pending. False where there are fewer.
    bool settleFirst(std::size_t count);

    // Makes settled only what stands before a place. Of the rest those of authors that are `mine` are pending again,
    // before the others that are; the rest is taken away.
    Refusals setBack(std::size_t length, const std::function<bool(int author)> &isMine);

    // Takes a pending record away. False where there is none of that name.
    bool drop(const StepId &record);

    // Numbers of an author up to this one are not given here. Records that bear them may come from elsewhere.
    void leaveOut(int author, int number) { m_history.leaveOut(author, number); }

    // Is told of every change of the log, once it was made, by what would make it in another copy.
    struct LogChange
    {
        enum class Kind {
            Added,      // `code`, at the end
            Settled,    // so many of the first pending ones
            CameBefore, // `code`, settled, before all that are pending
            SetBack,    // to a length
            Dropped     // the pending `record`
        };
        Kind kind;
        QByteArray code{};
        std::size_t count{};
        StepId record{};
    };
    std::function<void(const LogChange &change)> logChanged;

    const History &history() const { return m_history; }

    // Every record that was applied, encoded, in their order.
    const std::vector<QByteArray> &log() const { return m_log; }
    const std::vector<StepId> &ids() const { return m_ids; } // their names

    int pageCount() const { return int(m_order.size()); }
    PageId pageId(int index) const { return m_order[std::size_t(index)]; }
    int indexOf(const PageId &id) const;                                  // -1 where there is none now
    bool hasPage(const PageId &id) const { return sheet(id) != nullptr; } // also one that was taken away
    // All pages may do what takes long together, from now on; null for none. They outlive this.
    void lend(Workers *workers);

    Page &page(const PageId &id); // also one that was taken away, or is not there any more after a setBack()
    const Page &page(const PageId &id) const;

    // Where a step was done, or the page that it has made. kNothing where there is no such step.
    PageId pageOf(const StepId &step) const;

    // The life of an object as it is now; nothing where it is not there now.
    std::optional<Life> life(const ObjectId &object) const;

    // Is told once something is to be shown, which is painted.
    std::function<void(const PageId &page, const QRegion &area)> pageChanged;
    std::function<void()> pagesChanged;

private:
    // An object, and what the log tells of it. Numbers are places in the log.
    struct Thing
    {
        PageId page;
        int drawn;
        int step;                      // as its record says
        std::vector<int> changes{};    // in their order
        std::vector<StepId> applied{}; // names of those that the object that is shown has gone through
        bool isShown{};
    };

    // A page, and what the log tells of it.
    struct Sheet
    {
        std::unique_ptr<Page> page{};
        std::vector<QSize> sizes{};    // as it was made, and whenever it has grown; empty while its record is not there
        std::vector<ObjectId> drawn{}; // in the order in which they came
        std::vector<ObjectId> order{}; // from the lowest on, whether they are there or not
        std::vector<int> orders{};
        std::vector<int> papers{};
        StepId paper{}; // what has laid the one that is shown; kNothing for none
    };

    // A record that was taken back from the end of the log.
    struct Shelved
    {
        QByteArray code;
        StepId id;
        bool isDrawn{}; // it has made an object, and as its record says:
        int step{};
        PageId page{};
    };

    // What is shown only once the log has all its records again: most of them come back as they were.
    struct Deferred
    {
        struct Shown
        {
            std::vector<StepId> applied;
            bool isShown;
        };
        std::vector<std::pair<PageId, ObjectId>> objects{};
        std::unordered_map<ObjectId, Shown> shown{}; // of what was taken out
        std::unordered_map<ObjectId, LivedObject> lived{};
        std::unordered_map<Sheet *, std::vector<ObjectId>> moved{};
        std::unordered_set<Sheet *> papers{};
        bool hasPages{};
        bool isStale{}; // records came in the stead of others of their names: nothing is as it was
    };
    class Rearranging;

    std::unique_ptr<Page> newPage(const QSize &size) const;
    QString add(const Record &record, const QByteArray &code, LivedObject lived);
    QString append(const Record &record, const QByteArray &code, LivedObject lived);
    void enter(const StepId &id, const StepId &step, quint8 deed, const QByteArray &code);
    Shelved takeBack();
    void takeOut(int place, const Record &record);
    void takeOutDrawn(Shelved &shelved);
    void flush();
    void defer(const ObjectId &id, const Life *drawn, LivedObject lived);
    std::deque<Shelved> takeBackTo(std::size_t length);
    QString putBack(const Shelved &shelved);
    void putBackAll(std::deque<Shelved> &pending, Refusals &refusals);
    std::vector<Arriving> arriving(const QByteArray *codes, std::size_t count) const;
    QString settleOne(const QByteArray &code, Arriving *read, std::deque<Shelved> &pending, StepId &id);
    void tell(const LogChange &change);
    void fit();
    QString problemOf(const Record &record) const;
    qint64 pixelsOf(const Record &record) const;
    void endBatch();
    Record recordAt(int place) const;
    bool countsAt(int place) const;
    bool takesAway(int place) const;
    void note(int place, const Record &record, LivedObject lived);
    void toggle(const StepId &step);
    void refresh(const ObjectId &id, const Life *drawn = nullptr, LivedObject lived = {});
    std::optional<std::vector<int>> counting(const Thing &thing) const;
    Life lifeOf(const Thing &thing, const std::vector<int> &changes) const;
    std::vector<StepId> named(const std::vector<int> &places) const;
    std::size_t placeOf(const Sheet &sheet, const ObjectId &id) const;
    void refreshOrder(Sheet &sheet, std::vector<ObjectId> moved = {}, int from = 0);
    void refreshPaper(Sheet &sheet);
    void refreshPages();
    void repaint();
    const Sheet *sheet(const PageId &id) const;
    Sheet *sheet(const PageId &id) { return const_cast<Sheet *>(std::as_const(*this).sheet(id)); }

    const Header m_header;
    const std::shared_ptr<CommonPixels> m_common = std::make_shared<CommonPixels>();
    Workers *m_workers{};
    History m_history;
    std::vector<QByteArray> m_log;
    std::size_t m_settled{};                               // of them
    std::vector<StepId> m_ids;                             // of each record of the log
    std::vector<StepId> m_steps;                           // the same, of which step it is
    std::vector<quint8> m_deeds;                           // the same, of what kind it is
    std::unordered_map<StepId, std::vector<int>> m_places; // of a step's records
    std::unordered_map<ObjectId, Thing> m_things;
    std::unordered_map<PageId, Sheet> m_sheets;
    std::vector<int> m_pageRecords;
    std::vector<PageId> m_order, m_toldOrder;
    qint64 m_pixels; // of all pages that there have been
    int m_batches{};
    std::unique_ptr<Deferred> m_deferred; // null while everything is shown at once
};

} // namespace InkLesson
