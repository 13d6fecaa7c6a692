#include "PageProbe.h"

#include "lesson/paper/PaperPainter.h"

#include <QtTest/QtTest>

using namespace Board;

namespace {

// Fills the area that it is asked to paint: green on the layers that last, blue on the surface.
class Filling : public CInkGraph
{
public:
    explicit Filling(bool finishes)
        : m_finishes(finishes)
    {
    }

    void Draw(QPainter &p1, QPainter &p2, QPainter & /*p3*/, QPainter &p4, QRect rc, int /*reserved*/,
              int /*skip*/) override
    {
        p2.fillRect(rc, Qt::blue);
        if (m_bFinished) {
            p1.fillRect(rc, Qt::green);
            p4.fillRect(rc, Qt::green);
        }
    }
    void Draw(QPainter & /*painter*/, QRect & /*rect*/) override {}
    bool FinishGraph() override { return m_finishes; }
    QRect GetUpdateRect() override { return {}; }
    void AddPoint(int code, QPoint pt, QRect &update) override
    {
        update |= QRect(pt, QSize(20, 20));
        m_bFinished = code == PT_UP;
    }

private:
    bool m_finishes;
};

// Keeps what each painting says about the background.
class Listening : public Filling
{
public:
    explicit Listening(std::vector<int> &news)
        : Filling(true)
        , m_news(news)
    {
    }

    using Filling::Draw;
    void Draw(QPainter &p1, QPainter &p2, QPainter &p3, QPainter &p4, QRect rc, int newBackground, int skip) override
    {
        m_news.push_back(newBackground);
        Filling::Draw(p1, p2, p3, p4, rc, newBackground, skip);
    }

private:
    std::vector<int> &m_news;
};

void eraseOn(Page &page, const QPoint &from, const QPoint &to)
{
    page.begin(object("eraser", Qt::red, 40));
    drag(page, from, to);
}

QStringList s_messages;

void keepMessage(QtMsgType type, const QMessageLogContext & /*context*/, const QString &text)
{
    if (type != QtDebugMsg)
        s_messages.append(text);
}

} // namespace

class tst_Page : public QObject
{
    Q_OBJECT

private slots:
    void startsBlank();
    void paintsAStrokeOnAllLayersAtItsRelease();
    void reportsWhatEachEventChanges();
    void keepsAnEditedObjectOffThePage();
    void commitsAtThePressOutside();
    void commitsWhenFinished();
    void paintsTheSameAsDirectPainting();
    void takesBackTheStatesOfAnArrowLine();
    void leavesNoClipBehind();
    void forgetsWhatPaintsNothing_data();
    void forgetsWhatPaintsNothing();
    void wipesLiveInkBeyondTheFrame();
    void showsOnlyTheNewestShape();
    void dropsWhatCannotBeFinished();
    void replaysEachObjectInItsOwnArea();
    void changesNothingOutsideTheReportedArea_data();
    void changesNothingOutsideTheReportedArea();
    void undoesTheLastObject();
    void undoesTheObjectInProgress();
    void replaysTheSamePixels();
    void undoesAClear();
    void keepsInkWhenItGrows();
    void tellsOfANewBackground();
    void showsTheObjectInProgressWhenItGrows();
    void neverShrinks();
    void erasesToThePaperThatIsThere();
    void erasesToPaperThatHasGrown();
    void tellsAHandle();
};

void tst_Page::startsBlank()
{
    Page page(kSize);
    QVERIFY(!page.isNull());
    QVERIFY(isBlank(page));
    QVERIFY(!page.canUndo());
    QVERIFY(!page.isBusy());
    QCOMPARE(page.feed(PT_DOWN, QPoint(10, 10)), QRect());
    QCOMPARE(page.finish(), QRect());
    QCOMPARE(page.undo(), QRect());
    QCOMPARE(page.clear(), QRect());
    QVERIFY(isBlank(page));
}

