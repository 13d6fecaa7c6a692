#include "board/invite/JoinDialog.h"
#include "board/invite/LinkReader.h"

#include <QtGui/QClipboard>
#include <QtTest/QtTest>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>

using namespace Board;

namespace {

const QString kLink = QStringLiteral("http://192.168.1.5:4640/#AQIDBAUGBwgJCgsMDQ4PEA");

} // namespace

class tst_JoinDialog : public QObject
{
    Q_OBJECT

private slots:
    void readsALink_data();
    void readsALink();
    void saysWhatIsMissing_data();
    void saysWhatIsMissing();
    void joinsWhatWasTyped();
    void takesWhatWasCopied();
    void asksForNoName();
    void forgetsALinkThatIsTakenAway();
    void growsWithNoLink();

private:
    static QLineEdit &field(const QDialog &dialog) { return *dialog.findChild<QLineEdit *>(QStringLiteral("link")); }
    static QPushButton &button(const QDialog &dialog, const char *name)
    {
        return *dialog.findChild<QPushButton *>(QLatin1String(name));
    }
    static QString hint(const QDialog &dialog)
    {
        return dialog.findChild<QLabel *>(QStringLiteral("hint-of-link"))->text();
    }
};

void tst_JoinDialog::readsALink_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("as it is") << kLink;
    QTest::newRow("between blanks") << QStringLiteral("\n \t") + kLink + QStringLiteral(" \r\n");
    QTest::newRow("in two lines") << QStringLiteral("http://192.168.1.5:4640/\n#AQIDBAUGBwgJ \n CgsMDQ4PEA");
    QTest::newRow("in brackets") << QStringLiteral(" <") + kLink + QStringLiteral("> ");
    QTest::newRow("quoted") << QStringLiteral("„") + kLink + QStringLiteral("“");
    QTest::newRow("as a browser shows it") << kLink.mid(7);
    QTest::newRow("spoken") << QStringLiteral("192.168.1.5:4640 0410 6105 0R3G G28A 1C60 T3GF 22K4");
    QTest::newRow("spoken, in lines") << QStringLiteral("192.168.1.5\n0410 6105 0r3g g28a\n1c60 t3gf 22k4\n");
}

void tst_JoinDialog::readsALink()
{
    QFETCH(QString, text);
    const LinkReader reader(text);
    QVERIFY2(reader.link(), qPrintable(reader.hint()));
    QCOMPARE(reader.link()->text(), kLink);
    QCOMPARE(reader.hint(), QString());
}

void tst_JoinDialog::saysWhatIsMissing_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("hint");
    const auto row = [](const char *name, const QString &text, const char *hint) {
        QTest::newRow(name) << text << QString::fromUtf8(hint);
    };
    row("nothing", QStringLiteral(" \n"), "");
    row("no lesson", QStringLiteral("http://192.168.1.5:4640/#"),
        "This link leads to no lesson. Copy it once more, from the beginning to the end.");
    row("another scheme", QStringLiteral("file:///tmp#abc"),
        "This link leads to no lesson. Copy it once more, from the beginning to the end.");
    row("a word", QStringLiteral("Ada"),
        "A link is missing, or the address before the code, such as 192.168.1.5:4640.");
    row("a code alone", QStringLiteral("0410 6105 0R3G G28A 1C60 T3GF 22K4"),
        "A link is missing, or the address before the code, such as 192.168.1.5:4640.");
    row("an address", QStringLiteral("192.168.1.5:4640"),
        "This is the address. After it comes the code, seven groups of four.");
    row("an address as a link", QStringLiteral("http://192.168.1.5:4640/"),
        "This is the address. After it comes the code, seven groups of four.");
    row("a wrong sign", QStringLiteral("192.168.1.5:4640 041u"),
        "The code has a sign that no code has: there are letters and digits only, and no U.");
    row("a part", QStringLiteral("192.168.1.5:4640 0410 61"), "The code goes on: 6 of its 28 signs are here.");
    row("too much", QStringLiteral("192.168.1.5:4640 0410 6105 0R3G G28A 1C60 T3GF 22K4 0"),
        "The code has 28 signs, and here are 29.");
    row("a slip", QStringLiteral("192.168.1.5:4640 0410 6105 0R3G G28A 1C60 T3GF 22K5"),
        "Something is mistyped. Compare the address first, then each group of the code.");
}

