// What the document of a shared lesson does beside: its journal, and what others do to its pages.

#include "board/document/Document.h"

#include "board/document/BackgroundFile.h"

#include "lesson/log/RecordReader.h"

#include <algorithm>
#include <utility>

namespace Board {

using namespace InkLesson;

namespace {

void bringToDisk(const QString &fileName)
{
    QFile file(fileName);
    if (file.open(QIODevice::ReadWrite))
        syncHandle(file.handle());
}

} // namespace

void Document::share(const Sharing &sharing)
{
    m_isShared = true;
    writeAnew(&sharing);
}

void Document::join(std::unique_ptr<Lesson> lesson, const Sharing &sharing)
{
    m_author->finish();
    take(std::move(lesson), sharing.authors.front());
    m_isChanged = true; // there is no file of it
    share(sharing);
    tellOpened();
}

void Document::endSharing()
{
    if (std::exchange(m_isShared, false))
        writeAnew(nullptr);
}

// The journal in its new form takes the place of the one before once it is on the disk: at no time is there none.
void Document::writeAnew(const Sharing *sharing)
{
    auto fresh = std::make_unique<Journal>(std::make_unique<BackgroundFile>());
    std::unique_ptr<Journal> before;
    QString problem;
    if (m_journal->isKept() && keepFresh(*fresh, problem))
        before = std::exchange(m_journal, std::move(fresh));
    else
        m_journal->begin();
    bool isWritten = true;
    if (sharing)
        isWritten = m_journal->share(*m_lesson, m_saved, *sharing);
    else if (!m_isChanged)
        m_journal->rest(*m_lesson);
    else
        isWritten = m_journal->follow(*m_lesson, m_saved);
    if (!m_journal->isKept())
        return;
    tellJournal(isWritten);
    if (!before || !isWritten)
        return; // another start finds the one before
    bringToDisk(m_journal->fileName());
    before->discard();
}

std::vector<int> Document::authors() const
{
    std::vector<int> authors{m_author->number()};
    for (const StepId &id : m_lesson->ids()) {
        if (std::find(authors.begin(), authors.end(), id.author) == authors.end())
            authors.push_back(id.author);
    }
    return authors;
}

// In the midst of the lesson's work: what follows from it has to wait.
void Document::noted(const Lesson::LogChange &change)
{
    using Kind = Lesson::LogChange::Kind;
    if (!m_isShared)
        return;
    m_journal->note(change);
    if (change.kind == Kind::Added)
        return; // by the person here, who is told of it
    follow();
    if (change.kind == Kind::CameBefore)
        noteWhose(change.code);
    m_isChanged = m_isChanged || change.kind != Kind::Settled;
    m_looking.start();
}

// Who takes away what is shown, by a step or by undoing one. Only the shortest records do.
void Document::noteWhose(const QByteArray &code)
{
    constexpr int kMostBytes = 200;
    Record record;
    if (code.size() > kMostBytes || !RecordReader().readCbor(code, record) || record.id.author == m_author->number())
        return;
    const auto *undo = std::get_if<Undo>(&record.deed);
    if ((undo ? m_lesson->pageOf(undo->step) : record.page) != m_author->page())
        return;
    if (undo || std::holds_alternative<RemovePage>(record.deed))
        m_removedBy = record.id.author;
    else if (std::holds_alternative<Clear>(record.deed))
        m_clearedBy = record.id.author;
}

// Others may have removed the page that is shown, or moved it.
void Document::lookAround()
{
    const int removedBy = std::exchange(m_removedBy, 0);
    const int clearedBy = std::exchange(m_clearedBy, 0);
    if (current() < 0) {
        emit pageLost(m_author->hand() != nullptr, removedBy);
        stayOnAPage();
    } else if (clearedBy != 0) {
        emit pageCleared(clearedBy);
    }
    m_shown = current();
    emit stepsChanged();
}

} // namespace Board
