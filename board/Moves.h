#pragma once

#include <QtCore/QElapsedTimer>
#include <QtCore/QPoint>
#include <QtCore/QTimer>

#include <vector>

namespace Board {

// Collects the positions of a pointer that come within one frame of the screen, so that they are painted at once.
class Moves : public QObject
{
    Q_OBJECT

public:
    Moves();

    void setFrame(int milliseconds) { m_frame = milliseconds; }

    // The next position need not wait.
    void beginFrame();

    void add(const std::vector<QPoint> &pts);
    bool isEmpty() const { return m_pts.empty(); }

    // All that were added, which are then forgotten.
    std::vector<QPoint> take();

signals:
    // It is time to take them: at once where a frame has passed since that was done last.
    void due();

private:
    std::vector<QPoint> m_pts;
    int m_frame{16}; // milliseconds
    QElapsedTimer m_sinceTaken;
    QTimer m_waiting;
};

} // namespace Board