// Four pixels wide around y = 50: the rows 48 to 51.
void tst_Page::paintsAStrokeOnAllLayersAtItsRelease()
{
    Page page(kSize);
    page.begin(object("pencil"));
    page.feed(PT_DOWN, QPoint(20, 50));
    page.feed(PT_MOVE, QPoint(80, 50));
    QCOMPARE(page.surface().pixel(50, 48), 0xFFFF0000);
    QCOMPARE(page.picture().pixel(50, 48), 0xFFFFFFFF);
    QCOMPARE(page.ink().pixel(50, 48), 0u);

    page.feed(PT_UP, QPoint(81, 50));
    QVERIFY(!page.isBusy());
    for (const int y : {48, 51}) {
        QCOMPARE(page.surface().pixel(50, y), 0xFFFF0000);
        QCOMPARE(page.picture().pixel(50, y), 0xFFFF0000);
        QCOMPARE(page.ink().pixel(50, y), 0xFFFF0000);
    }
    for (const int y : {47, 52}) {
        QCOMPARE(page.surface().pixel(50, y), 0xFFFFFFFF);
        QCOMPARE(page.picture().pixel(50, y), 0xFFFFFFFF);
        QCOMPARE(page.ink().pixel(50, y), 0u);
    }
    QVERIFY(page.canUndo());
}

void tst_Page::reportsWhatEachEventChanges()
{
    Page page(QSize(100, 100));
    page.begin(object("pencil"));
    // One point paints nothing yet.
    QVERIFY(page.feed(PT_DOWN, QPoint(20, 50)).isEmpty());
    // The segment (20,50)-(80,50), made 4 pixels higher below and grown by 20: (0,30)-(100,74), cut at the page.
    QCOMPARE(page.feed(PT_MOVE, QPoint(80, 50)), QRect(QPoint(0, 30), QPoint(99, 74)));
    // The whole stroke grown by 32: (-12,18)-(112,82).
    QCOMPARE(page.feed(PT_UP, QPoint(80, 50)), QRect(QPoint(0, 18), QPoint(99, 82)));
}

// The box (100,100)-(200,160) has its frame at (90,90)-(210,170) and its knob, 20 pixels wide, at (150,60).
void tst_Page::keepsAnEditedObjectOffThePage()
{
    Page page(kSize);
    page.begin(object("rectangle"));
    drag(page, QPoint(100, 100), QPoint(200, 160));
    QVERIFY(page.isBusy());
    QVERIFY(!page.isForming());
    QCOMPARE(page.surface().pixel(150, 60), 0xFF4040FF);
    QCOMPARE(page.surface().pixel(150, 100), 0xFFFF0000);
    QCOMPARE(page.picture(), blankPaper(kSize));
}

void tst_Page::commitsAtThePressOutside()
{
    Page page(kSize);
    page.begin(object("rectangle"));
    drag(page, QPoint(100, 100), QPoint(200, 160));
    const QRect changed = page.feed(PT_DOWN, QPoint(300, 20));
    QVERIFY(!page.isBusy());
    QVERIFY(changed.contains(QRect(90, 50, 120, 120)));
    const QImage expected =
        paper(kSize, [](QPainter &painter) { drawBox(painter, Qt::red, 4, QPoint(100, 100), QPoint(200, 160)); });
    QCOMPARE(page.picture(), expected);
    QCOMPARE(page.surface(), expected);
    QVERIFY(page.feed(PT_MOVE, QPoint(320, 40)).isEmpty());
}

void tst_Page::commitsWhenFinished()
{
    Page page(kSize);
    page.begin(object("rectangle"));
    drag(page, QPoint(100, 100), QPoint(200, 160));
    const QImage before = page.surface().copy();
    const QRect changed = page.finish();
    QVERIFY(changed.contains(QRect(140, 50, 20, 20))); // the knob
    QVERIFY(sameOutside(before, page.surface(), changed));
    QCOMPARE(page.surface().pixel(150, 60), 0xFFFFFFFF);
    QCOMPARE(page.picture(),
             paper(kSize, [](QPainter &painter) { drawBox(painter, Qt::red, 4, QPoint(100, 100), QPoint(200, 160)); }));
    QCOMPARE(page.surface(), page.picture());
}

