#include "CanvasProbe.h"
#include "Paper.h"

#include <QtGui/QTabletEvent>

using namespace Board;

// Pens, and the hands that hold them.
class tst_Palm : public QObject, private CanvasProbe
{
    Q_OBJECT

private slots:
    void initTestCase() { m_screen = QTest::createTouchDevice(); }
    void init() { showCanvas(); }
    void cleanup() { m_canvas.reset(); }

    void ignoresThePressureOfThePen_data();
    void ignoresThePressureOfThePen();
    void ignoresTouchesWhileThePenIsNear();
    void ignoresTouchesWhileThePenDraws();
    void ignoresThePalmUntilItIsLifted();
    void takesAwayWhatThePalmHasDrawn();
    void keepsWhatWasDrawnBefore();
    void doesNotTakePalmsForAPinch();
    void waitsForAPenThatTellsNothing();

private:
    void pen(QEvent::Type type, const QPointF &pos, double pressure = 0.5)
    {
        QTabletEvent event(type, pos, pos, QTabletEvent::Stylus, QTabletEvent::Pen, pressure, 0, 0, 0, 0, 0,
                           Qt::NoModifier, 1, Qt::LeftButton, Qt::LeftButton);
        const bool isOfPage = type != QEvent::TabletEnterProximity && type != QEvent::TabletLeaveProximity;
        QCoreApplication::sendEvent(isOfPage ? static_cast<QObject *>(m_canvas.get()) : qApp, &event);
    }
    // To be sent by commit(false): with other events, a finger would rest for as long as the machine is busy.
    QTest::QTouchEventSequence touch() { return QTest::touchEvent(m_canvas.get(), m_screen, false); }
    void press(const QPoint &pos) { touch().press(0, pos, m_canvas.get()).commit(false); }
    void move(const QPoint &pos) { touch().move(0, pos, m_canvas.get()).commit(false); }
    void release(const QPoint &pos) { touch().release(0, pos, m_canvas.get()).commit(false); }
    void drawWithAFinger()
    {
        press({20, 200});
        move({80, 200});
        release({80, 200});
    }
    bool hasInk(int x, int y) const { return m_canvas->page().surface().pixel(x, y) == 0xFFFF0000; }

    QTouchDevice *m_screen{}; // owned by Qt
};

void tst_Palm::ignoresThePressureOfThePen_data()
{
    QTest::addColumn<double>("pressure");
    for (const double pressure : {0.0, 0.01, 0.5, 1.0})
        QTest::addRow("%g", pressure) << pressure;
}

void tst_Palm::ignoresThePressureOfThePen()
{
    QFETCH(double, pressure);
    pen(QEvent::TabletPress, {20, 50}, pressure);
    pen(QEvent::TabletMove, {80, 50}, pressure);
    pen(QEvent::TabletRelease, {80, 50}, 0);
    QCOMPARE(m_canvas->page().picture(),
             paper(kSize, [](QPainter &painter) { drawLine(painter, Qt::red, 4, QPoint(20, 50), QPoint(80, 50)); }));
}

void tst_Palm::ignoresTouchesWhileThePenIsNear()
{
    pen(QEvent::TabletEnterProximity, {});
    drawWithAFinger();
    QVERIFY(!canUndo());
    pen(QEvent::TabletLeaveProximity, {});
    drawWithAFinger();
    QVERIFY(hasInk(50, 200));
}

void tst_Palm::ignoresTouchesWhileThePenDraws()
{
    pen(QEvent::TabletPress, {20, 50});
    press({300, 200});
    pen(QEvent::TabletMove, {60, 50});
    move({250, 200});
    pen(QEvent::TabletMove, {80, 50});
    release({250, 200});
    pen(QEvent::TabletRelease, {80, 50});
    QCOMPARE(m_canvas->page().picture(),
             paper(kSize, [](QPainter &painter) { drawLine(painter, Qt::red, 4, QPoint(20, 50), QPoint(80, 50)); }));
}

void tst_Palm::ignoresThePalmUntilItIsLifted()
{
    pen(QEvent::TabletEnterProximity, {});
    press({20, 200});
    pen(QEvent::TabletLeaveProximity, {});
    move({80, 200});
    release({80, 200});
    QVERIFY(!canUndo());
    drawWithAFinger();
    QVERIFY(hasInk(50, 200));
}

void tst_Palm::takesAwayWhatThePalmHasDrawn()
{
    press({20, 200});
    move({80, 200});
    QVERIFY(hasInk(50, 200));
    pen(QEvent::TabletEnterProximity, {});
    QVERIFY(!hasInk(50, 200));
    move({90, 250});
    pen(QEvent::TabletPress, {20, 50});
    pen(QEvent::TabletMove, {80, 50});
    release({90, 250});
    pen(QEvent::TabletRelease, {80, 50});
    QCOMPARE(m_canvas->page().picture(),
             paper(kSize, [](QPainter &painter) { drawLine(painter, Qt::red, 4, QPoint(20, 50), QPoint(80, 50)); }));
    m_canvas->undo();
    QVERIFY(!canUndo());
}

void tst_Palm::keepsWhatWasDrawnBefore()
{
    choose("rectangle");
    press({100, 100});
    move({200, 160});
    release({200, 160});
    press({150, 130}); // on its inside
    move({170, 140});
    pen(QEvent::TabletEnterProximity, {});
    m_canvas->finish();
    QCOMPARE(m_canvas->page().items().size(), std::size_t(1));
    pen(QEvent::TabletLeaveProximity, {});
}

void tst_Palm::doesNotTakePalmsForAPinch()
{
    pen(QEvent::TabletEnterProximity, {});
    touch().press(0, QPoint(150, 150), m_canvas.get()).press(1, QPoint(250, 150), m_canvas.get()).commit(false);
    touch().move(0, QPoint(100, 150), m_canvas.get()).move(1, QPoint(300, 150), m_canvas.get()).commit(false);
    touch().release(0, QPoint(100, 150), m_canvas.get()).release(1, QPoint(300, 150), m_canvas.get()).commit(false);
    QCOMPARE(m_canvas->view().zoom(), 1.0);
}

// Where the system does not tell of its coming and going, it is near for half a second.
void tst_Palm::waitsForAPenThatTellsNothing()
{
    pen(QEvent::TabletMove, {20, 50});
    drawWithAFinger();
    QVERIFY(!canUndo());
    QTest::qWait(550);
    drawWithAFinger();
    QVERIFY(hasInk(50, 200));
}

QTEST_MAIN(tst_Palm)
#include "tst_Palm.moc"
