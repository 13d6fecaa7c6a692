#include "CanvasProbe.h"
#include "Paper.h"

using namespace Board;

namespace {

QImage page(const std::function<void(QPainter &)> &paint)
{
    return paper({400, 300}, [&](QPainter &painter) { paint(painter); });
}

} // namespace

// A red box from (50,50) to (150,120) with a blue one from (100,80) to (220,200) over it, four pixels thick.
class tst_Pick : public QObject, private CanvasProbe
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_canvas.reset(); }

    void picksTheTopmost();
    void picksNothingBesideObjects();
    void picksEveryToolThatPaints_data();
    void picksEveryToolThatPaints();
    void givesAnObjectItsHandlesAgain();
    void movesAnObjectByADragOnIt();
    void oneThatWasOnlyLookedAtIsNoStep();
    void keepsItsPlaceInTheOrder();
    void changesColourAndWidth();
    void deletes();
    void duplicates();
    void bringsToTheFrontAndSendsToTheBack();
    void movesAStroke();
    void keepsTheFrameWhileThePageIsMoved();
    void recoloursAStroke();
    void removesObjects();
    void removesFromTheNextPressOn();
    void squaresWithShift();
    void turnsALineInStepsWithShift();

private:
    int heldNumber() const { return isBusy() ? m_document->author().hand()->held.number : 0; }
    const QImage &picture() const { return m_canvas->page().picture(); }
    static void red(QPainter &painter) { drawBox(painter, Qt::red, 4, {50, 50}, {150, 120}); }
    static void blue(QPainter &painter) { drawBox(painter, Qt::blue, 4, {100, 80}, {220, 200}); }
    void tap(const QPointF &pos) { drag(pos, pos); }
    void shift(QEvent::Type type, const QPointF &pos)
    {
        mouse(type, pos, Qt::LeftButton, Qt::MouseEventNotSynthesized, Qt::ShiftModifier);
    }
    void stroke()
    {
        m_canvas->setColor(Qt::red);
        choose("pencil");
        drag({20, 250}, {120, 250});
        choose("pick");
    }
};

void tst_Pick::init()
{
    showCanvas();
    choose("rectangle");
    drag({50, 50}, {150, 120});
    m_canvas->finish();
    m_canvas->setColor(Qt::blue);
    drag({100, 80}, {220, 200});
    m_canvas->finish();
    choose("pick");
    QCOMPARE(picture(), page([](QPainter &painter) { red(painter), blue(painter); }));
}

void tst_Pick::picksTheTopmost()
{
    const InkLesson::Page &shown = m_canvas->page();
    QCOMPARE(shown.topmostAt({60, 50}).number, 1);
    QCOMPARE(shown.topmostAt({150, 80}).number, 2); // where they cross
    QCOMPARE(shown.topmostAt({160, 200}).number, 2);
    QCOMPARE(shown.topmostAt({100, 85}).number, 2);
    QCOMPARE(shown.topmostAt({70, 54}).number, 1); // the outline ends at 52, three pixels above 55
    QCOMPARE(shown.topmostAt({70, 55}).number, 0);
}

void tst_Pick::picksNothingBesideObjects()
{
    tap({300, 30});
    tap({125, 150}); // inside the blue box, which is not filled
    QVERIFY(!isBusy());
    QCOMPARE(m_canvas->page().items().size(), std::size_t(2));
}

