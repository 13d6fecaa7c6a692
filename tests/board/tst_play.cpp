// Runs the program itself, without a display.

#include "Paper.h"
#include "board/tools/Tools.h"

#include "lesson/strokes/StrokeFile.h"

#include <QtCore/QDir>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtTest/QtTest>

#include <memory>

namespace {

const QByteArray kRed = R"({"title": "Red", "license": "none", "width": 60, "height": 40, "strokes": [
    {"color": "#ff0000", "width": 4, "points": [[10, 20], [30, 20], [50, 20]]}]})";
const QByteArray kBlue = R"({"title": "Blue", "license": "none", "width": 40, "height": 80, "strokes": [
    {"color": "#0000ff", "width": 4, "points": [[30.9, 10], [30.9, 70]]}]})";

struct Result
{
    int code;
    QString out;
    QString err;
};

} // namespace

class tst_play : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void paintsTheStrokes();
    void playsFilesOverEachOther();
    void takesASize();
    void takesATool();
    void paintsNothingWithAToolThatPoints();
    void playsAStrokeOfOnePoint();
    void replacesThePicture();
    void sayWhatIsWrong_data();
    void sayWhatIsWrong();
    void writesNothingWhenOneFileIsBad();
    void keepsThePictureWhenAFileIsBad();
    void cannotWriteThere();
    void showsHelpAndVersion();
    void playsTheLessons_data();
    void playsTheLessons();
    void playsALesson();
    void showsEveryTool();
    void playsRecordedStrokes_data();
    void playsRecordedStrokes();

private:
    Result run(const QStringList &arguments);
    QString write(const char *name, const QByteArray &json);
    QImage play(const QStringList &arguments);
    QString path(const char *name) { return m_folder->filePath(QString::fromLatin1(name)); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_play::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

Result tst_play::run(const QStringList &arguments)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "XDG_RUNTIME_DIR"})
        environment.remove(QString::fromLatin1(name));
    // A window runs on a desktop, which gives it this directory.
    if (arguments.contains(QStringLiteral("-platform")))
        environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), m_folder->path());
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(m_folder->path());
    process.start(QStringLiteral(INKBOARD), arguments);
    if (!process.waitForFinished(120000) || process.exitStatus() != QProcess::NormalExit)
        return {-1, {}, process.errorString() + QString::fromLocal8Bit(process.readAllStandardError())};
    return {process.exitCode(), QString::fromLocal8Bit(process.readAllStandardOutput()),
            QString::fromLocal8Bit(process.readAllStandardError())};
}

QString tst_play::write(const char *name, const QByteArray &json)
{
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(json) != json.size())
        qFatal("cannot write %s", name);
    return QString::fromLatin1(name);
}

// The picture, or a null one after a failure that is shown.
QImage tst_play::play(const QStringList &arguments)
{
    const Result result =
        run(QStringList{QStringLiteral("--play"), QStringLiteral("--png"), QStringLiteral("out.png")} + arguments);
    if (result.code != 0 || !result.err.isEmpty()) {
        qWarning("exit code %d: %s", result.code, qPrintable(result.err));
        return {};
    }
    return QImage(path("out.png")).convertToFormat(QImage::Format_RGB32);
}

// Four pixels wide around y = 20, with round ends at x = 10 and x = 50.
void tst_play::paintsTheStrokes()
{
    const QImage picture = play({write("red.json", kRed)});
    QCOMPARE(picture, paper(QSize(60, 40),
                            [](QPainter &painter) { drawLine(painter, Qt::red, 4, QPoint(10, 20), QPoint(50, 20)); }));
    QCOMPARE(picture.pixel(30, 17), 0xFFFFFFFF);
    QCOMPARE(picture.pixel(30, 18), 0xFFFF0000);
    QCOMPARE(picture.pixel(30, 21), 0xFFFF0000);
    QCOMPARE(picture.pixel(30, 22), 0xFFFFFFFF);
}

