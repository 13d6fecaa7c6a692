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

private:
    TextEditor *textEditor();
    void type(const char *text) { QTest::keyClicks(textEditor()->findChild<QTextEdit *>(), QString::fromUtf8(text)); }
};

// Null once the text is let go.
TextEditor *tst_TextEditor::textEditor()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return m_canvas->findChild<TextEditor *>();
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

QTEST_MAIN(tst_TextEditor)
#include "tst_TextEditor.moc"
