#include "board/people/ConnectionLabel.h"
#include "board/people/PeopleBar.h"
#include "board/people/PeopleButton.h"
#include "board/people/PeopleList.h"

#include <QtTest/QtTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QToolButton>

using namespace Board;

namespace {

constexpr QRgb kTeacher = 0xFF0B72DF;
constexpr QRgb kPupil = 0xFFEB001E;

// The first is who sits here.
QList<Participant> people(int count)
{
    QList<Participant> all;
    for (int i = 1; i <= count; ++i)
        all.append({i, QStringLiteral("P%1").arg(i), QColor(i == 1 ? kTeacher : kPupil), i, i == 1});
    return all;
}

} // namespace

class tst_PeopleBar : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_bar.reset(); }

    void hasTheButtonAloneWhileNothingIsShared();
    void asksToShare();
    void keepsItsWidthHoweverManyThereAre();
    void showsAsManyAsItHasRoomFor();
    void showsTheColorOfEach();
    void namesAllForTheEar();
    void listsAll();
    void listsWhoHasNoNameOrPage();
    void goesOnListingWhileTheyComeAndGo();
    void opensByKeys();
    void switchesPointers();
    void tellsOfTheConnection();
    void takesNoNameForMarkup();

private:
    template <typename T>
    T &part(const char *name = nullptr) const
    {
        return *m_bar->findChild<T *>(QString::fromLatin1(name));
    }
    PeopleButton &button() const { return part<PeopleButton>(); }
    QListWidget &list() const { return *part<PeopleList>().findChild<QListWidget *>(); }
    QString row(int i) const { return list().item(i)->text(); }

    std::unique_ptr<PeopleBar> m_bar;
};

void tst_PeopleBar::init()
{
    m_bar = std::make_unique<PeopleBar>();
    m_bar->show();
}

void tst_PeopleBar::hasTheButtonAloneWhileNothingIsShared()
{
    QVERIFY(part<QToolButton>("share").isVisible());
    QVERIFY(!button().isVisible());
    QVERIFY(!part<ConnectionLabel>().isVisible());
    m_bar->setPeople(people(2));
    m_bar->setConnection(QStringLiteral("shared with 1"), true);
    QVERIFY(button().isVisible());
    QVERIFY(part<ConnectionLabel>().isVisible());
    m_bar->setPeople({});
    m_bar->setConnection({}, true);
    QVERIFY(!button().isVisible());
    QVERIFY(!part<ConnectionLabel>().isVisible());
}

void tst_PeopleBar::asksToShare()
{
    const QSignalSpy asked(m_bar.get(), &PeopleBar::shareRequested);
    part<QToolButton>("share").click();
    QCOMPARE(asked.count(), 1);
}

// Whatever they are called, and whatever is told of the connection.
void tst_PeopleBar::keepsItsWidthHoweverManyThereAre()
{
    QList<Participant> many = people(30);
    many[1].name = QString(64, QLatin1Char('W'));
    m_bar->setPeople(many);
    m_bar->setConnection(QString(300, QLatin1Char('W')), true);
    QVERIFY2(m_bar->minimumSizeHint().width() < 300, qPrintable(QString::number(m_bar->minimumSizeHint().width())));
    QVERIFY(m_bar->sizeHint().height() <= 40);
    m_bar->setPeople(people(1000));
    QVERIFY2(m_bar->minimumSizeHint().width() < 300, qPrintable(QString::number(m_bar->minimumSizeHint().width())));
}