void tst_Pick::picksEveryToolThatPaints_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : {"pencil", "brush", "highlighter", "color-brush", "crayon", "spray-gun", "line", "ellipse",
                             "star-5", "fill", "rounded-label"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void tst_Pick::picksEveryToolThatPaints()
{
    QFETCH(QString, name);
    const Tool &tool = *findTool(name);
    m_canvas->clear();
    m_canvas->setInkWidth(9);
    m_canvas->setTool(tool);
    if (name == QLatin1String("fill")) {
        tap({200, 200});
    } else {
        drag({230, 210}, {330, 280});
        m_canvas->finish();
    }
    const auto &items = m_canvas->page().items();
    QCOMPARE(items.size(), std::size_t(1));
    // Wherever it has painted something strong.
    int found = 0;
    for (int y = 0; y < 300; y += 5) {
        for (int x = 0; x < 400; x += 5) {
            const bool painted = qAlpha(m_canvas->page().ink().pixel(x, y)) > 0;
            QVERIFY(!painted || m_canvas->page().topmostAt({x, y}) == items.front()->id);
            found += painted ? 1 : 0;
        }
    }
    QVERIFY(found > 0);
    if (name != QLatin1String("fill"))
        QCOMPARE(m_canvas->page().topmostAt({20, 20}), InkLesson::kNothing);
}

// The frame lies ten pixels outside the box.
void tst_Pick::givesAnObjectItsHandlesAgain()
{
    tap({60, 50});
    QVERIFY(isBusy());
    QCOMPARE(heldNumber(), 1);
    QCOMPARE(picture(), page(blue)); // the object in progress is on the surface only
    QVERIFY(m_canvas->page().surface().pixel(60, 50) == 0xFFFF0000);
    drag({75, 95}, {85, 115}); // inside the frame: moves
    m_canvas->finish();
    const auto moved = [](QPainter &painter) {
        drawBox(painter, Qt::red, 4, {60, 70}, {160, 140});
        blue(painter);
    };
    QCOMPARE(picture(), page(moved));
    QCOMPARE(m_canvas->page().surface(), picture());
    m_canvas->undo();
    QCOMPARE(picture(), page([](QPainter &painter) { red(painter), blue(painter); }));
    m_canvas->redo();
    QCOMPARE(picture(), page(moved));
}

void tst_Pick::movesAnObjectByADragOnIt()
{
    drag({60, 50}, {70, 75});
    QCOMPARE(heldNumber(), 1);
    m_canvas->finish();
    QCOMPARE(picture(), page([](QPainter &painter) {
                 drawBox(painter, Qt::red, 4, {60, 75}, {160, 145});
                 blue(painter);
             }));
    QCOMPARE(m_document->stepsToUndo(), 3);
    m_canvas->undo();
    QCOMPARE(picture(), page([](QPainter &painter) { red(painter), blue(painter); }));
}

void tst_Pick::oneThatWasOnlyLookedAtIsNoStep()
{
    const int steps = m_document->stepsToUndo();
    tap({60, 50});
    tap({300, 30});
    QVERIFY(!isBusy());
    QCOMPARE(m_document->stepsToUndo(), steps);
    QCOMPARE(picture(), page([](QPainter &painter) { red(painter), blue(painter); }));
    QCOMPARE(m_canvas->page().surface(), picture());
}

void tst_Pick::keepsItsPlaceInTheOrder()
{
    tap({60, 50});
    m_canvas->setColor(Qt::green);
    m_canvas->finish();
    QCOMPARE(picture(), page([](QPainter &painter) {
                 drawBox(painter, Qt::green, 4, {50, 50}, {150, 120});
                 blue(painter);
             }));
    QCOMPARE(m_canvas->page().items().front()->id.number, 1);
}

void tst_Pick::changesColourAndWidth()
{
    tap({160, 200});
    m_canvas->setColor(Qt::magenta);
    m_canvas->setInkWidth(10);
    QCOMPARE(m_canvas->page().surface().pixel(120, 203), 0xFFFF00FFU);
    m_canvas->finish();
    QCOMPARE(picture(), page([](QPainter &painter) {
                 red(painter);
                 drawBox(painter, Qt::magenta, 10, {100, 80}, {220, 200});
             }));
}

void tst_Pick::deletes()
{
    tap({60, 50});
    m_canvas->discard();
    QVERIFY(!isBusy());
    QCOMPARE(picture(), page(blue));
    QCOMPARE(m_canvas->page().surface(), picture());
    m_canvas->undo();
    QCOMPARE(picture(), page([](QPainter &painter) { red(painter), blue(painter); }));
}

void tst_Pick::duplicates()
{
    tap({60, 50});
    m_canvas->duplicate();
    QCOMPARE(heldNumber(), 3);
    m_canvas->finish();
    QCOMPARE(picture(), page([](QPainter &painter) {
                 red(painter);
                 blue(painter);
                 drawBox(painter, Qt::red, 4, {66, 66}, {166, 136});
             }));
    m_canvas->undo();
    QCOMPARE(m_canvas->page().items().size(), std::size_t(2));
}

void tst_Pick::bringsToTheFrontAndSendsToTheBack()
{
    tap({60, 50});
    m_canvas->raise();
    QCOMPARE(picture(), page([](QPainter &painter) { blue(painter), red(painter); }));
    tap({60, 50});
    m_canvas->lower();
    QCOMPARE(picture(), page([](QPainter &painter) { red(painter), blue(painter); }));
    m_canvas->undo();
    m_canvas->undo();
    QCOMPARE(picture(), page([](QPainter &painter) { red(painter), blue(painter); }));
}

// A stroke has no handles: a drag on it moves it.
void tst_Pick::movesAStroke()
{
    stroke();
    drag({70, 250}, {100, 230});
    QCOMPARE(picture().pixel(70, 250), 0xFFFFFFFFU);
    QCOMPARE(picture().pixel(60, 230), 0xFFFF0000U);
    QCOMPARE(picture().pixel(140, 230), 0xFFFF0000U);
    QCOMPARE(picture().pixel(40, 230), 0xFFFFFFFFU);
    m_canvas->undo();
    QCOMPARE(picture().pixel(70, 250), 0xFFFF0000U);
}

// The frame of the stroke that was dragged before.
void tst_Pick::keepsTheFrameWhileThePageIsMoved()
{
    stroke();
    mouse(QEvent::MouseButtonPress, {70, 250});
    const QImage picked = m_canvas->grab().toImage();
    mouse(QEvent::MouseMove, {100, 230});
    QVERIFY(m_canvas->grab().toImage() != picked); // it follows
    mouse(QEvent::MouseButtonRelease, {100, 230});
    const QImage moved = m_canvas->grab().toImage();
    mouse(QEvent::MouseButtonPress, {300, 30}, Qt::MiddleButton);
    QCOMPARE(m_canvas->grab().toImage(), moved);
    mouse(QEvent::MouseButtonRelease, {300, 30}, Qt::MiddleButton);
}

void tst_Pick::recoloursAStroke()
{
    stroke();
    tap({70, 250});
    m_canvas->setColor(Qt::green);
    QCOMPARE(picture().pixel(70, 250), 0xFF00FF00U);
    m_canvas->duplicate();
    QCOMPARE(picture().pixel(70, 266), 0xFF00FF00U);
    m_canvas->discard(); // the copy, which is picked
    QCOMPARE(picture().pixel(70, 266), 0xFFFFFFFFU);
    QCOMPARE(picture().pixel(70, 250), 0xFF00FF00U);
    choose("pencil");
    m_canvas->setColor(Qt::black); // picked no longer
    QCOMPARE(picture().pixel(70, 250), 0xFF00FF00U);
}

void tst_Pick::removesObjects()
{
    choose("remove");
    drag({20, 100}, {60, 100}); // over the left side of the red box
    QCOMPARE(picture(), page(blue));
    drag({300, 30}, {310, 40});
    QCOMPARE(picture(), page(blue));
    m_canvas->undo();
    QCOMPARE(m_canvas->page().items().size(), std::size_t(2));
}

// Not when it was chosen in the middle of a stroke, which it ends.
void tst_Pick::removesFromTheNextPressOn()
{
    choose("pencil");
    mouse(QEvent::MouseButtonPress, {20, 100});
    mouse(QEvent::MouseMove, {30, 100});
    choose("remove");
    mouse(QEvent::MouseMove, {60, 100}); // over the left side of the red box
    mouse(QEvent::MouseButtonRelease, {60, 100});
    QCOMPARE(m_canvas->page().items().size(), std::size_t(3));
    drag({40, 100}, {60, 100});
    QCOMPARE(m_canvas->page().items().size(), std::size_t(2));
}

void tst_Pick::squaresWithShift()
{
    m_canvas->clear();
    choose("rectangle");
    m_canvas->setColor(Qt::blue);
    shift(QEvent::MouseButtonPress, {200, 200});
    shift(QEvent::MouseMove, {150, 190});
    shift(QEvent::MouseButtonRelease, {140, 230});
    m_canvas->finish();
    QCOMPARE(picture(), page([](QPainter &painter) { drawBox(painter, Qt::blue, 4, {140, 200}, {200, 260}); }));
}

// (200,200) to (300,210) is six degrees above the level: zero. To (250,160) is 38.7 degrees: 45, as far away as the
// pointer, 64.03 pixels, which is (245,155).
void tst_Pick::turnsALineInStepsWithShift()
{
    m_canvas->clear();
    choose("line");
    m_canvas->setColor(Qt::blue);
    const auto draw = [&](const QPointF &to) {
        mouse(QEvent::MouseButtonPress, {200, 200});
        shift(QEvent::MouseButtonRelease, to);
        m_canvas->finish();
    };
    draw({300, 190});
    draw({250, 160});
    QCOMPARE(picture(), page([](QPainter &painter) {
                 drawLine(painter, Qt::blue, 4, {200, 200}, {300, 200});
                 drawLine(painter, Qt::blue, 4, {200, 200}, {245, 155});
             }));
}

QTEST_MAIN(tst_Pick)
#include "tst_Pick.moc"
