#include "Answers.h"
#include "board/files/FileCommands.h"

#include "Patience.h"
#include "board/canvas/Canvas.h"
#include "board/window/MainWindow.h"

#include <QtCore/QTemporaryDir>
#include <QtCore/QTimer>
#include <QtTest/QtTest>
#include <QtWidgets/QAction>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>

using namespace Board;

class tst_FileCommands : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void tellsNameAndChangesInTheTitle();
    void keepsTheMarkOutOfANameThatHasIt();
    void saysWhatWasSaved();
    void beginsANewLesson();
    void asksBeforeANewLesson();
    void saysThatThereIsNoSuchFile();

private:
    QString path(const char *name) { return m_folder.filePath(QString::fromLatin1(name)); }
    void trigger(const char *command) { m_window->findChild<QAction *>(QString::fromLatin1(command))->trigger(); }
    Document &document() { return m_window->document(); }
    void rule() { document().author().setPaper({InkLesson::Paper::Kind::Ruled, {}}); }
    // As the desktop shows it.
    QString title()
    {
        QString text = m_window->windowTitle();
        return text.replace(QStringLiteral("[*]"), m_window->isWindowModified() ? QStringLiteral("*") : QString());
    }

    const QTemporaryDir m_folder;
    std::unique_ptr<MainWindow> m_window;
};

void tst_FileCommands::init()
{
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    m_window = std::make_unique<MainWindow>(QSize(600, 400));
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get(), kPatience));
}

void tst_FileCommands::cleanup()
{
    m_window->setAsksBeforeClosing(false);
    m_window.reset();
}

void tst_FileCommands::tellsNameAndChangesInTheTitle()
{
    QCOMPARE(title(), QStringLiteral("Inkboard"));
    rule();
    QCOMPARE(title(), QStringLiteral("Inkboard*"));
    whenAsked<QFileDialog>([&](QFileDialog &dialog) {
        dialog.selectFile(path("lektion"));
        QMetaObject::invokeMethod(&dialog, "accept");
    });
    trigger("save");
    QCOMPARE(document().fileName(), path("lektion.inkboard"));
    QCOMPARE(title(), QStringLiteral("lektion - Inkboard"));
    trigger("undo");
    QCOMPARE(title(), QStringLiteral("lektion* - Inkboard"));
    trigger("save");
    QCOMPARE(title(), QStringLiteral("lektion - Inkboard"));

    MainWindow second(QSize(600, 400));
    second.files().openFile(path("lektion.inkboard"));
    QCOMPARE(second.windowTitle(), QStringLiteral("lektion[*] - Inkboard"));
    QVERIFY(!second.isWindowModified());
}

void tst_FileCommands::keepsTheMarkOutOfANameThatHasIt()
{
    QCOMPARE(document().save(path("a[*]b.inkboard")), QString());
    emit document().stepsChanged();
    QCOMPARE(m_window->windowTitle(), QStringLiteral("a[*][*]b[*] - Inkboard"));
}

void tst_FileCommands::saysWhatWasSaved()
{
    const auto *hint = m_window->findChild<QLabel *>(QStringLiteral("hint"));
    QVERIFY(!hint->text().contains(QStringLiteral("Saved")));
    QCOMPARE(document().save(path("said.inkboard")), QString());
    rule();
    trigger("save");
    QCOMPARE(hint->text(), QStringLiteral("Saved as ") + path("said.inkboard"));
}

void tst_FileCommands::beginsANewLesson()
{
    rule();
    trigger("add-page");
    QCOMPARE(document().save(path("old.inkboard")), QString());
    const QSize size = document().page().rect().size();
    trigger("new");
    QCOMPARE(document().pageCount(), 1);
    QCOMPARE(document().page().paper().kind, InkLesson::Paper::Kind::Blank);
    QCOMPARE(document().page().rect().size(), size);
    QCOMPARE(document().fileName(), QString());
    QVERIFY(document().isSaved());
    QVERIFY(!document().author().canUndo());
    QCOMPARE(title(), QStringLiteral("Inkboard"));
    Document old(QSize(10, 10));
    QCOMPARE(old.open(path("old.inkboard")), QString());
    QCOMPARE(old.pageCount(), 2);
}

void tst_FileCommands::asksBeforeANewLesson()
{
    rule();
    whenAsked<QMessageBox>([](QMessageBox &box) { box.button(QMessageBox::Cancel)->click(); });
    trigger("new");
    QCOMPARE(document().page().paper().kind, InkLesson::Paper::Kind::Ruled);
    whenAsked<QMessageBox>([](QMessageBox &box) { box.button(QMessageBox::Discard)->click(); });
    trigger("new");
    QCOMPARE(document().page().paper().kind, InkLesson::Paper::Kind::Blank);
}

void tst_FileCommands::saysThatThereIsNoSuchFile()
{
    rule();
    whenAsked<QMessageBox>([&](QMessageBox &box) {
        QCOMPARE(box.windowTitle(), QStringLiteral("The lesson was not opened"));
        QCOMPARE(box.text(), path("missing.inkboard") + ": there is no such file.");
        box.accept();
    });
    m_window->files().openFile(path("missing.inkboard"));
    QCOMPARE(document().page().paper().kind, InkLesson::Paper::Kind::Ruled);
}

QTEST_MAIN(tst_FileCommands)
#include "tst_FileCommands.moc"
