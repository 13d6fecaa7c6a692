#include "MainWindow.h"

#include "Canvas.h"
#include "ColorRow.h"
#include "FileCommands.h"
#include "OptionControl.h"
#include "PageOutput.h"
#include "PageStrip.h"
#include "PictureFile.h"
#include "Style.h"
#include "ToolRail.h"
#include "WidthControl.h"

#include <QtCore/QMimeData>
#include <QtGui/QClipboard>
#include <QtGui/QCloseEvent>
#include <QtGui/QGuiApplication>
#include <QtGui/QPainter>
#include <QtGui/QScreen>
#include <QtPrintSupport/QPrintDialog>
#include <QtPrintSupport/QPrinter>
#include <QtWidgets/QAction>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QFrame>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QToolButton>

#include <functional>

namespace Board {

namespace {

constexpr int kHintHeight = 32;
constexpr int kGap = 8; // around the divider

QWidget *makeDivider(QWidget *parent)
{
    auto *divider = new QFrame(parent);
    divider->setFixedSize(1, kBarHeight / 2);
    divider->setStyleSheet(QStringLiteral("background: #d9dee6;"));
    return divider;
}

} // namespace

MainWindow::MainWindow(const QSize &pageSize)
    : m_document(pageSize)
    , m_canvas(new Canvas(m_document, this))
    , m_rail(new ToolRail(this))
    , m_colors(new ColorRow(this))
    , m_width(new WidthControl(this))
    , m_option(new OptionControl(this))
    , m_hint(new QLabel(this))
    , m_tool(&tools().front())
{
    setWindowTitle(tr("Inkboard"));
    m_files = new FileCommands(m_document, *m_canvas, *this);
    m_files->setParent(this);
    m_hint->setObjectName(QStringLiteral("hint"));
    m_hint->setFixedHeight(kHintHeight);
    auto *foot = new QHBoxLayout(m_hint); // the bar above has no room to spare in a small window
    foot->setContentsMargins(0, 0, 16, 0);
    foot->addStretch(1);
    foot->addWidget(m_option);
    setStyleSheet(windowStyle());
    addActions();

    auto *middle = new QWidget(this);
    auto *grid = new QGridLayout(middle);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(0);
    grid->addWidget(makeBar(middle), 0, 0, 1, 3);
    grid->addWidget(m_rail, 1, 0);
    grid->addWidget(m_canvas, 1, 1);
    grid->addWidget(new PageStrip(m_document, *m_canvas, pageActions(), middle), 1, 2);
    grid->addWidget(m_hint, 2, 0, 1, 3);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(1, 1);
    setCentralWidget(middle);

    connectControls();
    showState();
    m_canvas->setFocus(); // so that no button starts with the ring of the keyboard around it
    resize(sizeHint().boundedTo(screen()->availableSize())); // Qt alone takes two thirds of the screen at most
}

QAction *MainWindow::addAction(const char *name, const QString &title, const QString &shortcut)
{
    auto *action = new QAction(title, this);
    const QKeySequence keys(shortcut);
    action->setObjectName(QLatin1String(name));
    action->setShortcut(keys);
    action->setToolTip(QStringLiteral("%1 (%2)").arg(title, keys.toString(QKeySequence::NativeText)));
    QWidget::addAction(action);
    return action;
}

void MainWindow::addActions()
{
    addFileActions();
    addObjectActions();
    addPageActions();
    addStyleActions();
    connect(addAction("quit", tr("Quit"), QStringLiteral("Ctrl+Q")), &QAction::triggered, this, &MainWindow::close);
}

void MainWindow::addFileActions()
{
    connect(addAction("open", tr("Open…"), QStringLiteral("Ctrl+O")), &QAction::triggered, m_files,
            &FileCommands::open);
    connect(addAction("save", tr("Save"), QStringLiteral("Ctrl+S")), &QAction::triggered, m_files, &FileCommands::save);
    connect(addAction("save-as", tr("Save as…"), QStringLiteral("Ctrl+Shift+S")), &QAction::triggered, m_files,
            &FileCommands::saveAs);
    connect(addAction("print", tr("Print…"), QStringLiteral("Ctrl+P")), &QAction::triggered, this, &MainWindow::print);
    connect(addAction("export", tr("Export…"), QStringLiteral("Ctrl+E")), &QAction::triggered, this,
            &MainWindow::askForExport);
}

void MainWindow::addObjectActions()
{
    m_undo = addAction("undo", tr("Undo"), QStringLiteral("Ctrl+Z"));
    connect(m_undo, &QAction::triggered, m_canvas, &Canvas::undo);
    m_redo = addAction("redo", tr("Redo"), QStringLiteral("Ctrl+Y"));
    connect(m_redo, &QAction::triggered, m_canvas, &Canvas::redo);
    connect(addAction("picture", tr("Picture…"), QStringLiteral("Ctrl+I")), &QAction::triggered, this,
            &MainWindow::askForPicture);
    connect(addAction("copy", tr("Copy the page"), QStringLiteral("Ctrl+C")), &QAction::triggered, this, [this] {
        m_canvas->finish();
        QGuiApplication::clipboard()->setImage(m_canvas->page().picture());
    });
    connect(addAction("paste", tr("Paste a picture"), QStringLiteral("Ctrl+V")), &QAction::triggered, this,
            &MainWindow::pastePicture);
    connect(addAction("finish", tr("Finish the object"), QStringLiteral("Esc")), &QAction::triggered, m_canvas,
            &Canvas::finish);
    connect(addAction("delete", tr("Delete the object"), QStringLiteral("Del")), &QAction::triggered, m_canvas,
            &Canvas::discard);
    connect(addAction("duplicate", tr("Duplicate the object"), QStringLiteral("Ctrl+D")), &QAction::triggered, m_canvas,
            &Canvas::duplicate);
    connect(addAction("raise", tr("Bring the object to the front"), QStringLiteral("Ctrl+PgUp")), &QAction::triggered,
            m_canvas, &Canvas::raise);
    connect(addAction("lower", tr("Send the object to the back"), QStringLiteral("Ctrl+PgDown")), &QAction::triggered,
            m_canvas, &Canvas::lower);
}

void MainWindow::addPageActions()
{
    connect(addAction("clear", tr("Clear"), QStringLiteral("Ctrl+Shift+Backspace")), &QAction::triggered, m_canvas,
            &Canvas::clear);
    const auto onDocument = [this](const char *name, const QString &title, const char *icon, const char *shortcut,
                                   const std::function<void(int)> &act) {
        QAction *action = addAction(name, title, QLatin1String(shortcut));
        action->setIconText(QString::fromUtf8(icon));
        connect(action, &QAction::triggered, this, [this, act] {
            m_canvas->finish();
            act(m_document.current());
        });
    };
    onDocument("add-page", tr("Add a page"), "+", "Ctrl+N", [this](int page) { m_document.addPage(page + 1); });
    onDocument("remove-page", tr("Remove the page"), "−", "Ctrl+Shift+N",
               [this](int page) { m_document.removePage(page); });
    onDocument("previous-page", tr("Previous page"), "↑", "PgUp", [this](int page) { m_document.showPage(page - 1); });
    onDocument("next-page", tr("Next page"), "↓", "PgDown", [this](int page) { m_document.showPage(page + 1); });
    onDocument("blank-paper", tr("Blank paper"), "", "Ctrl+Shift+B", [this](int) { setPaper(Paper::Kind::Blank); });
    onDocument("ruled-paper", tr("Ruled paper"), "", "Ctrl+Shift+R", [this](int) { setPaper(Paper::Kind::Ruled); });
    onDocument("squared-paper", tr("Squared paper"), "", "Ctrl+Shift+Q",
               [this](int) { setPaper(Paper::Kind::Squared); });
    onDocument("picture-paper", tr("A picture as paper…"), "", "Ctrl+Shift+I", [this](int) { askForPaper(); });
}

void MainWindow::addStyleActions()
{
    connect(addAction("thinner", tr("Thinner"), QStringLiteral("[")), &QAction::triggered, this,
            [this] { m_width->setInkWidth(m_width->inkWidth() - 1); });
    connect(addAction("thicker", tr("Thicker"), QStringLiteral("]")), &QAction::triggered, this,
            [this] { m_width->setInkWidth(m_width->inkWidth() + 1); });
    connect(addAction("less", tr("Less of the tool's option"), QStringLiteral(",")), &QAction::triggered, this,
            [this] { m_option->step(-1); });
    connect(addAction("more", tr("More of the tool's option"), QStringLiteral(".")), &QAction::triggered, this,
            [this] { m_option->step(1); });
}

QList<QAction *> MainWindow::pageActions() const
{
    QList<QAction *> actions;
    for (const char *name : {"add-page", "remove-page", "previous-page", "next-page"})
        actions.append(findChild<QAction *>(QLatin1String(name)));
    return actions;
}

void MainWindow::setPaper(Paper::Kind kind)
{
    m_document.page().setPaper({kind, {}});
    m_canvas->update();
}

void MainWindow::askForPaper()
{
    const QString fileName = QFileDialog::getOpenFileName(this, tr("A picture as paper"));
    if (fileName.isEmpty())
        return;
    QString problem;
    const auto picture = readPicture(fileName, problem);
    if (!picture) {
        refusePicture(problem);
        return;
    }
    const QSize size = m_document.page().rect().size();
    m_document.page().setPaper(
        {Paper::Kind::Picture, exactImage(picture->scaled(size, Qt::KeepAspectRatio, Qt::SmoothTransformation))});
    m_canvas->update();
}

QWidget *MainWindow::makeBar(QWidget *parent)
{
    auto *bar = new QFrame(parent);
    bar->setObjectName(QStringLiteral("bar"));
    bar->setFixedHeight(kBarHeight);
    auto *row = new QHBoxLayout(bar);
    row->setContentsMargins(14, 0, 10, 0);
    row->setSpacing(4);
    row->addWidget(m_colors);
    row->addSpacing(kGap);
    row->addWidget(makeDivider(bar));
    row->addSpacing(kGap);
    row->addWidget(m_width);
    row->addStretch(1);
    for (const char *name : {"undo", "redo", "clear", "picture", "open", "save", "export"}) {
        auto *button = new QToolButton(bar);
        button->setDefaultAction(findChild<QAction *>(QLatin1String(name)));
        button->setToolButtonStyle(Qt::ToolButtonTextOnly);
        button->setFocusPolicy(Qt::TabFocus);
        button->setAccessibleName(button->text());
        row->addWidget(button);
    }
    return bar;
}

void MainWindow::connectControls()
{
    connect(m_rail, &ToolRail::chosen, this, [this](const Tool &tool) {
        m_tool = &tool;
        m_canvas->setTool(tool);
        m_option->setTool(tool);
        m_canvas->setInkOption(m_option->value());
    });
    connect(m_colors, &ColorRow::picked, this, [this](const QColor &color) {
        m_canvas->setColor(color);
        m_width->setColor(color);
    });
    connect(m_width, &WidthControl::picked, m_canvas, &Canvas::setInkWidth);
    connect(m_option, &OptionControl::picked, m_canvas, &Canvas::setInkOption);
    connect(m_canvas, &Canvas::changed, this, &MainWindow::showState);
    connect(&m_document.undoStack(), &QUndoStack::indexChanged, this, &MainWindow::showState);
    // Later: the program that the picture was dragged from waits for the end of the drop.
    connect(m_canvas, &Canvas::pictureRefused, this, &MainWindow::refusePicture, Qt::QueuedConnection);
    m_canvas->setColor(m_colors->color());
    m_canvas->setInkWidth(m_width->inkWidth());
    m_width->setColor(m_colors->color());
}

void MainWindow::chooseTool(const Tool &tool)
{
    m_rail->choose(tool);
}

void MainWindow::showState()
{
    const Page &page = m_canvas->page();
    m_undo->setEnabled(page.isBusy() || m_document.undoStack().canUndo());
    m_redo->setEnabled(m_document.undoStack().canRedo());
    const bool edited = page.isBusy() && !page.isForming();
    m_hint->setText(edited ? tr("Drag a handle to change the object. Enter lets it go, Del deletes it.")
                           : tr("%1: %2.").arg(toolTitle(*m_tool), toolUsage(*m_tool)));
}

QString MainWindow::exportPage(const QString &fileName)
{
    m_canvas->finish();
    return Board::exportPage(m_canvas->page(), fileName);
}

void MainWindow::askForPicture()
{
    const QString fileName = QFileDialog::getOpenFileName(this, tr("Put a picture on the page"));
    if (fileName.isEmpty())
        return;
    QString problem;
    const auto picture = readPicture(fileName, problem);
    insertPicture(picture, problem);
}

void MainWindow::pastePicture()
{
    QString problem;
    const QMimeData *pasted = QGuiApplication::clipboard()->mimeData();
    const QMimeData nothing;
    const auto picture = readPicture(pasted ? *pasted : nothing, problem);
    insertPicture(picture, problem);
}

void MainWindow::insertPicture(const std::optional<QImage> &picture, const QString &problem)
{
    if (picture)
        m_canvas->insertPicture(*picture);
    else
        refusePicture(problem);
}

void MainWindow::refusePicture(const QString &problem)
{
    QMessageBox::warning(this, tr("No picture was added"), problem);
}

void MainWindow::askForExport()
{
    const QString fileName = QFileDialog::getSaveFileName(this, tr("Export the page"), tr("page.png"),
                                                          tr("Pictures and documents (*.png *.svg *.pdf)"));
    if (fileName.isEmpty())
        return;
    const QString problem = exportPage(fileName);
    if (problem.isEmpty())
        m_hint->setText(tr("Saved as %1").arg(fileName));
    else
        QMessageBox::warning(this, tr("The page was not exported"), problem);
}

// All pages, one on each sheet.
void MainWindow::print()
{
    m_canvas->finish();
    QPrinter printer;
    QPrintDialog dialog(&printer, this);
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

void MainWindow::closeEvent(QCloseEvent *event)
{
    m_canvas->finish();
    const bool closes = !m_asks || m_files->letGo();
    if (closes)
        m_document.discardJournal();
    event->setAccepted(closes);
}

} // namespace Board
