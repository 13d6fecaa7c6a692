#include "Paper.h"
#include "Patience.h"
#include "board/canvas/Canvas.h"
#include "board/commands/Shortcuts.h"
#include "board/controls/ColorRow.h"
#include "board/controls/WidthControl.h"
#include "board/person/Settings.h"
#include "board/rail/ToolRail.h"
#include "board/tools/Tools.h"
#include "board/window/MainWindow.h"

#include <QtCore/QMimeData>
#include <QtCore/QSet>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTimer>
#include <QtGui/QClipboard>
#include <QtTest/QtTest>
#include <QtWidgets/QAction>
#include <QtWidgets/QApplication>
#include <QtWidgets/QColorDialog>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QSlider>
#include <QtWidgets/QTextEdit>
#include <QtWidgets/QToolButton>

using namespace Board;

namespace {

const QSize kSize(800, 500);
const QColor kBlack(0x1B, 0x1F, 0x24);

// Runs `use` with the next modal dialog of that class, as soon as it is there.
template <typename Dialog, typename Use>
void whenAsked(Use use)
{
    auto *timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, use] {
        if (auto *dialog = qobject_cast<Dialog *>(QApplication::activeModalWidget())) {
            timer->deleteLater();
            timer->stop();
            use(*dialog);
        }
    });
    timer->start(10);
}

} // namespace

class tst_MainWindow : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void startsWithAPageOfTheAskedSize();
    void choosesToolsByKey_data();
    void choosesToolsByKey();
    void lightsOneToolAtATime();
    void scrollsToTheChosenTool();
    void drawsWithTheToolThatIsChosen();
    void picksColoursByKey();
    void setsTheWidthByKey();
    void showsTheOptionOfTheChosenTool();
    void finishesWithEsc();
    void letsGoWhenTheToolChanges();
    void undoesByKey();
    void clearsByKey();
    void enablesUndoWhileThereIsSomething();
    void saysWhatCanBeDone();
    void everythingHasAKeyAndAName();
    void exportsThePage();
    void saysWhyAnExportFailed();
    void keepsTheOldFileWhenAnExportFails();
    void takesAColourOfItsOwn();
    void keepsTheLastColours();
    void keepsTheColourWhenTheDialogIsLeft();
    void closesABlankPageByKey();
    void asksBeforeInkIsLost();
    void doesNotAskForNothing();
    void opensAPicture();
    void saysWhyAPictureWasNotAdded();
    void pastesAPicture();
    void saysThatThereIsNothingToPaste();
    void typesLettersInsteadOfChoosingTools();

private:
    void key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(m_window.get(), Qt::Key(key), modifiers);
    }
    void drag(const QPoint &from, const QPoint &to);
    QAction *action(const char *name) { return m_window->findChild<QAction *>(QString::fromLatin1(name)); }
    const InkLesson::Page &page() { return m_window->canvas().page(); }
    bool isBusy() { return m_window->document().author().hand() != nullptr; }
    bool canUndo() { return m_window->document().author().canUndo(); }

    std::unique_ptr<MainWindow> m_window;
    const QTemporaryDir m_folder;
};

void tst_MainWindow::initTestCase()
{
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_folder.path());
}

void tst_MainWindow::init()
{
    m_window = std::make_unique<MainWindow>(kSize);
    m_window->show();
    QApplication::setActiveWindow(m_window.get());
    QVERIFY(QTest::qWaitForWindowActive(m_window.get(), kPatience));
}

void tst_MainWindow::cleanup()
{
    m_window.reset();
    Settings().clear();
}

void tst_MainWindow::drag(const QPoint &from, const QPoint &to)
{
    QTest::mousePress(&m_window->canvas(), Qt::LeftButton, Qt::NoModifier, from);
    QTest::mouseRelease(&m_window->canvas(), Qt::LeftButton, Qt::NoModifier, to);
}

