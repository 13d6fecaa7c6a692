#pragma once

#include "lesson/Export.h"
#include "lesson/history/History.h"
#include "lesson/log/Record.h"
#include "lesson/pages/Page.h"

#include <QtCore/QByteArray>
#include <QtCore/QCoreApplication>

#include <functional>
#include <memory>
#include <unordered_map>
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

    const History &history() const { return m_history; }

    // Every record that was applied, encoded, in their order.
    const std::vector<QByteArray> &log() const { return m_log; }

    int pageCount() const { return int(m_order.size()); }
    PageId pageId(int index) const { return m_order[std::size_t(index)]; }
    int indexOf(const PageId &id) const;                                     // -1 where there is none now
    bool hasPage(const PageId &id) const { return m_sheets.count(id) != 0; } // also one that was taken away
    Page &page(const PageId &id);                                            // also one that was taken away
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
        std::vector<int> changes{}; // in their order
        std::vector<int> applied{}; // of them, those that the object that is shown has gone through
        bool isShown{};
    };

    // A page, and what the log tells of it.
    struct Sheet
    {
        std::unique_ptr<Page> page;
        std::vector<ObjectId> drawn{}; // in the order in which they came
        std::vector<ObjectId> order{}; // from the lowest on, whether they are there or not
        std::vector<int> orders{};
        std::vector<int> papers{};
    };

    std::unique_ptr<Page> newPage(const QSize &size) const;
    QString append(const Record &record, const QByteArray &code, LivedObject lived);
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
    Life lifeOf(const Thing &thing) const;
    std::size_t placeOf(const Sheet &sheet, const ObjectId &id) const;
    void refreshOrder(Sheet &sheet);
    void refreshPaper(Sheet &sheet);
    void refreshPages();
    void repaint();
    Sheet *sheet(const PageId &id);

    const Header m_header;
    History m_history;
    std::vector<QByteArray> m_log;
    std::vector<StepId> m_steps;                           // of each record of the log
    std::vector<quint8> m_deeds;                           // the same, of what kind it is
    std::unordered_map<StepId, std::vector<int>> m_places; // of a step's records
    std::unordered_map<ObjectId, Thing> m_things;
    std::unordered_map<PageId, Sheet> m_sheets;
    std::vector<int> m_pageRecords;
    std::vector<PageId> m_order;
    qint64 m_pixels; // of all pages that there have been
    int m_batches{};
};

} // namespace InkLesson
