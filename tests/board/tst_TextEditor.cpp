#include "CanvasProbe.h"
#include "Paper.h"
#include "board/editors/TextEditor.h"

#include <QtWidgets/QSpinBox>
#include <QtWidgets/QTextEdit>

using namespace Board;

namespace {

// Of all pixels that are not white.
QRect inkBounds(const QImage &picture)
{
    QRect bounds;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixel(x, y) != 0xFFFFFFFF)
                bounds |= QRect(x, y, 1, 1);
        }
    }
    return bounds;
}

} // namespace

class tst_TextEditor : public QObject, private CanvasProbe
{
    Q_OBJECT

private slots:
    void init() { showCanvas(); }
    void cleanup() { m_canvas.reset(); }

    void typesTextOverItsFrame();
    void movesAndStretchesTheTextsFrame();
    void aPressOutsideLetsTextGo();
    void anotherToolLetsTextGo();
    void setsSizeAndColourOfText();
    void forgetsEmptyText();
    void enterInTheSizeBoxKeepsTheEditor();
    void deletesTextWithItsEditor();
    void growsWithItsText();
    void movesUpWhereThePageEnds();
    void growsNoHigherThanThePage();
    void growsWhenItIsMadeNarrower();
    void opensAFrameOnATap_data();
    void opensAFrameOnATap();

private:
    TextEditor *textEditor();
    void typeLines(int count); // of one letter each
    void type(const char *text) { QTest::keyClicks(textEditor()->findChild<QTextEdit *>(), QString::fromUtf8(text)); }
};

// Null once the text is let go.
TextEditor *tst_TextEditor::textEditor()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return m_canvas->findChild<TextEditor *>();
}

void tst_TextEditor::typeLines(int count)
{
    type("H");
    for (int i = 1; i < count; ++i) {
        QTest::keyClick(textEditor()->findChild<QTextEdit *>(), Qt::Key_Return);
        type("H");
    }
}

// The frame (50,60)-(250,200) has 16 rows for its corner below the text, which begins 5 pixels inside.
void tst_TextEditor::typesTextOverItsFrame()
{
    choose("text");
    drag({50, 60}, {250, 200});
    QVERIFY(textEditor());
    QCOMPARE(textEditor()->geometry(), QRect(50, 60, 201, 125));
    type("HH");
    QCOMPARE(m_canvas->page().picture(), blankPaper(kSize));

    m_canvas->finish();
    QVERIFY(!textEditor());
    const QImage picture = m_canvas->page().picture().copy();
    QCOMPARE(m_canvas->page().surface(), picture);
    const QRect one = inkBounds(picture);
    QVERIFY(QRect(55, 65, 60, 40).contains(one));
    QVERIFY(one.height() >= 12 && one.height() <= 24);
    QVERIFY(canUndo());
    m_canvas->undo();
    QCOMPARE(m_canvas->page().picture(), blankPaper(kSize));
    QVERIFY(!canUndo());
}

// By (30,20) with the tab at (128,200)-(172,223), then by its corner to (240,200).
void tst_TextEditor::movesAndStretchesTheTextsFrame()
{
    choose("text");
    drag({50, 60}, {250, 200});
    drag({150, 210}, {180, 230});
    QCOMPARE(textEditor()->geometry(), QRect(80, 80, 201, 125));
    drag({270, 210}, {240, 200});
    QCOMPARE(textEditor()->geometry(), QRect(80, 80, 161, 105));
    type("WWWW WWWW WWWW"); // more than fits into 151 pixels
    m_canvas->finish();
    const QRect ink = inkBounds(m_canvas->page().picture());
    QVERIFY(QRect(85, 85, 151, 95).contains(ink));
    QVERIFY(ink.height() > 40);
}

void tst_TextEditor::aPressOutsideLetsTextGo()
{
    choose("text");
    drag({50, 60}, {250, 200});
    type("H");
    drag({300, 250}, {380, 290});
    QVERIFY(!textEditor());
    QVERIFY(!isBusy());
    QVERIFY(QRect(55, 65, 191, 115).contains(inkBounds(m_canvas->page().picture())));
}

void tst_TextEditor::anotherToolLetsTextGo()
{
    choose("text");
    drag({50, 60}, {250, 200});
    type("H");
    choose("line");
    QVERIFY(!textEditor());
    QVERIFY(!inkBounds(m_canvas->page().picture()).isEmpty());
    drag({50, 250}, {150, 250});
    QVERIFY(!textEditor());
}

void tst_TextEditor::setsSizeAndColourOfText()
{
    choose("text");
    drag({50, 60}, {350, 250});
    type("H");
    m_canvas->findChild<QSpinBox *>()->setValue(96);
    m_canvas->setColor(Qt::blue);
    m_canvas->finish();
    const QRect ink = inkBounds(m_canvas->page().picture());
    QVERIFY(ink.height() >= 60 && ink.height() <= 96);
    bool blue = false;
    for (int x = ink.left(); x <= ink.right(); ++x)
        blue = blue || m_canvas->page().picture().pixel(x, ink.center().y()) == 0xFF0000FF;
    QVERIFY(blue);
}

