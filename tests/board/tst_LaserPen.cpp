#include "CanvasProbe.h"
#include "Paper.h"
#include "Patience.h"
#include "board/desk/LaserPen.h"

using namespace Board;

namespace {

const Ink kRed{Qt::red, 10};

QImage painted(const LaserTrail &trail, qint64 now)
{
    return paper({400, 300}, [&](QPainter &painter) { trail.paint(painter, now); });
}

const QRgb kInk = 0xFFFF0000;
const QRgb kPaper = 0xFFFFFFFF;

} // namespace

class tst_LaserPen : public QObject, private CanvasProbe
{
    Q_OBJECT

private slots:
    void cleanup() { m_canvas.reset(); }

    void thinsAPointUntilItIsGone();
    void forgetsWhatIsGone();
    void keepsThePointOfAPointerThatRests();
    void doesNotJoinTwoStrokes();
    void reportsWhatItTouches();
    void marksTheScreenAndNotThePage();
    void disappears();
};

// Ten pixels wide around y = 100, then five, then nothing.
void tst_LaserPen::thinsAPointUntilItIsGone()
{
    LaserTrail trail;
    trail.add({100, 100}, kRed, 0, true);
    trail.add({200, 100}, kRed, 0, false);
    QImage picture = painted(trail, 0);
    QCOMPARE(picture.pixel(150, 94), kPaper);
    QCOMPARE(picture.pixel(150, 95), kInk);
    QCOMPARE(picture.pixel(150, 104), kInk);
    QCOMPARE(picture.pixel(150, 105), kPaper);
    picture = painted(trail, 500);
    QCOMPARE(picture.pixel(150, 96), kPaper);
    QCOMPARE(picture.pixel(150, 98), kInk);
    QCOMPARE(picture.pixel(150, 101), kInk);
    QCOMPARE(picture.pixel(150, 103), kPaper);
    QVERIFY(painted(trail, 999) != blankPaper({400, 300}));
    QCOMPARE(painted(trail, 1000), blankPaper({400, 300}));
}

void tst_LaserPen::forgetsWhatIsGone()
{
    LaserTrail trail;
    QVERIFY(trail.isEmpty());
    trail.add({100, 100}, kRed, 0, true);
    trail.add({200, 100}, kRed, 600, false);
    trail.fade(999);
    QCOMPARE(painted(trail, 999).pixel(150, 100), kInk); // still joined
    trail.fade(1000);
    QCOMPARE(painted(trail, 1000).pixel(150, 100), kPaper);
    QCOMPARE(painted(trail, 1000).pixel(200, 100), kInk);
    trail.fade(1599);
    QVERIFY(!trail.isEmpty());
    trail.fade(1600);
    QVERIFY(trail.isEmpty());
}

void tst_LaserPen::keepsThePointOfAPointerThatRests()
{
    LaserTrail trail;
    trail.add({100, 100}, kRed, 0, true);
    trail.add({100, 100}, kRed, 900, false);
    trail.fade(1899);
    QCOMPARE(painted(trail, 900).pixel(100, 96), kInk); // as wide as at first
    QVERIFY(!trail.isEmpty());
    trail.fade(1900);
    QVERIFY(trail.isEmpty());
}

void tst_LaserPen::doesNotJoinTwoStrokes()
{
    LaserTrail trail;
    trail.add({100, 100}, kRed, 0, true);
    trail.add({200, 100}, kRed, 10, true);
    const QImage picture = painted(trail, 10);
    QCOMPARE(picture.pixel(100, 100), kInk);
    QCOMPARE(picture.pixel(150, 100), kPaper);
    QCOMPARE(picture.pixel(200, 100), kInk);
}

// Half the width and two pixels more to each side of the points.
void tst_LaserPen::reportsWhatItTouches()
{
    LaserTrail trail;
    QCOMPARE(trail.add({100, 100}, kRed, 0, true), QRect(QPoint(93, 93), QPoint(107, 107)));
    QCOMPARE(trail.add({200, 150}, {Qt::blue, 4}, 500, true), QRect(QPoint(93, 93), QPoint(204, 154)));
    QCOMPARE(trail.fade(1000), QRect(QPoint(93, 93), QPoint(204, 154))); // the first goes
    QCOMPARE(trail.fade(1500), QRect(QPoint(196, 146), QPoint(204, 154)));
    QCOMPARE(trail.fade(1600), QRect());
}

void tst_LaserPen::marksTheScreenAndNotThePage()
{
    showCanvas();
    choose("laser");
    mouse(QEvent::MouseButtonPress, {100, 100});
    mouse(QEvent::MouseMove, {200, 100});
    QTRY_COMPARE_WITH_TIMEOUT(m_canvas->grab().toImage().pixel(200, 100), kInk, kPatience);
    QCOMPARE(m_canvas->page().surface(), blankPaper({400, 300}));
    QVERIFY(!isBusy());
    mouse(QEvent::MouseButtonRelease, {200, 100});
    QVERIFY(m_document->isSaved()); // nothing was done
    QVERIFY(!canUndo());
    QVERIFY(m_document->lesson().log().empty());
    QCOMPARE(m_canvas->page().picture(), blankPaper({400, 300}));
}

void tst_LaserPen::disappears()
{
    showCanvas();
    choose("laser");
    drag({100, 100}, {200, 100});
    choose("pencil"); // another tool does not keep it
    QTRY_COMPARE_WITH_TIMEOUT(m_canvas->grab().toImage().convertToFormat(QImage::Format_RGB32), blankPaper({400, 300}),
                              kPatience);
}

QTEST_MAIN(tst_LaserPen)
#include "tst_LaserPen.moc"
