#include "ScreenGrab.h"

#include <QtCore/QTimer>
#include <QtGui/QPixmap>
#include <QtGui/QScreen>
#include <QtWidgets/QWidget>

namespace Board {

namespace {

constexpr int kHidingTime = 400; // milliseconds until desktops have faded a window out

} // namespace

void grabScreen(QWidget &window, const std::function<void(const QImage &)> &use)
{
    QScreen *screen = window.screen();
    const QSize size = screen->size();
    window.hide();
    QTimer::singleShot(kHidingTime, &window, [&window, screen, size, use] {
        QImage picture = screen->grabWindow(0, 0, 0, size.width(), size.height()).toImage();
        picture.setDevicePixelRatio(1);
        window.show();
        window.activateWindow();
        use(picture);
    });
}

} // namespace Board
