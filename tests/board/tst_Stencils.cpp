#include "Paper.h"
#include "Patience.h"
#include "board/canvas/Canvas.h"

#include <QtGui/QMouseEvent>
#include <QtTest/QtTest>

using namespace Board;

namespace {

const QSize kSize(400, 300);

// The smallest rectangle with all that is painted in red.
QRect redArea(const QImage &image)
{
    QRect area;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor color = image.pixelColor(x, y);
            if (color.red() == 255 && color.green() < 100)
                area |= QRect(x, y, 1, 1);
        }
    }
    return area;
}

bool isNear(const QRect &area, const QRect &expected)
{
    constexpr int kTolerance = 6; // some outlines begin beside the edge of their box, and all have a width
    return std::abs(area.left() - expected.left()) <= kTolerance &&
           std::abs(area.top() - expected.top()) <= kTolerance &&
           std::abs(area.right() - expected.right()) <= kTolerance &&
           std::abs(area.bottom() - expected.bottom()) <= kTolerance;
}

} // namespace

// Every stencil, drawn on the canvas with the mouse.
class tst_Stencils : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void leavesInkInItsBox_data() { eachStencil(); }
    void leavesInkInItsBox();
    void isStretchedByAHandle_data() { eachStencil(); }
    void isStretchedByAHandle();
    void showsOnlyTheFrameOfAHeart();

private:
    static void eachStencil();
    void choose(const QString &name) { m_canvas->setTool(*findTool(name)); }
    void drag(const QPoint &from, const QPoint &to);
    void press(const QPoint &at) { drag(at, at); }
    const InkLesson::Page &page() { return m_canvas->page(); }
    bool isBusy() const { return m_document->author().hand() != nullptr; }
    bool isForming() const { return isBusy() && m_document->author().hand()->isForming(); }
    bool canUndo() const { return m_document->author().canUndo(); }
    CInkGraph *object() const { return m_document->author().object(); }

    std::unique_ptr<Document> m_document;
    std::unique_ptr<Canvas> m_canvas;
};

void tst_Stencils::init()
{
    m_canvas.reset();
    m_document = std::make_unique<Document>(kSize);
    m_canvas = std::make_unique<Canvas>(*m_document);
    m_canvas->setColor(Qt::red);
    m_canvas->setInkWidth(3);
    m_canvas->resize(kSize);
    m_canvas->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_canvas.get(), kPatience));
}

void tst_Stencils::eachStencil()
{
    QTest::addColumn<QString>("name");
    int count = 0;
    for (const Tool &tool : tools()) {
        if (groupTitle(tool) != QLatin1String("Stencils") || tool.iconWhileEdited)
            continue;
        QTest::newRow(tool.name) << QString::fromLatin1(tool.name);
        ++count;
    }
    QCOMPARE(count, 17);
}

void tst_Stencils::drag(const QPoint &from, const QPoint &to)
{
    QTest::mousePress(m_canvas.get(), Qt::LeftButton, Qt::NoModifier, from);
    for (const QPoint &pos : {(from + to) / 2, to}) {
        QMouseEvent event(QEvent::MouseMove, pos, Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(m_canvas.get(), &event);
    }
    QTest::mouseRelease(m_canvas.get(), Qt::LeftButton, Qt::NoModifier, to);
}

void tst_Stencils::leavesInkInItsBox()
{
    QFETCH(QString, name);
    choose(name);
    drag({100, 60}, {200, 160});
    QVERIFY(isBusy());
    QCOMPARE(page().picture(), blankPaper(kSize));

    press({390, 290});
    QVERIFY(!isBusy());
    const QRect ink = redArea(page().picture());
    QVERIFY2(isNear(ink, QRect(QPoint(100, 60), QPoint(200, 160))),
             qPrintable(QStringLiteral("%1,%2 %3x%4").arg(ink.x()).arg(ink.y()).arg(ink.width()).arg(ink.height())));
    QCOMPARE(page().surface(), page().picture());

    m_canvas->undo();
    QCOMPARE(page().picture(), blankPaper(kSize));
}

// The frame lies 10 pixels outside the outline. Its lower right corner near (210,170), dragged by (120,60), stretches
// the frame (90,50)-(210,170) to (90,50)-(330,230): 2 and 1.5 times. So the box becomes (110,65)-(310,215).
void tst_Stencils::isStretchedByAHandle()
{
    QFETCH(QString, name);
    choose(name);
    drag({100, 60}, {200, 160});
    drag({210, 170}, {330, 230});
    press({390, 290});
    const QRect ink = redArea(page().picture());
    QVERIFY2(isNear(ink, QRect(QPoint(110, 65), QPoint(310, 215))),
             qPrintable(QStringLiteral("%1,%2 %3x%4").arg(ink.x()).arg(ink.y()).arg(ink.width()).arg(ink.height())));
}

void tst_Stencils::showsOnlyTheFrameOfAHeart()
{
    choose(QStringLiteral("heart"));
    drag({100, 60}, {200, 160});
    QVERIFY(isBusy());
    QVERIFY(page().surface() != blankPaper(kSize));
    QVERIFY(redArea(page().surface()).isEmpty());
    press({390, 290});
    QVERIFY(!isBusy());
    QVERIFY(!canUndo()); // what leaves no ink is forgotten
    QCOMPARE(page().surface(), blankPaper(kSize));
}

QTEST_MAIN(tst_Stencils)
#include "tst_Stencils.moc"