void tst_Page::paintsTheSameAsDirectPainting()
{
    Page page(kSize);
    drawLineOn(page, Qt::red, QPoint(20, 30), QPoint(300, 200));
    page.begin(object("rectangle", Qt::blue, 7));
    drag(page, QPoint(250, 250), QPoint(50, 60));
    page.finish();
    page.begin(object("arrow-line", Qt::green, 12));
    drag(page, QPoint(300, 40), QPoint(30, 240));
    page.finish();

    const auto paint = [](QPainter &painter) {
        drawLine(painter, Qt::red, 4, QPoint(20, 30), QPoint(300, 200));
        drawBox(painter, Qt::blue, 7, QPoint(50, 60), QPoint(250, 250));
        drawLine(painter, Qt::green, 12, QPoint(300, 40), QPoint(30, 240));
    };
    QCOMPARE(page.picture(), paper(kSize, paint));
    QCOMPARE(page.surface(), paper(kSize, paint));

    QImage ink(kSize, QImage::Format_ARGB32_Premultiplied);
    ink.fill(Qt::transparent);
    QPainter painter(&ink);
    painter.setRenderHint(QPainter::Antialiasing);
    paint(painter);
    painter.end();
    QCOMPARE(page.ink(), ink);
}

void tst_Page::takesBackTheStatesOfAnArrowLine()
{
    s_messages.clear();
    const QtMessageHandler before = qInstallMessageHandler(keepMessage);
    Page page(kSize);
    page.begin(object("arrow-line"));
    drag(page, QPoint(20, 30), QPoint(300, 200));
    page.finish();
    page.undo();
    qInstallMessageHandler(before);
    QCOMPARE(s_messages, QStringList());
}

void tst_Page::leavesNoClipBehind()
{
    Page page(kSize);
    page.begin(object("pencil"));
    drag(page, QPoint(20, 20), QPoint(30, 20)); // clipped to (-12,-12)-(62,52)
    drawLineOn(page, Qt::blue, QPoint(200, 200), QPoint(300, 200));
    QCOMPARE(page.picture().pixel(250, 200), 0xFF0000FF);
    QCOMPARE(page.surface().pixel(250, 200), 0xFF0000FF);
    QCOMPARE(page.ink().pixel(250, 200), 0xFF0000FF);
}

void tst_Page::forgetsWhatPaintsNothing_data()
{
    QTest::addColumn<QString>("tool");
    QTest::addColumn<QPoint>("to");

    QTest::newRow("a pencil that only touches") << QStringLiteral("pencil") << QPoint(50, 50);
    QTest::newRow("a rectangle of 6 pixels") << QStringLiteral("rectangle") << QPoint(56, 50);
    QTest::newRow("a rounded rectangle of 6 pixels") << QStringLiteral("rounded-rectangle") << QPoint(50, 56);
    QTest::newRow("a line beyond the page") << QStringLiteral("line") << QPoint(-500, -500);
}

void tst_Page::forgetsWhatPaintsNothing()
{
    QFETCH(QString, tool);
    QFETCH(QPoint, to);
    const QPoint from = to.x() < 0 ? QPoint(-400, -400) : QPoint(50, 50);
    Page page(kSize);
    page.begin(createObject(*InkLesson::findTool(tool), {Qt::red, 4}, kSize));
    drag(page, from, to);
    page.finish();
    QVERIFY(!page.isBusy());
    QVERIFY(!page.canUndo());
    QVERIFY(isBlank(page));
}

