#include "FileCommands.h"

#include "Canvas.h"
#include "CommandGroup.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QLocale>
#include <QtWidgets/QAction>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QMessageBox>

namespace Board {

namespace {

constexpr const char *kFilter = QT_TRANSLATE_NOOP("Board::FileCommands", "Lessons (*.inkboard)");

} // namespace

FileCommands::FileCommands(Document &document, Canvas &canvas, QWidget &window)
    : m_document(document)
    , m_canvas(canvas)
    , m_window(window)
{
    const CommandGroup group(fileGroup(), window);
    connect(group.add("open", tr("Open…"), QStringLiteral("Ctrl+O")), &QAction::triggered, this, &FileCommands::open);
    connect(group.add("save", tr("Save"), QStringLiteral("Ctrl+S")), &QAction::triggered, this, &FileCommands::save);
    connect(group.add("save-as", tr("Save as…"), QStringLiteral("Ctrl+Shift+S")), &QAction::triggered, this,
            &FileCommands::saveAs);
    connect(
        &document, &Document::journalFailed, this,
        [this](const QString &problem) { warn(tr("The lesson is not safe"), problem); }, Qt::QueuedConnection);
}

void FileCommands::warn(const QString &title, const QString &problem)
{
    QMessageBox::warning(&m_window, title, problem);
}

bool FileCommands::letGo()
{
    m_canvas.finish();
    if (m_document.isSaved())
        return true;
    const auto answer =
        QMessageBox::question(&m_window, tr("The lesson has changed"), tr("Save the lesson before?"),
                              QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
    return answer == QMessageBox::Discard || (answer == QMessageBox::Save && save());
}

void FileCommands::open()
{
    if (!letGo())
        return;
    const QString fileName = QFileDialog::getOpenFileName(&m_window, tr("Open a lesson"), {}, tr(kFilter));
    if (fileName.isEmpty())
        return;
    const QString problem = m_document.open(fileName);
    if (!problem.isEmpty())
        warn(tr("The lesson could not be read to its end"), problem);
}

bool FileCommands::save()
{
    return m_document.fileName().isEmpty() ? saveAs() : saveTo(m_document.fileName());
}

bool FileCommands::saveAs()
{
    const QString fileName =
        QFileDialog::getSaveFileName(&m_window, tr("Save the lesson"), tr("lesson.inkboard"), tr(kFilter));
    return !fileName.isEmpty() && saveTo(fileName);
}

bool FileCommands::saveTo(const QString &fileName)
{
    m_canvas.finish();
    const QString problem = m_document.save(fileName);
    if (!problem.isEmpty())
        warn(tr("The lesson was not saved"), problem);
    return problem.isEmpty();
}

void FileCommands::startJournal(const QString &folder)
{
    offerRecovery(folder);
    const QString problem = m_document.keepJournal(folder);
    if (!problem.isEmpty())
        warn(tr("The lesson is not safe"), problem);
}

// The journal stays until the lesson in it was offered and answered for; the new journal holds it again.
void FileCommands::offerRecovery(const QString &folder)
{
    for (const QString &journal : Log::abandoned(folder)) {
        const QString time = QLocale().toString(QFileInfo(journal).lastModified(), QLocale::LongFormat);
        const auto answer =
            QMessageBox::question(&m_window, tr("A lesson was not closed"),
                                  tr("The lesson of %1 ended without being saved. Open it again?").arg(time),
                                  QMessageBox::Yes | QMessageBox::Discard | QMessageBox::Ignore, QMessageBox::Yes);
        if (answer == QMessageBox::Discard)
            QFile::remove(journal);
        if (answer != QMessageBox::Yes)
            continue;
        m_document.recover(journal); // its last line may be cut off, which is what recovery is for
        QFile::rename(journal, journal + QStringLiteral(".recovered"));
        return;
    }
}

} // namespace Board
