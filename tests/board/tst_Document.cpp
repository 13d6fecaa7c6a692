#include "Document.h"
#include "PageProbe.h"

#include <QtCore/QTemporaryDir>
#include <QtTest/QtTest>

#include <csignal>
#include <sys/resource.h>

using namespace Board;

namespace {

Life lifeOf(const char *tool, const QColor &color = Qt::red, int width = 4)
{
    return {QString::fromLatin1(tool), {color, width}, kSize};
}

void draw(Document &document, const char *tool, const QPoint &from, const QPoint &to, const QColor &color = Qt::red)
{
    const Life life = lifeOf(tool, color);
    document.page().begin(life, createObject(life), Page::Reach::Reported, InkLesson::findTool(life.tool)->lift);
    drag(document.page(), from, to);
    document.page().finish();
}

// The line of a red line that is drawn, with what else its record holds.
QByteArray lineRecord(int id, const QByteArray &more)
{
    return "{\"do\":\"draw\",\"id\":" + QByteArray::number(id) +
           ",\"life\":{\"acts\":[[1,10,10],[5,80,90],[2,80,90],\"finish\"],\"canvas\":[400,300],"
           "\"color\":\"#ffff0000\",\"tool\":\"line\",\"width\":4}," +
           more + "}\n";
}

QImage greenPicture()
{
    QImage picture(40, 20, QImage::Format_ARGB32);
    picture.fill(QColor(0, 255, 0, 120));
    return picture;
}

// Everything that there is, on three pages.
void holdLesson(Document &document)
{
    for (const InkLesson::Tool &tool : InkLesson::tools())
        draw(document, tool.name, {30, 40}, {200, 160}, QColor(200, 30, 60, 120));
    Life picture{kPictureTool};
    picture.canvas = kSize;
    picture.picture = exactImage(greenPicture());
    picture.position = {250, 40};
    document.page().insert(picture);
    drag(document.page(), {260, 50}, {280, 90});
    document.page().finish();
    document.addPage(1);
    document.page().setPaper({Paper::Kind::Squared, {}});
    draw(document, "rectangle", {50, 50}, {150, 120});
    draw(document, "ellipse", {80, 60}, {250, 200}, Qt::blue);
    document.page().reorder(1, 1);
    document.page().duplicate(2, {30, 30});
    document.page().remove(2);
    document.undo();
    document.undo();
    document.redo();
    document.addPage(2);
    document.page().setPaper({Paper::Kind::Picture, exactImage(greenPicture())});
    draw(document, "pencil", {10, 10}, {300, 200});
    document.page().clear();
    draw(document, "fill", {100, 100}, {100, 100});
    document.page().grow({500, 350});
    draw(document, "text", {60, 60}, {200, 200});
    document.movePage(2, 0);
    document.addPage(0);
    document.removePage(0);
}

void compareDocuments(Document &actual, Document &expected)
{
    QCOMPARE(actual.pageCount(), expected.pageCount());
    QCOMPARE(actual.undoStack().index(), expected.undoStack().index());
    for (int i = 0; i < actual.pageCount(); ++i) {
        QCOMPARE(actual.page(i).picture(), expected.page(i).picture());
        QCOMPARE(actual.page(i).ink(), expected.page(i).ink());
        QCOMPARE(actual.page(i).surface(), expected.page(i).surface());
        QCOMPARE(actual.page(i).items().size(), expected.page(i).items().size());
    }
}

QByteArray contents(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void write(const QString &fileName, const QByteArray &bytes)
{
    QFile file(fileName);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), qint64(bytes.size()));
}

} // namespace

