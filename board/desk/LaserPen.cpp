#include "board/desk/LaserPen.h"

#include "lesson/layers/StateMark.h"

#include <QtGui/QPainter>

#include <algorithm>

namespace Board {

namespace {

constexpr qint64 kLife = 1000; // milliseconds of a point
constexpr int kInterval = 16;  // milliseconds, about sixty times a second
constexpr int kSoftEdge = 2;   // pixels around a stroke that are antialiased

} // namespace

// A pointer that rests keeps its point alive.
QRect LaserTrail::add(const QPoint &pt, const Ink &ink, qint64 now, bool begins)
{
    const bool rests = !begins && !m_points.empty() && m_points.back().pt == pt;
    if (rests)
        m_points.back().born = now;
    else
        m_points.push_back({pt, ink, now, begins});
    return area();
}

QRect LaserTrail::fade(qint64 now)
{
    const QRect before = area();
    const auto alive =
        std::find_if(m_points.begin(), m_points.end(), [&](const Point &point) { return now - point.born < kLife; });
    m_points.erase(m_points.begin(), alive);
    return before;
}

QRect LaserTrail::area() const
{
    QRect area;
    for (const Point &point : m_points) {
        const int margin = point.ink.width / 2 + kSoftEdge;
        area |= QRect(point.pt, QSize(1, 1)).adjusted(-margin, -margin, margin, margin);
    }
    return area;
}

void LaserTrail::paint(QPainter &painter, qint64 now) const
{
    if (m_points.empty())
        return;
    const InkLesson::StateMark mark(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    const Point *before = nullptr;
    for (const Point &point : m_points) {
        const double width = point.ink.width * double(kLife - (now - point.born)) / kLife;
        if (width > 0.0) { // or Qt draws a hairline
            painter.setPen(QPen(point.ink.color, width, Qt::SolidLine, Qt::RoundCap));
            if (before && !point.begins)
                painter.drawLine(before->pt, point.pt);
            else
                painter.drawPoint(point.pt);
        }
        before = &point;
    }
}

LaserPen::LaserPen(QObject *parent)
    : QObject(parent)
{
    m_clock.start();
    m_ticking.setInterval(kInterval);
    connect(&m_ticking, &QTimer::timeout, this, &LaserPen::tick);
}

void LaserPen::press(const QPoint &pt, const Ink &ink)
{
    m_ink = ink;
    m_last = pt;
    m_pressed = true;
    m_ticking.start();
    emit changed(m_trail.add(pt, m_ink, m_clock.elapsed(), true));
}

void LaserPen::move(const QPoint &pt)
{
    if (!m_pressed)
        return;
    m_last = pt;
    emit changed(m_trail.add(pt, m_ink, m_clock.elapsed(), false));
}

void LaserPen::tick()
{
    const qint64 now = m_clock.elapsed();
    if (m_pressed)
        m_trail.add(m_last, m_ink, now, false);
    emit changed(m_trail.fade(now));
    if (m_trail.isEmpty())
        m_ticking.stop();
}

} // namespace Board
