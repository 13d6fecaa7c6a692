#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointF>
#include <QtCore/QTimer>
#include <QtGui/QTouchEvent>

namespace Board {

// Tells what the fingers on the page do: one alone draws, two move and zoom the page.
//
// A finger draws once it has moved a little, has rested for a moment or is lifted; until then a second one may join it.
// Those that come later are ignored until all are lifted.
class Fingers : public QObject
{
    Q_OBJECT

public:
    Fingers();

    void take(const QTouchEvent &event);

    // What is on the page now is the palm of a hand, or the like, until it is lifted.
    void ignore();
    void ignore(const QTouchEvent &event);

    bool areDrawing() const { return m_meaning == Meaning::Draws; }

signals:
    void pressed(const QPointF &pos);
    void moved(const QPointF &pos);
    void released(const QPointF &pos);
    void pinchBegun(const QPointF &first, const QPointF &second);
    void pinched(const QPointF &first, const QPointF &second);

private:
    enum class Meaning {
        None,
        Waits, // the first finger is down
        Draws,
        Pinches,
        Ignored // what is still down
    };

    void takeFirst(const QTouchEvent::TouchPoint &point);
    void takeOther(const QTouchEvent::TouchPoint &point);
    void startDrawing();
    void stopDrawing();

    Meaning m_meaning{Meaning::None};
    int m_first{-1}; // numbers of the fingers
    int m_second{-1};
    QPointF m_press;
    QPointF m_last;  // of the first finger
    QPointF m_other; // of the second
    QTimer m_waiting;
};

} // namespace Board
