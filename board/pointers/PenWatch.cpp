#include "board/pointers/PenWatch.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>

namespace Board {

namespace {

constexpr int kStay = 500; // milliseconds

} // namespace

PenWatch::PenWatch()
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool PenWatch::isNear() const
{
    return m_isTold ? m_isNear : m_lastEvent.isValid() && m_lastEvent.elapsed() < kStay;
}

bool PenWatch::eventFilter(QObject * /*watched*/, QEvent *event)
{
    const QEvent::Type type = event->type();
    const bool comes = type == QEvent::TabletEnterProximity;
    const bool goes = type == QEvent::TabletLeaveProximity;
    const bool isThere = type == QEvent::TabletPress || type == QEvent::TabletMove || type == QEvent::TabletRelease;
    if (!comes && !goes && !isThere)
        return false;
    const bool wasNear = isNear();
    m_isTold = m_isTold || comes || goes;
    m_isNear = !goes;
    m_lastEvent.start();
    if (!wasNear && isNear())
        emit came();
    return false;
}

} // namespace Board
