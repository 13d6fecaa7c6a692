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

// Moves and zooms what a widget shows of a page, as wheel, keys, drags and two fingers ask for.
class Navigator : public QObject
{
    Q_OBJECT

public:
    // Where positions are, they are the widget's.
    explicit Navigator(QWidget &widget);

    // For the page as it is now, and the screen that the widget is on.
    const View &view(const InkLesson::Page &page);

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

    // A drag that moves the page.
    void beginDrag(const QPointF &pos);
    void dragTo(const QPointF &pos);
    void endDrag() { m_isDragging = false; }
    bool isDragging() const { return m_isDragging; }

    // Two fingers keep to the points of the page that they were put on.
    void beginPinch(const QPointF &first, const QPointF &second);
    void pinch(const QPointF &first, const QPointF &second);

signals:
    // Something else is seen now.
    void moved();

private:
    void zoomTo(double zoom);

    QWidget &m_widget;
    View m_view;
    bool m_isKeyHeld{};
    bool m_isDragging{};
    QPointF m_last; // of the drag

    // Of the pinch: as it began.
    QPointF m_pinched; // page pixels
    double m_distance{1};
    double m_zoom{1};
};

} // namespace Board
