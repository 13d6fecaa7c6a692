#include "board/pages/PageCommands.h"

#include "board/canvas/Canvas.h"
#include "board/commands/CommandGroup.h"
#include "board/files/SaveDialog.h"
#include "board/pictures/PictureFile.h"
#include "board/pictures/ScreenGrab.h"
#include "board/rail/ToolIcon.h"

#include "lesson/output/PageOutput.h"

#include <QtCore/QMimeData>
#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <QtGui/QPainter>
#include <QtPrintSupport/QPrintDialog>
#include <QtPrintSupport/QPrinter>
#include <QtWidgets/QAction>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QMessageBox>

namespace Board {

using namespace InkLesson;

PageCommands::PageCommands(Document &document, Canvas &canvas, QWidget &window)
    : m_document(document)
    , m_canvas(canvas)
    , m_window(window)
{
    addPictureCommands();
    addPaperCommands();
    const CommandGroup group(fileGroup(), window);
    connect(group.add("export", tr("Export…"), QStringLiteral("Ctrl+E")), &QAction::triggered, this,
            &PageCommands::askForExport);
    connect(group.add("print", tr("Print…"), QStringLiteral("Ctrl+P")), &QAction::triggered, this,
            &PageCommands::print);
}

void PageCommands::addPictureCommands()
{
    const CommandGroup group(tr("Pictures"), m_window);
    QAction *picture = group.add("picture", tr("Picture…"), QStringLiteral("Ctrl+I"));
    picture->setIcon(pictureIcon());
    connect(picture, &QAction::triggered, this, &PageCommands::askForPicture);
    connect(group.add("copy", tr("Copy the page"), QStringLiteral("Ctrl+C")), &QAction::triggered, this,
            &PageCommands::copy);
    connect(group.add("paste", tr("Paste a picture"), QStringLiteral("Ctrl+V")), &QAction::triggered, this,
            &PageCommands::pastePicture);
    // Later: the program that the picture was dragged from waits for the end of the drop.
    connect(&m_canvas, &Canvas::pictureRefused, this, &PageCommands::refusePicture, Qt::QueuedConnection);
}

void PageCommands::addPaperCommands()
{
    const CommandGroup group(tr("Paper"), m_window);
    const auto add = [&](const char *name, const QString &title, const char *keys, Paper::Kind kind) {
        connect(group.add(name, title, QLatin1String(keys)), &QAction::triggered, this,
                [this, kind] { setPaper(kind); });
    };
    add("blank-paper", tr("Blank paper"), "Ctrl+Shift+B", Paper::Kind::Blank);
    add("ruled-paper", tr("Ruled paper"), "Ctrl+Shift+R", Paper::Kind::Ruled);
    add("squared-paper", tr("Squared paper"), "Ctrl+Shift+Q", Paper::Kind::Squared);
    connect(group.add("picture-paper", tr("A picture as paper…"), QStringLiteral("Ctrl+Shift+I")), &QAction::triggered,
            this, &PageCommands::askForPaper);
    connect(group.add("screen-paper", tr("The screen as paper"), QStringLiteral("Ctrl+Shift+G")), &QAction::triggered,
            this, &PageCommands::takeScreenAsPaper);
}

void PageCommands::setPaper(Paper::Kind kind)
{
    m_canvas.finish();
    m_document.author().setPaper({kind, {}});
}

void PageCommands::askForPaper()
{
    m_canvas.finish();
    const QString fileName = QFileDialog::getOpenFileName(&m_window, tr("A picture as paper"), {}, pictureFilters());
    if (fileName.isEmpty())
        return;
    QString problem;
    const auto picture = readPicture(fileName, problem);
    if (!picture) {
        refusePicture(problem);
        return;
    }
    setPaper(*picture);
}

void PageCommands::setPaper(const QImage &picture)
{
    const QSize size = m_document.page().rect().size();
    m_document.author().setPaper(
        {Paper::Kind::Picture, exactImage(picture.scaled(size, Qt::KeepAspectRatio, Qt::SmoothTransformation))});
}

void PageCommands::takeScreenAsPaper()
{
    m_canvas.finish();
    grabScreen(m_window, [this](const QImage &picture) {
        if (picture.isNull())
            QMessageBox::warning(&m_window, tr("No paper was taken"),
                                 tr("This desktop gives no picture of the screen."));
        else
            setPaper(picture);
    });
}

void PageCommands::copy()
{
    m_canvas.finish();
    QGuiApplication::clipboard()->setImage(m_canvas.page().picture());
}

void PageCommands::askForPicture()
{
    const QString fileName =
        QFileDialog::getOpenFileName(&m_window, tr("Put a picture on the page"), {}, pictureFilters());
    if (fileName.isEmpty())
        return;
    QString problem;
    const auto picture = readPicture(fileName, problem);
    insertPicture(picture, problem);
}

void PageCommands::pastePicture()
{
    QString problem;
    const QMimeData *pasted = QGuiApplication::clipboard()->mimeData();
    const QMimeData nothing;
    const auto picture = readPicture(pasted ? *pasted : nothing, problem);
    insertPicture(picture, problem);
}

void PageCommands::insertPicture(const std::optional<QImage> &picture, const QString &problem)
{
    if (picture)
        m_canvas.insertPicture(*picture);
    else
        refusePicture(problem);
}

void PageCommands::refusePicture(const QString &problem)
{
    QMessageBox::warning(&m_window, tr("No picture was added"), problem);
}

QString PageCommands::exportPage(const QString &fileName)
{
    m_canvas.finish();
    return InkLesson::exportPage(m_canvas.page(), fileName);
}

void PageCommands::askForExport()
{
    const QString fileName =
        askWhereToSave(m_window, tr("Export the page"), tr("page"),
                       {tr("Pictures (*.png)"), tr("Vector drawings (*.svg)"), tr("Documents (*.pdf)")});
    if (fileName.isEmpty())
        return;
    const QString problem = exportPage(fileName);
    if (problem.isEmpty())
        emit exported(fileName);
    else
        QMessageBox::warning(&m_window, tr("The page was not exported"), problem);
}

// All pages, one on each sheet.
void PageCommands::print()
{
    m_canvas.finish();
    QPrinter printer;
    QPrintDialog dialog(&printer, &m_window);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const QSize sheet = printer.pageLayout().paintRectPixels(printer.resolution()).size();
    QPainter painter(&printer);
    for (int i = 0; i < m_document.pageCount(); ++i) {
        if (i > 0)
            printer.newPage();
        const Page &page = m_document.page(i);
        const QSize fitting = page.rect().size().scaled(sheet, Qt::KeepAspectRatio);
        painter.setViewport(QRect(QPoint(), fitting));
        paintPage(painter, page);
    }
}

} // namespace Board
