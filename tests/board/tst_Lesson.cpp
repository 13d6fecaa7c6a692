#include "Answers.h"
#include "Patience.h"
#include "board/canvas/Canvas.h"
#include "board/files/FileCommands.h"
#include "board/window/MainWindow.h"

#include <QtCore/QTemporaryDir>
#include <QtCore/QTimer>
#include <QtTest/QtTest>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QAction>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>

using namespace Board;

namespace {

void chooseFile(const QString &fileName)
{
    whenAsked<QFileDialog>([fileName](QFileDialog &dialog) {
        dialog.findChild<QLineEdit *>()->setText(fileName);
        QMetaObject::invokeMethod(&dialog, "accept");
    });
}

void answer(QMessageBox::StandardButton button)
{
    whenAsked<QMessageBox>([button](QMessageBox &box) { box.button(button)->click(); });
}

// A lesson of one page of ruled paper, by a board that ended by itself.
void leaveBehind(const QString &folder)
{
    Document document(QSize(600, 400));
    QCOMPARE(document.keepJournal(folder), QString());
    document.author().setPaper({InkLesson::Paper::Kind::Ruled, {}});
}

int kept(const QString &folder)
{
    return int(QDir(folder).entryList({QStringLiteral("*.inkboard.kept")}, QDir::Files).size());
}

} // namespace

// A whole lesson in the window: pages, saving, opening and what is left behind.
class tst_Lesson : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_window.reset(); }

    void undoesAndRedoesByKey();
    void savesAndOpens();
    void asksBeforeAChangedLessonIsLeft();
    void saysWhyALessonCannotBeRead();
    void addsTurnsAndRemovesPages();
    void showsThePagesInTheStrip();
    void picturesAPageThatIsLeftAtOnce();
    void keepsNoPixelsOfPagesThatWereOnlyPictured();
    void changesThePaper();
    void exportsBySuffix();
    void offersALessonThatWasNotClosed();
    void forgetsALessonThatIsNotWanted();
    void keepsALessonForLater();
    void listsUnsavedLessons();
    void saysThatALessonWasRecoveredInPart();
    void opensTheLessonThatIsNamed();
    void opensACopyOfWhatIsOpenElsewhere();
    void savesElsewhereWhereAFolderIsReadOnly();
    void leavesNoJournalWhenClosed();

private:
    void trigger(const char *name) { m_window->findChild<QAction *>(QLatin1String(name))->trigger(); }
    QListWidget &strip() { return *m_window->findChild<QListWidget *>(); }
    Document &document() { return m_window->document(); }
    QRgb pixel(int x, int y) { return document().page().picture().pixel(x, y); }
    QString path(const char *name) const { return m_folder.filePath(QLatin1String(name)); }
    void drawLine(int y)
    {
        m_window->chooseTool(*findTool(QStringLiteral("pencil")));
        Canvas &canvas = m_window->canvas();
        QTest::mousePress(&canvas, Qt::LeftButton, {}, {50, y});
        QTest::mouseMove(&canvas, {200, y});
        QTest::mouseRelease(&canvas, Qt::LeftButton, {}, {200, y});
    }
    bool hasLine(int y) { return pixel(100, y) != 0xFFFFFFFF; }

    QTemporaryDir m_folder;
    std::unique_ptr<MainWindow> m_window;
};

void tst_Lesson::init()
{
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    m_window = std::make_unique<MainWindow>(QSize(600, 400));
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get(), kPatience));
}

