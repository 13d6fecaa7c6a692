#pragma once

// The window of the board, and when it has been painted.

#include "board/canvas/Canvas.h"
#include "board/window/MainWindow.h"

#include <QtWidgets/QApplication>

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

// Notes when a window has been painted, its canvas too, and handed to the window system.
class Application : public QApplication
{
public:
    using QApplication::QApplication;

    bool notify(QObject *receiver, QEvent *event) override
    {
        const bool isHandedOver = event->type() == QEvent::UpdateRequest;
        m_isPainted |= event->type() == QEvent::Paint && qobject_cast<Board::Canvas *>(receiver);
        const bool handled = QApplication::notify(receiver, event); // which may delete the event
        if (isHandedOver && std::exchange(m_isPainted, false))
            ++m_paintings;
        return handled;
    }

    int paintings() const { return m_paintings; }

private:
    bool m_isPainted{}; // the canvas, since then
    int m_paintings{};
};

inline Application &application()
{
    return *static_cast<Application *>(qApp);
}

inline std::unique_ptr<Board::MainWindow> shownWindow(const QSize &page)
{
    auto window = std::make_unique<Board::MainWindow>(page);
    window->setAsksBeforeClosing(false);
    window->resize(window->sizeHint()); // larger than the screen, if need be
    window->show();
    QApplication::processEvents();
    return window;
}

inline double percentile(std::vector<double> values, double share)
{
    std::sort(values.begin(), values.end());
    return values[std::size_t(share * double(values.size() - 1))];
}
