#include "DocumentProbe.h"

#include <QtCore/QTemporaryDir>

#include <algorithm>

using namespace Board;

namespace {

const QByteArray kFirstVersion = "{\"inkboard\":1,\"size\":[400,300]}\n";
const QByteArray kSecondVersion = "{\"inkboard\":2,\"size\":[400,300]}\n";

// The line of version 1 of a red line that is drawn from (10, `top`) to (80, `top` + 80), with what else its record
// holds.
QByteArray lineRecord(int id, const QByteArray &more, int top = 10)
{
    const QByteArray end = "80," + QByteArray::number(top + 80);
    return "{\"do\":\"draw\",\"id\":" + QByteArray::number(id) + ",\"life\":{\"acts\":[[1,10," +
           QByteArray::number(top) + "],[5," + end + "],[2," + end +
           "],\"finish\"],\"canvas\":[400,300],\"color\":\"#ffff0000\",\"tool\":\"line\",\"width\":4}," + more + "}\n";
}

// The same line in version 2.
QByteArray lineDrawn(int number, int top)
{
    return "{\"author\":1,\"do\":\"draw\",\"life\":{\"acts\":[\"d10 " + QByteArray::number(top) +
           "m70 80u0 0f\"],\"canvas\":[400,300],\"color\":\"#ffff0000\",\"tool\":\"line\",\"width\":4},\"number\":" +
           QByteArray::number(number) + "}\n";
}

} // namespace

class tst_DocumentFile : public QObject
{
    Q_OBJECT

private slots:
    void playsTheSamePixelsFromAFile();
    void keepsItsDensity();
    void writesALineForEachRecord();
    void opensAFileOfVersion1();
    void openingTellsHowFarItIs();
    void savesOnlyChanges();
    void refusesAFile_data();
    void refusesAFile();
    void readsUpToTheFirstBadLine_data();
    void readsUpToTheFirstBadLine();
    void readsOnAfterWhatHasNoEffect_data();
    void readsOnAfterWhatHasNoEffect();
    void readsNoNumberFarBeyondTheLast();
    void readsObjectsOfAnyNumberOfVersion1();
    void joinsASuccessorToTheStepBefore_data();
    void joinsASuccessorToTheStepBefore();
    void leavesAFileThatAnotherChanged();
    void saysWhyItCannotSave();

private:
    QString path(const char *name) const { return m_folder.filePath(QString::fromLatin1(name)); }

    QTemporaryDir m_folder;
};

void tst_DocumentFile::playsTheSamePixelsFromAFile()
{
    Document document(kSize);
    holdLesson(document);
    QCOMPARE(document.save(path("lesson.inkboard")), QString());
    QVERIFY(document.isSaved());

    Document opened(QSize(10, 10));
    QCOMPARE(opened.open(path("lesson.inkboard")), QString());
    compareDocuments(opened, document);
    QVERIFY(opened.isSaved());
    QCOMPARE(opened.lesson().log(), document.lesson().log());

    QCOMPARE(opened.save(path("again.inkboard")), QString());
    QCOMPARE(contents(path("again.inkboard")), contents(path("lesson.inkboard")));
    while (document.stepsToUndo() > 0) {
        document.undo();
        opened.undo();
    }
    compareDocuments(opened, document);
}

