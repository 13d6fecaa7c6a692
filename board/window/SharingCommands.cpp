#include "board/window/SharingCommands.h"

#include "board/canvas/Canvas.h"
#include "board/commands/CommandGroup.h"
#include "board/document/Document.h"
#include "board/invite/Addresses.h"
#include "board/invite/JoinDialog.h"
#include "board/invite/ShareDialog.h"
#include "board/people/PeopleBar.h"
#include "board/people/PersonColor.h"
#include "board/people/PersonName.h"
#include "board/person/Settings.h"
#include "board/sharing/DoorProcess.h"

#include "sharing/live/Others.h"

#include <QtCore/QEventLoop>
#include <QtNetwork/QHostAddress>
#include <QtWidgets/QAction>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QProgressDialog>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QToolButton>

#include <algorithm>
#include <map>

namespace Board {

namespace {

constexpr const char *kPointers = "sharing/pointers"; // whether those of others are shown
constexpr int kPatience = 5000;                       // milliseconds until the others have everything

} // namespace

SharingCommands::SharingCommands(Document &document, Canvas &canvas, PeopleBar &bar, QWidget &window)
    : m_document(document)
    , m_canvas(canvas)
    , m_bar(bar)
    , m_window(window)
    , m_sharing(document)
{
    addCommands();
    connectSharing();
    connectPeople();
    showState();
}

SharingCommands::~SharingCommands() = default;

void SharingCommands::addCommands()
{
    const CommandGroup group(tr("Sharing"), m_window);
    m_share = group.add("share", tr("Share this lesson…"), QStringLiteral("F6"));
    m_stop = group.add("stop-sharing", tr("Stop sharing"), QStringLiteral("Shift+F6"));
    m_join = group.add("join", tr("Join a lesson…"), QStringLiteral("F7"));
    connect(m_share, &QAction::triggered, this, &SharingCommands::share);
    connect(m_join, &QAction::triggered, this, &SharingCommands::askForLink);
    connect(m_stop, &QAction::triggered, this, [this] {
        if (mayEnd())
            m_sharing.end();
    });

    m_who = group.add("people", tr("Who is here"), QStringLiteral("F8"));
    connect(m_who, &QAction::triggered, m_bar.peopleButton(), &QAbstractButton::click);
    m_pointers = group.add("pointers", tr("Pointers of the others"), QStringLiteral("Shift+F8"));
    m_pointers->setCheckable(true);
    connect(m_pointers, &QAction::toggled, this, &SharingCommands::showPointers);
    connect(m_share, &QAction::changed, this, &SharingCommands::showTips);
    connect(m_who, &QAction::changed, this, &SharingCommands::showTips);
    connect(m_pointers, &QAction::changed, this, &SharingCommands::showTips);
}

// With the keys, as the other buttons have them.
void SharingCommands::showTips()
{
    m_bar.shareButton()->setToolTip(m_share->toolTip());
    auto *people = m_bar.peopleButton();
    people->setToolTip(m_who->toolTip());
    if (people->accessibleName().isEmpty())
        people->setAccessibleName(m_who->text());
    auto *pointers = m_bar.pointersBox();
    pointers->setToolTip(m_pointers->toolTip());
    pointers->setAccessibleName(pointers->text());
}

void SharingCommands::connectSharing()
{
    connect(&m_sharing, &DocumentSharing::progressed, this, &SharingCommands::showProgress);
    connect(&m_sharing, &DocumentSharing::begun, this, &SharingCommands::began);
    connect(&m_sharing, &DocumentSharing::failed, this, &SharingCommands::failed);
    connect(&m_sharing, &DocumentSharing::changed, this, &SharingCommands::showState);
    connect(&m_sharing, &DocumentSharing::ended, this, [this] {
        closeProgress();
        if (m_dialog)
            m_dialog->close();
        showState();
    });
    connect(&m_sharing, &DocumentSharing::endedByOwner, this, &SharingCommands::tellEnd);
    connect(&m_sharing, &DocumentSharing::stepLost, this, [this](const QString &words) {
        emit said(tr("A step of yours could not be shared, and is gone: %1").arg(words));
    });
    connect(&m_document, &Document::pageLost, this, [this](bool withObject, int author) {
        const QString words =
            withObject ? tr("%1 has removed the page. What you were drawing is on it, and comes back with it.")
                       : tr("%1 has removed the page.");
        emit said(words.arg(nameOf(author)));
    });
    connect(&m_document, &Document::pageCleared, this,
            [this](int author) { emit said(tr("%1 has cleared the page.").arg(nameOf(author))); });
    m_canvas.setMayClear([this] { return mayClear(); });
}

void SharingCommands::connectPeople()
{
    connect(&m_bar, &PeopleBar::shareRequested, m_share, &QAction::trigger);
    connect(&m_bar, &PeopleBar::pointersSwitched, m_pointers, &QAction::setChecked);
    connect(&m_canvas, &Canvas::pointed, &m_sharing, &DocumentSharing::setPointer);
    connect(&m_canvas, &Canvas::heldElsewhere, this,
            [this](int author) { emit said(tr("%1 is holding this just now.").arg(nameOf(author))); });
    connect(&m_canvas, &Canvas::changed, this, &SharingCommands::noteBothHold);
    m_pointers->setChecked(Settings().value(QLatin1String(kPointers), true).toBool());
    showPointers(m_pointers->isChecked());
}

void SharingCommands::showPointers(bool isShown)
{
    if (isShown)
        Settings().remove(QLatin1String(kPointers));
    else
        Settings().setValue(QLatin1String(kPointers), false);
    m_bar.setShown(isShown);
    m_canvas.showPointers(isShown);
}

// Once it is shared, the way to the link.
void SharingCommands::share()
{
    if (m_sharing.state() == DocumentSharing::State::Joining || m_sharing.state() == DocumentSharing::State::Ending)
        return;
    openDialog();
    if (m_sharing.state() == DocumentSharing::State::On)
        return showLinks();
    m_name = readDrawer().name;
    m_sharing.share();
}

// It stays open beside the lesson.
void SharingCommands::openDialog()
{
    if (!m_dialog) {
        m_dialog = new ShareDialog(&m_window);
        m_dialog->setAttribute(Qt::WA_DeleteOnClose);
        connect(m_dialog, &ShareDialog::ended, this, [this] {
            if (mayEnd())
                m_sharing.end();
        });
    }
    m_dialog->show();
    m_dialog->raise();
    m_dialog->activateWindow();
}

void SharingCommands::showLinks()
{
    m_dialog->setOwn(m_sharing.isOwn());
    if (!m_sharing.isOwn())
        return m_dialog->setLinks({m_sharing.link()});
    QList<LessonLink> links;
    for (const QUrl &door : doorAddresses(m_sharing.port()))
        links.append({door, m_sharing.link().lesson});
    if (QHostAddress(links.constFirst().door.host()).isLoopback())
        m_dialog->setProblem(
            tr("This machine has no network just now, so that only boards on this machine can come. Once "
               "there is one, share the lesson again to see how others come to it."));
    else
        m_dialog->setLinks(links);
}

void SharingCommands::askForLink()
{
    JoinDialog dialog(&m_window, readDrawer().name, m_typed);
    const bool joins = dialog.exec() == QDialog::Accepted;
    m_typed = dialog.text();
    if (!joins)
        return;
    keepName(dialog.name());
    emit joinRequested(dialog.link(), dialog.name());
}

// For the next time. No name is for this lesson alone.
void SharingCommands::keepName(const QString &name)
{
    Drawer drawer = readDrawer();
    if (name.isEmpty() || name == drawer.name)
        return;
    drawer.name = name;
    keepDrawer(drawer);
    m_canvas.setDrawer(drawer);
}

void SharingCommands::joinLesson(const LessonLink &link, const QString &name)
{
    if (!m_sharing.isIdle())
        end();
    m_name = name;
    m_sharing.join(link);
}

void SharingCommands::setName(const QString &name)
{
    if (m_sharing.isIdle())
        return;
    m_name = name;
    if (m_sharing.state() == DocumentSharing::State::On)
        tellPerson();
    showPeople();
}

void SharingCommands::tellPerson()
{
    m_sharing.setPerson(m_name, colorOf(m_document.author().number()));
}

void SharingCommands::offerToResume(const InkLesson::Sharing &sharing)
{
    QMessageBox box(QMessageBox::Question, tr("The lesson was shared"),
                    tr("This lesson was shared with others. Go on sharing it?"), QMessageBox::Yes | QMessageBox::No,
                    &m_window);
    box.setInformativeText(tr("Otherwise it is an ordinary lesson from now on, with all that is in it."));
    box.button(QMessageBox::Yes)->setText(tr("Go on sharing"));
    box.button(QMessageBox::No)->setText(tr("Ordinary lesson"));
    box.setDefaultButton(QMessageBox::Yes);
    if (box.exec() != QMessageBox::Yes)
        return;
    m_name = readDrawer().name;
    m_sharing.resume(sharing);
}

void SharingCommands::began()
{
    closeProgress();
    m_typed.clear();
    tellPerson();
    if (m_dialog)
        showLinks();
    if (m_sharing.isOwn() && !m_sharing.isKept())
        emit said(
            tr("nats-server is not installed: the lesson is in this machine's memory while it is shared, and otherwise "
               "in the boards that take part alone."));
    showState();
}

void SharingCommands::failed(const QString &words)
{
    closeProgress();
    QMessageBox::warning(&m_window, tr("The lesson is not shared"), words);
}

// Whoever is drawing just now draws on.
void SharingCommands::tellEnd()
{
    auto *box =
        new QMessageBox(QMessageBox::Information, tr("The lesson has been ended"),
                        tr("The lesson has been ended for everybody. You keep all of it."), QMessageBox::Ok, &m_window);
    box->setInformativeText(tr("It is an ordinary lesson from now on, with all that is in it."));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setModal(false);
    box->show();
}

// Of sharing it stands in the dialog; joining has none of its own.
void SharingCommands::showProgress(const QString &words)
{
    if (m_dialog && m_sharing.state() == DocumentSharing::State::Starting)
        return m_dialog->setProgress(words);
    if (!m_progress) {
        m_progress = new QProgressDialog(words, tr("Cancel"), 0, 0, &m_window);
        m_progress->setWindowTitle(tr("Join a lesson"));
        m_progress->setWindowModality(Qt::WindowModal);
        m_progress->setAttribute(Qt::WA_DeleteOnClose);
        m_progress->setMinimumDuration(0);
        connect(m_progress, &QProgressDialog::canceled, &m_sharing, &DocumentSharing::end);
        m_progress->show();
    }
    m_progress->setLabelText(words);
}

void SharingCommands::closeProgress()
{
    if (!m_progress)
        return;
    m_progress->disconnect(&m_sharing);
    m_progress->close();
}

bool SharingCommands::mayEnd()
{
    if (m_sharing.state() != DocumentSharing::State::On)
        return true;
    const int others = m_sharing.people();
    QString words =
        m_sharing.isOwn()
            ? tr("The others keep all that is there, and can go on with it, each alone. Nobody can come any more.")
            : tr("The others go on without you, and keep what you have drawn.");
    if (!m_sharing.isConnected() && m_sharing.unsent() > 0)
        words += QLatin1Char(' ') + tr("What is not sent yet stays on this board alone.");
    QMessageBox box(QMessageBox::Question, m_sharing.isOwn() ? tr("Stop sharing?") : tr("Leave the lesson?"),
                    m_sharing.isOwn() ? others == 0   ? tr("Nobody else is in this lesson.")
                                        : others == 1 ? tr("One other is in this lesson.")
                                                      : tr("%1 others are in this lesson.").arg(others)
                                      : tr("This lesson is somebody else's."),
                    QMessageBox::Yes | QMessageBox::Cancel, &m_window);
    box.setInformativeText(words);
    box.button(QMessageBox::Yes)->setText(m_sharing.isOwn() ? tr("Stop sharing") : tr("Leave it"));
    box.setDefaultButton(QMessageBox::Yes);
    return box.exec() == QMessageBox::Yes;
}

// What others have drawn does not go by a slip.
bool SharingCommands::mayClear()
{
    const auto &items = m_document.page().items();
    const int me = m_document.author().number();
    if (!m_document.isShared() ||
        std::all_of(items.begin(), items.end(), [me](const auto &item) { return item->id.author == me; }))
        return true;
    QMessageBox box(QMessageBox::Question, tr("Clear the page?"), tr("This clears the page for everybody."),
                    QMessageBox::Yes | QMessageBox::Cancel, &m_window);
    box.setInformativeText(tr("Others have drawn on it, too."));
    box.button(QMessageBox::Yes)->setText(tr("Clear"));
    box.setDefaultButton(QMessageBox::Cancel);
    return box.exec() == QMessageBox::Yes;
}

void SharingCommands::end()
{
    m_sharing.end();
    if (m_sharing.isIdle())
        return;
    QEventLoop loop;
    connect(&m_sharing, &DocumentSharing::ended, &loop, &QEventLoop::quit);
    QTimer::singleShot(kPatience, &loop, &QEventLoop::quit);
    loop.exec(QEventLoop::ExcludeUserInputEvents);
}

QString SharingCommands::nameOf(int author) const
{
    const auto *others = m_sharing.others();
    const auto found = others ? others->all().find(author) : decltype(others->all().end())();
    return shownName(others && found != others->all().end() ? found->second.presence.name : QString());
}

// By the order in which they came: the numbers of authors come by chance, and two of six would often share a colour.
QColor SharingCommands::colorOf(int author) const
{
    const int place = m_sharing.placeOf(author);
    return Board::colorOf(place > 0 ? place : author);
}

void SharingCommands::showState()
{
    using State = DocumentSharing::State;
    const State state = m_sharing.state();
    m_stop->setEnabled(state != State::Off);
    m_who->setEnabled(state == State::On);
    m_stop->setText(state == State::Off || m_sharing.isOwn() ? tr("Stop sharing") : tr("Leave the lesson"));
    m_bar.setConnection(state == State::Joining ? QString() : m_sharing.words(), m_sharing.isConnected());
    showPeople();
    noteBothHold();
}

// On this page: their name stands beside what they draw.
bool SharingCommands::isDrawing(int author) const
{
    const auto &hands = m_document.page().hands();
    return std::any_of(hands.begin(), hands.end(),
                       [author](const InkLesson::Hand &hand) { return hand.author == author && hand.isForming(); });
}

void SharingCommands::showPeople()
{
    QList<Participant> people;
    QList<OtherPointer> pointers;
    std::map<int, Drawer> drawers;
    const auto *others = m_sharing.others();
    if (m_sharing.state() == DocumentSharing::State::On) {
        const int me = m_document.author().number();
        people.append({me, m_name, colorOf(me), m_document.current() + 1, true});
    }
    for (const auto &[author, other] : others ? others->all() : std::map<int, InkSharing::Others::Other>()) {
        const auto &presence = other.presence;
        people.append({author, presence.name, colorOf(author), m_document.lesson().indexOf(presence.page) + 1, false});
        drawers[author] = {shownName(presence.name).left(Drawer::kMaxName), {}, true, colorOf(author)};
        if (presence.pointer && presence.page == m_document.author().page() && !isDrawing(author))
            pointers.append({presence.name, colorOf(author), *presence.pointer});
    }
    m_bar.setPeople(people);
    showTips();
    m_canvas.setOthers(drawers);
    m_canvas.setPointers(pointers);
}

// Two have taken the same within a moment: nothing is locked.
void SharingCommands::noteBothHold()
{
    const auto *others = m_sharing.others();
    const InkLesson::Hand *hand = m_document.author().hand();
    const int holder = others && hand && hand->held != InkLesson::kNothing ? others->holderOf(hand->held) : 0;
    if (holder != 0 && holder != m_bothHold)
        emit said(tr("%1 is holding this, too. What is done last counts.").arg(nameOf(holder)));
    m_bothHold = holder;
}

} // namespace Board