void tst_Lesson::undoesAndRedoesByKey()
{
    QVERIFY(!m_window->findChild<QAction *>(QStringLiteral("redo"))->isEnabled());
    drawLine(60);
    drawLine(90);
    QTest::keyClick(m_window.get(), Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(hasLine(60) && !hasLine(90));
    QVERIFY(m_window->findChild<QAction *>(QStringLiteral("redo"))->isEnabled());
    QTest::keyClick(m_window.get(), Qt::Key_Y, Qt::ControlModifier);
    QVERIFY(hasLine(60) && hasLine(90));
    QVERIFY(!m_window->findChild<QAction *>(QStringLiteral("redo"))->isEnabled());
}

void tst_Lesson::savesAndOpens()
{
    drawLine(60);
    chooseFile(path("lesson.inkboard"));
    trigger("save");
    QVERIFY(document().isSaved());
    drawLine(90);
    trigger("save"); // asks no more
    QVERIFY(document().isSaved());
    drawLine(120);
    QString question;
    whenAsked<QMessageBox>([&](QMessageBox &box) {
        question = box.text();
        chooseFile(path("lesson.inkboard"));
        box.button(QMessageBox::Discard)->click();
    });
    trigger("open");
    QCOMPARE(question, QStringLiteral("Save this lesson before another one is opened?"));
    QVERIFY(hasLine(60) && hasLine(90) && !hasLine(120));
    QVERIFY(m_window->close()); // without asking
}

void tst_Lesson::asksBeforeAChangedLessonIsLeft()
{
    drawLine(60);
    answer(QMessageBox::Cancel);
    QVERIFY(!m_window->close());
    whenAsked<QMessageBox>([&](QMessageBox &box) {
        chooseFile(path("left.inkboard"));
        box.button(QMessageBox::Save)->click();
    });
    QVERIFY(m_window->close());
    Document saved(QSize(10, 10));
    QCOMPARE(saved.open(path("left.inkboard")), QString());
    QCOMPARE(saved.page().items().size(), std::size_t(1));
}

void tst_Lesson::saysWhyALessonCannotBeRead()
{
    QFile file(path("words.inkboard"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("words\n");
    file.close();
    whenAsked<QFileDialog>([&](QFileDialog &dialog) {
        whenAsked<QMessageBox>([&](QMessageBox &box) {
            QCOMPARE(box.text(), path("words.inkboard") + ": line 1: this is not a lesson of this board");
            box.accept();
        });
        dialog.findChild<QLineEdit *>()->setText(path("words.inkboard"));
        QMetaObject::invokeMethod(&dialog, "accept");
    });
    trigger("open");
}

void tst_Lesson::addsTurnsAndRemovesPages()
{
    drawLine(60);
    trigger("add-page");
    QCOMPARE(document().pageCount(), 2);
    QVERIFY(!hasLine(60));
    drawLine(90);
    trigger("previous-page");
    QVERIFY(hasLine(60) && !hasLine(90));
    trigger("previous-page"); // there is none
    QCOMPARE(document().current(), 0);
    trigger("next-page");
    QVERIFY(hasLine(90));
    trigger("remove-page");
    QCOMPARE(document().pageCount(), 1);
    QVERIFY(hasLine(60));
    trigger("undo");
    QCOMPARE(document().pageCount(), 2);
    QVERIFY(hasLine(90));
    QCOMPARE(document().page().rect().size(), document().page(0).rect().size());
}

void tst_Lesson::showsThePagesInTheStrip()
{
    drawLine(60);
    trigger("add-page");
    trigger("add-page");
    QCOMPARE(strip().count(), 3);
    QCOMPARE(strip().currentRow(), 2);
    strip().setCurrentRow(0);
    QCOMPARE(document().current(), 0);
    QVERIFY(hasLine(60));
    const QImage before = strip().item(0)->icon().pixmap(128, 80).toImage();
    drawLine(200);
    QTRY_VERIFY_WITH_TIMEOUT(strip().item(0)->icon().pixmap(128, 80).toImage() != before, kPatience);
}

void tst_Lesson::picturesAPageThatIsLeftAtOnce()
{
    const QImage blank = strip().item(0)->icon().pixmap(128, 80).toImage();
    drawLine(60);
    trigger("add-page");
    QVERIFY(strip().item(0)->icon().pixmap(128, 80).toImage() != blank);
    QCOMPARE(strip().item(1)->icon().pixmap(128, 80).toImage(), blank);
}

void tst_Lesson::keepsNoPixelsOfPagesThatWereOnlyPictured()
{
    drawLine(60);
    trigger("add-page");
    drawLine(200);
    trigger("previous-page");
    QCOMPARE(document().save(path("pages.inkboard")), QString());
    QCOMPARE(document().open(path("pages.inkboard")), QString());
    QCOMPARE(strip().count(), 2);
    QVERIFY(document().page(0).isPainted());
    QVERIFY(!document().page(1).isPainted());
    QVERIFY(strip().item(1)->icon().pixmap(128, 80).toImage() != strip().item(0)->icon().pixmap(128, 80).toImage());
    strip().setCurrentRow(1);
    QVERIFY(hasLine(200));
}

void tst_Lesson::changesThePaper()
{
    QCOMPARE(pixel(300, 32), 0xFFFFFFFFU);
    trigger("ruled-paper");
    QCOMPARE(pixel(300, 32), 0xFFCBD8EAU);
    QCOMPARE(pixel(32, 300), 0xFFFFFFFFU);
    trigger("squared-paper");
    QCOMPARE(pixel(32, 300), 0xFFCBD8EAU);
    trigger("blank-paper");
    QCOMPARE(pixel(300, 32), 0xFFFFFFFFU);
    QImage picture(50, 50, QImage::Format_RGB32);
    picture.fill(Qt::green);
    QVERIFY(picture.save(path("paper.png")));
    chooseFile(path("paper.png"));
    trigger("picture-paper");
    QCOMPARE(pixel(10, 10), 0xFF00FF00U);
    trigger("undo");
    trigger("undo");
    QCOMPARE(pixel(32, 300), 0xFFCBD8EAU);
}

void tst_Lesson::exportsBySuffix()
{
    drawLine(60);
    for (const char *name : {"page.png", "page.svg", "page.pdf"})
        QCOMPARE(m_window->exportPage(path(name)), QString());
    QVERIFY(QImage(path("page.png")).pixel(100, 60) != 0xFFFFFFFF);
    QVERIFY(QFileInfo(path("page.svg")).size() > 0);
    QVERIFY(QFileInfo(path("page.pdf")).size() > 0);
}

void tst_Lesson::offersALessonThatWasNotClosed()
{
    const QString folder = path("journals");
    leaveBehind(folder);
    QCOMPARE(InkLesson::Journal::abandoned(folder).size(), 1);
    answer(QMessageBox::Yes);
    m_window->files().startJournal(folder);
    QCOMPARE(pixel(300, 32), 0xFFCBD8EAU);
    QVERIFY(!document().isSaved());
    QFile journal(document().journalName());
    QVERIFY(journal.open(QIODevice::ReadOnly));
    QVERIFY(journal.readAll().contains("\"ruled\"")); // safe again

    QCOMPARE(kept(folder), 1); // until it is saved
    chooseFile(path("safe.inkboard"));
    trigger("save");
    QCOMPARE(kept(folder), 0);
}

void tst_Lesson::forgetsALessonThatIsNotWanted()
{
    const QString folder = path("unwanted");
    leaveBehind(folder);
    answer(QMessageBox::Discard);
    m_window->files().startJournal(folder);
    QCOMPARE(pixel(300, 32), 0xFFFFFFFFU);
    QCOMPARE(InkLesson::Journal::abandoned(folder).size(), 0);
    QCOMPARE(kept(folder), 0);

    m_window = std::make_unique<MainWindow>(QSize(600, 400));
    leaveBehind(folder);
    answer(QMessageBox::Yes);
    m_window->files().startJournal(folder);
    answer(QMessageBox::Discard);
    QVERIFY(m_window->close());
    QCOMPARE(kept(folder), 0);
}

void tst_Lesson::keepsALessonForLater()
{
    const QString folder = path("later");
    leaveBehind(folder);
    leaveBehind(folder);
    whenAsked<QMessageBox>([](QMessageBox &box) {
        answer(QMessageBox::Ignore);
        box.button(QMessageBox::Ignore)->click();
    });
    m_window->files().startJournal(folder);
    QCOMPARE(pixel(300, 32), 0xFFFFFFFFU);
    QCOMPARE(kept(folder), 2);
    m_window = std::make_unique<MainWindow>(QSize(600, 400));
    m_window->files().startJournal(folder); // asks no more
    QCOMPARE(kept(folder), 2);
}

void tst_Lesson::listsUnsavedLessons()
{
    const QString folder = path("listed");
    m_window->files().startJournal(folder);
    whenAsked<QMessageBox>([](QMessageBox &box) {
        QCOMPARE(box.text(), QStringLiteral("There are none."));
        box.accept();
    });
    trigger("recover");

    leaveBehind(folder);
    leaveBehind(folder);
    leaveBehind(folder);
    int listed = 0;
    whenAsked<QDialog>([&](QDialog &dialog) {
        dialog.findChild<QPushButton *>(QStringLiteral("delete"))->click();
        listed = dialog.findChild<QListWidget *>()->count();
        dialog.reject();
    });
    trigger("recover");
    QCOMPARE(listed, 2);
    QCOMPARE(InkLesson::Journal::abandoned(folder).size(), 2);

    drawLine(60);
    whenAsked<QDialog>([](QDialog &dialog) {
        answer(QMessageBox::Cancel); // to the loss of the line
        dialog.accept();
    });
    trigger("recover");
    QVERIFY(hasLine(60));
    whenAsked<QDialog>([](QDialog &dialog) {
        answer(QMessageBox::Discard);
        dialog.accept();
    });
    trigger("recover");
    QCOMPARE(pixel(300, 32), 0xFFCBD8EAU);
    QCOMPARE(InkLesson::Journal::abandoned(folder).size(), 1);
    whenAsked<QDialog>([&](QDialog &dialog) {
        listed = dialog.findChild<QListWidget *>()->count();
        dialog.findChild<QPushButton *>(QStringLiteral("delete"))->click(); // the last ends the list
    });
    trigger("recover");
    QCOMPARE(listed, 1); // not the one that is open
    QCOMPARE(InkLesson::Journal::abandoned(folder).size(), 0);
    QCOMPARE(kept(folder), 1);
    m_window->setAsksBeforeClosing(false);
}

// The middle of a journal is broken, which is not what the end of a program does.
void tst_Lesson::saysThatALessonWasRecoveredInPart()
{
    const QString folder = path("broken");
    leaveBehind(folder);
    const QString journal = InkLesson::Journal::abandoned(folder).constFirst();
    QFile file(journal);
    QVERIFY(file.open(QIODevice::Append));
    file.write("nonsense\n");
    file.close();
    whenAsked<QMessageBox>([&](QMessageBox &box) {
        whenAsked<QMessageBox>([&](QMessageBox &warning) {
            QCOMPARE(warning.text(), journal + ": line 3: nothing that can be read");
            warning.accept();
        });
        box.button(QMessageBox::Yes)->click();
    });
    m_window->files().startJournal(folder);
    QCOMPARE(pixel(300, 32), 0xFFCBD8EAU);
    QCOMPARE(kept(folder), 1);
    m_window->setAsksBeforeClosing(false);
}

void tst_Lesson::opensTheLessonThatIsNamed()
{
    drawLine(60);
    QCOMPARE(document().save(path("named.inkboard")), QString());
    m_window = std::make_unique<MainWindow>(QSize(600, 400));
    m_window->files().startJournal(path("named"), path("named.inkboard"));
    QVERIFY(hasLine(60));
    QVERIFY(document().isSaved());
    QCOMPARE(document().fileName(), path("named.inkboard"));

    m_window = std::make_unique<MainWindow>(QSize(600, 400));
    whenAsked<QMessageBox>([&](QMessageBox &box) {
        QCOMPARE(box.text(), path("missing.inkboard") + ": there is no such file.");
        box.accept();
    });
    m_window->files().startJournal(path("unnamed"), path("missing.inkboard"));
    QVERIFY(!hasLine(60));
}

void tst_Lesson::opensACopyOfWhatIsOpenElsewhere()
{
    const QString file = path("shared.inkboard");
    const QString folder = path("shared");
    drawLine(60);
    QCOMPARE(document().save(file), QString());
    m_window->files().startJournal(folder, file);

    MainWindow second(QSize(600, 400));
    second.show();
    whenAsked<QMessageBox>([&](QMessageBox &box) {
        QCOMPARE(box.text(), file + ": it is open in another window of the board. This is a copy: save it under "
                                    "another name.");
        box.accept();
    });
    second.files().startJournal(folder, file);
    QCOMPARE(second.document().page().items().size(), std::size_t(1));
    QVERIFY(second.document().isSaved());
    QCOMPARE(second.document().fileName(), QString());

    second.document().author().setPaper({InkLesson::Paper::Kind::Ruled, {}});
    const auto chosen = [](const QString &fileName) {
        whenAsked<QFileDialog>([fileName](QFileDialog &dialog) {
            dialog.setOption(QFileDialog::DontConfirmOverwrite);
            dialog.findChild<QLineEdit *>()->setText(fileName);
            QMetaObject::invokeMethod(&dialog, "accept");
        });
    };
    whenAsked<QFileDialog>([&](QFileDialog &dialog) {
        whenAsked<QMessageBox>([&](QMessageBox &box) {
            QCOMPARE(box.text(), file + ": it is open in another window of the board. Save under another name.");
            chosen(path("copy.inkboard"));
            box.button(QMessageBox::Save)->click();
        });
        dialog.setOption(QFileDialog::DontConfirmOverwrite);
        dialog.findChild<QLineEdit *>()->setText(file);
        QMetaObject::invokeMethod(&dialog, "accept");
    });
    QVERIFY(second.files().save());
    QCOMPARE(second.document().fileName(), path("copy.inkboard"));
    trigger("save"); // the first's, which nobody has changed
    QVERIFY(document().isSaved());

    m_window.reset(); // and the file is free
    second.files().openFile(file);
    QCOMPARE(second.document().fileName(), file);
}

// /sys takes no files, not even from its owner.
void tst_Lesson::savesElsewhereWhereAFolderIsReadOnly()
{
    if (!QFileInfo::exists(QStringLiteral("/sys/kernel")))
        QSKIP("/sys is an ordinary folder here");
    drawLine(60);
    whenAsked<QFileDialog>([&](QFileDialog &dialog) {
        whenAsked<QMessageBox>([&](QMessageBox &box) {
            QCOMPARE(box.text(), QStringLiteral("/sys/lesson.inkboard: cannot be written: Permission denied"));
            chooseFile(path("elsewhere.inkboard"));
            box.button(QMessageBox::Save)->click();
        });
        dialog.findChild<QLineEdit *>()->setText(QStringLiteral("/sys/lesson.inkboard"));
        QMetaObject::invokeMethod(&dialog, "accept");
    });
    QVERIFY(m_window->files().save());
    QVERIFY(document().isSaved());
    QCOMPARE(document().fileName(), path("elsewhere.inkboard"));

    drawLine(90);
    whenAsked<QMessageBox>([](QMessageBox &box) { box.button(QMessageBox::Cancel)->click(); });
    QVERIFY(QFile::remove(path("elsewhere.inkboard")));
    QVERIFY(QDir().mkdir(path("elsewhere.inkboard"))); // so that it cannot be written
    QVERIFY(!m_window->files().save());
    QVERIFY(!document().isSaved());
    QVERIFY(hasLine(90));
    m_window->setAsksBeforeClosing(false);
}

void tst_Lesson::leavesNoJournalWhenClosed()
{
    const QString folder = path("closed");
    m_window->files().startJournal(folder);
    drawLine(60);
    QVERIFY(QFile::exists(document().journalName()));
    answer(QMessageBox::Discard);
    QVERIFY(m_window->close());
    QCOMPARE(QDir(folder).entryList(QDir::Files), QStringList());
}

QTEST_MAIN(tst_Lesson)
#include "tst_Lesson.moc"
