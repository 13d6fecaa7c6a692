#include "lesson/strokes/StrokeFile.h"

#include <QtCore/QTemporaryDir>
#include <QtTest/QtTest>

#include <limits>

using namespace InkLesson;

class tst_StrokeFile : public QObject
{
    Q_OBJECT

private slots:
    void readsAGoodFile();
    void cutsFractionsTowardZero();
    void acceptsTheLimits();
    void acceptsADrawingWithoutStrokes();
    void ignoresWhatItDoesNotKnow();
    void namesThePlaceOfAnError_data();
    void namesThePlaceOfAnError();
    void refusesAFileThatIsNotThere();
    void refusesAFolder();
    void refusesAHugeFile();

private:
    std::optional<StrokeFile> read(const QByteArray &json);

    const QTemporaryDir m_folder;
    const QString m_name{m_folder.filePath(QStringLiteral("drawing.json"))};
    QString m_error;
};

std::optional<StrokeFile> tst_StrokeFile::read(const QByteArray &json)
{
    QFile file(m_name);
    if (!file.open(QIODevice::WriteOnly) || file.write(json) != json.size())
        qFatal("cannot write the drawing");
    file.close();
    m_error.clear();
    return readStrokeFile(m_name, m_error);
}

void tst_StrokeFile::readsAGoodFile()
{
    const auto file = read(R"({"title": "Two strokes", "license": "none", "width": 640, "height": 480, "strokes": [
        {"color": "#d62839", "width": 4, "points": [[1, 2], [3, 4], [5, 6]]},
        {"color": "#0000FF", "width": 2, "points": [[7, 8]]}]})");
    QVERIFY2(file, qPrintable(m_error));
    QCOMPARE(file->title, QStringLiteral("Two strokes"));
    QCOMPARE(file->license, QStringLiteral("none"));
    QCOMPARE(file->size, QSize(640, 480));
    QCOMPARE(file->strokes.size(), std::size_t(2));
    QCOMPARE(file->strokes[0].color, QColor(0xD6, 0x28, 0x39));
    QCOMPARE(file->strokes[0].width, 4);
    QCOMPARE(file->strokes[0].points, (std::vector<QPoint>{{1, 2}, {3, 4}, {5, 6}}));
    QCOMPARE(file->strokes[1].color, QColor(0, 0, 255));
    QCOMPARE(file->strokes[1].width, 2);
    QCOMPARE(file->strokes[1].points, (std::vector<QPoint>{{7, 8}}));
}

void tst_StrokeFile::cutsFractionsTowardZero()
{
    const auto file = read(R"({"width": 640.9, "height": 480.9, "strokes": [
        {"color": "#000000", "width": 2.9, "points": [[1.9, -1.9], [-0.5, 2e1]]}]})");
    QVERIFY2(file, qPrintable(m_error));
    QCOMPARE(file->size, QSize(640, 480));
    QCOMPARE(file->strokes[0].width, 2);
    QCOMPARE(file->strokes[0].points, (std::vector<QPoint>{{1, -1}, {0, 20}}));
}

void tst_StrokeFile::acceptsTheLimits()
{
    const auto file = read(R"({"width": 16384, "height": 4096, "strokes": [
        {"color": "#000000", "width": 1, "points": [[-2147483648.9, 2147483647.9]]},
        {"color": "#000000", "width": 1000, "points": [[0, 0]]}]})");
    QVERIFY2(file, qPrintable(m_error));
    QCOMPARE(file->size, QSize(16384, 4096));
    QCOMPARE(file->strokes[0].points[0].x(), std::numeric_limits<int>::min());
    QCOMPARE(file->strokes[0].points[0].y(), std::numeric_limits<int>::max());
    QCOMPARE(file->strokes[1].width, 1000);
}

void tst_StrokeFile::acceptsADrawingWithoutStrokes()
{
    const auto file = read(R"({"width": 1, "height": 1, "strokes": []})");
    QVERIFY2(file, qPrintable(m_error));
    QVERIFY(file->strokes.empty());
    QVERIFY(file->title.isEmpty());
}

void tst_StrokeFile::ignoresWhatItDoesNotKnow()
{
    QVERIFY(read(R"({"width": 1, "height": 1, "paper": 7, "strokes": [
        {"color": "#000000", "width": 1, "points": [[0, 0]], "time": []}]})"));
}