// Ruled lines are 32 pixels of a plain screen apart, which is 48.
void tst_DocumentFile::keepsItsDensity()
{
    Document document(kSize, 1.5);
    document.author().setPaper({InkLesson::Paper::Kind::Ruled, {}});
    draw(document, "rectangle", {50, 60}, {150, 120});
    const QImage picture = document.page().picture().copy();
    QCOMPARE(picture.pixel(10, 32), 0xFFFFFFFFU);
    QCOMPARE(picture.pixel(10, 48), 0xFFCBD8EAU);
    QCOMPARE(picture.pixel(10, 49), 0xFFFFFFFFU);
    QCOMPARE(picture.pixel(10, 288), 0xFFCBD8EAU);
    QCOMPARE(document.save(path("dense.inkboard")), QString());
    QVERIFY(contents(path("dense.inkboard")).startsWith("{\"density\":1.5,\"inkboard\":2,\"size\":[400,300]}\n"));

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

void tst_DocumentFile::writesALineForEachRecord()
{
    Document document(kSize);
    draw(document, "line", {10, 10}, {80, 90});
    document.author().change({{1, 1}, QColor(Qt::blue)});
    document.undo();
    document.addPage(1);
    QCOMPARE(document.save(path("lines.inkboard")), QString());
    QCOMPARE(timeless(contents(path("lines.inkboard"))),
             kSecondVersion + lineDrawn(1, 10) +
                 "{\"author\":1,\"color\":\"#ff0000ff\",\"do\":\"change\",\"number\":2,\"object\":[1,1]}\n"
                 "{\"author\":1,\"do\":\"undo\",\"number\":3,\"of\":[1,2]}\n"
                 "{\"at\":1,\"author\":1,\"do\":\"add-page\",\"number\":4,\"size\":[400,300]}\n");
}

// Two pages, each with objects and a number 1 of its own, and a step that was undone.
void tst_DocumentFile::opensAFileOfVersion1()
{
    const QByteArray lines = kFirstVersion + lineRecord(1, "\"page\":1", 10) + lineRecord(2, "\"page\":1", 100) +
                             "{\"do\":\"delete\",\"id\":1,\"page\":1}\n"
                             "{\"at\":1,\"do\":\"add-page\",\"page\":2,\"size\":[300,200]}\n" +
                             lineRecord(1, "\"page\":2", 50) +
                             "{\"do\":\"paper\",\"kind\":\"ruled\",\"page\":2}\n{\"do\":\"undo\"}\n";
    write(path("old.inkboard"), lines);
    Document document(QSize(10, 10));
    QCOMPARE(document.open(path("old.inkboard")), QString());
    QVERIFY(document.isSaved());
    QCOMPARE(document.pageCount(), 2);
    QCOMPARE(document.stepsToUndo(), 5);
    QCOMPARE(document.page(1).rect(), QRect(0, 0, 300, 200));
    QVERIFY(!isRed(document.page(0), {45, 50}));
    QVERIFY(isRed(document.page(0), {45, 140}));
    QVERIFY(isRed(document.page(1), {45, 90}));
    QCOMPARE(document.page(1).picture().pixel(200, 32), 0xFFFFFFFFU);
    document.redo();
    QCOMPARE(document.page(1).picture().pixel(200, 32), 0xFFCBD8EAU);
    QCOMPARE(contents(path("old.inkboard")), lines);

    QCOMPARE(document.save(path("old.inkboard")), QString());
    QVERIFY(contents(path("old.inkboard")).startsWith(kSecondVersion));
    Document again(QSize(10, 10));
    QCOMPARE(again.open(path("old.inkboard")), QString());
    compareDocuments(again, document);
    for (int i = 0; i < 4; ++i)
        again.undo();
    QCOMPARE(again.stepsToUndo(), 2);
    QCOMPARE(again.pageCount(), 1);
    QVERIFY(isRed(again.page(), {45, 50}));
}

// Two objects are read, and then made ready to be painted.
void tst_DocumentFile::openingTellsHowFarItIs()
{
    Document document(kSize);
    draw(document, "line", {10, 150}, {80, 230});
    draw(document, "line", {10, 50}, {80, 30});
    QCOMPARE(document.save(path("far.inkboard")), QString());
    std::vector<double> told;
    Document opened(kSize);
    QCOMPARE(opened.open(path("far.inkboard"), [&told](double share) { told.push_back(share); }), QString());
    QCOMPARE(told.size(), std::size_t(3));
    QVERIFY(std::is_sorted(told.begin(), told.end()));
    QCOMPARE(told[1], 0.15);
    QCOMPARE(told[2], 1.0); // objects are prepared 64 at a time
}

void tst_DocumentFile::savesOnlyChanges()
{
    Document document(kSize);
    document.author().grow({500, 400});
    QVERIFY(document.isSaved()); // nothing is lost with the size
    draw(document, "line", {10, 10}, {80, 90});
    QVERIFY(!document.isSaved());
    QCOMPARE(document.save(path("a.inkboard")), QString());
    QVERIFY(document.isSaved());
    QCOMPARE(document.fileName(), path("a.inkboard"));
    document.undo();
    QVERIFY(!document.isSaved());

    document.author().begin(lifeOf("pencil"));
    document.author().feed(PT_DOWN, {10, 10});
    document.author().feed(PT_MOVE, {80, 90}); // and is not let go yet
    QCOMPARE(document.save(path("a.inkboard")), QString());
    QVERIFY(document.isSaved());
    QVERIFY(!document.author().hand());
    QCOMPARE(contents(path("a.inkboard")).count('\n'), 5);
}

void tst_DocumentFile::refusesAFile_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("problem");
    QTest::newRow("empty") << QByteArray() << ": line 1: this is not a lesson of this board";
    QTest::newRow("other bytes") << QByteArray("\x89PNG\r\n\0\1\2", 9)
                                 << ": line 1: this is not a lesson of this board";
    QTest::newRow("other JSON") << QByteArray("{\"a\":1}\n") << ": line 1: this is not a lesson of this board";
    QTest::newRow("a later version") << QByteArray("{\"inkboard\":3,\"size\":[400,300]}\n")
                                     << ": line 1: the lesson was written by a later version of this board";
    QTest::newRow("no size") << QByteArray("{\"inkboard\":1}\n") << QString();
    for (const char *density : {"0", "0.49", "8.01", "\"2\"", "null"}) {
        QTest::addRow("density %s", density)
            << QByteArray("{\"density\":") + density + ",\"inkboard\":2,\"size\":[400,300]}\n"
            << ": line 1: no density of a page";
    }
    QTest::newRow("density of version 1")
        << QByteArray("{\"density\":9,\"inkboard\":1,\"size\":[400,300]}\n") << ": line 1: no density of a page";
    QTest::newRow("a huge size") << QByteArray("{\"inkboard\":1,\"size\":[400000,300000]}\n") << QString();
}

