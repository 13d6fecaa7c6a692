#include "board/invite/FittedText.h"
#include "board/invite/QrCode.h"
#include "board/invite/ShareDialog.h"
#include "board/look/Style.h"

#include "Patience.h"

#include <QtGui/QClipboard>
#include <QtTest/QtTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QPushButton>

using namespace Board;

namespace {

const LessonLink kFirst{QUrl(QStringLiteral("http://192.168.1.5:4640/")), QStringLiteral("AQIDBAUGBwgJCgsMDQ4PEA")};
const LessonLink kSecond{QUrl(QStringLiteral("http://192.168.1.6:4640/")), kFirst.lesson};

} // namespace

class tst_ShareDialog : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_dialog.reset(); }

    void tellsOfItsProgress();
    void tellsOfAProblem();
    void showsTheLink();
    void saysWhereToJoin();
    void showsTheWholeLink();
    void copiesTheLink();
    void offersEachAddress();
    void staysAtTheAddressThatWasChosen();
    void showsALessonThatCannotBeSpoken();
    void endsWhenTold();
    void leavesAnothersLesson();
    void isNotEndedByAnEarlyKey();
    void growsWithItsWindow();

private:
    template <typename T>
    T &part(const char *name = nullptr) const
    {
        return *m_dialog->findChild<T *>(QString::fromLatin1(name));
    }
    QString words() const { return part<QLabel>("words").text(); }
    QString link() const { return part<QLineEdit>().text(); }

    std::unique_ptr<ShareDialog> m_dialog;
};

void tst_ShareDialog::init()
{
    m_dialog = std::make_unique<ShareDialog>();
    m_dialog->show();
}

void tst_ShareDialog::tellsOfItsProgress()
{
    m_dialog->setProgress(QStringLiteral("The engine is being started"));
    QCOMPARE(words(), QStringLiteral("The engine is being started"));
    QVERIFY(part<QLabel>("words").isVisible());
    QCOMPARE(part<QLabel>("title").text(), QStringLiteral("Sharing is being started …"));
    QVERIFY(part<QProgressBar>().isVisible());
    QVERIFY(!part<QrCode>().isVisible());
    QCOMPARE(part<QPushButton>("end").text(), QStringLiteral("Do not share"));
}

void tst_ShareDialog::tellsOfAProblem()
{
    m_dialog->setLinks({kFirst});
    m_dialog->setProblem(QStringLiteral("<b>no</b> network"));
    QCOMPARE(words(), QStringLiteral("<b>no</b> network"));
    QCOMPARE(part<QLabel>("words").textFormat(), Qt::PlainText);
    QCOMPARE(part<QLabel>("title").text(), QStringLiteral("This lesson is not shared"));
    QVERIFY(!part<QProgressBar>().isVisible());
    QVERIFY(!part<QrCode>().isVisible());
    QVERIFY(!part<QPushButton>("end").isVisible());
}

void tst_ShareDialog::showsTheLink()
{
    m_dialog->setLinks({kFirst});
    QVERIFY(!part<QLabel>("words").isVisible());
    QVERIFY(!part<QProgressBar>().isVisible());
    QVERIFY(part<QrCode>().isVisible());
    QCOMPARE(link(), QStringLiteral("http://192.168.1.5:4640/#AQIDBAUGBwgJCgsMDQ4PEA"));
    QVERIFY(part<QLineEdit>().isReadOnly());
    QCOMPARE(part<FittedText>("address").accessibleName(), QStringLiteral("192.168.1.5:4640"));
    QCOMPARE(part<FittedText>("groups").accessibleName(), QStringLiteral("0410 6105 0R3G G28A 1C60 T3GF 22K4"));
    QVERIFY(!part<QComboBox>().isVisible()); // there is nothing to choose
}

// Whoever sits before another board finds the command there.
void tst_ShareDialog::saysWhereToJoin()
{
    m_dialog->setLinks({kFirst});
    QCOMPARE(part<QLabel>("way").text(),
             QStringLiteral("In Inkboard, press F7, or choose “Join a lesson” in the menu ☰ under “Sharing”. Then type "
                            "this, in small or capital letters:"));
    QVERIFY(part<QLabel>("way").isVisible());
}

// Also with the longest address of IPv6 that a machine may have.
void tst_ShareDialog::showsTheWholeLink()
{
    m_dialog->setStyleSheet(windowStyle());
    const LessonLink longest{QUrl(QStringLiteral("http://[2001:1db8:2222:3333:4444:5555:6666:7777]:46400/")),
                             kFirst.lesson};
    for (const LessonLink &one : {kFirst, longest}) {
        m_dialog->setLinks({one});
        QTRY_COMPARE_WITH_TIMEOUT(part<QLineEdit>().text(), one.text(), kPatience);
        const QPoint right(part<QLineEdit>().width() - 1, part<QLineEdit>().height() / 2);
        QTRY_COMPARE_WITH_TIMEOUT(part<QLineEdit>().cursorPositionAt(right), one.text().size(), kPatience);
    }
}

void tst_ShareDialog::copiesTheLink()
{
    m_dialog->setLinks({kFirst});
    QGuiApplication::clipboard()->clear();
    part<QPushButton>("copy").click();
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("http://192.168.1.5:4640/#AQIDBAUGBwgJCgsMDQ4PEA"));
    QCOMPARE(part<QPushButton>("copy").text(), QStringLiteral("Copied"));
    QTRY_COMPARE_WITH_TIMEOUT(part<QPushButton>("copy").text(), QStringLiteral("Copy"), kPatience);
}

