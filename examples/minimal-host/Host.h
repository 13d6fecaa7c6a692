#pragma once

#include <CInkGraph>

#include <QtGui/QImage>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QWidget>

#include <memory>
#include <vector>

// A page to draw on with the mouse. Keys 1 to 5 choose pencil, rectangle, ellipse, star and polygon.
class Host : public QWidget
{
public:
    Host();

protected:
    void mousePressEvent(QMouseEvent *event) override { feed(PT_DOWN, event->pos()); }
    void mouseMoveEvent(QMouseEvent *event) override { feed(PT_MOVE, event->pos()); }
    void mouseReleaseEvent(QMouseEvent *event) override { feed(PT_UP, event->pos()); }
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *) override { QPainter(this).drawImage(0, 0, m_surface); }

private:
    void feed(int code, const QPoint &pt);
    void draw(const QRect &area);
    void showPage(const QRect &area);

    QImage m_background, m_page, m_surface, m_ink;
    std::unique_ptr<CInkGraph> m_object;                // in progress
    std::vector<std::unique_ptr<CInkGraph>> m_finished; // on the page, the first lowest
    int m_tool{0};
};
