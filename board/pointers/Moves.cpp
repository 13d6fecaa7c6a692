#include "board/pointers/Moves.h"

#include <algorithm>
#include <utility>

namespace Board {

namespace {

constexpr double kShare = 4; // painting takes at most one part of so many of the time

} // namespace

Moves::Moves()
{
    m_waiting.setSingleShot(true);
    m_waiting.setTimerType(Qt::PreciseTimer);
    connect(&m_waiting, &QTimer::timeout, this, &Moves::due);
}

void Moves::setPauses(int cheap, int frame)
{
    m_cheap = cheap;
    m_frame = frame;
}

qint64 Moves::pause() const
{
    return std::min(std::max(qint64(kShare * m_cost), qint64(m_cheap)), qint64(m_frame));
}

void Moves::add(const std::vector<QPoint> &pts)
{
    m_pts.insert(m_pts.end(), pts.begin(), pts.end());
    const qint64 left = m_sinceTaken.isValid() ? pause() - m_sinceTaken.elapsed() : 0;
    if (left <= 0)
        emit due();
    else if (!m_waiting.isActive())
        m_waiting.start(int(left));
}

std::vector<QPoint> Moves::take()
{
    m_waiting.stop();
    m_sinceTaken.start();
    m_isPainting = true;
    return std::exchange(m_pts, {});
}

void Moves::painted()
{
    if (std::exchange(m_isPainting, false) && m_sinceTaken.isValid())
        m_cost = double(m_sinceTaken.nsecsElapsed()) * 1e-6;
}

} // namespace Board
