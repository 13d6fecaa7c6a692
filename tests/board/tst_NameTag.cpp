#include "CanvasProbe.h"
#include "Paper.h"
#include "board/person/NameDialog.h"
#include "board/person/Settings.h"
#include "board/window/MainWindow.h"
#include "lesson/log/RecordCode.h"

#include "CInkGraph.h"
#include "Patience.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QTemporaryDir>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>

using namespace Board;

namespace {

const Drawer kAda{QStringLiteral("Ada"), {}, true};

bool differ(const QImage &first, const QImage &second, const QPoint &pt)
{
    return first.pixel(pt) != second.pixel(pt);
}

} // namespace

class tst_NameTag : public QObject, private CanvasProbe
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_canvas.reset(); }

    void liesWhereTheObjectSays();
    void iconLiesAroundTheTip();
    void goesWithTheCommit();
    void repaintsWhereItWas();
    void changesNothingOfThePage_data();
    void changesNothingOfThePage();
    void isNotShownUnlessAskedFor();
    void tellsTheObjectWhoDraws();
    void isAsDenseAsThePage();
    void isKept();
    void asksForTheName();
    void showsANameThatIsTyped();
    void takesAPictureAsIcon();

private:
    QImage shown() { return m_canvas->grab().toImage().convertToFormat(QImage::Format_RGB32); }
    void start(const char *tool, const QPoint &from, const QPoint &to)
    {
        choose(tool);
        mouse(QEvent::MouseButtonPress, from);
        mouse(QEvent::MouseMove, (from + to) / 2);
        moveTo(to);
    }

    // The canvas tells the object of a move a little later.
    void moveTo(const QPoint &pt)
    {
        mouse(QEvent::MouseMove, pt);
        QTRY_COMPARE_WITH_TIMEOUT(object()->m_graphData.constLast(), QPointF(pt), kPatience);
    }

    const QTemporaryDir m_folder;
};

void tst_NameTag::init()
{
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_folder.path());
    Settings().clear();
    showCanvas();
    m_canvas->setDrawer(kAda);
}

// A line's name hangs at its second end: below it and to the right.
void tst_NameTag::liesWhereTheObjectSays()
{
    start("line", {50, 100}, {200, 150});
    const QSize size = object()->m_sizeName;
    QVERIFY(size.width() > 40 && size.height() > 14);
    const QImage page = m_canvas->page().surface().copy(QRect({0, 0}, kSize));
    const QImage tagged = shown();
    QVERIFY(sameOutside(tagged, page, QRect({200, 150}, size) | QRect(185, 135, 30, 30)));
    const int middle = 150 + size.height() / 2;
    QVERIFY(differ(tagged, page, {200 + size.width() - 4, middle}));
    QVERIFY(!differ(tagged, page, {200 + size.width(), middle}));
    QVERIFY(!differ(tagged, page, {240, 149}));
}

// Thirty pixels a side, in a disc.
void tst_NameTag::iconLiesAroundTheTip()
{
    start("line", {50, 100}, {200, 150});
    const QImage page = m_canvas->page().surface().copy(QRect({0, 0}, kSize));
    const QImage tagged = shown();
    QVERIFY(differ(tagged, page, {200, 136}));
    QVERIFY(!differ(tagged, page, {200, 134}));
    QVERIFY(differ(tagged, page, {186, 150}));
    QVERIFY(!differ(tagged, page, {184, 150}));
    QVERIFY(!differ(tagged, page, {186, 136})); // the corner
    mouse(QEvent::MouseButtonRelease, {200, 150});
    QVERIFY(!differ(shown(), m_canvas->page().surface(), {200, 136})); // none while it is edited
}

void tst_NameTag::goesWithTheCommit()
{
    start("pencil", {50, 100}, {200, 150});
    QVERIFY(shown() != m_canvas->page().surface().copy(QRect({0, 0}, kSize)));
    mouse(QEvent::MouseButtonRelease, {200, 150});
    QVERIFY(!isBusy());
    QCOMPARE(shown(), m_canvas->page().surface().copy(QRect({0, 0}, kSize)));
}

// The widget paints only what it was asked to.
void tst_NameTag::repaintsWhereItWas()
{
    NameTag tag;
    tag.setDrawer(kAda);
    start("line", {50, 100}, {200, 150});
    const QRect first = tag.follow(object());
    QCOMPARE(first.topLeft(), QPoint(185, 135));
    moveTo({300, 40});
    const QRect second = tag.follow(object());
    QVERIFY(second.contains(first));
    QVERIFY(second.contains(QRect(285, 25, 30, 30)));
    const QRect last = tag.follow(nullptr);
    QCOMPARE(last.topLeft(), QPoint(285, 25));
    QVERIFY(tag.follow(nullptr).isEmpty());
}

void tst_NameTag::changesNothingOfThePage_data()
{
    QTest::addColumn<QString>("name");
    for (const Tool &tool : tools()) {
        if (tool.use == Use::Draws && !tool.scatters()) // which goes by the clock
            QTest::newRow(tool.name) << QString::fromLatin1(tool.name);
    }
}

