#include "board/invite/ShareDialog.h"

#include "board/invite/FittedText.h"
#include "board/invite/QrCode.h"
#include "board/invite/SpokenLink.h"

#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

namespace Board {

namespace {

constexpr QSize kSize{880, 570};
constexpr int kGap = 12;
constexpr int kBusyWidth = 320;
constexpr int kGroupsInLine = 4;
constexpr int kCopiedTime = 2000; // milliseconds

QLabel *makeLabel(const QString &text, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

QLabel *makeTitle(const QString &text, QWidget *parent)
{
    QLabel *title = makeLabel(text, parent);
    title->setProperty("title", true); // for the style sheet
    return title;
}

} // namespace

ShareDialog::ShareDialog(QWidget *parent)
    : QDialog(parent)
    , m_title(makeTitle({}, this))
    , m_words(makeLabel({}, this))
    , m_busy(new QProgressBar(this))
    , m_code(new QrCode(this))
    , m_address(new FittedText(this))
    , m_groups(new FittedText(this))
    , m_link(new QLineEdit(this))
    , m_copy(new QPushButton(tr("Copy"), this))
    , m_addressesTitle(makeLabel(tr("If they cannot come this way, take another address of this machine:"), this))
    , m_addresses(new QComboBox(this))
    , m_end(new QPushButton(this))
    , m_state(makeState())
    , m_invitation(makeInvitation())
{
    setWindowTitle(tr("Share this lesson"));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    auto *column = new QVBoxLayout(this);
    column->setSpacing(kGap);
    column->addWidget(m_state, 1);
    column->addWidget(m_invitation, 1);
    column->addLayout(makeFoot());
    resize(kSize);
    setProgress({});
}

QWidget *ShareDialog::makeState()
{
    m_title->setObjectName(QStringLiteral("title"));
    m_title->setAlignment(Qt::AlignCenter);
    m_words->setObjectName(QStringLiteral("words"));
    m_words->setAlignment(Qt::AlignCenter);
    m_busy->setRange(0, 0);
    m_busy->setTextVisible(false);
    m_busy->setFixedWidth(kBusyWidth);
    m_busy->setAccessibleName(tr("Sharing is being started …"));
    auto *state = new QWidget(this);
    auto *column = new QVBoxLayout(state);
    column->setSpacing(2 * kGap);
    column->addStretch(1);
    column->addWidget(m_title);
    column->addWidget(m_words);
    column->addWidget(m_busy, 0, Qt::AlignHCenter);
    column->addStretch(1);
    return state;
}

QWidget *ShareDialog::makeInvitation()
{
    auto *invitation = new QWidget(this);
    auto *row = new QHBoxLayout;
    row->setSpacing(2 * kGap);
    row->addWidget(m_code, 1);
    row->addLayout(makeWords(), 1);
    auto *column = new QVBoxLayout(invitation);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(kGap);
    column->addLayout(row, 1);
    column->addWidget(makeLabel(tr("Or take the link, which the picture holds, too:"), this));
    column->addLayout(makeLinkRow());
    return invitation;
}

QLayout *ShareDialog::makeWords()
{
    m_address->setObjectName(QStringLiteral("address"));
    m_address->setAlignment(Qt::AlignBottom); // so that they stay together in a large window
    m_groups->setObjectName(QStringLiteral("groups"));
    m_groups->setAlignment(Qt::AlignTop);
    m_addressesTitle->setBuddy(m_addresses);
    m_addresses->setAccessibleName(tr("Address of this machine"));
    connect(m_addresses, qOverload<int>(&QComboBox::activated), this, &ShareDialog::showLink);

    auto *way =
        makeLabel(tr("In Inkboard, press F7, or choose “Join a lesson” in the menu ☰ under “Sharing”. Then type "
                     "this, in small or capital letters:"),
                  this);
    way->setObjectName(QStringLiteral("way"));
    auto *column = new QVBoxLayout;
    column->setSpacing(kGap);
    column->addWidget(makeTitle(tr("Come to this lesson"), this));
    column->addWidget(way);
    column->addWidget(m_address, 1);
    column->addWidget(m_groups, 2);
    column->addWidget(m_addressesTitle);
    column->addWidget(m_addresses);
    return column;
}

// As wide as the window, so that the link is seen whole.
QLayout *ShareDialog::makeLinkRow()
{
    m_link->setReadOnly(true);
    m_link->setAccessibleName(tr("Link to this lesson"));
    m_copy->setObjectName(QStringLiteral("copy"));
    connect(m_copy, &QPushButton::clicked, this, &ShareDialog::copy);
    m_copied.setSingleShot(true);
    m_copied.setInterval(kCopiedTime);
    connect(&m_copied, &QTimer::timeout, m_copy, [this] { m_copy->setText(tr("Copy")); });
    auto *row = new QHBoxLayout;
    row->addWidget(m_link, 1);
    row->addWidget(m_copy);
    return row;
}

QLayout *ShareDialog::makeFoot()
{
    m_end->setObjectName(QStringLiteral("end"));
    m_end->setAutoDefault(false);
    connect(m_end, &QPushButton::clicked, this, &ShareDialog::ended);
    auto *close = new QPushButton(tr("Close"), this);
    close->setObjectName(QStringLiteral("close"));
    close->setDefault(true);
    close->setFocus(); // a key that is pressed too early ends nothing
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    auto *row = new QHBoxLayout;
    row->addWidget(m_end);
    row->addStretch(1);
    row->addWidget(close);
    return row;
}

void ShareDialog::showState(const QString &title, const QString &words, bool isBusy)
{
    m_title->setText(title);
    m_words->setText(words);
    m_words->setVisible(!words.isEmpty());
    m_busy->setVisible(isBusy);
    m_invitation->hide();
    m_state->show();
    m_end->setText(tr("Do not share"));
    m_end->setVisible(isBusy);
}

void ShareDialog::setProgress(const QString &words)
{
    showState(tr("Sharing is being started …"), words, true);
}

void ShareDialog::setProblem(const QString &words)
{
    showState(tr("This lesson is not shared"), words, false);
}

void ShareDialog::setLinks(const QList<LessonLink> &links)
{
    const QString before = m_link->text();
    m_links = links;
    m_addresses->clear();
    int chosen = 0;
    for (const LessonLink &link : links) {
        if (link.text() == before)
            chosen = m_addresses->count();
        m_addresses->addItem(link.door.authority());
    }
    m_addresses->setCurrentIndex(chosen);
    m_addresses->setVisible(links.size() > 1);
    m_addressesTitle->setVisible(links.size() > 1);
    showLink(chosen);
    m_state->hide();
    m_invitation->show();
    m_end->setText(m_isOwn ? tr("Stop sharing") : tr("Leave the lesson"));
    m_end->show();
}

void ShareDialog::setOwn(bool isOwn)
{
    m_isOwn = isOwn;
}

void ShareDialog::showLink(int index)
{
    const LessonLink &link = m_links[index];
    m_link->setText(link.text());
    m_link->setCursorPosition(0);
    m_code->setText(QString::fromLatin1(QUrl(link.text()).toEncoded())); // readers guess at other alphabets
    const auto spoken = SpokenLink::of(link);
    m_groups->setVisible(spoken.has_value());
    m_address->setLines({spoken ? spoken->address : link.text()});
    if (spoken)
        m_groups->setLines({spoken->groups.mid(0, kGroupsInLine).join(QLatin1Char(' ')),
                            spoken->groups.mid(kGroupsInLine).join(QLatin1Char(' '))});
}

void ShareDialog::copy()
{
    QGuiApplication::clipboard()->setText(m_link->text());
    m_copy->setText(tr("Copied"));
    m_copied.start();
}

} // namespace Board
