#include "SharingProbe.h"

#include "board/canvas/Canvas.h"

#include <QtGui/QMouseEvent>
#include <QtTest/QSignalSpy>

using namespace Board;

// A teacher, and a pupil with a page on the screen.
class tst_SharedCanvas : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void takesNothingThatSomebodyElseHolds();
    void removesNothingThatSomebodyElseHolds();
    void takesWhatIsHeldByOneWhoIsGone();
    void showsWhoDraws();
    void tellsWhereThePointerIs();
    void letsGoWithThePage();

private:
    void choose(const char *tool) { m_canvas->setTool(*findTool(QString::fromLatin1(tool))); }
    void mouse(QEvent::Type type, const QPointF &pos)
    {
        QMouseEvent event(type, pos, pos, pos, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(m_canvas.get(), &event);
    }
    void click(const QPointF &pos)
    {
        mouse(QEvent::MouseButtonPress, pos);
        mouse(QEvent::MouseButtonRelease, pos);
    }
    bool isBusy() { return m_pupil->document.author().hand() != nullptr; }
    void holdARectangle();

    std::unique_ptr<SharingProbe> m_teacher, m_pupil;
    std::unique_ptr<Canvas> m_canvas;
};

void tst_SharedCanvas::init()
{
    m_teacher = std::make_unique<SharingProbe>("Teacher");
    m_pupil = std::make_unique<SharingProbe>("Pupil");
    m_teacher->document.addPage(0);
    m_teacher->document.showPage(0);
    m_teacher->share();
    m_pupil->join(*m_teacher);
    m_canvas = std::make_unique<Canvas>(m_pupil->document);
    m_canvas->setColor(Qt::red);
    m_canvas->setInkWidth(4);
    m_canvas->resize(kSize);
    m_canvas->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_canvas.get(), kPatience));
    QTRY_COMPARE_WITH_TIMEOUT(m_teacher->sharing.people(), 1, kPatience);
    QTRY_COMPARE_WITH_TIMEOUT(m_pupil->sharing.people(), 1, kPatience);
}

void tst_SharedCanvas::cleanup()
{
    m_canvas.reset();
    m_pupil.reset();
    m_teacher.reset();
}

// From 50, 50 to 250, 180, with its handles.
void tst_SharedCanvas::holdARectangle()
{
    const auto before = m_pupil->objects();
    m_teacher->document.author().begin(lifeOf("rectangle"));
    drag(m_teacher->document.author(), {50, 50}, {250, 180});
    QTRY_COMPARE_WITH_TIMEOUT(m_pupil->objects(), before + 1, kPatience);
    const InkLesson::ObjectId id = m_pupil->document.page().items().back()->id;
    QTRY_COMPARE_WITH_TIMEOUT(m_pupil->sharing.others()->holderOf(id), 1, kPatience);
}

void tst_SharedCanvas::takesNothingThatSomebodyElseHolds()
{
    draw(m_pupil->document, "line", {30, 50}, {280, 50}, Qt::blue); // below
    QTRY_COMPARE_WITH_TIMEOUT(m_teacher->objects(), 1U, kPatience);
    holdARectangle();
    choose("pick");
    QSignalSpy held(m_canvas.get(), &Canvas::heldElsewhere);
    click({150, 50});
    QVERIFY(!isBusy());
    QCOMPARE(held.size(), 1);
    QCOMPARE(held[0][0].toInt(), 1);
    click({270, 50}); // beside it
    QVERIFY(isBusy());
    QCOMPARE(held.size(), 1);
    m_canvas->finish();

    m_teacher->document.author().finish();
    const InkLesson::ObjectId id = m_teacher->document.page().items()[1]->id;
    QTRY_COMPARE_WITH_TIMEOUT(m_pupil->sharing.others()->holderOf(id), 0, kPatience);
    click({150, 50});
    QVERIFY(isBusy());
    QCOMPARE(m_pupil->document.author().hand()->held, id);
    QCOMPARE(held.size(), 1);
}

