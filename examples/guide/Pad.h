#pragma once

#include "Page.h"

#include <QtGui/QMouseEvent>
#include <QtGui/QTabletEvent>
#include <QtGui/QTouchEvent>
#include <QtWidgets/QWidget>

namespace Guide {

// A page that one person draws on with mouse, pen or finger.
class Pad : public QWidget
{
public:
    using Tool = Page::Object (*)();

    Pad(const QSize &size, Tool tool);

    const Page &page() const { return m_page; }

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void tabletEvent(QTabletEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    bool touch(const QTouchEvent &event);
    void press(const QPoint &pt, bool isDouble = false);
    void move(const QPoint &pt);
    void release(const QPoint &pt);
    void interrupt();
    void cancel();
    void feed(int code, const QPoint &pt);

    Page m_page;
    const Tool m_tool;
    CInkGraph *m_object{}; // in progress, the page's
    bool m_isDown{};
    QPoint m_last;
    int m_finger{};
};

} // namespace Guide
