#include "CanvasProbe.h"
#include "Patience.h"
#include "board/pointers/Moves.h"

#include "PointerEvent.h"

#include <QtTest/QSignalSpy>

using namespace Board;

class tst_Moves : public QObject, private CanvasProbe
{
    Q_OBJECT

private slots:
    void cleanup() { m_canvas.reset(); }

    void passesTheFirstOnAtOnce();
    void collectsThoseOfAFrame();
    void neverWaitsLongerThanItsPause();
    void waitsAsLongAsPaintingIsDear();
    void waitsNoLongerThanAFrame();
    void recordsEveryPoint_data();
    void recordsEveryPoint();
    void tellsTheObjectBeforeAnythingElse();
};

void tst_Moves::passesTheFirstOnAtOnce()
{
    Moves moves;
    QSignalSpy due(&moves, &Moves::due);
    moves.add({{1, 2}});
    QCOMPARE(due.count(), 1);
    QVERIFY(!moves.isEmpty());
    QCOMPARE(moves.take(), (std::vector<QPoint>{{1, 2}}));
    QVERIFY(moves.isEmpty());
}

void tst_Moves::collectsThoseOfAFrame()
{
    Moves moves;
    moves.setPauses(600'000, 600'000);
    QSignalSpy due(&moves, &Moves::due);
    moves.add({{1, 2}});
    moves.take();
    moves.add({{3, 4}});
    moves.add({{5, 6}, {7, 8}});
    QCOMPARE(due.count(), 1);
    QCOMPARE(moves.take(), (std::vector<QPoint>{{3, 4}, {5, 6}, {7, 8}}));
    moves.begin();
    moves.add({{9, 10}});
    QCOMPARE(due.count(), 2);
}

void tst_Moves::neverWaitsLongerThanItsPause()
{
    Moves moves;
    moves.setPauses(500, 500);
    moves.add({{1, 2}});
    moves.take();
    QSignalSpy due(&moves, &Moves::due);
    moves.add({{3, 4}});
    moves.add({{5, 6}});
    QTRY_COMPARE_WITH_TIMEOUT(due.count(), 1, kPatience);
    QCOMPARE(moves.take().size(), std::size_t(2));
    moves.take();
    QTest::qWait(600);
    QCOMPARE(due.count(), 1); // nothing is left
}

// Four times as long as the painting took, which was 25 milliseconds at least.
void tst_Moves::waitsAsLongAsPaintingIsDear()
{
    Moves moves;
    moves.setPauses(1, 600'000);
    QElapsedTimer clock;
    clock.start();
    moves.take();
    QTest::qSleep(25);
    moves.painted();
    QSignalSpy due(&moves, &Moves::due);
    moves.add({{1, 2}});
    QTRY_COMPARE_WITH_TIMEOUT(due.count(), 1, kPatience);
    QVERIFY(clock.elapsed() >= 100);
}

void tst_Moves::waitsNoLongerThanAFrame()
{
    Moves moves;
    moves.setPauses(1, 30);
    moves.take();
    QTest::qSleep(30);
    moves.painted();
    QSignalSpy due(&moves, &Moves::due);
    moves.add({{1, 2}});
    QCOMPARE(due.count(), 1);
}

void tst_Moves::recordsEveryPoint_data()
{
    QTest::addColumn<QString>("tool");
    for (const char *tool : {"pencil", "rectangle", "crayon", "eraser", "flat-brush"})
        QTest::newRow(tool) << QString::fromLatin1(tool);
}

// Far more of them than frames; the page is what playing the record gives.
void tst_Moves::recordsEveryPoint()
{
    QFETCH(QString, tool);
    showCanvas();
    m_canvas->setTool(*findTool(tool));
    mouse(QEvent::MouseButtonPress, {20, 20});
    for (int i = 1; i <= 200; ++i)
        mouse(QEvent::MouseMove, {20.0 + i, 20.0 + i % 50});
    mouse(QEvent::MouseButtonRelease, {220, 30});
    m_canvas->finish();
    const auto &items = m_canvas->page().items();
    QCOMPARE(items.size(), std::size_t(tool == QLatin1String("eraser") ? 0 : 1)); // there was nothing to erase
    if (items.empty())
        return;
    const InkLesson::Life life = *m_document->lesson().life(items.front()->id);
    int moves = 0;
    for (const InkLesson::Act &act : life.acts) {
        const auto *event = std::get_if<InkLesson::PointerAct>(&act);
        if (!event || event->code != PT_MOVE)
            continue;
        ++moves;
        QCOMPARE(event->pt, QPoint(20 + moves, 20 + moves % 50));
    }
    QCOMPARE(moves, 200);
    QCOMPARE(std::get<InkLesson::PointerAct>(life.acts.front()).code, PT_DOWN);
    QVERIFY(std::any_of(life.acts.begin(), life.acts.end(), [](const InkLesson::Act &act) {
        const auto *event = std::get_if<InkLesson::PointerAct>(&act);
        return event && event->code == PT_UP && event->pt == QPoint(220, 30);
    }));
    InkLesson::Lesson again({kSize});
    again.apply({{1, 1}, 1, 0, InkLesson::kFirstPage, InkLesson::Draw{life}});
    QCOMPARE(again.page(InkLesson::kFirstPage).picture(), m_canvas->page().picture());
}

void tst_Moves::tellsTheObjectBeforeAnythingElse()
{
    showCanvas();
    choose("pencil");
    mouse(QEvent::MouseButtonPress, {20, 50});
    for (int i = 1; i <= 50; ++i)
        mouse(QEvent::MouseMove, {20.0 + i, 50});
    m_canvas->finish();
    const std::vector<InkLesson::Act> acts = m_document->lesson().life(m_canvas->page().items().front()->id)->acts;
    QCOMPARE(acts.size(), std::size_t(52));
    QCOMPARE(std::get<InkLesson::PointerAct>(acts.at(50)).pt, QPoint(70, 50));
    QCOMPARE(std::get<InkLesson::PointerAct>(acts.at(51)).code, PT_UP);
    QCOMPARE(m_canvas->page().picture().pixel(69, 50), 0xFFFF0000U);

    choose("rectangle"); // a drag of its inside, which the keys end
    drag({100, 100}, {200, 160});
    mouse(QEvent::MouseButtonPress, {150, 130});
    for (int i = 1; i <= 50; ++i)
        mouse(QEvent::MouseMove, {150.0 + i, 130});
    m_canvas->discard();
    QVERIFY(!isBusy());
    QCOMPARE(m_canvas->page().surface(), m_canvas->page().picture());
    QTest::qWait(40);
    QVERIFY(!isBusy());
}

QTEST_MAIN(tst_Moves)
#include "tst_Moves.moc"
