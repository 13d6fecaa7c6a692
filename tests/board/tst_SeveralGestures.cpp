// Objects that take several gestures, drawn with the events that a window system gives.

#include "board/canvas/Canvas.h"

#include "CInkGraph.h"

#include <QtGui/QMouseEvent>
#include <QtTest/QtTest>

using namespace Board;

class tst_SeveralGestures : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_canvas.reset();
        m_document = std::make_unique<Document>(QSize(400, 300));
        m_canvas = std::make_unique<Canvas>(*m_document);
        m_canvas->resize(400, 300);
    }

    void polygonClosesAtItsFirstVertex();
    void polygonIsCompletedByADoubleClick();
    void polygonAbandonedAtItsFirstReleaseMakesRoomForTheNext();
    void curveTakesThreeDrags();
    void curveWithoutExtentIsAbandoned();

private:
    void choose(const char *tool) { m_canvas->setTool(*findTool(QString::fromLatin1(tool))); }
    void mouse(QEvent::Type type, const QPointF &pos);
    void drag(const QPointF &from, const QPointF &to);
    bool isBusy() const { return m_document->author().hand() != nullptr; }
    bool isForming() const { return isBusy() && m_document->author().hand()->isForming(); }
    bool canUndo() const { return m_document->author().canUndo(); }
    CInkGraph *object() const { return m_document->author().object(); }
    bool isInk(int x, int y) const { return m_canvas->page().picture().pixel(x, y) == qRgb(0, 0, 0); }

    std::unique_ptr<Document> m_document;
    std::unique_ptr<Canvas> m_canvas;
};

void tst_SeveralGestures::mouse(QEvent::Type type, const QPointF &pos)
{
    const bool held =
        type == QEvent::MouseMove || type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick;
    QMouseEvent event(type, pos, type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                      held ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(m_canvas.get(), &event);
}

void tst_SeveralGestures::drag(const QPointF &from, const QPointF &to)
{
    mouse(QEvent::MouseButtonPress, from);
    mouse(QEvent::MouseMove, to);
    mouse(QEvent::MouseButtonRelease, to);
}

void tst_SeveralGestures::polygonClosesAtItsFirstVertex()
{
    choose("polygon");
    drag({50, 50}, {150, 50});
    QVERIFY(isForming());
    drag({150, 50}, {150, 120});
    QVERIFY(isForming());
    drag({150, 120}, {53, 54}); // exactly 5 pixels from the first vertex
    QVERIFY(isBusy());
    QVERIFY(!isForming());

    m_canvas->finish();
    QVERIFY(isInk(100, 50));  // along the top
    QVERIFY(isInk(150, 90));  // down the right
    QVERIFY(isInk(100, 85));  // and back along the slope
    QVERIFY(!isInk(70, 100)); // below it
}

void tst_SeveralGestures::polygonIsCompletedByADoubleClick()
{
    choose("polygon");
    drag({50, 50}, {150, 50});
    drag({150, 50}, {150, 120});
    // The window system gives press, release, double click, release.
    mouse(QEvent::MouseButtonPress, {50, 120});
    mouse(QEvent::MouseButtonRelease, {50, 120});
    QVERIFY(isForming());
    mouse(QEvent::MouseButtonDblClick, {50, 120});
    QVERIFY(isForming());
    mouse(QEvent::MouseButtonRelease, {50, 120});
    QVERIFY(isBusy());
    QVERIFY(!isForming());

    m_canvas->finish();
    QVERIFY(isInk(100, 120));
    QVERIFY(isInk(50, 85)); // the closing edge
}

void tst_SeveralGestures::polygonAbandonedAtItsFirstReleaseMakesRoomForTheNext()
{
    choose("polygon");
    drag({50, 50}, {51, 51});
    QVERIFY(!isBusy());
    drag({60, 60}, {150, 60});
    QVERIFY(isForming());
}

void tst_SeveralGestures::curveTakesThreeDrags()
{
    choose("curve");
    drag({50, 150}, {250, 150});
    QVERIFY(isForming());
    drag({80, 150}, {50, 30});
    QVERIFY(isForming());
    drag({220, 150}, {250, 30});
    QVERIFY(isBusy());
    QVERIFY(!isForming());

    m_canvas->finish();
    // At its middle the curve is at y = (150 + 3 * 30 + 3 * 30 + 150) / 8 = 60.
    QVERIFY(isInk(150, 60));
    QVERIFY(!isInk(150, 150));
}

void tst_SeveralGestures::curveWithoutExtentIsAbandoned()
{
    choose("curve");
    drag({50, 150}, {51, 150});
    QVERIFY(!isBusy());
}

QTEST_MAIN(tst_SeveralGestures)
#include "tst_SeveralGestures.moc"
