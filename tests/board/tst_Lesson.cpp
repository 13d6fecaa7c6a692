#include "Canvas.h"
#include "FileCommands.h"
#include "MainWindow.h"

#include <QtCore/QTemporaryDir>
#include <QtCore/QTimer>
#include <QtTest/QtTest>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QAction>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QMessageBox>

using namespace Board;

namespace {

// Answers the next dialog of its kind.
template <typename Dialog, typename Answer>
void whenAsked(Answer answer)
{
    QTimer::singleShot(0, [answer] {
        if (auto *dialog = qobject_cast<Dialog *>(QApplication::activeModalWidget()))
            answer(*dialog);
        else
            whenAsked<Dialog>(answer);
    });
}

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
    void changesThePaper();
    void exportsBySuffix();
    void offersALessonThatWasNotClosed();
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
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
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
    whenAsked<QMessageBox>([&](QMessageBox &box) {
        chooseFile(path("lesson.inkboard"));
        box.button(QMessageBox::Discard)->click();
    });
    trigger("open");
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
    QTRY_VERIFY(strip().item(0)->icon().pixmap(128, 80).toImage() != before);
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
    {
        Document document(QSize(600, 400));
        QCOMPARE(document.keepJournal(folder), QString());
        document.page().setPaper({Paper::Kind::Ruled, {}});
    }
    QCOMPARE(Log::abandoned(folder).size(), 1);
    answer(QMessageBox::Ignore);
    m_window->files().startJournal(folder);
    QCOMPARE(pixel(300, 32), 0xFFFFFFFFU);
    QCOMPARE(Log::abandoned(folder).size(), 1); // still there

    m_window = std::make_unique<MainWindow>(QSize(600, 400));
    answer(QMessageBox::Yes);
    m_window->files().startJournal(folder);
    QCOMPARE(pixel(300, 32), 0xFFCBD8EAU);
    QVERIFY(!document().isSaved());
    QFile journal(document().log().journalName());
    QVERIFY(journal.open(QIODevice::ReadOnly));
    QVERIFY(journal.readAll().contains("\"ruled\"")); // safe again
    m_window->setAsksBeforeClosing(false);
}

void tst_Lesson::leavesNoJournalWhenClosed()
{
    const QString folder = path("closed");
    m_window->files().startJournal(folder);
    drawLine(60);
    QVERIFY(QFile::exists(document().log().journalName()));
    answer(QMessageBox::Discard);
    QVERIFY(m_window->close());
    QCOMPARE(QDir(folder).entryList(QDir::Files), QStringList());
}

QTEST_MAIN(tst_Lesson)
#include "tst_Lesson.moc"
