#include "board/person/NameDialog.h"

#include "board/pictures/PictureFile.h"

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

namespace Board {

namespace {

constexpr int kShownSide = 48;
constexpr int kKeptSide = 64; // larger than it is shown anywhere, for dense screens
constexpr int kMinWidth = 400;

} // namespace

NameDialog::NameDialog(const Drawer &drawer, QWidget *parent)
    : QDialog(parent)
    , m_drawer(drawer)
    , m_shown(new QCheckBox(tr("Show my name beside what I draw"), this))
    , m_name(new QLineEdit(drawer.name, this))
    , m_icon(new QLabel(this))
    , m_letter(new QPushButton(tr("First letter"), this))
{
    setWindowTitle(tr("My name"));
    setMinimumWidth(kMinWidth);
    m_shown->setChecked(drawer.isShown);
    m_shown->setAccessibleName(m_shown->text());
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *column = new QVBoxLayout(this);
    column->setSpacing(14);
    column->addWidget(m_shown);
    column->addLayout(makeForm());
    column->addStretch(1);
    column->addWidget(buttons);
    showIcon();
}

QLayout *NameDialog::makeForm()
{
    m_name->setMaxLength(Drawer::kMaxName);
    m_name->setAccessibleName(tr("Name"));
    auto *choose = new QPushButton(tr("Picture…"), this);
    auto *row = new QHBoxLayout;
    row->addWidget(m_icon);
    row->addWidget(choose);
    row->addWidget(m_letter);
    row->addStretch(1);
    auto *form = new QFormLayout;
    form->addRow(tr("Name"), m_name);
    form->addRow(tr("Icon"), row);

    connect(m_shown, &QCheckBox::toggled, this, [this](bool on) { m_drawer.isShown = on; });
    connect(m_name, &QLineEdit::textChanged, this, [this](const QString &name) {
        m_drawer.name = name;
        if (!name.isEmpty())
            m_shown->setChecked(true);
        showIcon();
    });
    connect(choose, &QPushButton::clicked, this, &NameDialog::askForPicture);
    connect(m_letter, &QPushButton::clicked, this, [this] {
        m_drawer.icon = QImage();
        showIcon();
    });
    return form;
}

void NameDialog::askForPicture()
{
    const QString fileName = QFileDialog::getOpenFileName(this, tr("A picture as icon"), {}, pictureFilters());
    if (fileName.isEmpty())
        return;
    QString problem;
    const auto picture = readPicture(fileName, problem);
    if (!picture) {
        QMessageBox::warning(this, tr("The picture cannot be used"), problem);
        return;
    }
    m_drawer.icon = picture->scaled(kKeptSide, kKeptSide, Qt::KeepAspectRatioByExpanding, Qt::SmoothTransformation);
    showIcon();
}

void NameDialog::showIcon()
{
    m_icon->setPixmap(QPixmap::fromImage(drawerIcon(m_drawer, kShownSide)));
    m_letter->setEnabled(!m_drawer.icon.isNull());
}

} // namespace Board