void tst_DocumentFile::refusesAFile()
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
    QCOMPARE(document.stepsToUndo(), 1);
    QVERIFY(document.fileName().isEmpty());
    QCOMPARE(contents(path("bad.inkboard")), bytes);
    QVERIFY(document.open(path("missing.inkboard")).startsWith(path("missing.inkboard") + ": cannot be read: "));
}

void tst_DocumentFile::readsUpToTheFirstBadLine_data()
{
    QTest::addColumn<QByteArray>("good");
    QTest::addColumn<QByteArray>("line");
    const QByteArray first = kFirstVersion + lineRecord(1, "\"page\":1");
    for (const char *line : {"nonsense", "{\"do\":\"dance\",\"page\":1}", "{\"do\":\"delete\",\"id\":9,\"page\":1}",
                             "{\"do\":\"clear\",\"page\":7}", "{\"do\":\"redo\"}", "{\"do\":\"remove-page\",\"at\":1}",
                             "{\"do\":\"draw\",\"id\":2,\"page\":1}", "{\"do\":\"move-page\",\"from\":1,\"to\":0}",
                             "{\"do\":\"move-page\",\"from\":0}", "{\"do\":\"order\",\"id\":1,\"page\":1}",
                             "{\"do\":\"add-page\",\"page\":2,\"at\":5,\"size\":[400,300]}",
                             "{\"do\":\"size\",\"page\":1,\"size\":[500]}"})
        QTest::newRow(line) << first << QByteArray(line);
    QTest::newRow("a number twice") << first << lineRecord(1, "\"page\":1").trimmed();

    const QByteArray second = kSecondVersion + lineDrawn(1, 10);
    for (const char *line :
         {"nonsense", "[1]", "{\"author\":1,\"do\":\"dance\",\"number\":2}", "{\"do\":\"clear\",\"number\":2}",
          "{\"author\":0,\"do\":\"clear\",\"number\":2}", "{\"author\":1,\"do\":\"clear\"}",
          "{\"author\":1,\"do\":\"clear\",\"number\":0}", "{\"author\":1,\"do\":\"clear\",\"number\":2.5}",
          "{\"author\":1,\"do\":\"clear\",\"number\":2,\"step\":3}",
          "{\"author\":1,\"do\":\"clear\",\"number\":2,\"page\":1}", "{\"author\":1,\"do\":\"draw\",\"number\":2}",
          "{\"author\":1,\"do\":\"delete\",\"number\":2,\"objects\":[1]}",
          "{\"author\":1,\"do\":\"order\",\"number\":2}",
          "{\"author\":1,\"do\":\"paper\",\"kind\":\"gold\",\"number\":2}",
          "{\"author\":1,\"do\":\"size\",\"number\":2,\"size\":[400000,300000]}",
          "{\"at\":-1,\"author\":1,\"do\":\"move-page\",\"number\":2}", "{\"author\":1,\"do\":\"undo\",\"number\":2}"})
        QTest::addRow("version 2: %s", line) << second << QByteArray(line);
}

