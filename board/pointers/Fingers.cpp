#include "board/pointers/Fingers.h"

#include <QtCore/QLineF>
#include <QtGui/QTouchEvent>

namespace Board {

namespace {

constexpr double kStill = 6.0; // pixels that a resting finger may move
constexpr int kWait = 100;     // milliseconds: two fingers never come at once

} // namespace

Fingers::Fingers()
{
    m_waiting.setSingleShot(true);
    m_waiting.setInterval(kWait);
    connect(&m_waiting, &QTimer::timeout, this, &Fingers::startDrawing);
}

void Fingers::startDrawing()
{
    m_waiting.stop();
    m_meaning = Meaning::Draws;
    emit pressed(m_press);
    if (m_last != m_press)
        emit moved(m_last);
}

void Fingers::stopDrawing()
{
    m_meaning = Meaning::Ignored;
    emit released(m_last);
}

void Fingers::ignore()
{
    m_waiting.stop();
    if (m_meaning != Meaning::None)
        m_meaning = Meaning::Ignored;
}

void Fingers::ignore(const QTouchEvent &event)
{
    m_waiting.stop();
    m_meaning = event.type() == QEvent::TouchEnd ? Meaning::None : Meaning::Ignored;
}

void Fingers::take(const QTouchEvent &event)
{
    if (event.type() == QEvent::TouchBegin) {
        m_meaning = Meaning::Waits;
        m_first = event.touchPoints().constFirst().id();
        m_press = event.touchPoints().constFirst().pos();
        m_waiting.start();
    }
    for (const QTouchEvent::TouchPoint &point : event.touchPoints()) {
        if (point.state() == Qt::TouchPointStationary)
            continue;
        if (point.id() == m_first)
            takeFirst(point);
        else
            takeOther(point);
    }
    if (m_meaning == Meaning::Pinches)
        emit pinched(m_last, m_other);
    if (event.type() == QEvent::TouchCancel && m_meaning == Meaning::Draws)
        stopDrawing();
    if (event.type() == QEvent::TouchEnd || event.type() == QEvent::TouchCancel) {
        m_waiting.stop();
        m_meaning = Meaning::None;
    }
}

void Fingers::takeFirst(const QTouchEvent::TouchPoint &point)
{
    m_last = point.pos();
    const bool isLifted = point.state() == Qt::TouchPointReleased;
    if (m_meaning == Meaning::Waits && (isLifted || QLineF(m_press, m_last).length() > kStill))
        startDrawing();
    else if (m_meaning == Meaning::Draws && point.state() == Qt::TouchPointMoved)
        emit moved(m_last);
    if (isLifted && m_meaning == Meaning::Draws)
        stopDrawing();
    else if (isLifted)
        m_meaning = Meaning::Ignored;
}

void Fingers::takeOther(const QTouchEvent::TouchPoint &point)
{
    if (m_meaning == Meaning::Waits && point.state() == Qt::TouchPointPressed) {
        m_waiting.stop();
        m_meaning = Meaning::Pinches;
        m_second = point.id();
        m_other = point.pos();
        emit pinchBegun(m_last, m_other);
    } else if (m_meaning == Meaning::Pinches && point.id() == m_second) {
        m_other = point.pos();
        if (point.state() == Qt::TouchPointReleased)
            m_meaning = Meaning::Ignored;
    }
}

} // namespace Board