// A committed stroke is clipped 32 pixels beyond its points, at x = 268. The live one is 50 pixels thick on each side,
// so it reaches to x = 250; the last segment, (700,500)-(800,600), reports nothing left of x = 500.
void tst_Page::wipesLiveInkBeyondTheFrame()
{
    Page page(QSize(1000, 800));
    page.begin(object("pencil", Qt::red, 100));
    page.feed(PT_DOWN, QPoint(300, 300));
    page.feed(PT_MOVE, QPoint(310, 300));
    page.feed(PT_MOVE, QPoint(700, 500));
    QCOMPARE(page.surface().pixel(255, 300), 0xFFFF0000);
    const QRect changed = page.feed(PT_UP, QPoint(800, 600));
    QVERIFY(changed.contains(255, 300));
    QCOMPARE(page.surface().pixel(255, 300), 0xFFFFFFFF);
    QCOMPARE(page.surface().pixel(275, 300), 0xFFFF0000);
    QCOMPARE(page.surface(), page.picture());
}

void tst_Page::showsOnlyTheNewestShape()
{
    Page page(kSize);
    page.begin(object("rectangle"));
    page.feed(PT_DOWN, QPoint(100, 100));
    page.feed(PT_MOVE, QPoint(300, 250));
    const QRect changed = page.feed(PT_MOVE, QPoint(150, 120));
    QVERIFY(changed.contains(QRect(QPoint(98, 98), QPoint(302, 252))));
    QCOMPARE(page.surface(),
             paper(kSize, [](QPainter &painter) { drawBox(painter, Qt::red, 4, QPoint(100, 100), QPoint(150, 120)); }));
}

void tst_Page::dropsWhatCannotBeFinished()
{
    Page page(kSize);
    page.begin(std::make_unique<Filling>(false));
    page.feed(PT_DOWN, QPoint(50, 50));
    QCOMPARE(page.surface().pixel(60, 60), 0xFF0000FF);
    QCOMPARE(page.finish(), QRect(50, 50, 20, 20));
    QVERIFY(!page.isBusy());
    QVERIFY(!page.canUndo());
    QVERIFY(isBlank(page));
}

void tst_Page::replaysEachObjectInItsOwnArea()
{
    Page page(kSize);
    page.begin(std::make_unique<Filling>(true));
    page.feed(PT_UP, QPoint(50, 50));
    page.begin(std::make_unique<Filling>(true));
    page.feed(PT_UP, QPoint(200, 100));
    page.undo();
    const QImage expected =
        paper(kSize, [](QPainter &painter) { painter.fillRect(50, 50, 20, 20, QColor(Qt::green)); });
    QCOMPARE(page.picture(), expected);
    QCOMPARE(page.surface(), expected);
    QCOMPARE(page.ink().pixel(50, 50), 0xFF00FF00);
    QCOMPARE(page.ink().pixel(49, 50), 0u);
}

void tst_Page::changesNothingOutsideTheReportedArea_data()
{
    QTest::addColumn<QString>("name");
    for (const InkLesson::Tool &tool : InkLesson::tools())
        QTest::newRow(tool.name) << QString::fromLatin1(tool.name);
}

// Draws, and where the tool lets it be edited drags the lower right corner and the knob, moves it and lets it go.
void tst_Page::changesNothingOutsideTheReportedArea()
{
    QFETCH(QString, name);
    const std::pair<int, QPoint> events[] = {{PT_DOWN, {100, 100}}, {PT_MOVE, {103, 130}}, {PT_MOVE, {180, 140}},
                                             {PT_MOVE, {150, 90}},  {PT_UP, {200, 160}},   {PT_DOWN, {210, 170}},
                                             {PT_MOVE, {240, 200}}, {PT_UP, {250, 210}},   {PT_DOWN, {170, 60}},
                                             {PT_MOVE, {260, 90}},  {PT_UP, {250, 140}},   {PT_DOWN, {160, 140}},
                                             {PT_MOVE, {140, 150}}, {PT_UP, {180, 160}},   {PT_DOWN, {390, 10}}};

    Page page(kSize);
    drawLineOn(page, Qt::blue, QPoint(5, 5), QPoint(390, 290));
    page.begin(createObject(*InkLesson::findTool(name), {Qt::red, 6}, kSize));
    for (const auto &[code, pt] : events) {
        const QImage surface = page.surface().copy();
        const QImage picture = page.picture().copy();
        const QImage ink = page.ink().copy();
        const QRect area = page.feed(code, pt);
        QVERIFY(area.isEmpty() || page.rect().contains(area));
        QVERIFY(sameOutside(surface, page.surface(), area));
        QVERIFY(sameOutside(picture, page.picture(), area));
        QVERIFY(sameOutside(ink, page.ink(), area));
    }
    // A tool of several gestures is still being drawn.
    const QImage surface = page.surface().copy();
    const QImage picture = page.picture().copy();
    const QRect area = page.finish();
    QVERIFY(sameOutside(surface, page.surface(), area));
    QVERIFY(sameOutside(picture, page.picture(), area));
    QVERIFY(!page.isBusy());
    QCOMPARE(page.surface(), page.picture());
}

