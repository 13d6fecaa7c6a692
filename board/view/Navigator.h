#pragma once

#include "board/view/View.h"

#include <QtCore/QObject>

class QKeyEvent;
class QWheelEvent;
class QWidget;

namespace InkLesson {
class Page;
}

namespace Board {

// Moves and zooms what a widget shows of a page, as wheel, keys and gestures ask for.
class Navigator : public QObject
{
    Q_OBJECT

public:
    // Where positions are, they are the widget's.
    explicit Navigator(QWidget &widget);

    // For the page as it is now, and the screen that the widget is on.
    const View &view(const InkLesson::Page &page);
    const View &lastView() const { return m_view; } // as it was asked for last

    // About the pointer, or about the middle where the pointer is elsewhere.
    void zoomIn();
    void zoomOut();
    void zoomToOne();

    // Zooms with the Ctrl key, moves the page otherwise.
    void turnWheel(const QWheelEvent &event);

    // The space bar: while it is held, a drag moves the page. Return whether the key was that one.
    bool pressKey(const QKeyEvent &event);
    bool releaseKey(const QKeyEvent &event);
    void forgetKey() { m_isKeyHeld = false; } // its release goes elsewhere
    bool isKeyHeld() const { return m_isKeyHeld; }

    void panBy(const QPointF &by);

    // Shows the page's point `pt` at `pos` of the widget.
    void place(const QPointF &pt, const QPointF &pos, double zoom);

signals:
    // Something else is seen now.
    void moved();

private:
    void zoomTo(double zoom);

    QWidget &m_widget;
    View m_view;
    bool m_isKeyHeld{};
};

} // namespace Board
