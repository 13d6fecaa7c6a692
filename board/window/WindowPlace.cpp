#include "board/window/WindowPlace.h"

#include "board/person/Settings.h"

#include <QtGui/QScreen>
#include <QtWidgets/QWidget>

namespace Board {

namespace {

constexpr const char *kSetting = "window/place";
constexpr QSize kFrame{16, 48}; // that desktops draw around a window, at most; how large it is is not known before

// Where the screen has no room for that size.
void maximiseInstead(QWidget &window, const QSize &size)
{
    if (size.boundedTo(window.screen()->availableSize()) != size)
        window.setWindowState(Qt::WindowMaximized);
}

} // namespace

void showAtItsPlace(QWidget &window)
{
    if (!window.restoreGeometry(Settings().value(QLatin1String(kSetting)).toByteArray())) {
        showWhole(window);
        return;
    }
    maximiseInstead(window, window.size());
    window.show();
}

void showWhole(QWidget &window)
{
    maximiseInstead(window, window.sizeHint() + kFrame);
    window.show();
}

void keepPlace(const QWidget &window)
{
    Settings().setValue(QLatin1String(kSetting), window.saveGeometry());
}

} // namespace Board