void tst_TextEditor::forgetsEmptyText()
{
    choose("text");
    drag({50, 60}, {250, 200});
    type("  ");
    m_canvas->finish();
    QVERIFY(!textEditor());
    QVERIFY(!canUndo());
    QCOMPARE(m_canvas->page().picture(), blankPaper(kSize));
    QCOMPARE(m_canvas->page().surface(), blankPaper(kSize));
}

void tst_TextEditor::enterInTheSizeBoxKeepsTheEditor()
{
    choose("text");
    drag({50, 60}, {250, 200});
    type("H");
    QTest::keyClick(m_canvas->findChild<QSpinBox *>(), Qt::Key_Return);
    QVERIFY(textEditor());
    QVERIFY(isBusy());
}

void tst_TextEditor::deletesTextWithItsEditor()
{
    choose("text");
    drag({50, 60}, {250, 200});
    type("H");
    m_canvas->discard();
    QVERIFY(!textEditor());
    QVERIFY(!isBusy());
    QVERIFY(!canUndo());
    QCOMPARE(m_canvas->page().surface(), blankPaper(kSize));
    QVERIFY(m_canvas->hasFocus());
}

// One line fits into 95 pixels, six lines of at least 24 do not.
void tst_TextEditor::growsWithItsText()
{
    choose("text");
    drag({50, 60}, {250, 180});
    QCOMPARE(textEditor()->geometry(), QRect(50, 60, 201, 105));
    type("H");
    QCOMPARE(textEditor()->geometry(), QRect(50, 60, 201, 105));
    QTest::keyClick(textEditor()->findChild<QTextEdit *>(), Qt::Key_Return);
    typeLines(5);
    const QRect grown = textEditor()->geometry();
    QCOMPARE(grown.topLeft(), QPoint(50, 60));
    QCOMPARE(grown.width(), 201);
    QVERIFY2(grown.height() >= 6 * 24 + 10 && grown.height() <= 6 * 34 + 10,
             qPrintable(QString::number(grown.height())));
    m_canvas->finish();
    const QRect ink = inkBounds(m_canvas->page().picture());
    QVERIFY2(ink.height() > 5 * 24, qPrintable(QString::number(ink.height())));
    m_canvas->undo(); // one step with all of it
    QVERIFY(!canUndo());
}

void tst_TextEditor::movesUpWhereThePageEnds()
{
    choose("text");
    drag({50, 170}, {250, 290});
    typeLines(6);
    const QRect grown = textEditor()->geometry();
    QCOMPARE(grown.bottom(), 299 - 16); // the page's last row, and the corner's
    QVERIFY2(grown.top() < 299 - 16 - 6 * 24, qPrintable(QString::number(grown.top())));
    m_canvas->finish();
    QVERIFY(inkBounds(m_canvas->page().picture()).height() > 5 * 24);
}

void tst_TextEditor::growsNoHigherThanThePage()
{
    choose("text");
    drag({50, 60}, {250, 180});
    typeLines(30);
    QCOMPARE(textEditor()->geometry(), QRect(50, 0, 201, 284));
}

void tst_TextEditor::growsWhenItIsMadeNarrower()
{
    choose("text");
    drag({50, 60}, {350, 180});
    type("WWWW WWWW WWWW WWWW");
    QCOMPARE(textEditor()->geometry(), QRect(50, 60, 301, 105));
    drag({340, 170}, {140, 180});
    QCOMPARE(textEditor()->geometry().width(), 91);
    QVERIFY(textEditor()->geometry().height() > 105);
}

void tst_TextEditor::opensAFrameOnATap_data()
{
    QTest::addColumn<QPoint>("press");
    QTest::addColumn<QPoint>("release");
    QTest::addColumn<QRect>("frame"); // with the 16 rows for the corner below the text

    QTest::newRow("amid") << QPoint(20, 120) << QPoint(20, 120) << QRect(20, 120, 301, 81 - 16);
    QTest::newRow("slips") << QPoint(20, 120) << QPoint(23, 123) << QRect(20, 120, 301, 81 - 16);
    QTest::newRow("at the right") << QPoint(390, 120) << QPoint(390, 120) << QRect(99, 120, 301, 81 - 16);
    QTest::newRow("at the bottom") << QPoint(20, 290) << QPoint(20, 290) << QRect(20, 219, 301, 81 - 16);
    QTest::newRow("a small drag") << QPoint(20, 120) << QPoint(24, 123) << QRect();
}

void tst_TextEditor::opensAFrameOnATap()
{
    QFETCH(QPoint, press);
    QFETCH(QPoint, release);
    QFETCH(QRect, frame);
    choose("text");
    mouse(QEvent::MouseButtonPress, press);
    mouse(QEvent::MouseButtonRelease, release);
    QVERIFY(textEditor());
    if (frame.isNull())
        QVERIFY(textEditor()->geometry().width() < 200);
    else
        QCOMPARE(textEditor()->geometry(), frame);
}

QTEST_MAIN(tst_TextEditor)
#include "tst_TextEditor.moc"