class tst_Document : public QObject
{
    Q_OBJECT

private slots:
    void startsWithABlankPage();
    void undoesAndRedoesEveryStep();
    void playsTheSamePixelsFromAFile();
    void keepsItsDensity();
    void goesOnAfterOpening();
    void keepsTheLastPage();
    void undoesOnAnotherPage();
    void takesASuccessorBackWithItsObject();
    void undoesWithoutKeptPixels();
    void savesOnlyChanges();
    void keepsAJournalOfEveryStep();
    void keepsNoJournalOfWhatIsSaved();
    void findsAbandonedJournals();
    void recoversAllButACutLine();
    void refusesAFile_data();
    void refusesAFile();
    void readsUpToTheFirstBadLine();
    void readsNoObjectOfANumberWithoutNext();
    void readsNoSuccessorOfNothing_data();
    void readsNoSuccessorOfNothing();
    void leavesAFileThatAnotherChanged();
    void saysWhyItCannotSave();
    void saysThatTheJournalCannotBeWritten();
    void writesWhatAFullDiskDidNotTake();

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
    QCOMPARE(document.log().lines().size(), std::size_t(1));
    QCOMPARE(document.log().lines().front(), QByteArray(R"({"inkboard":1,"size":[400,300]})"));
    document.undo();
    document.redo();
    QVERIFY(document.isSaved());
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
    const int steps = document.undoStack().index();
    QVERIFY(steps > 40);
    states.push_back(state());
    while (document.undoStack().canUndo()) {
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
    QVERIFY(!document.undoStack().canRedo());
}

void tst_Document::playsTheSamePixelsFromAFile()
{
    Document document(kSize);
    holdLesson(document);
    QCOMPARE(document.save(path("lesson.inkboard")), QString());
    QVERIFY(document.isSaved());

    Document opened(QSize(10, 10));
    QCOMPARE(opened.open(path("lesson.inkboard")), QString());
    compareDocuments(opened, document);
    QVERIFY(opened.isSaved());
    QCOMPARE(opened.log().lines(), document.log().lines());

    QCOMPARE(opened.save(path("again.inkboard")), QString());
    QCOMPARE(contents(path("again.inkboard")), contents(path("lesson.inkboard")));
    while (document.undoStack().canUndo()) {
        document.undo();
        opened.undo();
    }
    compareDocuments(opened, document);
}

// Ruled lines are 32 pixels of a plain screen apart, which is 48.
void tst_Document::keepsItsDensity()
{
    Document document(kSize, 1.5);
    QCOMPARE(document.log().lines().front(), QByteArray(R"({"density":1.5,"inkboard":1,"size":[400,300]})"));
    document.page().setPaper({Paper::Kind::Ruled, {}});
    draw(document, "rectangle", {50, 60}, {150, 120});
    const QImage picture = document.page().picture().copy();
    QCOMPARE(picture.pixel(10, 32), 0xFFFFFFFFU);
    QCOMPARE(picture.pixel(10, 48), 0xFFCBD8EAU);
    QCOMPARE(picture.pixel(10, 49), 0xFFFFFFFFU);
    QCOMPARE(picture.pixel(10, 288), 0xFFCBD8EAU);
    QCOMPARE(document.save(path("dense.inkboard")), QString());

    Document again(QSize(10, 10));
    QCOMPARE(again.open(path("dense.inkboard")), QString());
    QCOMPARE(again.density(), 1.5);
    compareDocuments(again, document);
    again.addPage(1);
    QCOMPARE(again.page().density(), 1.5);
    again.undo();
    again.undo();
    QCOMPARE(again.page().picture().pixel(10, 48), 0xFFCBD8EAU);
    for (const double limit : {0.5, 8.0}) {
        QCOMPARE(Document(kSize, limit).save(path("limit.inkboard")), QString());
        QCOMPARE(again.open(path("limit.inkboard")), QString());
        QCOMPARE(again.density(), limit);
    }
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
    QCOMPARE(opened.log().lines(), document.log().lines());
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
    document.redo();
    QCOMPARE(document.current(), 1);
    QCOMPARE(document.page().picture().pixel(45, 50), 0xFFFF0000U);
}

void tst_Document::takesASuccessorBackWithItsObject()
{
    Document document(kSize);
    draw(document, "line", {60, 100}, {140, 100});
    const QImage line = document.page().picture().copy();
    const Life life = lifeOf("select");
    document.page().begin(life, createObject(life), Page::Reach::Reported, InkLesson::findTool(life.tool)->lift);
    drag(document.page(), {40, 80}, {160, 120});
    drag(document.page(), {100, 110}, {100, 210});
    document.page().finish();
    QCOMPARE(document.undoStack().index(), 2);
    const QImage moved = document.page().picture().copy();
    document.undo();
    QCOMPARE(document.page().picture(), line);
    document.redo();
    QCOMPARE(document.page().picture(), moved);
    QCOMPARE(document.save(path("moved.inkboard")), QString());
    Document opened(kSize);
    QCOMPARE(opened.open(path("moved.inkboard")), QString());
    compareDocuments(opened, document);
    opened.undo();
    QCOMPARE(opened.page().picture(), line);
}

// The page has grown, so the pixels of the steps before are not those of the page now.
void tst_Document::undoesWithoutKeptPixels()
{
    Document document(kSize);
    draw(document, "line", {10, 10}, {80, 90});
    draw(document, "rectangle", {100, 100}, {200, 200});
    document.page().grow({500, 400});
    const QImage both = document.page().picture().copy();
    document.undo();
    QCOMPARE(document.page().picture().pixel(150, 100), 0xFFFFFFFFU);
    QCOMPARE(document.page().picture().pixel(45, 50), 0xFFFF0000U);
    document.redo();
    QCOMPARE(document.page().picture(), both);
}

void tst_Document::savesOnlyChanges()
{
    Document document(kSize);
    document.page().grow({500, 400});
    QVERIFY(document.isSaved()); // nothing is lost with the size
    draw(document, "line", {10, 10}, {80, 90});
    QVERIFY(!document.isSaved());
    QCOMPARE(document.save(path("a.inkboard")), QString());
    QVERIFY(document.isSaved());
    QCOMPARE(document.fileName(), path("a.inkboard"));
    document.undo();
    QVERIFY(!document.isSaved());
}

void tst_Document::keepsAJournalOfEveryStep()
{
    Document document(kSize);
    draw(document, "line", {10, 10}, {80, 90}); // before there is a journal
    QCOMPARE(document.keepJournal(path("journals")), QString());
    const QString journal = document.log().journalName();
    QCOMPARE(contents(journal).count('\n'), 2);
    draw(document, "line", {10, 20}, {80, 90});
    QCOMPARE(contents(journal).count('\n'), 3);
    document.undo();
    QVERIFY(contents(journal).endsWith("{\"do\":\"undo\"}\n"));
    document.discardJournal();
    QVERIFY(!QFile::exists(journal));
}

// Or a lesson that was saved, or only looked at, would be offered again when the machine is switched off.
void tst_Document::keepsNoJournalOfWhatIsSaved()
{
    const QString folder = path("resting");
    QString journal;
    {
        Document document(kSize);
        draw(document, "line", {10, 10}, {80, 90});
        QCOMPARE(document.keepJournal(folder), QString());
        journal = document.log().journalName();
        QCOMPARE(contents(journal).count('\n'), 2);
        QCOMPARE(document.save(path("rests.inkboard")), QString());
        QCOMPARE(contents(journal), QByteArray());
        document.page().grow({500, 400}); // of a larger window
        QCOMPARE(contents(journal), QByteArray());
    }
    QCOMPARE(Log::abandoned(folder), QStringList());
    {
        Document document(kSize);
        QCOMPARE(document.open(path("rests.inkboard")), QString());
        QCOMPARE(document.keepJournal(folder), QString());
        journal = document.log().journalName();
        QCOMPARE(contents(journal), QByteArray());
        QCOMPARE(document.openCopy(path("rests.inkboard")), QString());
        QCOMPARE(contents(journal), QByteArray());
        draw(document, "line", {10, 100}, {80, 190});
        QCOMPARE(contents(journal).count('\n'), 3); // all of it
    }
    QCOMPARE(Log::abandoned(folder), QStringList{journal});
    Document document(kSize);
    QCOMPARE(document.recover(journal), QString());
    QCOMPARE(document.page().picture().pixel(45, 50), 0xFFFF0000U);
    QCOMPARE(document.page().picture().pixel(45, 145), 0xFFFF0000U);
}

void tst_Document::findsAbandonedJournals()
{
    const QString folder = path("abandoned");
    QString journal;
    {
        Document document(kSize);
        QCOMPARE(document.keepJournal(folder), QString());
        journal = document.log().journalName();
        QCOMPARE(Log::abandoned(folder), QStringList()); // it is kept
        draw(document, "line", {10, 10}, {80, 90});
    }
    QCOMPARE(Log::abandoned(folder), QStringList{journal});
    Document document(kSize);
    QCOMPARE(document.recover(journal), QString());
    QCOMPARE(document.page().picture().pixel(45, 50), 0xFFFF0000U);
    QVERIFY(!document.isSaved());
    QVERIFY(document.fileName().isEmpty());
}

void tst_Document::recoversAllButACutLine()
{
    Document document(kSize);
    QCOMPARE(document.keepJournal(path("cut")), QString());
    draw(document, "line", {10, 10}, {80, 90});
    const QImage one = document.page().picture().copy();
    draw(document, "line", {10, 100}, {80, 190});
    const QByteArray whole = contents(document.log().journalName());
    const int lastLine = whole.lastIndexOf('\n', whole.size() - 2) + 1;
    for (const int bytes : {lastLine + 1, lastLine + 50, whole.size() - 1}) {
        write(path("cut.inkboard"), whole.left(bytes));
        Document recovered(kSize);
        QCOMPARE(recovered.recover(path("cut.inkboard")), path("cut.inkboard") + ": line 3: it was cut off here");
        QCOMPARE(recovered.page().picture(), one);
    }
}

void tst_Document::refusesAFile_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("problem");
    QTest::newRow("empty") << QByteArray() << ": line 1: this is not a lesson of this board";
    QTest::newRow("other bytes") << QByteArray("\x89PNG\r\n\0\1\2", 9)
                                 << ": line 1: this is not a lesson of this board";
    QTest::newRow("other JSON") << QByteArray("{\"a\":1}\n") << ": line 1: this is not a lesson of this board";
    QTest::newRow("a later version") << QByteArray("{\"inkboard\":2,\"size\":[400,300]}\n")
                                     << ": line 1: the lesson was written by a later version of this board";
    QTest::newRow("no size") << QByteArray("{\"inkboard\":1}\n") << QString();
    for (const char *density : {"0", "0.49", "8.01", "\"2\"", "null"}) {
        QTest::addRow("density %s", density)
            << QByteArray("{\"density\":") + density + ",\"inkboard\":1,\"size\":[400,300]}\n"
            << ": line 1: no density of a page";
    }
    QTest::newRow("a huge size") << QByteArray("{\"inkboard\":1,\"size\":[400000,300000]}\n") << QString();
}

