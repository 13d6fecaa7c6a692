#pragma once

#include <QtCore/QElapsedTimer>
#include <QtCore/QPoint>
#include <QtCore/QTimer>

#include <vector>

namespace Board {

// Collects the positions of a pointer that come faster than they should be painted, so that they are painted at once.
//
// A window is not in step with its screen, so to wait for a whole frame would show an older position as often as not.
// The pause is only a few milliseconds as long as painting is cheap, and a frame of the screen where it is not.
class Moves : public QObject
{
    Q_OBJECT

public:
    Moves();

    // Both in milliseconds, from one painting to the next.
    void setPauses(int cheap, int frame);

    // The next position need not wait.
    void begin() { m_sinceTaken.invalidate(); }

    void add(const std::vector<QPoint> &pts);
    bool isEmpty() const { return m_pts.empty(); }

    // All that were added, which are then forgotten.
    std::vector<QPoint> take();

    // Those that were taken last are seen now.
    void painted();

signals:
    // It is time to take them.
    void due();

private:
    qint64 pause() const;

    std::vector<QPoint> m_pts;
    int m_cheap{4};
    int m_frame{16};
    double m_cost{}; // milliseconds from taking to the painted window
    bool m_isPainting{};
    QElapsedTimer m_sinceTaken;
    QTimer m_waiting;
};

} // namespace Board