void tst_MainWindow::startsWithAPageOfTheAskedSize()
{
    QVERIFY(page().rect().contains(QRect(QPoint(), kSize)));
    QCOMPARE(page().rect().height(), 500);
    QCOMPARE(page().picture(), blankPaper(page().rect().size()));
}

void tst_MainWindow::choosesToolsByKey_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("tool");

    for (const Tool &tool : tools()) {
        const int keys = QKeySequence(QString::fromLatin1(tool.shortcut))[0];
        QTest::newRow(tool.name) << keys << QString::fromLatin1(tool.name);
    }
}

void tst_MainWindow::choosesToolsByKey()
{
    QFETCH(int, key);
    QFETCH(QString, tool);
    m_window->chooseTool(*findTool(tool == QLatin1String("line") ? QStringLiteral("pencil") : QStringLiteral("line")));
    QVERIFY(!m_window->findChild<QAction *>(tool)->isChecked());
    this->key(key & ~Qt::KeyboardModifierMask, Qt::KeyboardModifiers(key & Qt::KeyboardModifierMask));
    QVERIFY(m_window->findChild<QAction *>(tool)->isChecked());
}

void tst_MainWindow::lightsOneToolAtATime()
{
    key(Qt::Key_R);
    key(Qt::Key_L);
    QVERIFY(action("line")->isChecked());
    QVERIFY(!action("rectangle")->isChecked());
    QVERIFY(!action("pencil")->isChecked());
    key(Qt::Key_L); // again: stays on
    QVERIFY(action("line")->isChecked());
}

void tst_MainWindow::scrollsToTheChosenTool()
{
    const auto *rail = m_window->findChild<ToolRail *>();
    const auto shown = [&](const char *name) {
        const QWidget *button = action(name)->associatedWidgets().constLast(); // the first is the window
        const QWidget *viewport = rail->findChild<QScrollArea *>()->viewport();
        return viewport->rect().contains(QRect(button->mapTo(viewport, QPoint()), button->size()));
    };
    QVERIFY(shown("pencil"));
    QVERIFY(!shown("cloud-label")); // the window is too low for all of them
    key(Qt::Key_C, Qt::ShiftModifier);
    QVERIFY(shown("cloud-label"));
    QVERIFY(!shown("pencil"));
    key(Qt::Key_P);
    QVERIFY(shown("pencil"));
}

void tst_MainWindow::drawsWithTheToolThatIsChosen()
{
    key(Qt::Key_R);
    drag(QPoint(100, 100), QPoint(200, 160));
    key(Qt::Key_Escape);
    QCOMPARE(page().picture(), paper(page().rect().size(), [](QPainter &painter) {
                 drawBox(painter, kBlack, 4, QPoint(100, 100), QPoint(200, 160));
             }));
}

// Each stroke begins right after the key.
void tst_MainWindow::picksColoursByKey()
{
    const QRgb colors[] = {0xFF1B1F24, 0xFF6B7685, 0xFFD62839, 0xFFF28C13,
                           0xFF2A9D4A, 0xFF1F6FD6, 0xFF8338B8, 0xFF8A5A33};
    for (int i = 0; i < 8; ++i) {
        key(Qt::Key_1 + i);
        const int y = 40 + 20 * i;
        drag(QPoint(100, y), QPoint(200, y));
        QCOMPARE(page().picture().pixel(150, y), colors[i]);
    }
}

void tst_MainWindow::setsTheWidthByKey()
{
    auto *width = m_window->findChild<WidthControl *>();
    QCOMPARE(width->inkWidth(), 4);
    key(Qt::Key_BracketRight);
    key(Qt::Key_BracketRight);
    QCOMPARE(width->inkWidth(), 6);
    drag(QPoint(100, 100), QPoint(200, 100)); // rows 97 to 102
    QCOMPARE(page().picture().pixel(150, 96), 0xFFFFFFFF);
    QCOMPARE(page().picture().pixel(150, 97), kBlack.rgb());
    QCOMPARE(page().picture().pixel(150, 102), kBlack.rgb());
    QCOMPARE(page().picture().pixel(150, 103), 0xFFFFFFFF);

    for (int i = 0; i < 10; ++i)
        key(Qt::Key_BracketLeft);
    QCOMPARE(width->inkWidth(), 1);
    for (int i = 0; i < 50; ++i)
        key(Qt::Key_BracketRight);
    QCOMPARE(width->inkWidth(), 40);
}