void tst_Document::refusesAFile()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, problem);
    write(path("bad.inkboard"), bytes);
    Document document(kSize);
    draw(document, "line", {10, 10}, {80, 90});
    const QString said = document.open(path("bad.inkboard"));
    QVERIFY(said.startsWith(path("bad.inkboard") + ": line 1: "));
    if (!problem.isEmpty())
        QCOMPARE(said, path("bad.inkboard") + problem);
    QCOMPARE(document.page().picture().pixel(45, 50), 0xFFFF0000U); // as it was
    QCOMPARE(document.undoStack().index(), 1);
    QVERIFY(document.fileName().isEmpty());
    QCOMPARE(contents(path("bad.inkboard")), bytes);
    QVERIFY(document.open(path("missing.inkboard")).startsWith(path("missing.inkboard") + ": cannot be read: "));
}

void tst_Document::readsUpToTheFirstBadLine()
{
    Document document(kSize);
    draw(document, "line", {10, 10}, {80, 90});
    QCOMPARE(document.save(path("good.inkboard")), QString());
    const QByteArray good = contents(path("good.inkboard"));
    for (const char *line :
         {"nonsense", "{\"do\":\"dance\",\"page\":1}", "{\"do\":\"delete\",\"id\":9,\"page\":1}",
          "{\"do\":\"clear\",\"page\":7}", "{\"do\":\"redo\"}", "{\"do\":\"remove-page\",\"at\":0}",
          "{\"do\":\"draw\",\"id\":2,\"page\":1}", "{\"do\":\"move-page\",\"from\":0,\"to\":3}",
          "{\"do\":\"add-page\",\"page\":2,\"at\":5,\"size\":[400,300]}",
          "{\"do\":\"size\",\"page\":1,\"size\":[500,299]}", "{\"do\":\"size\",\"page\":1,\"size\":[399,400]}"}) {
        const QByteArray bytes = good + line + "\n{\"do\":\"undo\"}\n";
        write(path("partly.inkboard"), bytes);
        Document opened(kSize);
        const QString said = opened.open(path("partly.inkboard"));
        QVERIFY2(said.startsWith(path("partly.inkboard") + ": line 3: "), qPrintable(said));
        compareDocuments(opened, document);
        QVERIFY(opened.fileName().isEmpty()); // so that saving does not write over it
        QCOMPARE(contents(path("partly.inkboard")), bytes);
    }
}

