#pragma once

#include "board/canvas/LaserPen.h"
#include "board/document/Document.h"
#include "board/person/NameTag.h"
#include "board/pointers/Fingers.h"
#include "board/pointers/Moves.h"
#include "board/pointers/PenWatch.h"
#include "board/tools/Tools.h"
#include "board/view/Navigator.h"

#include "lesson/objects/Scatter.h"

#include <QtCore/QTimer>
#include <QtGui/QCursor>
#include <QtWidgets/QWidget>

class QTouchEvent;

namespace Board {

class ObjectEditor;

// Shows the current page of a document and draws on it with the mouse, a pen or a finger.
//
// A page is as large as the widget has ever been: ink beyond the edges of a smaller window is kept. Its pixels are
// those of the screen that the document was made on; on another one it is shown larger or smaller.
class Canvas : public QWidget
{
    Q_OBJECT

public:
    // The document outlives the canvas.
    explicit Canvas(Document &document, QWidget *parent = nullptr);

    const InkLesson::Page &page() const { return m_document.page(); }

    // What is seen of the page now.
    const View &view() { return m_navigator.view(page()); }
    Navigator &navigator() { return m_navigator; }

    // A new tool lets the object in progress go. Colour and width are those of the next object; the width is in pixels
    // of a plain screen.
    void setTool(const Tool &tool);
    void setColor(const QColor &color);
    void setInkWidth(int width);
    void setDash(Qt::PenStyle dash);
    void setInkOption(std::optional<int> option) { m_ink.option = option; }

    // Whose name is shown beside what is drawn.
    void setDrawer(const Drawer &drawer);

    // The dots of a tool that scatters are the same after the same seed.
    void setSeed(quint32 seed) { m_scatter = InkLesson::Scatter(seed); }

    // Puts a picture where it can be moved, stretched and turned: around a point of the page, by default in the middle.
    // One that is larger than what is seen of the page is made smaller.
    void insertPicture(const QImage &picture, const std::optional<QPoint> &center = {});

    void finish();
    void undo();
    void redo();

    // The object that is in progress or picked.
    void discard();
    void duplicate();
    void raise();
    void lower();
    void clear();

    QSize sizeHint() const override { return m_sizeHint; }

signals:
    // Something was drawn, an object was let go, or the like.
    void changed();

    // What was dropped is no picture; in one line.
    void pictureRefused(const QString &problem);

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void tabletEvent(QTabletEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

    void paintLaser(QPainter &painter) const { m_laser.paint(painter); }

private:
    // One of them at a time draws; what the others do meanwhile is ignored.
    enum class Device { None, Mouse, Pen, Finger };

    bool press(Device device, const QPointF &pos);
    bool beginGesture();
    void move(Device device, const QPointF &pos);
    void release(Device device, const QPointF &pos);

    void touch(const QTouchEvent &event);
    void takePalm();
    bool beginPan(Device device, const QPointF &pos);
    void endPan();
    void showCursor();
    void endGesture(const QPoint &pt);
    void endDrawing();
    void closeEditor(bool keeps = true);
    void followObject();
    void scatter();
    void takeCursor();
    void showHandle(const QPoint &pt);
    void showPainted(const QRegion &area);
    void followName();
    QPoint pageAt(const QPointF &pos);
    void growPage();
    Ink pageInk() const;

    // For changes, before which the object in hand is told of all moves.
    InkLesson::Author &author();
    void paintMoves();
    InkLesson::ObjectId chosen() const; // kNothing for none
    void pick(const InkLesson::ObjectId &id);
    void endPicking(const QPoint &by);
    InkLesson::ObjectId topmostAt(const QPoint &pt);
    void removeAlong(const QPoint &from, const QPoint &to);
    void reorder(bool up);
    void restyle(const InkLesson::Act &act, const InkLesson::Change &change);
    void showDocument();
    void showView();
    QPoint snapped(const QPoint &pt) const;

    const QSize m_sizeHint;
    Document &m_document;
    Navigator m_navigator{*this};
    const Tool *m_tool;
    decltype(Tool::edit) m_edit{}; // of the object in progress
    ObjectEditor *m_editor{};      // of the object in progress, owned by this widget; null while there is none
    Ink m_ink;                     // the width in pixels of a plain screen
    Device m_device{Device::None};
    QPoint m_last;                          // of the device that draws
    QPoint m_press;                         // the last
    bool m_snaps{};                         // the Shift key is held
    InkLesson::ObjectId m_picked{};         // an object without handles; kNothing for none
    int m_removing{};                       // the step of the objects that this gesture has removed; 0 for none
    Qt::MouseButton m_button{Qt::NoButton}; // that was pressed
    Moves m_moves;                          // that the object in progress was not yet told of
    Fingers m_fingers;
    PenWatch m_pen;
    bool m_tapping{};                  // pressed and not moved since
    QCursor m_cursor{Qt::CrossCursor}; // beside an object
    bool m_ringed{};                   // the Tab key has come here
    LaserPen m_laser;
    NameTag m_nameTag;
    InkLesson::Scatter m_scatter;
    QTimer m_scattering;
};

} // namespace Board
