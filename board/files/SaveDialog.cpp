#include "board/files/SaveDialog.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFileInfo>
#include <QtCore/QRegularExpression>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QMessageBox>

#include <algorithm>

namespace Board {

namespace {

QString suffixOf(const QString &filter)
{
    static const QRegularExpression pattern(QStringLiteral("\\*(\\.\\w+)"));
    return pattern.match(filter).captured(1);
}

// "Week 3.2" has no suffix that the board knows, although it has a dot.
QString withSuffix(const QString &fileName, const QStringList &filters, const QString &chosen)
{
    const bool isWhole = std::any_of(filters.begin(), filters.end(), [&](const QString &filter) {
        return fileName.endsWith(suffixOf(filter), Qt::CaseInsensitive);
    });
    return isWhole ? fileName : fileName + suffixOf(filters.contains(chosen) ? chosen : filters.constFirst());
}

bool mayReplace(QWidget &window, const QString &title, const QString &fileName)
{
    const QString question = QCoreApplication::translate("Board::SaveDialog", "%1 is there already. Replace it?");
    return QMessageBox::warning(&window, title, question.arg(QFileInfo(fileName).fileName()),
                                QMessageBox::Yes | QMessageBox::No, QMessageBox::No) == QMessageBox::Yes;
}

} // namespace

// The dialog itself asks about the name that was typed.
QString askWhereToSave(QWidget &window, const QString &title, const QString &proposed, const QStringList &filters)
{
    QFileDialog dialog(&window, title);
    dialog.setNameFilters(filters);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.selectFile(proposed);
    while (dialog.exec() == QDialog::Accepted) {
        const QString typed = dialog.selectedFiles().value(0);
        const QString fileName = withSuffix(typed, filters, dialog.selectedNameFilter());
        if (fileName == typed || !QFile::exists(fileName) || mayReplace(window, title, fileName))
            return fileName;
    }
    return {};
}

} // namespace Board