void tst_ShareDialog::offersEachAddress()
{
    m_dialog->setLinks({kFirst, kSecond});
    auto &addresses = part<QComboBox>();
    QVERIFY(addresses.isVisible());
    QCOMPARE(addresses.count(), 2);
    QCOMPARE(addresses.currentText(), QStringLiteral("192.168.1.5:4640"));
    const QImage first = part<QrCode>().grab().toImage();
    addresses.setFocus();
    QTest::keyClick(&addresses, Qt::Key_Down);
    QCOMPARE(link(), QStringLiteral("http://192.168.1.6:4640/#AQIDBAUGBwgJCgsMDQ4PEA"));
    QCOMPARE(part<FittedText>("address").accessibleName(), QStringLiteral("192.168.1.6:4640"));
    QCOMPARE(part<FittedText>("groups").accessibleName(), QStringLiteral("0410 6105 0R3G G28A 1C60 T3GF 23JH"));
    QVERIFY(part<QrCode>().grab().toImage() != first);
}

// Also where a network has come, or has gone.
void tst_ShareDialog::staysAtTheAddressThatWasChosen()
{
    m_dialog->setLinks({kFirst, kSecond});
    QTest::keyClick(&part<QComboBox>(), Qt::Key_Down);
    for (const auto &links : {QList<LessonLink>{kFirst, kSecond}, QList<LessonLink>{kSecond, kFirst}}) {
        m_dialog->setLinks(links);
        QCOMPARE(part<QComboBox>().currentText(), QStringLiteral("192.168.1.6:4640"));
    }
    QCOMPARE(link(), QStringLiteral("http://192.168.1.6:4640/#AQIDBAUGBwgJCgsMDQ4PEA"));
    m_dialog->setLinks({kFirst});
    QCOMPARE(link(), QStringLiteral("http://192.168.1.5:4640/#AQIDBAUGBwgJCgsMDQ4PEA"));
}

void tst_ShareDialog::showsALessonThatCannotBeSpoken()
{
    m_dialog->setLinks({LessonLink{kFirst.door, QStringLiteral("class-7b")}});
    QVERIFY(!part<FittedText>("groups").isVisible());
    QCOMPARE(part<FittedText>("address").accessibleName(), QStringLiteral("http://192.168.1.5:4640/#class-7b"));
    m_dialog->setLinks({kFirst});
    QVERIFY(part<FittedText>("groups").isVisible());
}

// Closing is not ending.
void tst_ShareDialog::endsWhenTold()
{
    const QSignalSpy ended(m_dialog.get(), &ShareDialog::ended);
    m_dialog->setLinks({kFirst});
    part<QPushButton>("close").click();
    QVERIFY(!m_dialog->isVisible());
    QCOMPARE(ended.count(), 0);
    m_dialog->show();
    QCOMPARE(part<QPushButton>("end").text(), QStringLiteral("Stop sharing"));
    part<QPushButton>("end").click();
    QCOMPARE(ended.count(), 1);
}

void tst_ShareDialog::leavesAnothersLesson()
{
    m_dialog->setOwn(false);
    m_dialog->setLinks({kFirst});
    QCOMPARE(part<QPushButton>("end").text(), QStringLiteral("Leave the lesson"));
    m_dialog->setOwn(true);
    m_dialog->setLinks({kFirst});
    QCOMPARE(part<QPushButton>("end").text(), QStringLiteral("Stop sharing"));
}

void tst_ShareDialog::isNotEndedByAnEarlyKey()
{
    const QSignalSpy ended(m_dialog.get(), &ShareDialog::ended);
    QApplication::setActiveWindow(m_dialog.get());
    QVERIFY(QTest::qWaitForWindowActive(m_dialog.get(), kPatience));
    QTest::keyClick(m_dialog->focusWidget(), Qt::Key_Space);
    QCOMPARE(ended.count(), 0);
    QVERIFY(!m_dialog->isVisible());
}

void tst_ShareDialog::growsWithItsWindow()
{
    m_dialog->setLinks({kFirst});
    m_dialog->resize(1600, 1000);
    const auto darkRows = [this] { // of the address
        const QImage picture = part<FittedText>("address").grab().toImage();
        int rows = 0;
        for (int y = 0; y < picture.height(); ++y) {
            bool isDark = false;
            for (int x = 0; x < picture.width(); ++x)
                isDark = isDark || qGray(picture.pixel(x, y)) < 128;
            rows += isDark;
        }
        return rows;
    };
    QTRY_VERIFY_WITH_TIMEOUT(part<QrCode>().width() > 700, kPatience);
    const int large = darkRows();
    m_dialog->resize(880, 570);
    QTRY_VERIFY_WITH_TIMEOUT(part<QrCode>().width() < 500, kPatience);
    const int small = darkRows();
    QVERIFY2(small >= 20 && large >= small * 3 / 2, qPrintable(QStringLiteral("%1 %2").arg(small).arg(large)));
}

QTEST_MAIN(tst_ShareDialog)
#include "tst_ShareDialog.moc"