void tst_MainWindow::showsTheOptionOfTheChosenTool()
{
    auto *slider = m_window->findChild<QSlider *>(QStringLiteral("option"));
    QVERIFY(!slider->isVisible());
    key(Qt::Key_H);
    QVERIFY(slider->isVisible());
    QCOMPARE(slider->accessibleName(), QStringLiteral("Opacity"));
    QCOMPARE(slider->value(), 40);
    key(Qt::Key_3); // red: 214, 40, 57
    drag(QPoint(100, 100), QPoint(200, 100));
    slider->setValue(90);
    drag(QPoint(100, 150), QPoint(200, 150));
    // 102 of 255 and 229 of 255 of the colour over white
    const auto green = [&](int y) { return page().picture().pixelColor(150, y).green(); };
    QVERIFY2(std::abs(green(100) - 169) <= 2, qPrintable(QString::number(green(100))));
    QVERIFY2(std::abs(green(150) - 62) <= 2, qPrintable(QString::number(green(150))));

    key(Qt::Key_Comma);
    QCOMPARE(slider->value(), 86);
    key(Qt::Key_F);
    QCOMPARE(slider->accessibleName(), QStringLiteral("Nib"));
    QCOMPARE(slider->value(), 45);
    key(Qt::Key_Period);
    QCOMPARE(slider->value(), 54);
    key(Qt::Key_P);
    QVERIFY(!slider->isVisible());
    key(Qt::Key_Period); // nothing to set
    key(Qt::Key_H);
    QCOMPARE(slider->value(), 86);
}

void tst_MainWindow::finishesWithEsc()
{
    key(Qt::Key_R);
    drag(QPoint(100, 100), QPoint(200, 160));
    QVERIFY(isBusy());
    key(Qt::Key_Escape);
    QVERIFY(!isBusy());
    QCOMPARE(page().surface(), page().picture());
    QCOMPARE(page().picture().pixel(150, 100), kBlack.rgb());
}

void tst_MainWindow::letsGoWhenTheToolChanges()
{
    key(Qt::Key_R);
    drag(QPoint(100, 100), QPoint(200, 160));
    key(Qt::Key_P);
    QVERIFY(!isBusy());
    QCOMPARE(page().picture().pixel(150, 100), kBlack.rgb());
}

