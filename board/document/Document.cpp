#include "board/document/Document.h"

#include "board/document/BackgroundFile.h"

#include "lesson/storage/LessonFile.h"

#include <QtCore/QDateTime>
#include <QtCore/QElapsedTimer>
#include <QtCore/QUuid>

#include <algorithm>
#include <utility>

namespace Board {

using namespace InkLesson;

namespace {

constexpr int kOnlyAuthor = 1;
constexpr int kSyncDelay = 500; // milliseconds
constexpr int kKeptPages = 3;   // that were shown last, and keep their pixels
constexpr int kPackDelay = 300; // milliseconds
constexpr int kKeepDelay = 1000;
constexpr int kPreparing = 8;                  // milliseconds at a time
constexpr int kPause = 4;                      // and between, when others are answered
constexpr std::size_t kPackedBytes = 64 << 20; // of all notes, or as much as the largest two pages take

// Pages of that size, with their four layers.
std::size_t bytesOfTwo(const QSize &size)
{
    return 2 * 4 * sizeof(QRgb) * std::size_t(size.width()) * std::size_t(size.height());
}

// Sorts by time, and is like no other.
QString freshJournalName()
{
    return QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd_hh-mm-ss_")) +
           QUuid::createUuid().toString(QUuid::Id128).left(8);
}

} // namespace

Document::Document(const QSize &pageSize, double density, QObject *parent)
    : QObject(parent)
    , m_header{pageSize, density}
    , m_journal(std::make_unique<Journal>(std::make_unique<BackgroundFile>()))
{
    m_syncing.setSingleShot(true);
    m_syncing.setInterval(kSyncDelay);
    connect(&m_syncing, &QTimer::timeout, this, [this] { m_journal->sync(); });
    m_packing.setSingleShot(true);
    m_packing.setInterval(kPackDelay);
    connect(&m_packing, &QTimer::timeout, this, [this] {
        for (int i = 1; i < m_kept.size(); ++i)
            pack(m_kept[i]);
    });
    m_keeping.setSingleShot(true);
    m_keeping.setInterval(kKeepDelay);
    connect(&m_keeping, &QTimer::timeout, this, &Document::keepPicture);
    m_preparing.setInterval(kPause);
    connect(&m_preparing, &QTimer::timeout, this, &Document::prepareSome);
    m_looking.setSingleShot(true);
    m_looking.setInterval(0);
    connect(&m_looking, &QTimer::timeout, this, &Document::lookAround);
    take(std::make_unique<Lesson>(m_header), kOnlyAuthor);
}

Document::~Document() = default;

void Document::take(std::unique_ptr<Lesson> lesson, int author)
{
    if (m_lesson)
        emit leaving();
    m_author.reset();
    m_lesson = std::move(lesson);
    m_lesson->lend(&m_workers);
    m_isShared = false;
    m_author = std::make_unique<Author>(
        *m_lesson, author, [] { return QDateTime::currentMSecsSinceEpoch(); },
        [this](const Record &record) { noted(record); });
    m_author->turnTo(m_lesson->pageId(0));
    m_lesson->pageChanged = [this](const PageId &page, const QRegion &area) {
        if (page == m_author->page())
            emit painted(area);
        else
            emit pageChanged(page);
    };
    m_lesson->pagesChanged = [this] { emit pagesChanged(); };
    m_lesson->logChanged = [this](const Lesson::LogChange &change) { noted(change); };
    m_journal->begin();
    m_saved = {};
    m_isChanged = false;
    m_shown = 0;
    m_kept = {m_author->page()};
    m_packed.clear();
    m_keeping.stop();
    m_preparing.stop();
}

void Document::noted(const Record &record)
{
    m_isChanged = m_isChanged || !std::holds_alternative<Grow>(record.deed);
    follow();
    emit stepsChanged();
    emit stepDone();
}

void Document::follow()
{
    if (m_journal->isKept())
        tellJournal(m_journal->follow(*m_lesson, m_saved));
}

void Document::tellJournal(bool isWritten)
{
    if (m_journal->isDue() && !m_syncing.isActive())
        m_syncing.start();
    if (!isWritten && !m_journalFails)
        emit journalFailed(
            tr("%1: cannot be written: %2. Save the lesson elsewhere.").arg(m_journal->fileName(), m_journal->error()));
    m_journalFails = !isWritten;
}

QString Document::keepJournal(const QString &folder)
{
    QString problem;
    m_journals = folder;
    if (keepFresh(*m_journal, problem))
        follow();
    return problem;
}

bool Document::keepFresh(Journal &journal, QString &problem) const
{
    return journal.keep(m_journals, freshJournalName(), problem);
}

void Document::turnTo(const PageId &page)
{
    m_author->turnTo(page);
    m_shown = current();
    keepPixels(page);
    emit currentChanged();
}

// Those of the page that was shown longest ago come back from a note of them, which is made while nobody waits.
void Document::keepPixels(const PageId &page)
{
    m_kept.removeOne(page);
    m_kept.prepend(page);
    while (m_kept.size() > kKeptPages) {
        const PageId left = m_kept.takeLast();
        pack(left);
        m_lesson->page(left).release();
    }
    m_packing.start();
}

// The notes of the pages that were left longest ago make room for others.
void Document::pack(const PageId &page)
{
    m_lesson->page(page).pack();
    m_packed.removeOne(page);
    m_packed.prepend(page);
    std::size_t most = kPackedBytes;
    for (const PageId &other : qAsConst(m_packed))
        most = std::max(most, bytesOfTwo(m_lesson->page(other).rect().size()));
    std::size_t bytes = 0;
    for (const PageId &other : qAsConst(m_packed)) {
        bytes += m_lesson->page(other).packedBytes();
        if (bytes > most)
            m_lesson->page(other).dropPacked();
    }
}

void Document::showPage(int index)
{
    if (index >= 0 && index < pageCount() && index != current())
        turnTo(m_lesson->pageId(index));
}

// Where the page that was shown is gone, the next one comes in its place; it may have another place now.
void Document::stayOnAPage()
{
    if (current() < 0)
        turnTo(m_lesson->pageId(std::clamp(m_shown, 0, pageCount() - 1)));
    else if (current() != m_shown)
        turnTo(m_author->page());
}

void Document::addPage(int index)
{
    if (index >= 0 && index <= pageCount())
        turnTo(m_author->addPage(index, page().rect().size()));
}

void Document::removePage(int index)
{
    if (index < 0 || index >= pageCount() || pageCount() == 1)
        return;
    m_shown = current() > index ? current() - 1 : current();
    m_author->removePage(m_lesson->pageId(index));
    turnTo(m_lesson->pageId(std::clamp(m_shown, 0, pageCount() - 1)));
}

void Document::movePage(int from, int to)
{
    if (from < 0 || from >= pageCount() || to < 0 || to >= pageCount() || from == to)
        return;
    m_author->movePage(m_lesson->pageId(from), to);
    turnTo(m_author->page());
}

void Document::undo()
{
    m_author->finish();
    takeBack(m_lesson->history().toUndo(m_author->number()), &Author::undo);
}

void Document::redo()
{
    m_author->finish();
    takeBack(m_lesson->history().toRedo(m_author->number()), &Author::redo);
}

int Document::stepsToUndo() const
{
    return m_lesson->history().stepsToUndo(m_author->number());
}

void Document::takeBack(const std::optional<StepId> &step, bool (Author::*act)())
{
    if (!step)
        return;
    const PageId page = m_lesson->pageOf(*step);
    if (m_lesson->indexOf(page) >= 0 && page != m_author->page())
        turnTo(page);
    (m_author.get()->*act)();
    if (m_lesson->indexOf(page) >= 0 && page != m_author->page())
        turnTo(page);
    stayOnAPage();
}

void Document::remember(const QString &fileName)
{
    m_saved = SavedFile::at(fileName);
    m_isChanged = false;
    m_journal->rest(*m_lesson);
}

QString Document::save(const QString &fileName)
{
    m_author->finish();
    if (fileName == m_saved.name && m_saved.isTouched())
        return tr("%1: another program has changed it since. Save under another name.").arg(fileName);
    QString problem = saveLesson(*m_lesson, fileName);
    if (problem.isEmpty()) {
        remember(fileName);
        keepPicture();
    }
    return problem;
}

void Document::keepPictures(const QString &folder)
{
    m_pictures = std::make_unique<PagePictures>(folder);
}

// Of the page that is shown when the lesson is opened, as it is in the file.
void Document::keepPicture()
{
    if (m_pictures && !m_isShared && isSaved() && !m_saved.name.isEmpty())
        m_pictures->keep(*m_lesson, m_lesson->pageId(0));
}

// While nothing is in the hand.
void Document::prepareSome()
{
    QElapsedTimer clock;
    clock.start();
    while (!m_author->hand() && clock.elapsed() < kPreparing) {
        if (m_lesson->page(m_author->page()).prepareNext(std::size_t(m_workers.count())))
            continue;
        m_preparing.stop();
        return;
    }
}

bool Document::load(const QString &fileName, QString &problem, const Progress &tell, int author)
{
    constexpr double kReading = 0.15; // of the time that it takes
    const auto toldOf = [&tell](double from, double share) {
        return [&tell, from, share](double done) {
            if (tell)
                tell(from + share * done);
        };
    };
    std::unique_ptr<Lesson> lesson = openLesson(fileName, problem, toldOf(0, kReading));
    if (!lesson)
        return false;
    lesson->lend(&m_workers);
    const PageId first = lesson->pageId(0);
    std::unique_ptr<PackedLayers> picture = m_pictures ? m_pictures->find(*lesson, first) : nullptr;
    const bool isThere = picture != nullptr;
    if (isThere)
        lesson->page(first).show(std::move(picture));
    else
        lesson->page(first).prepare(toldOf(kReading, 1 - kReading));
    m_author->finish();
    take(std::move(lesson), author);
    if (isThere)
        m_preparing.start();
    else
        m_keeping.start();
    tellOpened();
    return true;
}

void Document::tellOpened()
{
    emit opened();
    emit pagesChanged();
    emit currentChanged();
    emit stepsChanged();
}

void Document::begin()
{
    m_author->finish();
    take(std::make_unique<Lesson>(m_header), kOnlyAuthor);
    tellOpened();
    follow();
}

QString Document::open(const QString &fileName, const Progress &tell)
{
    QString problem;
    if (load(fileName, problem, tell, kOnlyAuthor) && problem.isEmpty())
        remember(fileName);
    else
        follow();
    return problem;
}

QString Document::openCopy(const QString &fileName, const Progress &tell)
{
    QString problem;
    if (load(fileName, problem, tell, kOnlyAuthor) && problem.isEmpty())
        m_journal->rest(*m_lesson);
    else
        follow();
    return problem;
}

QString Document::recover(const QString &journal, const Progress &tell)
{
    QString problem;
    const Sharing sharing = Journal::sharingOf(journal);
    if (!load(journal, problem, tell, sharing.authors.empty() ? kOnlyAuthor : sharing.authors.front()))
        return problem;
    m_isChanged = true;
    m_saved = Journal::savedFileOf(journal);
    follow();
    return problem;
}

} // namespace Board
