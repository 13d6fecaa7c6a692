#include "DocumentProbe.h"

#include <QtCore/QTemporaryDir>

using namespace Board;

class tst_Document : public QObject
{
    Q_OBJECT

private slots:
    void startsWithABlankPage();
    void undoesAndRedoesEveryStep();
    void goesOnAfterOpening();
    void keepsTheLastPage();
    void keepsThePixelsOfThePagesThatWereShownLast();
    void undoesOnAnotherPage();
    void tellsThatAnUndoMovesTheShownPage();
    void takesASuccessorBackWithItsObject();
    void countsWhatTheHandDoesAtOnce();
    void undoesOnAPageThatHasGrown();

private:
    QString path(const char *name) const { return m_folder.filePath(QString::fromLatin1(name)); }

    QTemporaryDir m_folder;
};

void tst_Document::startsWithABlankPage()
{
    Document document(kSize);
    QCOMPARE(document.pageCount(), 1);
    QCOMPARE(document.current(), 0);
    QVERIFY(isBlank(document.page()));
    QVERIFY(document.isSaved());
    QVERIFY(document.lesson().log().empty());
    document.undo();
    document.redo();
    QVERIFY(document.isSaved());
    QCOMPARE(document.save(path("blank.inkboard")), QString());
    QCOMPARE(contents(path("blank.inkboard")), QByteArray("{\"inkboard\":2,\"size\":[400,300]}\n"));
}

void tst_Document::undoesAndRedoesEveryStep()
{
    Document document(kSize);
    std::vector<std::vector<QImage>> states;
    const auto state = [&] {
        std::vector<QImage> images;
        for (int i = 0; i < document.pageCount(); ++i) {
            images.push_back(document.page(i).picture().copy());
            images.push_back(document.page(i).ink().copy());
        }
        return images;
    };
    holdLesson(document);
    const int steps = document.stepsToUndo();
    QVERIFY(steps > 40);
    states.push_back(state());
    while (document.stepsToUndo() > 0) {
        document.undo();
        states.push_back(state());
    }
    QCOMPARE(int(states.size()), steps + 1);
    QCOMPARE(document.pageCount(), 1);
    QCOMPARE(document.page().ink(), Document(document.page().rect().size()).page().ink());
    for (int i = steps - 1; i >= 0; --i) {
        document.redo();
        QCOMPARE(state(), states[std::size_t(i)]);
    }
    QVERIFY(!document.author().canRedo());
}

void tst_Document::goesOnAfterOpening()
{
    Document document(kSize);
    holdLesson(document);
    QCOMPARE(document.save(path("lesson.inkboard")), QString());
    Document opened(kSize);
    QCOMPARE(opened.open(path("lesson.inkboard")), QString());
    for (Document *one : {&document, &opened}) {
        one->showPage(0);
        draw(*one, "star-5", {100, 100}, {200, 180});
        one->undo();
        one->undo();
        draw(*one, "diamond", {10, 10}, {80, 90});
        one->addPage(1);
        draw(*one, "line", {10, 10}, {80, 90});
    }
    compareDocuments(opened, document);
    QCOMPARE(opened.save(path("opened.inkboard")), QString());
    QCOMPARE(document.save(path("went on.inkboard")), QString());
    QCOMPARE(timeless(contents(path("opened.inkboard"))), timeless(contents(path("went on.inkboard"))));
}

void tst_Document::keepsTheLastPage()
{
    Document document(kSize);
    document.removePage(0);
    document.movePage(0, 1);
    document.addPage(2);
    document.showPage(1);
    QCOMPARE(document.pageCount(), 1);
    QVERIFY(document.isSaved());
}

void tst_Document::keepsThePixelsOfThePagesThatWereShownLast()
{
    Document document(kSize);
    draw(document, "line", {10, 10}, {80, 90});
    const QImage first = document.page().picture().copy();
    for (int page = 1; page < 4; ++page) {
        document.addPage(page);
        QVERIFY(isBlank(document.page()));
    }
    document.showPage(2);
    document.showPage(1);
    document.showPage(3);
    for (int page = 0; page < 4; ++page)
        QCOMPARE(document.page(page).isPainted(), page != 0);
    QVERIFY(document.page(0).packedBytes() > 0);
    document.showPage(0);
    QCOMPARE(document.page().picture(), first);
    QVERIFY(!document.page(2).isPainted());
    QVERIFY(document.page(1).isPainted());
    QTRY_VERIFY(document.page(1).packedBytes() > 0); // while nobody waits
    QVERIFY(document.page(1).isPainted());
    draw(document, "line", {10, 90}, {80, 10});
    QCOMPARE(document.page().packedBytes(), std::size_t(0));
}