void tst_SharedCanvas::removesNothingThatSomebodyElseHolds()
{
    holdARectangle();
    choose("remove");
    QSignalSpy held(m_canvas.get(), &Canvas::heldElsewhere);
    click({150, 50});
    QCOMPARE(m_pupil->objects(), 1U);
    QCOMPARE(held.size(), 1);
    m_teacher->document.author().finish();
    const InkLesson::ObjectId id = m_teacher->document.page().items()[0]->id;
    QTRY_COMPARE_WITH_TIMEOUT(m_pupil->sharing.others()->holderOf(id), 0, kPatience);
    click({150, 50});
    QCOMPARE(m_pupil->objects(), 0U);
    QTRY_COMPARE_WITH_TIMEOUT(m_teacher->objects(), 0U, kPatience);
}

// After five seconds: that somebody holds something is a courtesy.
void tst_SharedCanvas::takesWhatIsHeldByOneWhoIsGone()
{
    holdARectangle();
    QElapsedTimer sinceGone;
    sinceGone.start();
    m_teacher.reset();
    choose("pick");
    click({150, 50});
    QVERIFY(!isBusy());
    QTRY_COMPARE_WITH_TIMEOUT(m_pupil->sharing.people(), 0, kPatience);
    QVERIFY(sinceGone.elapsed() > 3500); // the last word was a second before at most
    click({150, 50});
    QVERIFY(isBusy());
}

// As a disc in their colour and the name beside it.
void tst_SharedCanvas::showsWhoDraws()
{
    const auto hasGreen = [this] {
        const QImage shown = m_canvas->grab().toImage();
        for (int y = 0; y < shown.height(); ++y) {
            for (int x = 0; x < shown.width(); ++x) {
                if (qGreen(shown.pixel(x, y)) > 200 && qRed(shown.pixel(x, y)) < 60)
                    return true;
            }
        }
        return false;
    };
    m_canvas->setOthers({{1, {"Teacher", {}, true, Qt::green}}});
    QVERIFY(!hasGreen());
    holdARectangle();
    QTRY_VERIFY_WITH_TIMEOUT(hasGreen(), kPatience);
    QVERIFY(m_pupil->seen() != m_canvas->grab().toImage()); // over the page, and no part of it
    m_canvas->setOthers({});
    QVERIFY(!hasGreen());
    m_canvas->setOthers({{1, {"Teacher", {}, true, Qt::green}}});
    QVERIFY(hasGreen());
    m_teacher->document.author().finish();
    QTRY_VERIFY_WITH_TIMEOUT(!hasGreen(), kPatience);
}

void tst_SharedCanvas::tellsWhereThePointerIs()
{
    connect(m_canvas.get(), &Canvas::pointed, this,
            [this](const std::optional<QPoint> &pt) { m_pupil->sharing.setPointer(pt); });
    const auto &presence = m_teacher->sharing.others()->all().begin()->second.presence;
    mouse(QEvent::MouseMove, {123, 45});
    QTRY_COMPARE_WITH_TIMEOUT(presence.pointer.value_or(QPoint()), QPoint(123, 45), kPatience);
    mouse(QEvent::MouseButtonPress, {60, 70});
    QTRY_COMPARE_WITH_TIMEOUT(presence.pointer.value_or(QPoint()), QPoint(60, 70), kPatience);
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(m_canvas.get(), &leave);
    QTRY_VERIFY_WITH_TIMEOUT(!presence.pointer, kPatience);
}

// In the midst of a drag.
void tst_SharedCanvas::letsGoWithThePage()
{
    choose("pencil");
    mouse(QEvent::MouseButtonPress, {20, 60});
    mouse(QEvent::MouseMove, {120, 60});
    QVERIFY(isBusy());
    m_teacher->document.removePage(0);
    QTRY_COMPARE_WITH_TIMEOUT(m_pupil->document.pageCount(), 1, kPatience);
    QTRY_COMPARE_WITH_TIMEOUT(m_pupil->document.current(), 0, kPatience);
    QVERIFY(!isBusy());
    mouse(QEvent::MouseMove, {220, 60});
    mouse(QEvent::MouseButtonRelease, {220, 60});
    QCOMPARE(m_pupil->objects(), 0U);
    QTRY_COMPARE_WITH_TIMEOUT(m_pupil->sharing.unsent(), 0, kPatience);
    m_teacher->document.undo();
    QTRY_COMPARE_WITH_TIMEOUT(m_teacher->document.page(0).items().size(), 1U, kPatience);
    QVERIFY(isRed(m_teacher->document.page(0), {100, 60}));
    QVERIFY(!isRed(m_teacher->document.page(0), {180, 60}));
}

QTEST_MAIN(tst_SharedCanvas)
#include "tst_SharedCanvas.moc"