void tst_Document::readsNoObjectOfANumberWithoutNext()
{
    const QByteArray header = "{\"inkboard\":1,\"size\":[400,300]}\n";
    Document document(kSize);
    write(path("last.inkboard"), header + lineRecord(INT_MAX - 1, "\"page\":1") + lineRecord(INT_MAX, "\"page\":1"));
    QCOMPARE(document.open(path("last.inkboard")), path("last.inkboard") + ": line 3: this cannot be done on the page");
    QCOMPARE(document.undoStack().index(), 1);
}

// A successor, which is undone together with the object before it, comes right after that.
void tst_Document::readsNoSuccessorOfNothing_data()
{
    const QByteArray first = lineRecord(1, "\"page\":1");
    const QByteArray second = lineRecord(2, "\"page\":1,\"succeeds\":true");
    const QByteArray addPage = "{\"do\":\"add-page\",\"page\":2,\"at\":1,\"size\":[400,300]}\n";
    QTest::addColumn<QByteArray>("lines");
    QTest::addColumn<int>("badLine");
    QTest::newRow("after its object") << first + second << 0;
    QTest::newRow("first of all") << second << 2;
    QTest::newRow("after another step") << first + "{\"do\":\"paper\",\"kind\":\"ruled\",\"page\":1}\n" + second << 4;
    QTest::newRow("after a new page") << first + addPage + second << 4;
    QTest::newRow("after another page's object")
        << first + addPage + lineRecord(1, "\"page\":2") + lineRecord(2, "\"page\":1,\"succeeds\":true") << 5;
    QTest::newRow("after its object was undone") << first + "{\"do\":\"undo\"}\n" + second << 4;
}