void tst_DocumentFile::readsUpToTheFirstBadLine()
{
    QFETCH(QByteArray, good);
    QFETCH(QByteArray, line);
    const bool isFirst = good.startsWith(kFirstVersion);
    const QByteArray bytes = good + line + '\n' + (isFirst ? lineRecord(2, "\"page\":1", 100) : lineDrawn(2, 100));
    write(path("partly.inkboard"), bytes);
    Document opened(kSize);
    const QString said = opened.open(path("partly.inkboard"));
    QVERIFY2(said.startsWith(path("partly.inkboard") + ": line 3: "), qPrintable(said));
    QCOMPARE(opened.stepsToUndo(), 1);
    QVERIFY(isRed(opened.page(), {45, 50}));
    QVERIFY(!isRed(opened.page(), {45, 140}));
    QVERIFY(opened.fileName().isEmpty()); // so that saving does not write over it
    QCOMPARE(contents(path("partly.inkboard")), bytes);
}

// What names things that are not there, or changes no pixel.
void tst_DocumentFile::readsOnAfterWhatHasNoEffect_data()
{
    QTest::addColumn<QByteArray>("good");
    QTest::addColumn<QByteArray>("line");
    const QByteArray first = kFirstVersion + lineRecord(1, "\"page\":1");
    for (const char *line :
         {"{\"do\":\"remove-page\",\"at\":0}", "{\"do\":\"move-page\",\"from\":0,\"to\":3}",
          "{\"do\":\"size\",\"page\":1,\"size\":[100,100]}", "{\"do\":\"order\",\"id\":1,\"page\":1,\"place\":5}",
          "{\"do\":\"paper\",\"kind\":\"blank\",\"page\":1}"})
        QTest::newRow(line) << first << QByteArray(line);

    const QByteArray second = kSecondVersion + lineDrawn(1, 10);
    for (const char *line : {"{\"author\":1,\"do\":\"clear\",\"number\":1}", // which is known
                             "{\"author\":1,\"do\":\"clear\",\"number\":2,\"page\":[7,1]}",
                             "{\"author\":1,\"do\":\"delete\",\"number\":2,\"objects\":[[1,9]]}",
                             "{\"author\":1,\"do\":\"delete\",\"number\":2,\"objects\":[]}",
                             "{\"author\":1,\"do\":\"change\",\"number\":2,\"object\":[2,1],\"width\":9}",
                             "{\"author\":1,\"do\":\"order\",\"number\":2,\"object\":[1,1],\"above\":[1,9]}",
                             "{\"author\":1,\"do\":\"order\",\"number\":2,\"object\":[1,9]}",
                             "{\"author\":1,\"do\":\"remove-page\",\"number\":2}",
                             "{\"author\":1,\"do\":\"remove-page\",\"number\":2,\"page\":[7,1]}",
                             "{\"at\":3,\"author\":1,\"do\":\"move-page\",\"number\":2}",
                             "{\"author\":1,\"do\":\"size\",\"number\":2,\"size\":[100,100]}",
                             "{\"author\":1,\"do\":\"undo\",\"number\":2,\"of\":[1,9]}",
                             "{\"author\":2,\"do\":\"undo\",\"number\":2,\"of\":[1,1]}"}) // of another one's step
        QTest::addRow("version 2: %s", line) << second << QByteArray(line);
}

void tst_DocumentFile::readsOnAfterWhatHasNoEffect()
{
    QFETCH(QByteArray, good);
    QFETCH(QByteArray, line);
    const bool isFirst = good.startsWith(kFirstVersion);
    write(path("on.inkboard"), good + line + '\n' + (isFirst ? lineRecord(2, "\"page\":1", 100) : lineDrawn(3, 100)));
    Document opened(QSize(10, 10));
    QCOMPARE(opened.open(path("on.inkboard")), QString());
    QCOMPARE(opened.pageCount(), 1);
    QCOMPARE(opened.page().rect(), QRect(QPoint(0, 0), kSize));
    QCOMPARE(opened.page().items().size(), std::size_t(2));
    QVERIFY(isRed(opened.page(), {45, 50}));
    QVERIFY(isRed(opened.page(), {45, 140}));
    QCOMPARE(opened.save(path("on again.inkboard")), QString());
    Document again(QSize(10, 10));
    QCOMPARE(again.open(path("on again.inkboard")), QString());
    compareDocuments(again, opened);
}