void tst_StrokeFile::namesThePlaceOfAnError_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("error");

    const auto row = [](const char *name, const QByteArray &json, const char *error) {
        QTest::newRow(name) << json << QString::fromLatin1(error);
    };
    // A drawing of one good stroke and one whose part is replaced.
    const auto drawing = [](const QByteArray &second) {
        return R"({"width": 9, "height": 9, "strokes": [{"color": "#000000", "width": 1, "points": [[0, 0]]}, )" +
               second + "]}";
    };
    row("empty file", "", "line 1, column 1: illegal value");
    row("not closed", "{\"width\": 1,\n \"height\": 1\n", "line 3, column 1: unterminated object");
    row("something after it", "{}\n x", "line 2, column 2: garbage at the end of the document");
    row("list", "[1, 2]", "not a JSON object");
    row("title", R"({"title": 7})", "title: not a text");
    row("license", R"({"title": "", "license": []})", "license: not a text");
    row("no width", R"({"height": 5, "strokes": []})", "width: missing");
    row("width a text", R"({"width": "5", "height": 5, "strokes": []})", "width: not a number");
    row("width 0", R"({"width": 0, "height": 5, "strokes": []})", "width: must be 1 to 16384");
    row("width too large", R"({"width": 100000, "height": 5, "strokes": []})", "width: must be 1 to 16384");
    row("no height", R"({"width": 5, "strokes": []})", "height: missing");
    row("height null", R"({"width": 5, "height": null, "strokes": []})", "height: not a number");
    row("height too large", R"({"width": 5, "height": 16385, "strokes": []})", "height: must be 1 to 16384");
    row("height negative", R"({"width": 5, "height": -5, "strokes": []})", "height: must be 1 to 16384");
    row("too many pixels", R"({"width": 16384, "height": 4097, "strokes": []})",
        "width, height: a page has at most 67108864 pixels in all");
    row("no strokes", R"({"width": 5, "height": 5})", "strokes: missing");
    row("strokes an object", R"({"width": 5, "height": 5, "strokes": {}})", "strokes: not a list");
    row("stroke a list", drawing("[]"), "strokes[1]: not an object");
    row("no colour", drawing(R"({"width": 1, "points": [[0, 0]]})"), "strokes[1].color: missing");
    row("colour a name", drawing(R"({"color": "red", "width": 1, "points": [[0, 0]]})"),
        "strokes[1].color: not a colour of the form #rrggbb");
    row("colour too long", drawing(R"({"color": "#ff000000", "width": 1, "points": [[0, 0]]})"),
        "strokes[1].color: not a colour of the form #rrggbb");
    row("colour and a line break", drawing(R"({"color": "#ff0000\n", "width": 1, "points": [[0, 0]]})"),
        "strokes[1].color: not a colour of the form #rrggbb");
    row("colour no hexadecimal", drawing(R"({"color": "#ff00gg", "width": 1, "points": [[0, 0]]})"),
        "strokes[1].color: not a colour of the form #rrggbb");
    row("colour a number", drawing(R"({"color": 255, "width": 1, "points": [[0, 0]]})"),
        "strokes[1].color: not a colour of the form #rrggbb");
    row("no pen width", drawing(R"({"color": "#000000", "points": [[0, 0]]})"), "strokes[1].width: missing");
    row("pen width a text", drawing(R"({"color": "#000000", "width": "4", "points": [[0, 0]]})"),
        "strokes[1].width: not a number");
    row("pen width too small", drawing(R"({"color": "#000000", "width": 0.9, "points": [[0, 0]]})"),
        "strokes[1].width: must be 1 to 1000");
    row("pen width too large", drawing(R"({"color": "#000000", "width": 1000.1, "points": [[0, 0]]})"),
        "strokes[1].width: must be 1 to 1000");
    row("no points", drawing(R"({"color": "#000000", "width": 1})"), "strokes[1].points: missing");
    row("points a number", drawing(R"({"color": "#000000", "width": 1, "points": 3})"),
        "strokes[1].points: not a list");
    row("empty points", drawing(R"({"color": "#000000", "width": 1, "points": []})"), "strokes[1].points: no point");
    row("point a number", drawing(R"({"color": "#000000", "width": 1, "points": [[0, 0], 5]})"),
        "strokes[1].points[1]: not a pair [x, y]");
    row("point of three", drawing(R"({"color": "#000000", "width": 1, "points": [[0, 0], [0, 1], [1, 2, 3]]})"),
        "strokes[1].points[2]: not a pair [x, y]");
    row("x a text", drawing(R"({"color": "#000000", "width": 1, "points": [[0, 0], ["1", 1]]})"),
        "strokes[1].points[1]: not a number");
    row("y null", drawing(R"({"color": "#000000", "width": 1, "points": [[0, null]]})"),
        "strokes[1].points[0]: not a number");
    row("x too large", drawing(R"({"color": "#000000", "width": 1, "points": [[2147483648, 0]]})"),
        "strokes[1].points[0]: too large");
    row("y too small", drawing(R"({"color": "#000000", "width": 1, "points": [[0, -2147483649]]})"),
        "strokes[1].points[0]: too large");
    row("no number at all", "[NaN]", "line 1, column 2: illegal number");
}

void tst_StrokeFile::namesThePlaceOfAnError()
{
    QFETCH(QByteArray, json);
    QFETCH(QString, error);

    QVERIFY(!read(json));
    QCOMPARE(m_error, m_name + QStringLiteral(": ") + error);
}

void tst_StrokeFile::refusesAFileThatIsNotThere()
{
    QString error;
    const QString name = m_folder.filePath(QStringLiteral("missing.json"));
    QVERIFY(!readStrokeFile(name, error));
    QCOMPARE(error, name + QStringLiteral(": cannot be read: No such file or directory"));
}

void tst_StrokeFile::refusesAFolder()
{
    QString error;
    QVERIFY(!readStrokeFile(m_folder.path(), error));
    QVERIFY2(error.startsWith(m_folder.path() + QStringLiteral(": cannot be read: ")), qPrintable(error));
}

void tst_StrokeFile::refusesAHugeFile()
{
    QFile file(m_name);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.resize(256 * 1024 * 1024 + 1)); // no blocks are written
    file.close();
    QString error;
    QVERIFY(!readStrokeFile(m_name, error));
    QCOMPARE(error, m_name + QStringLiteral(": larger than 256 MiB"));
    QVERIFY(file.remove());
}

QTEST_GUILESS_MAIN(tst_StrokeFile)
#include "tst_StrokeFile.moc"