// The page is as wide as the first and as high as the second, which lies above.
void tst_play::playsFilesOverEachOther()
{
    const QImage picture = play({write("red.json", kRed), write("blue.json", kBlue)});
    QCOMPARE(picture.size(), QSize(60, 80));
    QCOMPARE(picture.pixel(20, 20), 0xFFFF0000);
    QCOMPARE(picture.pixel(30, 20), 0xFF0000FF);
    QCOMPARE(picture.pixel(30, 60), 0xFF0000FF);
    QCOMPARE(picture.pixel(55, 75), 0xFFFFFFFF);
}

void tst_play::takesASize()
{
    const QImage picture = play({QStringLiteral("--size"), QStringLiteral("25x30"), write("red.json", kRed)});
    QCOMPARE(picture, paper(QSize(25, 30),
                            [](QPainter &painter) { drawLine(painter, Qt::red, 4, QPoint(10, 20), QPoint(50, 20)); }));
}

void tst_play::takesATool()
{
    const QByteArray corners = R"({"width": 60, "height": 40, "strokes": [
        {"color": "#ff0000", "width": 3, "points": [[10, 10], [3, 5], [50, 30]]}]})";
    const QImage picture = play({QStringLiteral("--tool"), QStringLiteral("rectangle"), write("box.json", corners)});
    QCOMPARE(picture, paper(QSize(60, 40),
                            [](QPainter &painter) { drawBox(painter, Qt::red, 3, QPoint(10, 10), QPoint(50, 30)); }));
}

void tst_play::paintsNothingWithAToolThatPoints()
{
    QCOMPARE(play({QStringLiteral("--tool"), QStringLiteral("laser"), write("red.json", kRed)}),
             blankPaper(QSize(60, 40)));
}

// A line without length is a dot; a pencil that does not move paints nothing.
void tst_play::playsAStrokeOfOnePoint()
{
    const QByteArray point = R"({"width": 60, "height": 40, "strokes": [
        {"color": "#ff0000", "width": 8, "points": [[30, 20]]}]})";
    const QImage dot = play({QStringLiteral("--tool"), QStringLiteral("line"), write("point.json", point)});
    QCOMPARE(dot.pixel(30, 20), 0xFFFF0000);
    QCOMPARE(dot.pixel(30, 26), 0xFFFFFFFF);
    QCOMPARE(play({QStringLiteral("point.json")}), blankPaper(QSize(60, 40)));
}

void tst_play::replacesThePicture()
{
    write("out.png", "old");
    QCOMPARE(play({write("red.json", kRed)}).size(), QSize(60, 40));
}

void tst_play::sayWhatIsWrong_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("error");

    const auto row = [](const char *arguments, const char *error) {
        QTest::newRow(arguments) << QString::fromLatin1(arguments).split(QLatin1Char(' '))
                                 << QString::fromLatin1(error);
    };
    row("--play --png out.png missing.json", "missing.json: cannot be read: No such file or directory");
    row("--play --png out.png red.json syntax.json", "syntax.json: line 2, column 1: unterminated array");
    row("--play --png out.png point.json", "point.json: strokes[0].points[1]: not a number");
    row("--play --png out.png huge.json", "huge.json: height: must be 1 to 16384");
    row("--play --png out.png wide.json high.json",
        "the page for all files: a page has at most 67108864 pixels in all");
    row("--play --png out.png", "--play: the stroke files are missing");
    row("--play red.json", "--play: --png OUT is missing");
    row("--play red.json --png", "Missing value after '--png'.");
    row("--play --png out.png --tool crayons red.json", "");
    row("--play --png out.png --size 100 red.json", "--size 100: not a size of the form WIDTHxHEIGHT");
    row("--play --png out.png --size 0x100 red.json", "--size 0x100: a side must be 1 to 16384 pixels");
    row("--play --png out.png --size 100x100000 red.json", "--size 100x100000: a side must be 1 to 16384 pixels");
    row("--play --png out.png --size 16384x16384 red.json",
        "--size 16384x16384: a page has at most 67108864 pixels in all");
    row("--play --png out.png --export page.png red.json", "--export: only in the window; --play has --png");
    row("--play --png out.png --loud red.json", "Unknown option 'loud'.");
    row("-platform offscreen a.inkboard b.inkboard", "b.inkboard: the window opens one lesson at a time");
    row("-platform offscreen --size 50x40 a.inkboard", "--size: a lesson has a size of its own");
    row("-platform offscreen --png out.png", "--png: only with --play; the window has --export");
    row("-platform offscreen --export=", "--export: the file name is missing");
}

