#pragma once

#include "Log.h"
#include "Page.h"

#include <QtCore/QDateTime>
#include <QtCore/QObject>
#include <QtWidgets/QUndoStack>

#include <memory>
#include <optional>
#include <vector>

class QJsonObject;

namespace Board {

// Pages in their order, and the log of all that was done to them: playing the log gives the same pages again, pixel for
// pixel. A file of a document is its log, one JSON object a line, the first of which names kind and version.
class Document : public QObject
{
    Q_OBJECT

public:
    // One blank page. The density is that of all pages: how many of their pixels lie along one of a plain screen.
    explicit Document(const QSize &pageSize, double density = 1, QObject *parent = nullptr);
    ~Document() override;

    double density() const { return m_density; }

    int pageCount() const { return int(m_pages.size()); }
    int current() const { return m_current; }
    Page &page() { return *m_pages[std::size_t(m_current)].page; }
    const Page &page() const { return *m_pages[std::size_t(m_current)].page; }
    Page &page(int index) { return *m_pages[std::size_t(index)].page; }

    void showPage(int index);

    // Steps that can be undone; the new page, or the one in the place of the removed, is shown. The last page stays.
    void addPage(int index);
    void removePage(int index);
    void movePage(int from, int to);

    QUndoStack &undoStack() { return m_stack; }

    // Finishes the object in progress first.
    void undo();
    void redo();

    // Keeps a journal in `folder` from now on. Returns what went wrong, empty when nothing did.
    QString keepJournal(const QString &folder);
    const Log &log() const { return m_log; }

    // Finishes the object in progress and writes the file, whole or not at all. A file that another program has changed
    // since it was opened or saved here is not touched. Returns what went wrong, empty when nothing did.
    QString save(const QString &fileName);
    const QString &fileName() const { return m_fileName; }
    bool isSaved() const { return m_changes == 0; }

    // Makes this the document in the file. On an error in a line, or in a file that was cut off, the document is what
    // stands before that, and the error, which names file and line, is returned; with none of it readable the document
    // stays as it is. The file is not touched.
    QString open(const QString &fileName);

    // The same, but for a document that was never saved.
    QString openCopy(const QString &fileName);

    // The same for a journal that was left behind; there is then something to save.
    QString recover(const QString &fileName);

    void discardJournal() { m_log.discardJournal(); }

signals:
    void currentChanged();
    void pagesChanged();

    // The journal cannot be written.
    void journalFailed(const QString &problem);

private:
    class PageStep;
    class AddStep;
    class RemoveStep;
    class MoveStep;

    struct NumberedPage
    {
        int number; // in the log, for as long as the document lives
        std::unique_ptr<Page> page;
    };

    NumberedPage newPage(const QSize &size);
    void put(int index, NumberedPage page);
    NumberedPage take(int index);
    int indexOf(int number) const;
    bool canFollow(int number, const Record &record) const;
    void recorded(int number, const Record &record);
    void note(const QJsonObject &line);
    void reset(const QSize &size, double density);
    QString load(const QString &fileName);
    bool playLine(const QByteArray &line, QString &problem);
    bool isTouched(const QString &fileName) const;
    void remember(const QString &fileName);

    std::vector<NumberedPage> m_pages;
    double m_density{1};
    int m_current{};
    int m_nextNumber{1};
    QUndoStack m_stack;
    Log m_log;
    bool m_playing{}; // the log: nothing is noted
    bool m_keepsJournal{};
    bool m_journalFails{};

    QString m_fileName;
    QDateTime m_fileTime; // of the file as it was opened or saved here
    qint64 m_fileSize{};
    int m_changes{}; // since it was saved; that a page has grown is none
};

} // namespace Board
