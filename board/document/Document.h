#pragma once

#include "board/document/PagePictures.h"
#include "board/document/ThreadWorkers.h"

#include "lesson/authoring/Author.h"
#include "lesson/storage/Journal.h"

#include <QtCore/QObject>
#include <QtCore/QTimer>

#include <functional>
#include <memory>
#include <vector>

namespace Board {

// The lesson of a window, with the person who draws on it, the page that is shown, its file and its journal. Others may
// draw on it as well, while it is shared.
class Document : public QObject
{
    Q_OBJECT

public:
    // One blank page. The density is that of all pages: how many of their pixels lie along one of a plain screen.
    explicit Document(const QSize &pageSize, double density = 1, QObject *parent = nullptr);
    ~Document() override;

    InkLesson::Lesson &lesson() { return *m_lesson; }
    InkLesson::Author &author() { return *m_author; }
    const InkLesson::Author &author() const { return *m_author; }

    double density() const { return m_lesson->header().density; }

    int pageCount() const { return m_lesson->pageCount(); }
    int current() const { return m_lesson->indexOf(m_author->page()); }
    const InkLesson::Page &page() const { return m_lesson->page(m_author->page()); }
    const InkLesson::Page &page(int index) const { return m_lesson->page(m_lesson->pageId(index)); }

    void showPage(int index);

    // Steps that can be undone; the new page, or the one in the place of the removed, is shown. The last page stays.
    void addPage(int index);
    void removePage(int index);
    void movePage(int from, int to);

    // Lets the object in hand go first, and shows the page of the step.
    void undo();
    void redo();
    int stepsToUndo() const;

    // Keeps a journal in `folder` from now on. Returns what went wrong, empty when nothing did.
    QString keepJournal(const QString &folder);
    QString journalName() const { return m_journal->fileName(); }

    // Lets the object in hand go and writes the file, whole or not at all. A file that another program has changed
    // since it was opened or saved here is not touched. Returns what went wrong, empty when nothing did.
    QString save(const QString &fileName);
    const QString &fileName() const { return m_saved.name; }
    bool isSaved() const { return !m_isChanged; }

    // Makes this a new lesson, of one blank page.
    void begin();

    // Hears how much of opening a lesson is done, up to 1.
    using Progress = std::function<void(double share)>;

    // Makes this the lesson in the file. On an error in a line, or in a file that was cut off, the lesson is what
    // stands before that, and the error, which names file and line, is returned; with none of it readable the lesson
    // stays as it is. The file is not touched.
    QString open(const QString &fileName, const Progress &tell = {});

    // The same, but for a lesson that was never saved.
    QString openCopy(const QString &fileName, const Progress &tell = {});

    // The same for a journal that was left behind; there is then something to save, where the lesson was saved before.
    // A file that was changed since then is not touched.
    QString recover(const QString &journal, const Progress &tell = {});

    // Pictures of the first page of saved lessons are kept in `folder` from now on, so that one of many objects is
    // there at once when it is opened again. Those of a lesson that is shared are not.
    void keepPictures(const QString &folder);

    void discardJournal() { m_journal->discard(); }

    // The lesson is shared from now on: its journal tells how, and what is settled. Another person's steps may come in
    // before those that are pending.
    void share(const InkLesson::Sharing &sharing);

    // The same with a lesson that somebody else has begun, in the place of this one.
    void join(std::unique_ptr<InkLesson::Lesson> lesson, const InkLesson::Sharing &sharing);

    // An ordinary lesson from now on, with all that it has now. What is in the hand stays there.
    void endSharing();

    bool isShared() const { return m_isShared; }

    // Who has drawn on the lesson: the person here first.
    std::vector<int> authors() const;

signals:
    // Another lesson will be there, and this one, with its author, not any more.
    void leaving();

    // Another lesson is there.
    void opened();

    // A step of the person here is in the lesson.
    void stepDone();

    // Somebody else has removed the page that is shown; the next one is about to come in its place. The object in hand
    // goes with the page. The author is 0 where nobody knows.
    void pageLost(bool withObject, int author);

    // The same for all that was drawn on the page that is shown.
    void pageCleared(int author);

    // `area` of the page that is shown was painted.
    void painted(const QRegion &area);

    // Others have changed another page.
    void pageChanged(const InkLesson::PageId &page);
    void currentChanged();
    void pagesChanged();
    void stepsChanged(); // something can be undone, or done again, or no longer

    // The journal cannot be written.
    void journalFailed(const QString &problem);

private:
    void take(std::unique_ptr<InkLesson::Lesson> lesson, int author);
    bool load(const QString &fileName, QString &problem, const Progress &tell, int author);
    void tellOpened();
    void noted(const InkLesson::Record &record);
    void follow();
    void turnTo(const InkLesson::PageId &page);
    void keepPixels(const InkLesson::PageId &page);
    void pack(const InkLesson::PageId &page);
    void stayOnAPage();
    void takeBack(const std::optional<InkLesson::StepId> &step, bool (InkLesson::Author::*act)());
    void remember(const QString &fileName);
    void keepPicture();
    void prepareSome();
    void noted(const InkLesson::Lesson::LogChange &change);
    void noteWhose(const QByteArray &code);
    void lookAround();
    bool keepFresh(InkLesson::Journal &journal, QString &problem) const;
    void writeAnew(const InkLesson::Sharing *sharing);
    void tellJournal(bool isWritten);

    const InkLesson::Header m_header; // of new lessons
    ThreadWorkers m_workers;
    std::unique_ptr<InkLesson::Lesson> m_lesson;
    std::unique_ptr<InkLesson::Author> m_author;
    std::unique_ptr<InkLesson::Journal> m_journal;
    QString m_journals; // the folder of journals
    QTimer m_syncing;
    QTimer m_looking;  // once others have changed something
    int m_removedBy{}; // the author who may have removed the page that is shown, 0 for none
    int m_clearedBy{}; // the same, of what was drawn on it
    bool m_isShared{};
    bool m_journalFails{};
    int m_shown{};                     // place of the page that is shown
    QList<InkLesson::PageId> m_kept;   // pages that were shown last, the newest first
    QList<InkLesson::PageId> m_packed; // and those of which there is a note, the newest first
    QTimer m_packing;
    std::unique_ptr<PagePictures> m_pictures; // null where none are kept
    QTimer m_keeping;                         // the picture of a lesson that was opened
    QTimer m_preparing;                       // what was opened with a picture

    InkLesson::SavedFile m_saved;
    bool m_isChanged{}; // since it was saved; that a page has grown is no change
};

} // namespace Board