void tst_play::sayWhatIsWrong()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, error);
    write("red.json", kRed);
    write("syntax.json", "{\"width\": 5, \"height\": 5, \"strokes\": [\n");
    write("point.json", R"({"width": 5, "height": 5, "strokes": [
        {"color": "#ff0000", "width": 8, "points": [[1, 1], [2, "2"]]}]})");
    write("huge.json", R"({"width": 5, "height": 100000, "strokes": []})");
    write("wide.json", R"({"width": 16384, "height": 1, "strokes": []})");
    write("high.json", R"({"width": 1, "height": 16384, "strokes": []})");
    const QStringList before = QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::Hidden);

    const Result result = run(arguments);
    QCOMPARE(result.code, 2);
    QCOMPARE(result.out, QString());
    if (error.isEmpty())
        QVERIFY2(result.err.startsWith(QStringLiteral("--tool crayons: no such tool; there are: pencil, ")),
                 qPrintable(result.err));
    else
        QCOMPARE(result.err, error + QLatin1Char('\n'));
    QCOMPARE(result.err.count(QLatin1Char('\n')), 1);
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::Hidden), before);
}

void tst_play::writesNothingWhenOneFileIsBad()
{
    const Result result = run({QStringLiteral("--play"), write("red.json", kRed), write("bad.json", "[]"),
                               QStringLiteral("--png"), QStringLiteral("out.png")});
    QCOMPARE(result.code, 2);
    QCOMPARE(result.err, QStringLiteral("bad.json: not a JSON object\n"));
    QVERIFY(!QFile::exists(path("out.png")));
}

void tst_play::keepsThePictureWhenAFileIsBad()
{
    write("out.png", "old");
    QCOMPARE(
        run({QStringLiteral("--play"), write("bad.json", "[]"), QStringLiteral("--png"), QStringLiteral("out.png")})
            .code,
        2);
    QFile file(path("out.png"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("old"));
}

void tst_play::cannotWriteThere()
{
    const QString file = write("red.json", kRed);
    const Result result =
        run({QStringLiteral("--play"), file, QStringLiteral("--png"), QStringLiteral("missing/out.png")});
    QCOMPARE(result.code, 2);
    QCOMPARE(result.err, QStringLiteral("missing/out.png: cannot be written: No such file or directory\n"));

    const Result folder = run({QStringLiteral("--play"), file, QStringLiteral("--png"), m_folder->path()});
    QCOMPARE(folder.code, 2);
    QVERIFY2(folder.err.startsWith(m_folder->path() + QStringLiteral(": cannot be written: ")), qPrintable(folder.err));
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden), QStringList{QStringLiteral("red.json")});
}

void tst_play::showsHelpAndVersion()
{
    const Result help = run({QStringLiteral("--help")});
    QCOMPARE(help.code, 0);
    QCOMPARE(help.err, QString());
    for (const char *word : {"--play", "--png", "--export", "--tool", "--size", "rounded-rectangle", "16384"})
        QVERIFY2(help.out.contains(QString::fromLatin1(word)), word);

    const Result version = run({QStringLiteral("--version")});
    QCOMPARE(version.code, 0);
    QCOMPARE(version.out, QStringLiteral("inkboard 2.7.3236\n"));
}

namespace {

void eachDrawing(const QString &folder)
{
    QTest::addColumn<QString>("file");
    const QFileInfoList files = QDir(folder).entryInfoList({QStringLiteral("*.json")}, QDir::Files, QDir::Name);
    for (const QFileInfo &file : files)
        QTest::newRow(qPrintable(file.fileName())) << file.absoluteFilePath();
    if (files.isEmpty())
        QTest::newRow("none") << QString();
}

// A stroke that ends where it began may be hidden under a later one, but no point of it can be blank.
bool hasInkAt(const QImage &picture, const QPoint &point)
{
    const QRect around = QRect(point - QPoint(1, 1), QSize(3, 3)) & picture.rect();
    for (int y = around.top(); y <= around.bottom(); ++y) {
        for (int x = around.left(); x <= around.right(); ++x) {
            if (picture.pixel(x, y) != 0xFFFFFFFF)
                return true;
        }
    }
    return false;
}

} // namespace

