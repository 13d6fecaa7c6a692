// click_probe [--composes]
//
// A window of one colour as large as the screen, which prints "click X Y" for each press on it. With --composes it also
// claims to be the compositor of the X server, which other programs then take for one.

#include <QtGui/QGuiApplication>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtGui/QRasterWindow>
#include <QtGui/QScreen>
#include <QtX11Extras/QX11Info>

#include <cstdio>
#include <cstdlib>
#include <xcb/xcb.h>

namespace {

class Probe : public QRasterWindow
{
protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        QPainter painter(this);
        painter.fillRect(QRect(QPoint(), size()), QColor(0x20, 0xC0, 0x40));
    }
    void mousePressEvent(QMouseEvent *event) override
    {
        std::printf("click %d %d\n", event->x(), event->y());
        std::fflush(stdout);
    }
};

void claimComposition(xcb_window_t window)
{
    xcb_connection_t *connection = QX11Info::connection();
    constexpr char kName[] = "_NET_WM_CM_S0";
    xcb_intern_atom_reply_t *atom =
        xcb_intern_atom_reply(connection, xcb_intern_atom(connection, 0, sizeof kName - 1, kName), nullptr);
    if (atom)
        xcb_set_selection_owner(connection, window, atom->atom, XCB_CURRENT_TIME);
    std::free(atom);
    xcb_flush(connection);
}

} // namespace

int main(int argc, char **argv)
{
    QGuiApplication application(argc, argv);
    Probe probe;
    probe.setTitle(QStringLiteral("Click probe"));
    probe.setGeometry(QGuiApplication::primaryScreen()->geometry());
    if (argc > 1)
        claimComposition(xcb_window_t(probe.winId())); // before anyone sees it
    probe.show();
    return QGuiApplication::exec();
}
