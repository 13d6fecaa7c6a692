#include "Moves.h"

#include <utility>

namespace Board {

Moves::Moves()
{
    m_waiting.setSingleShot(true);
    m_waiting.setTimerType(Qt::PreciseTimer);
    connect(&m_waiting, &QTimer::timeout, this, &Moves::due);
}

void Moves::beginFrame()
{
    m_sinceTaken.invalidate();
}

void Moves::add(const std::vector<QPoint> &pts)
{
    m_pts.insert(m_pts.end(), pts.begin(), pts.end());
    const qint64 left = m_sinceTaken.isValid() ? m_frame - m_sinceTaken.elapsed() : 0;
    if (left <= 0)
        emit due();
    else if (!m_waiting.isActive())
        m_waiting.start(int(left));
}

std::vector<QPoint> Moves::take()
{
    m_waiting.stop();
    m_sinceTaken.start();
    return std::exchange(m_pts, {});
}

} // namespace Board