void tst_Document::undoesOnAnotherPage()
{
    Document document(kSize);
    document.addPage(1);
    draw(document, "line", {10, 10}, {80, 90});
    document.showPage(0);
    QVERIFY(isBlank(document.page()));
    document.undo();
    QCOMPARE(document.current(), 1);
    QVERIFY(isBlank(document.page()));
    document.undo();
    QCOMPARE(document.pageCount(), 1);
    document.redo();
    QCOMPARE(document.current(), 1); // the page that is there again
    document.redo();
    QCOMPARE(document.current(), 1);
    QCOMPARE(document.page().picture().pixel(45, 50), 0xFFFF0000U);
}

// The page that is shown has another place then, which the strip is told of.
void tst_Document::tellsThatAnUndoMovesTheShownPage()
{
    Document document(kSize);
    document.addPage(1);
    document.movePage(1, 0);
    const InkLesson::PageId shown = document.author().page();
    QCOMPARE(document.current(), 0);
    QSignalSpy turned(&document, &Document::currentChanged);
    document.undo();
    QCOMPARE(document.author().page(), shown);
    QCOMPARE(document.current(), 1);
    QCOMPARE(turned.count(), 1);
}

// The pixels that were lifted and moved at once, and then moved again.
void tst_Document::takesASuccessorBackWithItsObject()
{
    Document document(kSize);
    draw(document, "line", {60, 100}, {140, 100});
    const QImage line = document.page().picture().copy();
    document.author().begin(lifeOf("select"));
    drag(document.author(), {40, 80}, {160, 120});
    drag(document.author(), {100, 110}, {100, 190});
    drag(document.author(), {100, 190}, {100, 210});
    document.author().finish();
    QCOMPARE(document.stepsToUndo(), 3);
    QCOMPARE(document.page().items().size(), std::size_t(3));
    QVERIFY(!isRed(document.page(), {100, 100}));
    QVERIFY(isRed(document.page(), {100, 200}));
    const QImage moved = document.page().picture().copy();
    document.undo();
    QVERIFY(isRed(document.page(), {100, 180}));
    QCOMPARE(document.page().items().size(), std::size_t(3));
    document.undo();
    QCOMPARE(document.page().picture(), line);
    QCOMPARE(document.page().items().size(), std::size_t(1));
    document.redo();
    QCOMPARE(document.page().items().size(), std::size_t(3));
    document.redo();
    QCOMPARE(document.page().picture(), moved);
    QCOMPARE(document.save(path("moved.inkboard")), QString());
    Document opened(kSize);
    QCOMPARE(opened.open(path("moved.inkboard")), QString());
    compareDocuments(opened, document);
    opened.undo();
    opened.undo();
    QCOMPARE(opened.page().picture(), line);
    QCOMPARE(opened.page().items().size(), std::size_t(1));
}

// A drag, a colour, a width: each is a step of its own, while the object stays in the hand.
void tst_Document::countsWhatTheHandDoesAtOnce()
{
    Document document(kSize);
    document.author().begin(lifeOf("rectangle"));
    drag(document.author(), {50, 50}, {150, 150});
    QCOMPARE(document.stepsToUndo(), 1);
    document.author().act(InkLesson::ColorAct{Qt::blue});
    QCOMPARE(document.stepsToUndo(), 2);
    document.author().act(InkLesson::WidthAct{12});
    QCOMPARE(document.stepsToUndo(), 3);
    document.author().act(InkLesson::WidthAct{12}); // as it is
    QCOMPARE(document.stepsToUndo(), 3);
    drag(document.author(), {50, 100}, {90, 100}); // by its side
    QCOMPARE(document.stepsToUndo(), 4);
    document.author().finish();
    QCOMPARE(document.stepsToUndo(), 4);

    document.undo();
    QCOMPARE(document.page().picture().pixel(55, 100), 0xFF0000FFU);
    document.undo();
    QCOMPARE(document.page().picture().pixel(55, 100), 0xFFFFFFFFU);
    QCOMPARE(document.page().picture().pixel(50, 100), 0xFF0000FFU);
    document.undo();
    QCOMPARE(document.page().picture().pixel(50, 100), 0xFFFF0000U);
    document.undo();
    QVERIFY(isBlank(document.page()));
}

void tst_Document::undoesOnAPageThatHasGrown()
{
    Document document(kSize);
    draw(document, "line", {10, 10}, {80, 90});
    draw(document, "rectangle", {100, 100}, {200, 200});
    document.author().grow({500, 400});
    const QImage both = document.page().picture().copy();
    document.undo();
    QCOMPARE(document.page().picture().pixel(150, 100), 0xFFFFFFFFU);
    QCOMPARE(document.page().picture().pixel(45, 50), 0xFFFF0000U);
    document.redo();
    QCOMPARE(document.page().picture(), both);
}

QTEST_MAIN(tst_Document)
#include "tst_Document.moc"
