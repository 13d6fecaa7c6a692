#pragma once

// A canvas of 400 x 300 pixels on the screen, and a mouse over it.

#include "Patience.h"
#include "board/canvas/Canvas.h"

#include <QtGui/QMouseEvent>
#include <QtGui/QPaintEvent>
#include <QtTest/QtTest>

#include <memory>

// What a widget was asked to paint.
class PaintWatch : public QObject
{
public:
    explicit PaintWatch(QWidget &widget) { widget.installEventFilter(this); }

    QRegion painted;

protected:
    bool eventFilter(QObject *object, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            painted += static_cast<QPaintEvent *>(event)->region();
        return QObject::eventFilter(object, event);
    }
};

// Base of tests with a canvas of their own, which is fresh after showCanvas().
class CanvasProbe
{
protected:
    static constexpr QSize kSize{400, 300};

    void showCanvas()
    {
        m_canvas.reset();
        m_document = std::make_unique<Board::Document>(kSize);
        m_canvas = std::make_unique<Board::Canvas>(*m_document);
        m_canvas->setColor(Qt::red);
        m_canvas->setInkWidth(4);
        m_canvas->resize(kSize);
        m_canvas->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_canvas.get(), kPatience));
    }

    // There is an object in hand; it is still being drawn; something can be undone.
    bool isBusy() const { return m_document->author().hand() != nullptr; }
    bool isForming() const { return isBusy() && m_document->author().hand()->isForming(); }
    bool canUndo() const { return m_document->author().canUndo(); }
    CInkGraph *object() const { return m_document->author().object(); }

    void choose(const char *tool) { m_canvas->setTool(*Board::findTool(QString::fromLatin1(tool))); }

    void mouse(QEvent::Type type, const QPointF &pos, Qt::MouseButton button = Qt::LeftButton,
               Qt::MouseEventSource source = Qt::MouseEventNotSynthesized,
               Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QMouseEvent event(type, pos, pos, pos, button, button, modifiers, source);
        QCoreApplication::sendEvent(m_canvas.get(), &event);
    }

    void hover(const QPointF &pos) { mouse(QEvent::MouseMove, pos, Qt::NoButton); }

    void drag(const QPointF &from, const QPointF &to)
    {
        mouse(QEvent::MouseButtonPress, from);
        mouse(QEvent::MouseMove, (from + to) / 2);
        mouse(QEvent::MouseMove, to);
        mouse(QEvent::MouseButtonRelease, to);
    }

    std::unique_ptr<Board::Document> m_document;
    std::unique_ptr<Board::Canvas> m_canvas;
};