void tst_Document::readsNoSuccessorOfNothing()
{
    QFETCH(QByteArray, lines);
    QFETCH(int, badLine);
    write(path("successor.inkboard"), "{\"inkboard\":1,\"size\":[400,300]}\n" + lines);
    Document document(kSize);
    const QString problem =
        path("successor.inkboard") + QStringLiteral(": line %1: this cannot be done on the page").arg(badLine);
    QCOMPARE(document.open(path("successor.inkboard")), badLine == 0 ? QString() : problem);
}

void tst_Document::leavesAFileThatAnotherChanged()
{
    Document first(kSize);
    draw(first, "line", {10, 10}, {80, 90});
    QCOMPARE(first.save(path("shared.inkboard")), QString());
    Document second(kSize);
    QCOMPARE(second.open(path("shared.inkboard")), QString());
    draw(second, "line", {10, 20}, {80, 90});
    QCOMPARE(second.save(path("shared.inkboard")), QString());

    draw(first, "line", {10, 30}, {80, 90});
    const QByteArray bytes = contents(path("shared.inkboard"));
    QCOMPARE(first.save(path("shared.inkboard")),
             path("shared.inkboard") + ": another program has changed it since. Save under another name.");
    QCOMPARE(contents(path("shared.inkboard")), bytes);
    QVERIFY(!first.isSaved());
    QCOMPARE(first.save(path("mine.inkboard")), QString());
}

void tst_Document::saysWhyItCannotSave()
{
    Document document(kSize);
    draw(document, "line", {10, 10}, {80, 90});
    const QString file = path("no/such/folder.inkboard");
    QVERIFY(document.save(file).startsWith(file + ": cannot be written: "));
    QVERIFY(!document.isSaved());
}

void tst_Document::saysThatTheJournalCannotBeWritten()
{
    write(path("file"), "not a folder");
    Document document(kSize);
    QVERIFY(document.keepJournal(path("file/journals")).contains(QStringLiteral("no journal can be kept")));
    QSignalSpy failed(&document, &Document::journalFailed);
    draw(document, "line", {10, 10}, {80, 90});
    QCOMPARE(failed.count(), 0); // it was said
    QCOMPARE(document.save(path("anyway.inkboard")), QString());
}

// The limit on the size of a file stands for the disk.
void tst_Document::writesWhatAFullDiskDidNotTake()
{
    rlimit before{};
    QCOMPARE(getrlimit(RLIMIT_FSIZE, &before), 0);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    Document document(kSize);
    QCOMPARE(document.keepJournal(path("full")), QString());
    const QString journal = document.log().journalName();
    QSignalSpy failed(&document, &Document::journalFailed);
    draw(document, "line", {10, 10}, {80, 90});
    const QByteArray first = contents(journal);

    const rlimit full{rlim_t(first.size() + 20), before.rlim_max};
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &full), 0);
    draw(document, "line", {10, 20}, {80, 90});
    draw(document, "line", {10, 30}, {80, 90});
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &before), 0);
    std::signal(SIGXFSZ, handler);
    QCOMPARE(failed.count(), 1);
    QVERIFY(failed.constFirst().constFirst().toString().startsWith(journal + QStringLiteral(": cannot be written: ")));
    QCOMPARE(contents(journal), first); // no part of a line

    draw(document, "line", {10, 40}, {80, 90});
    QCOMPARE(contents(journal).count('\n'), 5);
    const QByteArray whole = contents(journal);
    QCOMPARE(document.save(path("after.inkboard")), QString());
    QCOMPARE(contents(path("after.inkboard")), whole);
}

QTEST_MAIN(tst_Document)
#include "tst_Document.moc"