// Neither a pixel nor a word of the log. The last stroke leaves the page, with its name.
void tst_NameTag::changesNothingOfThePage()
{
    QFETCH(QString, name);
    const auto drawn = [&](bool isShown, QByteArray &log) {
        showCanvas();
        m_canvas->setSeed(1);
        m_canvas->setInkWidth(9);
        m_canvas->setDrawer({QStringLiteral("Ada"), {}, isShown});
        choose("pencil");
        CanvasProbe::drag({20, 60}, {380, 60});
        m_canvas->setTool(*findTool(name));
        CanvasProbe::drag({60, 40}, {180, 140});
        m_canvas->finish();
        CanvasProbe::drag({300, 200}, {390, 290});
        m_canvas->finish();
        for (const QByteArray &record : m_document->lesson().log()) {
            QJsonObject line = QJsonDocument::fromJson(InkLesson::jsonLine(record)).object();
            line.remove(QStringLiteral("time"));
            log += QJsonDocument(line).toJson(QJsonDocument::Compact);
        }
        return m_canvas->page().picture();
    };
    QByteArray logWith;
    QByteArray logWithout;
    const QImage with = drawn(true, logWith);
    const QImage without = drawn(false, logWithout);
    QCOMPARE(with, without);
    QCOMPARE(logWith, logWithout);
    QVERIFY(!logWith.isEmpty());
}

void tst_NameTag::isNotShownUnlessAskedFor()
{
    for (const Drawer &drawer : {Drawer{}, Drawer{QStringLiteral("Ada"), {}, false}, Drawer{{}, {}, true}}) {
        m_canvas->setDrawer(drawer);
        start("line", {50, 100}, {200, 150});
        QCOMPARE(shown(), m_canvas->page().surface().copy(QRect({0, 0}, kSize)));
        mouse(QEvent::MouseButtonRelease, {200, 150});
        m_canvas->clear();
    }
}

void tst_NameTag::tellsTheObjectWhoDraws()
{
    start("line", {50, 100}, {200, 150});
    QCOMPARE(QString::fromUtf16(object()->m_szDrawerName), QStringLiteral("Ada"));
    QCOMPARE(QString::fromUtf16(object()->m_szOwnerName), QStringLiteral("Ada"));
}

void tst_NameTag::isAsDenseAsThePage()
{
    NameTag tag;
    tag.setDrawer(kAda);
    start("line", {50, 100}, {200, 150});
    tag.sign(*object());
    const int height = object()->m_sizeName.height();
    tag.setDensity(2);
    tag.sign(*object());
    QVERIFY(std::abs(object()->m_sizeName.height() - 2 * height) <= 2);
}

void tst_NameTag::isKept()
{
    QCOMPARE(readDrawer().name, QString());
    QVERIFY(!readDrawer().isShown);
    QVERIFY(readDrawer().icon.isNull());
    QImage icon(64, 64, QImage::Format_ARGB32);
    icon.fill(Qt::green);
    keepDrawer({QStringLiteral("Łucja"), icon, true});
    QCOMPARE(readDrawer().name, QStringLiteral("Łucja"));
    QVERIFY(readDrawer().isShown);
    QCOMPARE(readDrawer().icon.pixel(5, 5), 0xFF00FF00U);
    Settings().setValue(QStringLiteral("drawer/name"), QString(40, QLatin1Char('x')));
    QCOMPARE(readDrawer().name.size(), 31);
}

void tst_NameTag::asksForTheName()
{
    NameDialog dialog({});
    dialog.findChild<QCheckBox *>()->click();
    auto *name = dialog.findChild<QLineEdit *>();
    QCOMPARE(name->maxLength(), 31);
    QTest::keyClicks(name, QStringLiteral("Ada"));
    QCOMPARE(dialog.drawer().name, QStringLiteral("Ada"));
    QVERIFY(dialog.drawer().isShown);
    QVERIFY(dialog.drawer().icon.isNull());

    // A window that begins with what was kept.
    keepDrawer(dialog.drawer());
    MainWindow window(kSize);
    QTest::mousePress(&window.canvas(), Qt::LeftButton, Qt::NoModifier, {50, 50});
    QCOMPARE(QString::fromUtf16(window.document().author().object()->m_szDrawerName), QStringLiteral("Ada"));
}

// Whoever types a name wants it to be seen.
void tst_NameTag::showsANameThatIsTyped()
{
    NameDialog dialog({});
    auto *name = dialog.findChild<QLineEdit *>();
    QTest::keyClicks(name, QStringLiteral("A"));
    QVERIFY(dialog.findChild<QCheckBox *>()->isChecked());
    QVERIFY(dialog.drawer().isShown);
    dialog.findChild<QCheckBox *>()->click();
    QVERIFY(!dialog.drawer().isShown);
    NameDialog unchanged({QStringLiteral("Ada"), {}, false});
    QVERIFY(!unchanged.drawer().isShown);
    unchanged.findChild<QLineEdit *>()->clear();
    QVERIFY(!unchanged.drawer().isShown);
}

// In a disc, so that the corners are bare.
void tst_NameTag::takesAPictureAsIcon()
{
    QImage picture(64, 128, QImage::Format_ARGB32);
    picture.fill(Qt::green);
    const QImage icon = drawerIcon({QStringLiteral("Ada"), picture, true}, 30);
    QCOMPARE(icon.size(), QSize(30, 30));
    QCOMPARE(icon.pixel(15, 15), 0xFF00FF00U);
    QCOMPARE(icon.pixel(15, 1), 0xFF00FF00U);
    QCOMPARE(icon.pixel(1, 1), 0U);
    QCOMPARE(drawerIcon({QStringLiteral("Ada"), {}, true}, 30).pixel(3, 15), 0xFF2563C9U);
}

QTEST_MAIN(tst_NameTag)
#include "tst_NameTag.moc"