void tst_MainWindow::undoesByKey()
{
    key(Qt::Key_L);
    drag(QPoint(100, 100), QPoint(200, 100));
    key(Qt::Key_Escape);
    drag(QPoint(100, 200), QPoint(200, 200)); // still being edited
    key(Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(!isBusy());
    QCOMPARE(page().surface().pixel(150, 100), kBlack.rgb());
    QCOMPARE(page().surface().pixel(150, 200), 0xFFFFFFFF);
    key(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(page().surface(), blankPaper(page().rect().size()));
    key(Qt::Key_Z, Qt::ControlModifier); // nothing left
}

void tst_MainWindow::clearsByKey()
{
    drag(QPoint(100, 100), QPoint(200, 100));
    key(Qt::Key_L);
    drag(QPoint(100, 200), QPoint(200, 200));
    key(Qt::Key_Backspace, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(!isBusy());
    QCOMPARE(page().surface(), blankPaper(page().rect().size()));
    key(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(page().surface().pixel(150, 100), kBlack.rgb());
    QCOMPARE(page().surface().pixel(150, 200), kBlack.rgb());
}

void tst_MainWindow::enablesUndoWhileThereIsSomething()
{
    QVERIFY(!action("undo")->isEnabled());
    drag(QPoint(100, 100), QPoint(200, 100));
    QVERIFY(action("undo")->isEnabled());
    action("undo")->trigger();
    QVERIFY(!action("undo")->isEnabled());
}

void tst_MainWindow::saysWhatCanBeDone()
{
    const auto *hint = m_window->findChild<QLabel *>(QStringLiteral("hint"));
    QCOMPARE(hint->text(), QStringLiteral("Pencil: drag on the page to draw."));
    key(Qt::Key_F, Qt::ShiftModifier);
    QCOMPARE(hint->text(), QStringLiteral("Fill: press on the area to fill."));
    key(Qt::Key_R);
    QCOMPARE(hint->text(), QStringLiteral("Rectangle: drag on the page to draw."));
    drag(QPoint(100, 100), QPoint(200, 160));
    QCOMPARE(hint->text(), QStringLiteral("Drag a handle to change the object. Enter lets it go, Del deletes it."));
    m_window->chooseTool(*findTool(QStringLiteral("text")));
    drag(QPoint(100, 100), QPoint(400, 300));
    QCOMPARE(hint->text(), QStringLiteral("Type the text. A press beside it or Esc lets it go."));
}

void tst_MainWindow::everythingHasAKeyAndAName()
{
    QSet<QString> keys;
    int count = 0;
    for (const QAction *action : commands(*m_window)) {
        keys.insert(action->shortcut().toString());
        ++count;
    }
    QVERIFY(count >= 5 + 9 + 7); // tools, colours, actions
    QCOMPARE(keys.size(), count);
    QVERIFY(!keys.contains(QString()));

    for (const QAbstractButton *button : m_window->findChildren<QAbstractButton *>()) {
        if (button->inherits("QLineEditIconButton"))
            continue; // not ours
        QVERIFY(!button->accessibleName().isEmpty());
        QVERIFY2(button->toolTip().contains(QLatin1Char('(')), qPrintable(button->accessibleName()));
    }
    QVERIFY(m_window->findChild<QSlider *>()->focusPolicy() & Qt::TabFocus);
}

void tst_MainWindow::exportsThePage()
{
    key(Qt::Key_R);
    drag(QPoint(100, 100), QPoint(200, 160));
    const QString file = m_folder.filePath(QStringLiteral("page.png"));
    whenAsked<QFileDialog>([&](QFileDialog &dialog) {
        dialog.selectFile(file);
        QMetaObject::invokeMethod(&dialog, "accept");
    });
    key(Qt::Key_E, Qt::ControlModifier);

    QVERIFY(!isBusy());
    const QImage written(file);
    QCOMPARE(written.convertToFormat(QImage::Format_RGB32), page().picture());
    QCOMPARE(written.pixel(150, 100), kBlack.rgb());
    QCOMPARE(m_window->findChild<QLabel *>(QStringLiteral("hint"))->text(), QStringLiteral("Saved as %1").arg(file));
}

void tst_MainWindow::saysWhyAnExportFailed()
{
    const QString file = m_folder.filePath(QStringLiteral("missing/page.png"));
    QCOMPARE(m_window->exportPage(file), file + QStringLiteral(": cannot be written: No such file or directory"));
}

void tst_MainWindow::keepsTheOldFileWhenAnExportFails()
{
    QVERIFY(!m_window->exportPage(m_folder.path()).isEmpty()); // a folder is no file
    QVERIFY(QFileInfo(m_folder.path()).isDir());
}

void tst_MainWindow::takesAColourOfItsOwn()
{
    whenAsked<QColorDialog>([](QColorDialog &dialog) {
        dialog.setCurrentColor(QColor(1, 200, 3));
        dialog.accept();
    });
    key(Qt::Key_9);
    drag(QPoint(100, 100), QPoint(200, 100));
    QCOMPARE(page().picture().pixel(150, 100), 0xFF01C803);
}

// The last six, the newest first, also in the next window. A colour of the row is none of them.
void tst_MainWindow::keepsTheLastColours()
{
    const auto recent = [this] {
        QStringList names;
        for (const ColorSwatch *swatch : m_window->findChildren<ColorSwatch *>()) {
            if (swatch->accessibleName().startsWith(QLatin1String("Recent")) && swatch->isVisible())
                names.append(swatch->color().name());
        }
        return names.join(QLatin1Char(' '));
    };
    auto *row = m_window->findChild<ColorRow *>();
    m_window->resize(1024, 600); // where nothing leaves the bar
    QCOMPARE(recent(), QString());
    for (int i = 1; i <= 6; ++i)
        row->setCustomColor(QColor(0, 0, i));
    QCOMPARE(recent(), QStringLiteral("#000006 #000005 #000004 #000003 #000002 #000001"));
    row->setCustomColor(QColor(0, 0, 7));
    row->setCustomColor(QColor(0, 0, 4));
    row->setCustomColor(QColor(0xD6, 0x28, 0x39)); // red
    QCOMPARE(recent(), QStringLiteral("#000004 #000007 #000006 #000005 #000003 #000002"));
    QCOMPARE(row->color(), QColor(0xD6, 0x28, 0x39));
    key(Qt::Key_2, Qt::AltModifier);
    QCOMPARE(row->color(), QColor(0, 0, 7));
    drag(QPoint(100, 100), QPoint(200, 100));
    QCOMPARE(page().picture().pixel(150, 100), 0xFF000007);

    m_window->setAsksBeforeClosing(false);
    init();
    m_window->resize(1024, 600);
    QCOMPARE(recent(), QStringLiteral("#000004 #000007 #000006 #000005 #000003 #000002"));
    key(Qt::Key_6, Qt::AltModifier);
    QCOMPARE(m_window->findChild<ColorRow *>()->color(), QColor(0, 0, 2));
}

void tst_MainWindow::keepsTheColourWhenTheDialogIsLeft()
{
    key(Qt::Key_3);
    whenAsked<QColorDialog>([](QColorDialog &dialog) { dialog.reject(); });
    key(Qt::Key_9);
    drag(QPoint(100, 100), QPoint(200, 100));
    QCOMPARE(page().picture().pixel(150, 100), 0xFFD62839);
    QString checked;
    for (const ColorSwatch *swatch : m_window->findChildren<ColorSwatch *>()) {
        if (swatch->isChecked())
            checked += swatch->accessibleName();
    }
    QCOMPARE(checked, QStringLiteral("Red"));
}

void tst_MainWindow::closesABlankPageByKey()
{
    key(Qt::Key_Q, Qt::ControlModifier);
    QTRY_VERIFY_WITH_TIMEOUT(!m_window->isVisible(), kPatience);
}

void tst_MainWindow::asksBeforeInkIsLost()
{
    int asked = 0;
    const auto answer = [&](QMessageBox::StandardButton button) {
        whenAsked<QMessageBox>([&asked, button](QMessageBox &box) {
            ++asked;
            box.button(button)->click();
        });
    };
    key(Qt::Key_R);
    drag(QPoint(100, 100), QPoint(200, 160)); // not even let go
    answer(QMessageBox::Cancel);
    QVERIFY(!m_window->close());
    QCOMPARE(asked, 1);
    QCOMPARE(page().picture().pixel(150, 100), kBlack.rgb());

    answer(QMessageBox::Discard);
    QVERIFY(m_window->close());
    QCOMPARE(asked, 2);
}

void tst_MainWindow::doesNotAskForNothing()
{
    drag(QPoint(100, 100), QPoint(200, 100));
    QCOMPARE(m_window->document().save(m_folder.filePath(QStringLiteral("kept.inkboard"))), QString());
    QVERIFY(m_window->close());

    m_window->show();
    drag(QPoint(100, 200), QPoint(200, 200));
    m_window->setAsksBeforeClosing(false);
    QVERIFY(m_window->close());
}

void tst_MainWindow::opensAPicture()
{
    const QString file = m_folder.filePath(QStringLiteral("green.png"));
    QImage picture(100, 60, QImage::Format_RGB32);
    picture.fill(Qt::green);
    QVERIFY(picture.save(file));
    whenAsked<QFileDialog>([&](QFileDialog &dialog) {
        QVERIFY(dialog.selectedNameFilter().startsWith(QStringLiteral("Pictures (*.")));
        QVERIFY(dialog.selectedNameFilter().contains(QStringLiteral("*.png ")));
        QCOMPARE(dialog.nameFilters().constLast(), QStringLiteral("All files (*)"));
        dialog.findChild<QLineEdit *>()->setText(file);
        QMetaObject::invokeMethod(&dialog, "accept");
    });
    key(Qt::Key_I, Qt::ControlModifier);
    QVERIFY(isBusy());
    action("finish")->trigger();
    QVERIFY(!isBusy());
    const QSize half = m_window->canvas().size() / 2;
    QCOMPARE(page().picture().pixel(half.width(), half.height()), 0xFF00FF00U);
}

void tst_MainWindow::saysWhyAPictureWasNotAdded()
{
    const QString fileName = m_folder.filePath(QStringLiteral("words.png"));
    QFile file(fileName);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("no picture");
    file.close();
    whenAsked<QFileDialog>([&](QFileDialog &dialog) {
        dialog.findChild<QLineEdit *>()->setText(fileName);
        whenAsked<QMessageBox>([&](QMessageBox &box) {
            QCOMPARE(box.text(), fileName + QStringLiteral(": cannot be shown: Unsupported image format"));
            box.accept();
        });
        QMetaObject::invokeMethod(&dialog, "accept");
    });
    key(Qt::Key_I, Qt::ControlModifier);
    QVERIFY(!isBusy());
    QVERIFY(!canUndo());
}

void tst_MainWindow::pastesAPicture()
{
    QImage picture(100, 60, QImage::Format_RGB32);
    picture.fill(Qt::green);
    QApplication::clipboard()->setImage(picture);
    key(Qt::Key_V, Qt::ControlModifier);
    QVERIFY(isBusy());
    action("finish")->trigger();
    const QSize half = m_window->canvas().size() / 2;
    QCOMPARE(page().picture().pixel(half.width(), half.height()), 0xFF00FF00U);
}

void tst_MainWindow::saysThatThereIsNothingToPaste()
{
    QApplication::clipboard()->setText(QStringLiteral("words"));
    whenAsked<QMessageBox>([](QMessageBox &box) {
        QCOMPARE(box.text(), QStringLiteral("there is no picture to paste"));
        box.accept();
    });
    key(Qt::Key_V, Qt::ControlModifier);
    QVERIFY(!isBusy());
}

void tst_MainWindow::typesLettersInsteadOfChoosingTools()
{
    m_window->chooseTool(*findTool(QStringLiteral("text")));
    drag(QPoint(100, 100), QPoint(400, 300));
    auto *edit = m_window->findChild<QTextEdit *>();
    QVERIFY(edit);
    QTRY_VERIFY_WITH_TIMEOUT(edit->hasFocus(), kPatience);
    QTest::keyClicks(edit, QStringLiteral("Rope 1"));
    QCOMPARE(edit->toPlainText(), QStringLiteral("Rope 1"));
    QVERIFY(action("text")->isChecked());
    QTest::keyClick(edit, Qt::Key_Escape);
    QVERIFY(!isBusy());
    QVERIFY(canUndo());
    QVERIFY(m_window->canvas().hasFocus());
}

QTEST_MAIN(tst_MainWindow)
#include "tst_MainWindow.moc"
