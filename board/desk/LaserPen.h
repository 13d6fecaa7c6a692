#pragma once

#include "board/tools/Tools.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QObject>
#include <QtCore/QRect>
#include <QtCore/QTimer>

#include <vector>

class QPainter;

namespace Board {

// Ink that disappears: each point grows thinner and is gone after a second.
class LaserTrail
{
public:
    // All in page pixels and milliseconds of one clock. They return the area to repaint.
    QRect add(const QPoint &pt, const Ink &ink, qint64 now,
              bool begins); // what begins is not joined to what was before
    QRect fade(qint64 now);

    bool isEmpty() const { return m_points.empty(); }
    void paint(QPainter &painter, qint64 now) const;

private:
    struct Point
    {
        QPoint pt;
        Ink ink;
        qint64 born;
        bool begins;
    };

    QRect area() const;

    std::vector<Point> m_points; // the oldest first
};

// The trail of a pointer that is pressed, for as long as any of it is seen. Nothing of it comes onto a page.
class LaserPen : public QObject
{
    Q_OBJECT

public:
    explicit LaserPen(QObject *parent = nullptr);

    void press(const QPoint &pt, const Ink &ink);
    void move(const QPoint &pt);
    void release() { m_pressed = false; }

    void paint(QPainter &painter) const { m_trail.paint(painter, m_clock.elapsed()); }

signals:
    void changed(const QRect &area); // in page pixels

private:
    void tick();

    LaserTrail m_trail;
    QElapsedTimer m_clock;
    QTimer m_ticking;
    QPoint m_last;
    Ink m_ink;
    bool m_pressed{};
};

} // namespace Board