void tst_PeopleBar::showsAsManyAsItHasRoomFor()
{
    PeopleButton many;
    many.setPeople(people(30));
    QCOMPARE(many.discsIn(10'000), 6);
    QCOMPARE(many.discsIn(many.sizeHint().width()), 6);
    QCOMPARE(many.discsIn(many.sizeHint().width() - 1), 5);
    QCOMPARE(many.discsIn(many.minimumSizeHint().width()), 1);
    QCOMPARE(many.discsIn(0), 1);
    PeopleButton few;
    few.setPeople(people(3));
    QCOMPARE(few.discsIn(10'000), 3);
    QCOMPARE(few.sizeHint().width(), 2 + 28 + 22 + 22 + 2); // without a number
}

// Discs of 28 pixels, 22 from one to the next, each over the one after it; below the letter is the colour.
void tst_PeopleBar::showsTheColorOfEach()
{
    button().setPeople(people(2));
    button().resize(54, 32);
    const QImage picture = button().grab().toImage();
    QCOMPARE(picture.pixel(16, 25), kTeacher);
    QCOMPARE(picture.pixel(38, 25), kPupil);
    QCOMPARE(picture.pixel(26, 16), kTeacher); // where both would be
}

void tst_PeopleBar::namesAllForTheEar()
{
    QCOMPARE(button().accessibleName(), QStringLiteral("In this lesson: 0"));
    m_bar->setPeople(people(3));
    QCOMPARE(button().accessibleName(), QStringLiteral("In this lesson: 3"));
    QCOMPARE(button().accessibleDescription(),
             QString::fromUtf16(u"\u2068P1\u2069 (me), \u2068P2\u2069, \u2068P3\u2069"));
}

void tst_PeopleBar::listsAll()
{
    m_bar->setPeople(people(30));
    button().click();
    QVERIFY(part<PeopleList>().isVisible());
    QCOMPARE(list().count(), 30);
    QCOMPARE(row(0), QString::fromUtf16(u"\u2068P1\u2069 (me), page 1"));
    QCOMPARE(row(29), QString::fromUtf16(u"\u2068P30\u2069, page 30"));
    QVERIFY(list().height() < 400); // and scrolls
}

void tst_PeopleBar::listsWhoHasNoNameOrPage()
{
    m_bar->setPeople({{1, {}, QColor(kTeacher), 0, false}});
    QCOMPARE(row(0), QString::fromUtf16(u"\u2068Somebody\u2069"));
    m_bar->setPeople({{1, QString(QChar(0x200B)), QColor(kTeacher), 2, true}});
    QCOMPARE(row(0), QStringLiteral("Me, page 2"));
}

void tst_PeopleBar::goesOnListingWhileTheyComeAndGo()
{
    m_bar->setPeople(people(5));
    button().click();
    list().setCurrentRow(3);
    m_bar->setPeople(people(7));
    QCOMPARE(list().count(), 7);
    QCOMPARE(list().currentRow(), 3);
    QList<Participant> renamed = people(7);
    renamed[2].name = QStringLiteral("Ada");
    m_bar->setPeople(renamed);
    QCOMPARE(row(2), QString::fromUtf16(u"\u2068Ada\u2069, page 3"));
    QVERIFY(button().accessibleDescription().contains(QStringLiteral("Ada")));
    m_bar->setPeople(people(2));
    QCOMPARE(list().count(), 2);
    QCOMPARE(list().currentRow(), 1);
    QVERIFY(part<PeopleList>().isVisible());
    m_bar->setPeople({});
    QVERIFY(!part<PeopleList>().isVisible());
}

void tst_PeopleBar::opensByKeys()
{
    m_bar->setPeople(people(3));
    button().setFocus();
    QTest::keyClick(&button(), Qt::Key_Return);
    QVERIFY(part<PeopleList>().isVisible());
    QTest::keyClick(&list(), Qt::Key_Escape);
    QVERIFY(!part<PeopleList>().isVisible());
    QTest::keyClick(&button(), Qt::Key_Space);
    QVERIFY(part<PeopleList>().isVisible());
}

// Who tells the bar is not told by it.
void tst_PeopleBar::switchesPointers()
{
    QSignalSpy switched(m_bar.get(), &PeopleBar::pointersSwitched);
    auto &box = part<QCheckBox>("pointers");
    QVERIFY(box.isChecked());
    m_bar->setShown(false);
    QVERIFY(!box.isChecked());
    QCOMPARE(switched.count(), 0);
    box.click();
    QCOMPARE(switched.count(), 1);
    QCOMPARE(switched.takeFirst().constFirst().toBool(), true);
    box.click();
    QCOMPARE(switched.takeFirst().constFirst().toBool(), false);
}

// By a sign as well as by a colour.
void tst_PeopleBar::tellsOfTheConnection()
{
    const auto corner = [this] { return part<ConnectionLabel>().grab().toImage().pixel(1, 20); };
    m_bar->setConnection(QStringLiteral("shared with 7"), true);
    QCOMPARE(part<ConnectionLabel>().accessibleName(), QStringLiteral("shared with 7"));
    QVERIFY(qGray(corner()) > 200); // beside the disc
    m_bar->setConnection(QStringLiteral("reconnecting since 12 s"), false);
    QCOMPARE(part<ConnectionLabel>().accessibleName(), QStringLiteral("reconnecting since 12 s"));
    QVERIFY(qGray(corner()) < 200); // of the triangle
}

void tst_PeopleBar::takesNoNameForMarkup()
{
    m_bar->setConnection(QStringLiteral("waits for <b>Ada</b>"), true);
    QCOMPARE(part<ConnectionLabel>().toolTip(), QStringLiteral("waits for &lt;b&gt;Ada&lt;/b&gt;"));
    m_bar->setPeople({{1, QStringLiteral("<img src=x>\u202E"), QColor(kTeacher), 0, false}});
    QCOMPARE(row(0), QString::fromUtf16(u"\u2068<img src=x>\u2069"));
    QCOMPARE(button().toolTip(), QStringLiteral("In this lesson: 1"));
}

QTEST_MAIN(tst_PeopleBar)
#include "tst_PeopleBar.moc"
