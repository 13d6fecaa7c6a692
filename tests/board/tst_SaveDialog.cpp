#include "Answers.h"
#include "board/files/SaveDialog.h"

#include <QtCore/QTemporaryDir>
#include <QtCore/QTimer>
#include <QtTest/QtTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>

using namespace Board;

namespace {

void type(QFileDialog &dialog, const QString &fileName)
{
    dialog.findChild<QLineEdit *>()->setText(fileName);
    QMetaObject::invokeMethod(&dialog, "accept");
}

} // namespace

class tst_SaveDialog : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }

    void completesTheName_data();
    void completesTheName();
    void asksBeforeItReplacesTheFileOfTheWholeName();
    void givesNoNameWhenItIsLeft();

private:
    QString path(const char *name) { return m_folder.filePath(QString::fromLatin1(name)); }
    QString ask()
    {
        return askWhereToSave(m_window, QStringLiteral("Export"), QStringLiteral("page"),
                              {QStringLiteral("Pictures (*.png)"), QStringLiteral("Documents (*.pdf)")});
    }

    const QTemporaryDir m_folder;
    QWidget m_window;
};

void tst_SaveDialog::completesTheName_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QString>("whole");

    QTest::newRow("of the first filter") << "lesson"
                                         << "Pictures (*.png)"
                                         << "lesson.png";
    QTest::newRow("of another filter") << "lesson"
                                       << "Documents (*.pdf)"
                                       << "lesson.pdf";
    QTest::newRow("a dot in the name") << "Week 3.2"
                                       << "Pictures (*.png)"
                                       << "Week 3.2.png";
    QTest::newRow("its own") << "lesson.pdf"
                             << "Pictures (*.png)"
                             << "lesson.pdf";
    QTest::newRow("its own, in capitals") << "LESSON.PNG"
                                          << "Documents (*.pdf)"
                                          << "LESSON.PNG";
}

void tst_SaveDialog::completesTheName()
{
    QFETCH(QString, typed);
    QFETCH(QString, filter);
    QFETCH(QString, whole);
    whenAsked<QFileDialog>([&](QFileDialog &dialog) {
        dialog.selectNameFilter(filter);
        type(dialog, m_folder.filePath(typed));
    });
    QCOMPARE(ask(), m_folder.filePath(whole));
}

void tst_SaveDialog::asksBeforeItReplacesTheFileOfTheWholeName()
{
    QFile there(path("there.png"));
    QVERIFY(there.open(QIODevice::WriteOnly));
    int asked = 0;
    const auto answer = [&](QMessageBox::StandardButton button) {
        whenAsked<QMessageBox>([&asked, button](QMessageBox &box) {
            QCOMPARE(box.text(), QStringLiteral("there.png is there already. Replace it?"));
            ++asked;
            box.button(button)->click();
        });
    };
    whenAsked<QFileDialog>([&](QFileDialog &dialog) {
        answer(QMessageBox::No);
        type(dialog, path("there"));
        whenAsked<QFileDialog>([&](QFileDialog &again) { type(again, path("elsewhere")); });
    });
    QCOMPARE(ask(), path("elsewhere.png"));
    QCOMPARE(asked, 1);

    whenAsked<QFileDialog>([&](QFileDialog &dialog) {
        answer(QMessageBox::Yes);
        type(dialog, path("there"));
    });
    QCOMPARE(ask(), path("there.png"));
    QCOMPARE(asked, 2);
}

void tst_SaveDialog::givesNoNameWhenItIsLeft()
{
    whenAsked<QFileDialog>([](QFileDialog &dialog) { dialog.reject(); });
    QCOMPARE(ask(), QString());
}

QTEST_MAIN(tst_SaveDialog)
#include "tst_SaveDialog.moc"