void tst_Page::undoesTheLastObject()
{
    Page page(kSize);
    drawLineOn(page, Qt::red, QPoint(20, 20), QPoint(200, 20));
    const QImage one = page.picture().copy();
    const QImage ink = page.ink().copy();
    drawLineOn(page, Qt::blue, QPoint(20, 100), QPoint(200, 10));

    QCOMPARE(page.undo(), QRect(0, 0, 400, 300));
    QCOMPARE(page.picture(), one);
    QCOMPARE(page.surface(), one);
    QCOMPARE(page.ink(), ink);

    page.undo();
    QVERIFY(isBlank(page));
    QVERIFY(!page.canUndo());
}

void tst_Page::undoesTheObjectInProgress()
{
    Page page(kSize);
    drawLineOn(page, Qt::red, QPoint(20, 20), QPoint(200, 20));
    const QImage one = page.picture().copy();
    page.begin(object("rectangle"));
    drag(page, QPoint(100, 100), QPoint(200, 160));
    page.undo();
    QVERIFY(!page.isBusy());
    QCOMPARE(page.surface(), one);
    QCOMPARE(page.picture(), one);
    QVERIFY(page.canUndo());
}

void tst_Page::replaysTheSamePixels()
{
    Page page(kSize);
    for (const InkLesson::Tool &tool : InkLesson::tools()) {
        page.begin(createObject(tool, {QColor(200, 30, 60, 120), 40}, kSize));
        drag(page, QPoint(60, 60), QPoint(330, 240));
        drag(page, QPoint(340, 250), QPoint(360, 270));
        page.finish();
    }
    const QImage picture = page.picture().copy();
    const QImage ink = page.ink().copy();
    drawLineOn(page, Qt::blue, QPoint(20, 100), QPoint(200, 10));
    page.undo();
    QCOMPARE(page.picture(), picture);
    QCOMPARE(page.surface(), picture);
    QCOMPARE(page.ink(), ink);
}

void tst_Page::undoesAClear()
{
    Page page(kSize);
    drawLineOn(page, Qt::red, QPoint(20, 20), QPoint(200, 20));
    const QImage one = page.picture().copy();
    QCOMPARE(page.clear(), QRect(0, 0, 400, 300));
    QVERIFY(isBlank(page));
    page.clear(); // of a blank page: nothing to undo

    drawLineOn(page, Qt::blue, QPoint(20, 100), QPoint(200, 10));
    page.undo();
    QVERIFY(isBlank(page));
    page.undo();
    QCOMPARE(page.picture(), one);
    QCOMPARE(page.surface(), one);
    page.undo();
    QVERIFY(isBlank(page));
    QVERIFY(!page.canUndo());
}

// Both the committed object and the one in progress, and only after the page has grown.
void tst_Page::tellsOfANewBackground()
{
    Page page(kSize);
    std::vector<int> news;
    page.begin(std::make_unique<Listening>(news));
    drag(page, QPoint(10, 10), QPoint(20, 20));
    page.begin(std::make_unique<Listening>(news));
    page.feed(PT_DOWN, QPoint(10, 10));
    QCOMPARE(news, (std::vector<int>{0, 0, 0, 0}));
    news.clear();
    page.grow(QSize(500, 400));
    QCOMPARE(news, (std::vector<int>{1, 1}));
    news.clear();
    page.feed(PT_MOVE, QPoint(15, 15));
    page.undo();
    QCOMPARE(news, (std::vector<int>{0, 0}));
}

