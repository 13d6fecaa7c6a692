#include "board/window/MainWindow.h"

#include "board/canvas/Canvas.h"
#include "board/canvas/CanvasCommands.h"
#include "board/commands/CommandGroup.h"
#include "board/commands/CommandMenu.h"
#include "board/commands/ShortcutDialog.h"
#include "board/commands/Shortcuts.h"
#include "board/controls/ColorRow.h"
#include "board/controls/DashControl.h"
#include "board/controls/OptionControl.h"
#include "board/controls/WidthControl.h"
#include "board/controls/ZoomControl.h"
#include "board/files/FileCommands.h"
#include "board/focus/FocusOrder.h"
#include "board/look/Style.h"
#include "board/pages/PageCommands.h"
#include "board/pages/PageStrip.h"
#include "board/people/PeopleBar.h"
#include "board/person/NameDialog.h"
#include "board/rail/ToolRail.h"
#include "board/screen/ScreenInk.h"
#include "board/window/Bar.h"
#include "board/window/HintLine.h"
#include "board/window/SharingCommands.h"

#include "lesson/paper/PageSize.h"

#include <QtCore/QFileInfo>
#include <QtCore/QTimer>
#include <QtGui/QCloseEvent>
#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtWidgets/QAction>
#include <QtWidgets/QFrame>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QToolButton>

