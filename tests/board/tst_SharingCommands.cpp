#include "SharingProbe.h"
#include "board/people/PeopleButton.h"
#include "board/window/MainWindow.h"
#include "board/window/SharingCommands.h"

#include <algorithm>

using namespace Board;

namespace {

// Of the discs, below their letters, without their order but for the first.
QString discColors(PeopleButton &button, int count)
{
    const QImage picture = button.grab().toImage();
    QStringList colors;
    for (int disc = 0; disc < count; ++disc)
        colors.append(QColor(picture.pixel(16 + 22 * disc, picture.height() / 2 + 9)).name());
    std::sort(colors.begin() + 1, colors.end());
    return colors.join(QLatin1Char(' '));
}

} // namespace

class tst_SharingCommands : public QObject
{
    Q_OBJECT

private slots:
    void givesColorsInTheOrderOfTheirComing();
};

// Whoever comes draws a number by chance; the first dozen have colours of their own all the same.
void tst_SharingCommands::givesColorsInTheOrderOfTheirComing()
{
    const QTemporaryDir folder;
    MainWindow window(kSize);
    window.show();
    DocumentSharing &sharing = window.sharing().sharing();
    sharing.setFolder(folder.path());
    sharing.setPort(0);
    sharing.share();
    QTRY_VERIFY_WITH_TIMEOUT(sharing.isConnected(), kPatience);
    std::vector<std::unique_ptr<SharingProbe>> others;
    for (int i = 0; i < 5; ++i) {
        others.push_back(std::make_unique<SharingProbe>(QStringLiteral("P%1").arg(i)));
        others.back()->sharing.join(sharing.link());
        QTRY_VERIFY_WITH_TIMEOUT(others.back()->document.isShared(), kPatience);
    }
    QTRY_COMPARE_WITH_TIMEOUT(sharing.people(), 5, kPatience);
    auto &button = *window.findChild<PeopleButton *>();
    button.resize(button.sizeHint());
    QTRY_COMPARE_WITH_TIMEOUT(discColors(button, 6), QStringLiteral("#0b72df #050090 #0a7f48 #665701 #c80cd6 #eb001e"),
                              kPatience);
}

QTEST_MAIN(tst_SharingCommands)
#include "tst_SharingCommands.moc"