void tst_Page::keepsInkWhenItGrows()
{
    Page page(QSize(100, 100));
    drawLineOn(page, Qt::red, QPoint(20, 20), QPoint(180, 20));
    page.grow(QSize(200, 150));
    const QImage expected = paper(QSize(200, 150), [](QPainter &painter) {
        drawLine(painter, Qt::red, 4, QPoint(20, 20), QPoint(180, 20)); // also beyond the first page
    });
    QCOMPARE(page.picture(), expected);
    QCOMPARE(page.surface(), expected);
}

void tst_Page::showsTheObjectInProgressWhenItGrows()
{
    Page page(QSize(300, 200));
    page.begin(object("rectangle"));
    drag(page, QPoint(100, 100), QPoint(200, 160));
    page.grow(kSize);
    QCOMPARE(page.surface().pixel(150, 60), 0xFF4040FF);
    QCOMPARE(page.picture(), blankPaper(kSize));
    page.finish();
    QCOMPARE(page.surface(), page.picture());
    QCOMPARE(page.picture(),
             paper(kSize, [](QPainter &painter) { drawBox(painter, Qt::red, 4, QPoint(100, 100), QPoint(200, 160)); }));
}

void tst_Page::neverShrinks()
{
    Page page(kSize);
    drawLineOn(page, Qt::red, QPoint(20, 20), QPoint(380, 280));
    const QImage picture = page.picture().copy();
    page.grow(QSize(10, 10));
    QCOMPARE(page.picture(), picture);
    page.grow(QSize(10, 350));
    QCOMPARE(page.rect(), QRect(0, 0, 400, 350));
    QCOMPARE(page.picture().copy(0, 0, 400, 300), picture);
}

// An eraser keeps a copy of the paper that it was painted over.
void tst_Page::erasesToThePaperThatIsThere()
{
    Page page(kSize);
    drawLineOn(page, Qt::red, QPoint(20, 20), QPoint(380, 280));
    eraseOn(page, QPoint(50, 150), QPoint(350, 150));
    page.setPaper({Paper::Kind::Ruled, {}});
    page.undo();
    page.remove(1); // paints the others again
    QVERIFY(isBlank(page));
}

void tst_Page::erasesToPaperThatHasGrown()
{
    const Paper ruled{Paper::Kind::Ruled, {}};
    Page page(kSize);
    page.setPaper(ruled);
    drawLineOn(page, Qt::red, QPoint(200, 20), QPoint(200, 280));
    eraseOn(page, QPoint(200, 150), QPoint(200, 500));
    page.undo();
    page.grow(QSize(400, 600));
    page.redo();
    QCOMPARE(page.picture().pixel(200, 100), 0xFFFF0000);
    page.remove(1);
    QCOMPARE(page.picture(), paintedPaper(ruled, QSize(400, 600)));
}

void tst_Page::tellsAHandle()
{
    Page page(kSize);
    QCOMPARE(page.handleAt(QPoint(150, 60)), MT_NONE);
    page.begin(object("rectangle"));
    page.feed(PT_DOWN, QPoint(100, 100));
    QVERIFY(page.isForming());
    QCOMPARE(page.handleAt(QPoint(150, 60)), MT_NONE);
    page.feed(PT_UP, QPoint(200, 160));
    QCOMPARE(page.handleAt(QPoint(150, 60)), MT_ROTATE);
    QCOMPARE(page.handleAt(QPoint(210, 170)), MT_RIGHT_BOTTOM);
    QCOMPARE(page.handleAt(QPoint(150, 130)), MT_MOVE);
    QCOMPARE(page.angle(), 0.0f);
    drag(page, QPoint(150, 60), QPoint(250, 130));
    QCOMPARE(page.angle(), 90.0f);
}

QTEST_MAIN(tst_Page)
#include "tst_Page.moc"