namespace Board {

namespace {

constexpr int kHintHeight = 32;
constexpr int kGap = 8;     // around the divider
constexpr int kSaid = 8000; // milliseconds that words stay

QWidget *makeDivider(QWidget *parent)
{
    auto *divider = new QFrame(parent);
    divider->setFixedSize(1 + 2 * kGap, kBarHeight / 2);
    divider->setStyleSheet(QStringLiteral("background: #d9dee6; margin: 0 %1px;").arg(kGap));
    return divider;
}

// Of the pages that are made on this screen.
double densityFor(const QSize &plainSize)
{
    const double ratio = QGuiApplication::primaryScreen()->devicePixelRatio();
    return InkLesson::isDensity(ratio) && InkLesson::pageSizeProblem(InkLesson::pageSizeAt(plainSize, ratio)).isEmpty()
               ? ratio
               : 1;
}

} // namespace

MainWindow::~MainWindow() = default;

MainWindow::MainWindow(const QSize &plainSize)
    : m_document(InkLesson::pageSizeAt(plainSize, densityFor(plainSize)), densityFor(plainSize))
    , m_canvas(new Canvas(m_document, this))
    , m_rail(new ToolRail(this))
    , m_colors(new ColorRow(this))
    , m_width(new WidthControl(this))
    , m_dash(new DashControl(this))
    , m_option(new OptionControl(this))
    , m_hint(new HintLine(this))
    , m_saying(new QTimer(this))
    , m_people(new PeopleBar(this))
    , m_tool(&tools().front())
{
    m_hint->setObjectName(QStringLiteral("hint"));
    m_hint->setFixedHeight(kHintHeight);
    m_hint->setTextFormat(Qt::PlainText); // names may stand in it
    auto *foot = new QHBoxLayout(m_hint); // the bar above has no room to spare in a small window
    foot->setContentsMargins(0, 0, 16, 0);
    foot->addStretch(1);
    foot->addWidget(m_people);
    foot->addWidget(m_dash);
    foot->addWidget(m_option);
    setStyleSheet(windowStyle());
    addCommands();
    foot->addWidget(new ZoomControl(*m_canvas, *this));

    auto *middle = new QWidget(this);
    auto *grid = new QGridLayout(middle);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(0);
    QWidget *bar = makeBar(middle);
    auto *pages = new PageStrip(m_document, *m_canvas, middle);
    grid->addWidget(bar, 0, 0, 1, 3);
    grid->addWidget(m_rail, 1, 0);
    grid->addWidget(m_canvas, 1, 1);
    grid->addWidget(pages, 1, 2);
    grid->addWidget(m_hint, 2, 0, 1, 3);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(1, 1);
    setCentralWidget(middle);
    orderFocus({bar, m_rail, m_canvas, pages, m_hint});

    restoreKeys(*this);
    connectControls();
    showState();
    showTitle();
    m_canvas->setFocus(); // so that no button starts with the ring of the keyboard around it
    resize(sizeHint().boundedTo(screen()->availableSize())); // Qt alone takes two thirds of the screen at most
}

void MainWindow::addCommands()
{
    m_files = new FileCommands(m_document, *m_canvas, *this);
    m_files->setParent(this);
    m_pageCommands = new PageCommands(m_document, *m_canvas, *this);
    m_pageCommands->setParent(this);
    addCanvasCommands(*m_canvas, *this);
    addZoomCommands(*m_canvas, *this);
    m_undo = command("undo");
    m_redo = command("redo");
    addSharing();
    m_rail->add(*command("picture"), groupTitle(*findTool(QStringLiteral("text"))));
    const CommandGroup group(boardGroup(), *this);
    connect(group.add("shortcuts", tr("Keys…"), QStringLiteral("F1")), &QAction::triggered, this,
            [this] { ShortcutDialog(*this).exec(); });
    connect(group.add("screen-ink", tr("Write on the screen"), QStringLiteral("F9")), &QAction::triggered, this,
            [this] { writeOnScreen(*this); });
    connect(group.add("name", tr("My name…"), QStringLiteral("F2")), &QAction::triggered, this,
            &MainWindow::askForName);
    connect(group.add("quit", tr("Quit"), QStringLiteral("Ctrl+Q")), &QAction::triggered, this, &MainWindow::close);
}

void MainWindow::addSharing()
{
    m_sharing = std::make_unique<SharingCommands>(m_document, *m_canvas, *m_people, *this);
    m_files->setSharing({[this] { return m_sharing->mayEnd(); }, [this] { m_sharing->end(); }});
    connect(m_files, &FileCommands::wasShared, m_sharing.get(), &SharingCommands::offerToResume);
    connect(m_sharing.get(), &SharingCommands::said, this, &MainWindow::say);
    connect(m_sharing.get(), &SharingCommands::joinRequested, this, &MainWindow::joinLesson);
    m_saying->setSingleShot(true);
    m_saying->setInterval(kSaid);
    connect(m_saying, &QTimer::timeout, this, &MainWindow::showState);
}

void MainWindow::joinLesson(const LessonLink &link, const QString &name)
{
    if (m_files->letGo(FileCommands::For::Joining))
        m_sharing->joinLesson(link, name);
}

void MainWindow::say(const QString &words)
{
    m_hint->setText(words);
    m_saying->start();
}

QAction *MainWindow::command(const char *name) const
{
    return findChild<QAction *>(QLatin1String(name));
}

QWidget *MainWindow::makeBar(QWidget *parent)
{
    auto *bar = new Bar(parent);
    bar->setObjectName(QStringLiteral("bar"));
    bar->setFixedHeight(kBarHeight);
    QHBoxLayout &row = bar->row();
    row.setContentsMargins(14, 0, 10, 0);
    row.setSpacing(4);
    row.addWidget(m_colors);
    QWidget *divider = makeDivider(bar);
    row.addWidget(divider);
    row.addWidget(m_width);
    row.addStretch(1);
    QToolButton *share = m_people->shareButton(); // its picture says enough: there is no room to spare
    share->setToolButtonStyle(Qt::ToolButtonIconOnly);
    share->setProperty("sign", true);
    row.addWidget(share);
    QToolButton *button = nullptr;
    for (const char *name : {"undo", "redo", "clear"}) {
        button = new QToolButton(bar);
        button->setDefaultAction(command(name));
        button->setToolButtonStyle(Qt::ToolButtonTextOnly);
        button->setFocusPolicy(Qt::TabFocus);
        button->setAccessibleName(command(name)->text());
        button->setProperty("sign", button->text().size() == 1); // for the style sheet
        row.addWidget(button);
    }
    row.addWidget(new CommandMenu(*this, bar));
    // The menu has what these buttons do.
    bar->setSpare({m_colors->recent(), m_width->number(), button, m_width->preview(), divider, share});
    return bar;
}

void MainWindow::connectControls()
{
    connect(m_rail, &ToolRail::chosen, this, [this](const Tool &tool) {
        m_tool = &tool;
        m_canvas->setTool(tool); // which shows its state
        m_option->setTool(tool);
        m_canvas->setInkOption(m_option->value());
    });
    connect(m_rail, &ToolRail::searched, m_canvas, QOverload<>::of(&QWidget::setFocus));
    connect(m_colors, &ColorRow::picked, this, [this](const QColor &color) {
        m_canvas->setColor(color);
        showInk();
    });
    connect(m_width, &WidthControl::picked, m_canvas, &Canvas::setInkWidth);
    connect(m_dash, &DashControl::picked, m_canvas, &Canvas::setDash);
    connect(m_option, &OptionControl::picked, m_canvas, &Canvas::setInkOption);
    connect(m_canvas, &Canvas::changed, this, &MainWindow::showState);
    connect(&m_document, &Document::stepsChanged, this, &MainWindow::showState);
    connect(m_pageCommands, &PageCommands::exported, this,
            [this](const QString &fileName) { say(tr("Saved as %1").arg(fileName)); });
    connect(m_files, &FileCommands::saved, this,
            [this](const QString &fileName) { say(tr("Saved as %1").arg(fileName)); });
    connect(m_files, &FileCommands::named, this, &MainWindow::showTitle);
    connect(&m_document, &Document::stepsChanged, this, &MainWindow::showTitle);
    m_canvas->setColor(m_colors->color());
    m_canvas->setInkWidth(m_width->inkWidth());
    showInk();
    m_canvas->setDrawer(readDrawer());
}

void MainWindow::askForName()
{
    NameDialog dialog(readDrawer(), this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    keepDrawer(dialog.drawer());
    m_canvas->setDrawer(dialog.drawer());
    m_sharing->setName(dialog.drawer().name);
}

void MainWindow::chooseTool(const Tool &tool)
{
    m_rail->choose(tool);
}

void MainWindow::showState()
{
    const InkLesson::Author &author = m_document.author();
    const InkLesson::Hand *hand = author.hand();
    m_undo->setEnabled(author.canUndo());
    m_redo->setEnabled(author.canRedo());
    showInk();
    m_dash->setVisible(hand && hand->tool ? hand->tool->takesDash : m_tool->takesDash());
    if (m_saying->isActive())
        return;
    m_hint->setText(hintFor(hand));
}

// In the words of the title "[*]" is where Qt puts the mark of what was changed, and twice that is itself.
void MainWindow::showTitle()
{
    const QString mark = QStringLiteral("[*]");
    const QString name = QFileInfo(m_document.fileName()).completeBaseName().replace(mark, mark + mark);
    setWindowTitle(name.isEmpty() ? tr("Inkboard") + mark : tr("%1 - Inkboard").arg(name + mark));
    setWindowModified(!m_document.isSaved());
}

void MainWindow::showInk()
{
    const InkLesson::Ink ink = m_canvas->shownInk();
    m_colors->show(ink.color);
    m_width->show(ink.color, ink.width);
}

QString MainWindow::hintFor(const InkLesson::Hand *hand) const
{
    if (!hand || hand->isForming())
        return tr("%1: %2.").arg(toolTitle(*m_tool), toolUsage(*m_tool));
    if (hand->tool && hand->tool->takesText)
        return tr("Type the text. A press beside it or %1 lets it go.").arg(keysText(*command("finish")));
    return tr("Drag a handle to change the object. Enter lets it go, %1 deletes it.").arg(keysText(*command("delete")));
}

QString MainWindow::exportPage(const QString &fileName)
{
    return m_pageCommands->exportPage(fileName);
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    m_canvas->finish();
    const bool closes = !m_asks || m_files->letGo(FileCommands::For::Quitting);
    if (closes) {
        m_sharing->end();
        m_document.discardJournal();
    }
    event->setAccepted(closes);
}

} // namespace Board
