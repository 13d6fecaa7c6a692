#include "board/files/Recovery.h"

#include "board/document/Document.h"
#include "board/files/OpeningBar.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDateTime>
#include <QtCore/QDir>
#include <QtCore/QLocale>
#include <QtWidgets/QDialog>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

namespace Board {

namespace {

constexpr const char *kKeptSuffix = ".kept"; // after the name of a journal that is not offered at the start
constexpr QSize kListSize{480, 240};

QString timeOf(const QString &journal)
{
    return QLocale().toString(QFileInfo(journal).lastModified(), QLocale::LongFormat);
}

// Its name from now on.
QString keepForLater(const QString &journal)
{
    const QString kept = journal + QLatin1String(kKeptSuffix);
    return QFile::rename(journal, kept) ? kept : journal;
}

bool endsWithinALine(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) && file.size() > 0 && file.seek(file.size() - 1) && file.read(1) != "\n";
}

// The list of unsaved lessons.
class LessonList : public QDialog
{
    Q_DECLARE_TR_FUNCTIONS(Board::LessonList)

public:
    LessonList(const QStringList &journals, QWidget *parent);

    QString chosen() const { return m_list->currentItem()->data(Qt::UserRole).toString(); }

private:
    void remove();

    QListWidget *m_list; // owned by this dialog
};

LessonList::LessonList(const QStringList &journals, QWidget *parent)
    : QDialog(parent)
    , m_list(new QListWidget(this))
{
    setWindowTitle(tr("Unsaved lessons"));
    m_list->setAccessibleName(windowTitle());
    for (const QString &journal : journals) {
        auto *item = new QListWidgetItem(tr("Lesson of %1").arg(timeOf(journal)), m_list);
        item->setData(Qt::UserRole, journal);
    }
    m_list->setCurrentRow(0);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Open | QDialogButtonBox::Close, this);
    auto *removing = buttons->addButton(tr("Delete"), QDialogButtonBox::DestructiveRole);
    removing->setObjectName(QStringLiteral("delete"));
    auto *column = new QVBoxLayout(this);
    column->addWidget(m_list);
    column->addWidget(buttons);
    resize(kListSize);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_list, &QListWidget::itemDoubleClicked, this, &QDialog::accept);
    connect(removing, &QPushButton::clicked, this, [this] { remove(); });
}

void LessonList::remove()
{
    if (!QFile::remove(chosen()))
        return;
    delete m_list->takeItem(m_list->currentRow());
    if (m_list->count() == 0)
        reject();
}

} // namespace

Recovery::Recovery(Document &document, QWidget &window)
    : m_document(document)
    , m_window(window)
{
}

QStringList Recovery::lessons() const
{
    if (m_folder.isEmpty())
        return {};
    QStringList journals = InkLesson::Journal::abandoned(m_folder);
    const QDir dir(m_folder);
    for (const QString &name :
         dir.entryList({QLatin1Char('*') + QLatin1String(kKeptSuffix)}, QDir::Files, QDir::Time)) {
        if (dir.filePath(name) != m_opened)
            journals.append(dir.filePath(name));
    }
    return journals;
}

void Recovery::offer()
{
    for (const QString &journal : InkLesson::Journal::abandoned(m_folder)) {
        QMessageBox box(QMessageBox::Question, tr("A lesson was not closed"),
                        tr("The lesson of %1 ended without being saved. Open it again?").arg(timeOf(journal)),
                        QMessageBox::Yes | QMessageBox::Discard | QMessageBox::Ignore, &m_window);
        box.setInformativeText(tr("Kept for later, it is found in the menu, under Unsaved lessons."));
        box.button(QMessageBox::Yes)->setText(tr("Open it"));
        box.button(QMessageBox::Discard)->setText(tr("Delete it"));
        box.button(QMessageBox::Ignore)->setText(tr("Keep it for later"));
        box.setDefaultButton(QMessageBox::Yes);
        box.setEscapeButton(QMessageBox::Ignore);
        const int answer = box.exec();
        if (answer == QMessageBox::Yes) {
            open(journal);
            return;
        }
        if (answer == QMessageBox::Discard)
            QFile::remove(journal);
        else
            keepForLater(journal);
    }
}

QString Recovery::choose()
{
    const QStringList journals = lessons();
    if (journals.isEmpty()) {
        QMessageBox::information(&m_window, tr("Unsaved lessons"), tr("There are none."));
        return {};
    }
    LessonList list(journals, &m_window);
    return list.exec() == QDialog::Accepted ? list.chosen() : QString();
}

// A last line that was cut off is what recovery is for.
void Recovery::open(const QString &journal)
{
    const InkLesson::Sharing sharing = InkLesson::Journal::sharingOf(journal);
    const QString problem =
        withOpeningBar(m_window, [&](const Document::Progress &tell) { return m_document.recover(journal, tell); });
    if (!problem.isEmpty() && !endsWithinALine(journal))
        QMessageBox::warning(&m_window, tr("The lesson could not be read to its end"), problem);
    m_opened = journal.endsWith(QLatin1String(kKeptSuffix)) ? journal : keepForLater(journal);
    if (!sharing.token.isEmpty())
        emit wasShared(sharing);
}

void Recovery::forget()
{
    if (!m_opened.isEmpty())
        QFile::remove(m_opened);
    m_opened.clear();
}

} // namespace Board
