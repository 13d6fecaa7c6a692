#include "board/files/OpeningBar.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QElapsedTimer>
#include <QtWidgets/QProgressDialog>

namespace Board {

QString withOpeningBar(QWidget &window, const std::function<QString(const Document::Progress &tell)> &open)
{
    constexpr int kPatience = 500; // milliseconds
    constexpr int kFrame = 16;
    constexpr int kSteps = 1000;
    const QString text = QCoreApplication::translate("Board::OpeningBar", "Opening the lesson …");
    QProgressDialog dialog(text, {}, 0, kSteps, &window);
    dialog.setWindowTitle(text);
    dialog.setWindowModality(Qt::WindowModal);
    dialog.setMinimumDuration(kPatience);
    dialog.setValue(0);
    QElapsedTimer sinceShown;
    sinceShown.start();
    return open([&](double share) {
        if (sinceShown.elapsed() < kFrame)
            return;
        dialog.setValue(int(share * kSteps));
        sinceShown.restart();
    });
}

} // namespace Board