void tst_JoinDialog::saysWhatIsMissing()
{
    QFETCH(QString, text);
    QFETCH(QString, hint);
    const LinkReader reader(text);
    QVERIFY(!reader.link());
    QCOMPARE(reader.hint(), hint);
}

void tst_JoinDialog::joinsWhatWasTyped()
{
    JoinDialog dialog(nullptr, QStringLiteral("Ada"));
    dialog.show();
    QVERIFY(!button(dialog, "join").isEnabled());
    QTest::keyClicks(&field(dialog), QStringLiteral("192.168.1.5 0410 6105 0r3g g28a 1c60 t3gf 22k"));
    QVERIFY(!button(dialog, "join").isEnabled());
    QCOMPARE(hint(dialog), QStringLiteral("The code goes on: 27 of its 28 signs are here."));
    QTest::keyClicks(&field(dialog), QStringLiteral("4"));
    QCOMPARE(hint(dialog), QStringLiteral("This leads to a lesson at 192.168.1.5."));
    QTest::keyClick(&field(dialog), Qt::Key_Return);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QCOMPARE(dialog.link().text(), kLink);
    QCOMPARE(dialog.name(), QStringLiteral("Ada"));
}

void tst_JoinDialog::takesWhatWasCopied()
{
    JoinDialog dialog(nullptr, {});
    QGuiApplication::clipboard()->setText(kLink + QStringLiteral("\n"));
    button(dialog, "paste").click();
    QVERIFY(button(dialog, "join").isEnabled());
    QCOMPARE(dialog.link().text(), kLink);
    QCOMPARE(dialog.result(), int(QDialog::Rejected)); // and joins when told
}

void tst_JoinDialog::asksForNoName()
{
    JoinDialog dialog(nullptr, {});
    field(dialog).setText(kLink);
    QVERIFY(button(dialog, "join").isEnabled());
    QCOMPARE(dialog.name(), QString());
    const JoinDialog spaced(nullptr, QStringLiteral("  Ada \n King "));
    QCOMPARE(spaced.name(), QStringLiteral("Ada King"));
    const JoinDialog longest(nullptr, QString(40, QLatin1Char('x')));
    QCOMPARE(longest.name().size(), 31);
}

void tst_JoinDialog::forgetsALinkThatIsTakenAway()
{
    JoinDialog dialog(nullptr, {});
    field(dialog).setText(kLink);
    field(dialog).setText(QStringLiteral("http://192.168.1.5:4640/"));
    QVERIFY(!button(dialog, "join").isEnabled());
    QCOMPARE(dialog.link().lesson, QString());
}

void tst_JoinDialog::growsWithNoLink()
{
    JoinDialog dialog(nullptr, {});
    dialog.show();
    const int width = dialog.minimumSizeHint().width();
    field(dialog).setText(QStringLiteral("http://") + QString(60, QLatin1Char('w')) + QStringLiteral("/#a"));
    QCOMPARE(hint(dialog), QStringLiteral("This leads to a lesson at ") + QString(50, QLatin1Char('w')) +
                               QChar(0x2026) + QLatin1Char('.'));
    field(dialog).setText(QStringLiteral("http://") + QString(500, QLatin1Char('w')) + QStringLiteral("/#a"));
    QCOMPARE(dialog.minimumSizeHint().width(), width);
}

QTEST_MAIN(tst_JoinDialog)
#include "tst_JoinDialog.moc"
