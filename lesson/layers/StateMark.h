#pragma once

#include <QtGui/QPainter>

namespace InkLesson {

// Gives a painter its state back when it goes out of scope.
//
// An object may leave saved states on the painter's stack, and QPainter complains about each of them when it ends. The
// lowest state is therefore marked and everything above it is taken back. The mark is the background brush, which
// shows in opaque background mode only.
class StateMark
{
public:
    explicit StateMark(QPainter &painter)
        : m_painter(painter)
        , m_background(painter.background())
    {
        m_painter.setBackground(kMark);
        m_painter.save();
        m_painter.setBackground(m_background);
    }
    ~StateMark()
    {
        while (m_painter.isActive() && m_painter.background().color() != kMark)
            m_painter.restore();
        m_painter.setBackground(m_background);
    }

private:
    Q_DISABLE_COPY(StateMark)

    const QColor kMark{1, 2, 3, 4};
    QPainter &m_painter;
    const QBrush m_background;
};

} // namespace InkLesson
