#pragma once

#include "board/desk/Desk.h"
#include "board/gestures/Pinch.h"
#include "board/gestures/PointerGesture.h"
#include "board/people/OtherPointers.h"
#include "board/pointers/Fingers.h"
#include "board/pointers/PenWatch.h"

#include <QtGui/QCursor>
#include <QtWidgets/QWidget>

#include <map>
#include <memory>
#include <optional>

class QTouchEvent;

namespace Board {

// Shows the current page of a document and hands mouse, pen and fingers on it to gestures.
//
// A page is as large as the widget has ever been: ink beyond the edges of a smaller window is kept. Its pixels are
// those of the screen that the document was made on; on another one it is shown larger or smaller.
class Canvas : public QWidget
{
    Q_OBJECT

public:
    // The document outlives the canvas.
    explicit Canvas(Document &document, QWidget *parent = nullptr);

    const InkLesson::Page &page() const { return m_desk.page(); }

    // What is seen of the page now.
    const View &view() { return m_desk.view(); }
    Navigator &navigator() { return m_desk.navigator; }

    // A new tool lets the object in progress go. Colour and width are those of the next object; the width is in pixels
    // of a plain screen.
    void setTool(const Tool &tool);
    void setColor(const QColor &color);
    void setInkWidth(int width);
    void setDash(Qt::PenStyle dash);
    void setInkOption(std::optional<int> option) { m_desk.ink.option = option; }

    // Colour and width of the object that is picked, otherwise of the next one.
    Ink shownInk() const;

    // Whose name is shown beside what is drawn.
    void setDrawer(const Drawer &drawer);

    // Who else draws on the lesson, by their authors.
    void setOthers(const std::map<int, Drawer> &others);

    // Where they point on this page, and whether that is shown.
    void setPointers(const QList<OtherPointer> &pointers);
    void showPointers(bool isShown);

    // The dots of a tool that scatters are the same after the same seed.
    void setSeed(quint32 seed) { m_desk.scatter = InkLesson::Scatter(seed); }

    // Puts a picture where it can be moved, stretched and turned: around a point of the page, by default in the middle.
    // One that is larger than what is seen of the page is made smaller.
    void insertPicture(const QImage &picture, const std::optional<QPoint> &center = {});

    void finish();
    void undo();
    void redo();

    // The object that is in progress or picked.
    bool mayDiscard() const;
    void discard();

    // One that is in the lesson already.
    bool mayReorder() const { return chosen() != InkLesson::kNothing; }
    void duplicate();
    void raise();
    void lower();
    void clear();

    // Is asked before clear(), which does nothing where the answer is false. There is no question otherwise.
    void setMayClear(std::function<bool()> mayClear) { m_mayClear = std::move(mayClear); }

    QSize sizeHint() const override { return m_sizeHint; }

signals:
    // Something was drawn, an object was let go, or the like.
    void changed();

    // Where the pointer is, in page pixels; nowhere once it has left.
    void pointed(const std::optional<QPoint> &pt);

    // Somebody else holds what was to be taken.
    void heldElsewhere(int author);

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
    void leaveEvent(QEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void tabletEvent(QTabletEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

    void paintLaser(QPainter &painter) const { m_desk.laser.paint(painter); }

private:
    // One of them at a time has a gesture; what the others do meanwhile is ignored.
    enum class Device { None, Mouse, Pen, Finger };

    bool press(Device device, const QPointF &pos);
    void begin(Device device, std::unique_ptr<PointerGesture> gesture, const QPointF &pos);
    void move(Device device, const QPointF &pos);
    void release(Device device, const QPointF &pos);
    std::unique_ptr<PointerGesture> takeGesture();
    PointerSpot spotAt(const QPointF &pos);
    QPoint pageAt(const QPointF &pos);

    void touch(const QTouchEvent &event);
    void takePalm();
    void endDrawing();

    void takeCursor();
    void showCursor();
    void showHandle(const QPoint &pt);
    void showSelection();
    void showPainted(const QRegion &area);
    void showDocument();
    void showView();
    void followName();
    void leavePage();
    void followView();
    void growPage();

    InkLesson::ObjectId chosen() const; // kNothing for none
    void reorder(bool up);
    void restyle(const InkLesson::Act &act, const InkLesson::Change &change);

    const QSize m_sizeHint;
    Desk m_desk;
    Device m_device{Device::None};
    std::unique_ptr<PointerGesture> m_gesture; // of the device; null without one
    Pinch m_pinch;
    bool m_snaps{};                         // the Shift key is held
    Qt::MouseButton m_button{Qt::NoButton}; // that was pressed
    Fingers m_fingers;
    PenWatch m_pen;
    OtherPointers m_others;
    std::function<bool()> m_mayClear;
    QCursor m_cursor{Qt::CrossCursor}; // beside an object
    bool m_ringed{};                   // the Tab key has come here
};

} // namespace Board
