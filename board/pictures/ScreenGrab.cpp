#include "board/pictures/ScreenGrab.h"

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
    window.hide();
    auto *const delay = new QTimer(&window);
    delay->setSingleShot(true);
    QObject::connect(delay, &QTimer::timeout, &window, [&window, delay, use] {
        QScreen *const screen = window.screen(); // it may be another by now
        QImage picture = screen->grabWindow(0, 0, 0, screen->size().width(), screen->size().height()).toImage();
        picture.setDevicePixelRatio(1);
        window.show();
        window.activateWindow();
        delay->deleteLater();
        use(picture);
    });
    delay->start(kHidingTime);
}

} // namespace Board
