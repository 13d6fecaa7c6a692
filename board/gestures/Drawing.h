#pragma once

#include "board/gestures/PointerGesture.h"

#include <QtCore/QTimer>

namespace Board {

struct Desk;
struct Tool;

// Draws an object, or changes the one that is in the hand by its handles.
//
// The press that lets an object go does only that: the object is committed, so the rest of the gesture finds none and
// draws nothing.
class Drawing : public PointerGesture
{
public:
    explicit Drawing(Desk &desk);

    void press(const PointerSpot &at) override;
    void move(const PointerSpot &at) override;
    void release(const PointerSpot &at) override;
    void pressTwice(const PointerSpot &at) override;
    void cancel() override;
    void letGo() override;

private:
    void takeObject();
    void scatter();
    void end(const QPoint &pt);
    QPoint snapped(const PointerSpot &at) const;
    bool isTapForBox(const QPoint &pt) const;
    void drawTapped();

    Desk &m_desk;
    const Tool &m_tool;
    QPoint m_press;
    QPoint m_last;
    bool m_continues{}; // an object whose drawing takes several gestures
    bool m_isTap{true}; // not moved since the press
    QTimer m_scattering;
};

} // namespace Board
