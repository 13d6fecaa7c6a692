#include "board/files/FileCommands.h"

#include "board/canvas/Canvas.h"
#include "board/commands/CommandGroup.h"
#include "board/files/OpeningBar.h"
#include "board/files/SaveDialog.h"

#include <QtCore/QFile>
#include <QtCore/QTimer>
#include <QtWidgets/QAction>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>

namespace Board {

namespace {

constexpr const char *kFilter = QT_TRANSLATE_NOOP("Board::FileCommands", "Lessons (*.inkboard)");

QString questionFor(FileCommands::For what)
{
    switch (what) {
    case FileCommands::For::Quitting:
        return FileCommands::tr("Save the lesson before the board is closed?");
    case FileCommands::For::Beginning:
        return FileCommands::tr("Save this lesson before another one is begun?");
    case FileCommands::For::Opening:
        return FileCommands::tr("Save this lesson before another one is opened?");
    case FileCommands::For::Joining:
        return FileCommands::tr("Save this lesson before the other one is joined?");
    }
    return {};
}

} // namespace

FileCommands::FileCommands(Document &document, Canvas &canvas, QWidget &window)
    : m_document(document)
    , m_canvas(canvas)
    , m_window(window)
    , m_recovery(document, window)
{
    const CommandGroup group(fileGroup(), window);
    connect(group.add("new", tr("New lesson"), QStringLiteral("Ctrl+Alt+N")), &QAction::triggered, this,
            &FileCommands::begin);
    connect(group.add("open", tr("Open…"), QStringLiteral("Ctrl+O")), &QAction::triggered, this, &FileCommands::open);
    connect(group.add("recover", tr("Unsaved lessons…"), QStringLiteral("Ctrl+Shift+O")), &QAction::triggered, this,
            &FileCommands::recover);
    connect(group.add("save", tr("Save"), QStringLiteral("Ctrl+S")), &QAction::triggered, this, &FileCommands::save);
    connect(group.add("save-as", tr("Save as…"), QStringLiteral("Ctrl+Shift+S")), &QAction::triggered, this,
            &FileCommands::saveAs);
    // Later: it asks, and there is a journal by then.
    connect(&m_recovery, &Recovery::wasShared, this, [this](const InkLesson::Sharing &sharing) {
        QTimer::singleShot(0, this, [this, sharing] { emit wasShared(sharing); });
    });
    connect(&document, &Document::opened, this, &FileCommands::claimFile);
    connect(
        &document, &Document::journalFailed, this,
        [this](const QString &problem) { warn(tr("The lesson is not safe"), problem); }, Qt::QueuedConnection);
}

void FileCommands::warn(const QString &title, const QString &problem)
{
    QMessageBox::warning(&m_window, title, problem);
}

// What the others do until the sharing has ended is saved as well, where the rest is.
bool FileCommands::letGo(For what)
{
    m_canvas.finish();
    if (m_document.isShared() && !m_sharing.mayEnd())
        return false;
    if (!letGoOfChanges(what))
        return false;
    const bool isSaved = m_document.isSaved();
    if (m_document.isShared())
        m_sharing.end();
    return !isSaved || m_document.isSaved() || save();
}

bool FileCommands::letGoOfChanges(For what)
{
    if (m_document.isSaved())
        return true;
    const auto answer =
        QMessageBox::question(&m_window, tr("The lesson has changed"), questionFor(what),
                              QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
    if (answer == QMessageBox::Discard)
        m_recovery.forget();
    return answer == QMessageBox::Discard || (answer == QMessageBox::Save && save());
}

void FileCommands::begin()
{
    if (letGo(For::Beginning))
        m_document.begin();
}

void FileCommands::open()
{
    if (!letGo(For::Opening))
        return;
    const QString fileName = QFileDialog::getOpenFileName(&m_window, tr("Open a lesson"), {}, tr(kFilter));
    if (!fileName.isEmpty())
        openFile(fileName);
}

void FileCommands::openFile(const QString &fileName)
{
    if (!QFile::exists(fileName)) {
        warn(tr("The lesson was not opened"), tr("%1: there is no such file.").arg(fileName));
        return;
    }
    const bool isFree = m_claim.mayHave(fileName);
    const QString problem = withOpeningBar(m_window, [&](const Document::Progress &tell) {
        return isFree ? m_document.open(fileName, tell) : m_document.openCopy(fileName, tell);
    });
    if (!problem.isEmpty())
        warn(tr("The lesson could not be read to its end"), problem);
    else if (!isFree)
        warn(tr("The lesson is open in another window"),
             tr("%1: it is open in another window of the board. This is a copy: save it under another name.")
                 .arg(fileName));
    claimFile();
}

// None for a document that was not saved yet.
void FileCommands::claimFile()
{
    if (m_document.fileName().isEmpty())
        m_claim.release();
    else
        m_claim.take(m_document.fileName());
    emit named();
}

void FileCommands::recover()
{
    const QString journal = m_recovery.choose();
    if (journal.isEmpty() || !letGo(For::Opening))
        return;
    m_recovery.open(journal);
    claimFile();
}

bool FileCommands::save()
{
    return m_document.fileName().isEmpty() ? saveAs() : saveTo(m_document.fileName());
}

bool FileCommands::saveAs()
{
    const QString fileName =
        askWhereToSave(m_window, tr("Save the lesson"),
                       m_document.fileName().isEmpty() ? tr("lesson.inkboard") : m_document.fileName(), {tr(kFilter)});
    return !fileName.isEmpty() && saveTo(fileName);
}

bool FileCommands::saveTo(const QString &fileName)
{
    m_canvas.finish();
    const QString problem =
        m_claim.mayHave(fileName)
            ? m_document.save(fileName)
            : tr("%1: it is open in another window of the board. Save under another name.").arg(fileName);
    if (!problem.isEmpty())
        return saveElsewhere(problem);
    claimFile();
    m_recovery.forget();
    emit saved(fileName);
    return true;
}

bool FileCommands::saveElsewhere(const QString &problem)
{
    QMessageBox box(QMessageBox::Warning, tr("The lesson was not saved"), problem,
                    QMessageBox::Save | QMessageBox::Cancel, &m_window);
    box.button(QMessageBox::Save)->setText(tr("Save elsewhere…"));
    return box.exec() == QMessageBox::Save && saveAs();
}

void FileCommands::startJournal(const QString &folder, const QString &lessonFile)
{
    m_claim.setFolder(folder);
    m_recovery.setFolder(folder);
    if (!lessonFile.isEmpty())
        openFile(lessonFile);
    m_recovery.offer();
    claimFile(); // of a lesson that was opened again there is none
    const QString problem = m_document.keepJournal(folder);
    if (!problem.isEmpty())
        warn(tr("The lesson is not safe"), problem);
}

} // namespace Board
