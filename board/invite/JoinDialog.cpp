#include "board/invite/JoinDialog.h"

#include "board/invite/LinkReader.h"
#include "board/person/NameTag.h"

#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

namespace Board {

namespace {

constexpr int kMinWidth = 620; // an address and a code are seen whole
constexpr int kHintLines = 2;

// Nobody's link makes the dialog wider.
QString shortened(const QString &host)
{
    constexpr int kMostLetters = 50;
    return host.size() > kMostLetters ? host.left(kMostLetters) + QChar(0x2026) : host;
}

} // namespace

JoinDialog::JoinDialog(QWidget *parent, const QString &name, const QString &text)
    : QDialog(parent)
    , m_link(new QLineEdit(text, this))
    , m_hint(new QLabel(this))
    , m_name(new QLineEdit(name, this))
    , m_join(new QPushButton(tr("Join"), this))
{
    setWindowTitle(tr("Join a lesson"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setMinimumWidth(kMinWidth);
    auto *linkTitle = new QLabel(tr("Link of the lesson, or its address and code"), this);
    linkTitle->setBuddy(m_link);
    m_hint->setObjectName(QStringLiteral("hint-of-link"));
    m_hint->setTextFormat(Qt::PlainText);
    m_hint->setWordWrap(true);
    m_hint->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_hint->setMinimumHeight(kHintLines * m_hint->fontMetrics().lineSpacing());
    m_name->setObjectName(QStringLiteral("name"));
    m_name->setMaxLength(Drawer::kMaxName);
    m_name->setAccessibleName(tr("My name"));
    m_name->setPlaceholderText(tr("may stay empty"));
    auto *nameTitle = new QLabel(tr("My name, for the others to see"), this);
    nameTitle->setBuddy(m_name);

    auto *column = new QVBoxLayout(this);
    column->addWidget(linkTitle);
    column->addLayout(makeLinkRow());
    column->addWidget(m_hint);
    column->addWidget(nameTitle);
    column->addWidget(m_name);
    column->addStretch(1);
    column->addLayout(makeFoot());
    connect(m_link, &QLineEdit::textChanged, this, &JoinDialog::read);
    m_link->selectAll();
    read();
}

QLayout *JoinDialog::makeLinkRow()
{
    constexpr int kMostLetters = 2000;
    m_link->setObjectName(QStringLiteral("link"));
    m_link->setMaxLength(kMostLetters);
    m_link->setAccessibleName(tr("Link, or address and code"));
    m_link->setClearButtonEnabled(true);
    auto *paste = new QPushButton(tr("Paste"), this);
    paste->setObjectName(QStringLiteral("paste"));
    paste->setAutoDefault(false);
    connect(paste, &QPushButton::clicked, this, [this] { m_link->setText(QGuiApplication::clipboard()->text()); });
    auto *row = new QHBoxLayout;
    row->addWidget(m_link, 1);
    row->addWidget(paste);
    return row;
}

QLayout *JoinDialog::makeFoot()
{
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    buttons->addButton(m_join, QDialogButtonBox::AcceptRole);
    m_join->setObjectName(QStringLiteral("join"));
    m_join->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *row = new QHBoxLayout;
    row->addWidget(buttons);
    return row;
}

QString JoinDialog::text() const
{
    return m_link->text();
}

QString JoinDialog::name() const
{
    return m_name->text().simplified();
}

void JoinDialog::read()
{
    const LinkReader reader(m_link->text());
    m_join->setEnabled(reader.link().has_value());
    m_read = reader.link().value_or(LessonLink{});
    if (reader.link())
        m_hint->setText(tr("This leads to a lesson at %1.").arg(shortened(m_read.door.host())));
    else if (reader.hint().isEmpty())
        m_hint->setText(tr("The board that shares the lesson shows both: in its menu, under “Share this lesson”."));
    else
        m_hint->setText(reader.hint());
}

} // namespace Board