void tst_play::playsTheLessons_data()
{
    eachDrawing(QStringLiteral(LESSONS));
}

void tst_play::playsTheLessons()
{
    QFETCH(QString, file);
    QString error;
    const auto drawing = InkLesson::readStrokeFile(file, error);
    QVERIFY2(drawing, qPrintable(error));
    QVERIFY(!drawing->title.isEmpty());
    QCOMPARE(drawing->license, QStringLiteral("same as the project"));
    const QImage picture = play({file});
    QCOMPARE(picture.size(), drawing->size);
    const QRect page(QPoint(), drawing->size);
    for (const InkLesson::Stroke &stroke : drawing->strokes) {
        for (const QPoint &point : stroke.points) {
            QVERIFY(page.contains(point));
            QVERIFY2(hasInkAt(picture, point), qPrintable(QStringLiteral("%1,%2").arg(point.x()).arg(point.y())));
        }
    }
}

void tst_play::playsALesson()
{
    const QByteArray lesson = R"({"inkboard":1,"size":[60,40]}
{"do":"draw","id":1,"life":{"acts":[[1,10,20],[5,30,20],[2,50,20],"finish"],"canvas":[60,40],"color":"#ffff0000","tool":"line","width":4},"page":1}
{"at":1,"do":"add-page","page":2,"size":[60,40]}
)";
    QCOMPARE(play({write("lesson.inkboard", lesson)}), paper(QSize(60, 40), [](QPainter &painter) {
                 drawLine(painter, Qt::red, 4, QPoint(10, 20), QPoint(50, 20));
             }));
    QVERIFY(QFile::remove(path("out.png")));
    const Result result = run({QStringLiteral("--play"), write("bad.inkboard", lesson + "nonsense\n"),
                               QStringLiteral("--png"), QStringLiteral("out.png")});
    QCOMPARE(result.code, 2);
    QCOMPARE(result.err, QStringLiteral("bad.inkboard: line 4: nothing that can be read\n"));
    QVERIFY(!QFile::exists(path("out.png")));
}

// A lesson that was saved once opens with the same pixels, whatever tool was used.
void tst_play::showsEveryTool()
{
    const QString file = QStringLiteral(LESSONS "/tools.inkboard");
    QCOMPARE(play({file}), QImage(QStringLiteral(TOOLS_PICTURE)).convertToFormat(QImage::Format_RGB32));
    QFile lesson(file);
    QVERIFY(lesson.open(QIODevice::ReadOnly));
    const QByteArray bytes = lesson.readAll();
    QVERIFY(bytes.contains("\"tool\":\"picture\""));
    for (const Board::Tool &tool : Board::tools()) {
        const QByteArray name = tool.name;
        const bool leavesNoMark = name == "water-color-pen" || name == "heart" || !tool.kind;
        QCOMPARE(bytes.contains("\"tool\":\"" + name + '"'), !leavesNoMark);
    }
}

void tst_play::playsRecordedStrokes_data()
{
    eachDrawing(QStringLiteral(STROKES));
}

void tst_play::playsRecordedStrokes()
{
    QFETCH(QString, file);
    if (file.isEmpty())
        QSKIP("there is no folder of recorded strokes");
    QString error;
    const auto drawing = InkLesson::readStrokeFile(file, error);
    QVERIFY2(drawing, qPrintable(error));
    const QImage picture = play({file});
    QCOMPARE(picture.size(), drawing->size);
    for (const InkLesson::Stroke &stroke : drawing->strokes) {
        for (const QPoint &point : stroke.points)
            QVERIFY2(hasInkAt(picture, point), qPrintable(QStringLiteral("%1,%2").arg(point.x()).arg(point.y())));
    }
}

QTEST_GUILESS_MAIN(tst_play)
#include "tst_play.moc"