// Up to 2^30 an author may leave numbers out, so that whoever opens a lesson can go on writing it.
void tst_DocumentFile::readsNoNumberFarBeyondTheLast()
{
    constexpr int kFar = 1 << 30;
    write(path("far.inkboard"), kSecondVersion + lineDrawn(kFar, 10) + lineDrawn(kFar + 1, 100));
    Document document(kSize);
    QCOMPARE(document.open(path("far.inkboard")), QString());
    draw(document, "line", {10, 150}, {80, 230});
    QCOMPARE(document.save(path("far again.inkboard")), QString());
    Document again(kSize);
    QCOMPARE(again.open(path("far again.inkboard")), QString());
    QCOMPARE(again.stepsToUndo(), 3);

    write(path("too far.inkboard"), kSecondVersion + lineDrawn(kFar, 10) + lineDrawn(kFar + 2, 100));
    QCOMPARE(document.open(path("too far.inkboard")),
             path("too far.inkboard") + ": line 3: number: too far beyond the author's last one");
    QCOMPARE(document.stepsToUndo(), 1);
}

// In version 1 objects had numbers of their own, which are not those of records.
void tst_DocumentFile::readsObjectsOfAnyNumberOfVersion1()
{
    write(path("last.inkboard"),
          kFirstVersion + lineRecord(INT_MAX - 1, "\"page\":1") + lineRecord(INT_MAX, "\"page\":1", 100));
    Document document(kSize);
    QCOMPARE(document.open(path("last.inkboard")), QString());
    QCOMPARE(document.stepsToUndo(), 2);
    draw(document, "line", {10, 200}, {80, 280});
    QCOMPARE(document.page().items().back()->id, (InkLesson::ObjectId{1, 3}));
}

// In version 1 a successor is undone together with the object before it, or with whatever was done last.
void tst_DocumentFile::joinsASuccessorToTheStepBefore_data()
{
    const QByteArray first = lineRecord(1, "\"page\":1");
    const QByteArray second = lineRecord(2, "\"page\":1,\"succeeds\":true", 100);
    const QByteArray addPage = "{\"do\":\"add-page\",\"page\":2,\"at\":1,\"size\":[400,300]}\n";
    QTest::addColumn<QByteArray>("lines");
    QTest::addColumn<int>("steps");
    QTest::addColumn<bool>("isFirstLeft");
    QTest::newRow("after its object") << first + second << 1 << false;
    QTest::newRow("first of all") << second << 1 << false;
    QTest::newRow("after another step") << first + "{\"do\":\"paper\",\"kind\":\"ruled\",\"page\":1}\n" + second << 2
                                        << true;
    QTest::newRow("after a new page") << first + addPage + second << 2 << true;
    QTest::newRow("after another page's object") << first + addPage + lineRecord(1, "\"page\":2") + second << 3 << true;
    QTest::newRow("after its object was undone") << first + "{\"do\":\"undo\"}\n" + second << 1 << false;
}

void tst_DocumentFile::joinsASuccessorToTheStepBefore()
{
    QFETCH(QByteArray, lines);
    QFETCH(int, steps);
    QFETCH(bool, isFirstLeft);
    write(path("successor.inkboard"), kFirstVersion + lines);
    Document document(kSize);
    QCOMPARE(document.open(path("successor.inkboard")), QString());
    QCOMPARE(document.stepsToUndo(), steps);
    QVERIFY(isRed(document.page(0), {45, 140}));
    document.undo();
    QVERIFY(!isRed(document.page(0), {45, 140}));
    QCOMPARE(isRed(document.page(0), {45, 50}), isFirstLeft);
    document.redo();
    QVERIFY(isRed(document.page(0), {45, 140}));
}

void tst_DocumentFile::leavesAFileThatAnotherChanged()
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

void tst_DocumentFile::saysWhyItCannotSave()
{
    Document document(kSize);
    draw(document, "line", {10, 10}, {80, 90});
    const QString file = path("no/such/folder.inkboard");
    QVERIFY(document.save(file).startsWith(file + ": cannot be written: "));
    QVERIFY(!document.isSaved());
}

QTEST_MAIN(tst_DocumentFile)
#include "tst_DocumentFile.moc"
