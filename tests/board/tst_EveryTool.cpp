#include "Paper.h"
#include "board/canvas/Canvas.h"
#include "board/window/MainWindow.h"

#include "CInkGraph.h"
#include "Patience.h"

#include <QtTest/QtTest>
#include <QtWidgets/QAction>
#include <QtWidgets/QApplication>
#include <QtWidgets/QTextEdit>

using namespace Board;

// A life with each tool in the window: drawn with the mouse, edited, let go, picked and changed, undone and redone,
// saved and opened.
class tst_EveryTool : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_window.reset(); }

    void drawsEditsUndoesAndSaves_data();
    void drawsEditsUndoesAndSaves();

private:
    Canvas &canvas() { return m_window->canvas(); }
    const InkLesson::Page &page() { return m_window->document().page(); }
    bool isBusy() { return m_window->document().author().hand() != nullptr; }
    QImage picture() { return page().picture().copy(); }
    void trigger(const char *name) { m_window->findChild<QAction *>(QLatin1String(name))->trigger(); }
    void mouse(QEvent::Type type, const QPoint &pos);
    void drag(const Gesture &gesture);
    QPoint pixelThatDiffers(const QImage &from);

    std::unique_ptr<MainWindow> m_window;
    const QTemporaryDir m_folder;
};

void tst_EveryTool::init()
{
    m_window = std::make_unique<MainWindow>(QSize(600, 400));
    m_window->setAsksBeforeClosing(false);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get(), kPatience));
    canvas().setColor(Qt::red);
    canvas().setInkWidth(10);
}

void tst_EveryTool::mouse(QEvent::Type type, const QPoint &pos)
{
    QMouseEvent event(type, pos, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&canvas(), &event);
}

void tst_EveryTool::drag(const Gesture &gesture)
{
    mouse(QEvent::MouseButtonPress, gesture.front());
    for (const QPoint &pos : gesture)
        mouse(QEvent::MouseMove, pos);
    mouse(QEvent::MouseButtonRelease, gesture.back());
}

// The first one from the top.
QPoint tst_EveryTool::pixelThatDiffers(const QImage &from)
{
    const QImage now = picture();
    for (int y = 0; y < now.height(); ++y) {
        for (int x = 0; x < now.width(); ++x) {
            if (now.pixel(x, y) != from.pixel(x, y))
                return {x, y};
        }
    }
    return {-1, -1};
}

void tst_EveryTool::drawsEditsUndoesAndSaves_data()
{
    QTest::addColumn<QString>("name");
    for (const Tool &tool : tools()) {
        // These two leave no mark once they are let go.
        const bool leavesMark = qstrcmp(tool.name, "water-color-pen") != 0 && qstrcmp(tool.name, "heart") != 0;
        if (tool.use == Use::Draws && leavesMark)
            QTest::newRow(tool.name) << QString::fromLatin1(tool.name);
    }
}

void tst_EveryTool::drawsEditsUndoesAndSaves()
{
    QFETCH(QString, name);
    const Tool *tool = findTool(name);
    constexpr int kScale = 6; // of the sample for the icon
    const QPoint origin(100, 80);

    // Something to erase and to select.
    m_window->chooseTool(*findTool(QStringLiteral("pencil")));
    canvas().setInkWidth(80);
    drag({{120, 170}, {200, 170}, {280, 170}});
    canvas().setInkWidth(10);
    canvas().setColor(Qt::darkGreen);
    const QImage before = picture();
    QCOMPARE(before.pixel(200, 170), 0xFFFF0000);
    QCOMPARE(m_window->document().stepsToUndo(), 1);

    m_window->chooseTool(*tool);
    for (const Gesture &sample : tool->sample) {
        Gesture gesture;
        for (const QPoint &pt : sample)
            gesture.push_back(origin + pt * kScale);
        drag(gesture);
    }
    if (tool->sample.empty()) // a frame or a press
        drag({{150, 120}, {250, 220}});
    if (auto *entry = canvas().findChild<QTextEdit *>())
        QTest::keyClicks(entry, QStringLiteral("Text"));
    if (tool->kind->hasHandles || tool->kind->lift) { // moves it
        QVERIFY(isBusy());
        const QPoint middle =
            QPolygonF(m_window->document().author().object()->m_graphData).boundingRect().center().toPoint();
        QCOMPARE(m_window->document().author().object()->AroundHotPts(middle), MT_MOVE);
        drag({middle, middle + QPoint(20, 10), middle + QPoint(40, 20)});
        QCOMPARE(QPolygonF(m_window->document().author().object()->m_graphData).boundingRect().center().toPoint(),
                 middle + QPoint(40, 20));
    }
    trigger("finish");
    QVERIFY(!isBusy());
    const QImage drawn = picture();
    const QPoint inked = pixelThatDiffers(before);
    QVERIFY(inked.x() >= 0);
    const int steps = m_window->document().stepsToUndo();
    QCOMPARE(steps, tool->kind->hasHandles ? 3 : 2); // what is lifted and moved is one

    QImage changed = drawn;
    if (tool->kind->hasHandles) {
        trigger("pick");
        drag({inked, inked});
        QVERIFY(isBusy());
        canvas().setColor(Qt::blue);
        trigger("finish");
        changed = picture();
        QCOMPARE(pixelThatDiffers(drawn), inked);
        trigger("undo");
        QCOMPARE(picture(), drawn);
    }
    if (tool->kind->hasHandles) { // the move
        trigger("undo");
        QVERIFY(picture() != drawn);
        QVERIFY(picture() != before);
    }
    trigger("undo");
    QCOMPARE(picture(), before);
    for (int step = 1; step < steps; ++step)
        trigger("redo");
    QCOMPARE(picture(), drawn);
    if (tool->kind->hasHandles)
        trigger("redo");
    QCOMPARE(picture(), changed);

    const QString file = m_folder.filePath(name + ".inkboard");
    QCOMPARE(m_window->document().save(file), QString());
    Document opened({8, 8});
    QCOMPARE(opened.open(file), QString());
    QCOMPARE(opened.page().picture(), changed);
    QCOMPARE(opened.page().ink(), page().ink());
}

QTEST_MAIN(tst_EveryTool)
#include "tst_EveryTool.moc"
