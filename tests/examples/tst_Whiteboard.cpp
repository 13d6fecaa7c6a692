// The whiteboard as it is started, driven as a person would: its own main() runs, and these cases in its event loop.

#include "Patience.h"

#include <QtTest/QtTest>
#include <QtWidgets/QtWidgets>

class tst_Whiteboard : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        for (QWidget *widget : QApplication::topLevelWidgets()) {
            if (auto *window = qobject_cast<QMainWindow *>(widget))
                m_window = window;
        }
        QVERIFY(m_window);
        QVERIFY(QTest::qWaitForWindowExposed(m_window, kPatience));
    }

    void offersEveryToolThatDrawsToday()
    {
        const auto *names = m_window->findChild<QComboBox *>();
        QCOMPARE(names->count(), 40);
        QVERIFY(names->findText("pencil") >= 0);
        QVERIFY(names->findText("area") >= 0);
        QCOMPARE(names->findText("fill"), -1);
    }

    void drawsWithTwoTools()
    {
        QCOMPARE(canvas()->size(), QSize(1280, 800));
        QCOMPARE(pixel(100, 50), QColor(Qt::white));
        drag({50, 50}, {150, 50});
        QCOMPARE(pixel(100, 50), QColor(Qt::black));
        QCOMPARE(pixel(100, 60), QColor(Qt::white));

        choose("rectangle", "red", 8);
        drag({200, 100}, {300, 180});
        QCOMPARE(pixel(200, 140), QColor(Qt::red));
        QCOMPARE(pixel(203, 140), QColor(Qt::red));
        QCOMPARE(pixel(205, 140), QColor(Qt::white));
        QVERIFY(pixel(190, 90) != QColor(Qt::white)); // a handle
        look("drawn");
    }

    void takesBackAndDoesAgain()
    {
        trigger("Undo");
        QCOMPARE(pixel(200, 140), QColor(Qt::white));
        QCOMPARE(pixel(100, 50), QColor(Qt::black));
        trigger("Undo");
        QCOMPARE(pixel(100, 50), QColor(Qt::white));
        trigger("Redo");
        trigger("Redo");
        QCOMPARE(pixel(200, 140), QColor(Qt::red));
        QCOMPARE(pixel(100, 50), QColor(Qt::black));
        QCOMPARE(pixel(190, 90), QColor(Qt::white)); // it is not in the hand
    }

    void fillsAndSprays()
    {
        choose("area", "green", 4);
        QTest::mouseClick(canvas(), Qt::LeftButton, Qt::NoModifier, {250, 140});
        QCOMPARE(pixel(250, 140), QColor("green"));
        QCOMPARE(pixel(100, 140), QColor(Qt::white));

        choose("spray-gun", "blue", 10);
        QTest::mousePress(canvas(), Qt::LeftButton, Qt::NoModifier, {500, 140});
        const int before = inked({480, 120, 40, 40});
        QVERIFY(before > 0);
        QTRY_VERIFY_WITH_TIMEOUT(inked({480, 120, 40, 40}) > 2 * before, kPatience); // while the mouse rests
        QTest::mouseRelease(canvas(), Qt::LeftButton, Qt::NoModifier, {500, 140});
        trigger("Undo");
        QCOMPARE(inked({480, 120, 40, 40}), 0);
    }

    // In the dialog that asks for it.
    void writesText()
    {
        choose("text", "black", 4);
        QTimer::singleShot(100, this, [] {
            auto *dialog = qobject_cast<QInputDialog *>(QApplication::activeModalWidget());
            dialog->setTextValue("Hello");
            dialog->accept();
        });
        drag({50, 300}, {250, 400});
        QVERIFY(inked({55, 305, 60, 40}) > 50);
        QCOMPARE(pixel(150, 300), QColor(Qt::white)); // its frame has gone
    }

    // What is asked for is in the file, and what was drawn after it is not.
    void savesAndOpens()
    {
        QTemporaryDir folder;
        const QString name = folder.filePath("lesson.inkboard");
        choose("line", "blue", 4);
        drag({50, 200}, {150, 200});
        const QImage saved = answer("Save", name);
        QVERIFY(QFile::exists(name));
        drag({50, 220}, {150, 220});
        trigger("Undo");
        trigger("Undo");
        QCOMPARE(pixel(100, 200), QColor(Qt::white));

        QCOMPARE(answer("Open", name), saved);
        QCOMPARE(pixel(100, 200), QColor(Qt::blue));
        QCOMPARE(pixel(100, 220), QColor(Qt::white));
        QCOMPARE(pixel(250, 140), QColor("green"));
        trigger("Undo"); // also what was done before
        QCOMPARE(pixel(100, 200), QColor(Qt::white));
        drag({50, 240}, {150, 240}); // with the tool that was chosen
        QCOMPARE(pixel(100, 240), QColor(Qt::blue));
    }

    void zoomsThePageWithThePointer()
    {
        trigger("Zoom in");
        QCOMPARE(canvas()->size(), QSize(2560, 1600));
        QCOMPARE(pixel(400, 280), QColor(Qt::red));
        choose("pencil", "black", 4);
        drag({700, 100}, {900, 100});
        QCOMPARE(pixel(800, 102), QColor(Qt::black));
        look("zoomed");
        trigger("Zoom out");
        QCOMPARE(pixel(400, 51), QColor(Qt::black));
        trigger("Zoom out");
        trigger("Zoom out");
        trigger("Zoom out"); // no farther than a quarter
        QCOMPARE(canvas()->size(), QSize(320, 200));
        QCOMPARE(pixel(50, 35), QColor(Qt::red));
    }

private:
    QWidget *canvas() const { return m_window->findChild<QScrollArea *>()->widget(); }
    QColor pixel(int x, int y) const { return canvas()->grab().toImage().pixelColor(x, y); }

    int inked(const QRect &part) const
    {
        const QImage image = canvas()->grab(part).toImage();
        int count = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                count += image.pixelColor(x, y) != QColor(Qt::white);
        }
        return count;
    }

    void choose(const char *tool, const char *color, int width)
    {
        const auto boxes = m_window->findChildren<QComboBox *>();
        boxes.at(0)->setCurrentText(tool);
        boxes.at(1)->setCurrentText(color);
        m_window->findChild<QSpinBox *>()->setValue(width);
    }

    void trigger(const QString &text)
    {
        for (QAction *action : m_window->findChild<QToolBar *>()->actions()) {
            if (action->text() == text)
                return action->trigger();
        }
        QFAIL(qPrintable("no action " + text));
    }

    // Triggers what asks for a file, and names that. Returns what the canvas then shows.
    QImage answer(const QString &action, const QString &file)
    {
        QTimer::singleShot(100, this, [file] {
            auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
            dialog->findChild<QLineEdit *>("fileNameEdit")->setText(file);
            QMetaObject::invokeMethod(dialog, "accept");
        });
        trigger(action);
        return canvas()->grab().toImage();
    }

    void drag(const QPoint &from, const QPoint &to)
    {
        QTest::mousePress(canvas(), Qt::LeftButton, Qt::NoModifier, from);
        QMouseEvent move(QEvent::MouseMove, to, Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(canvas(), &move);
        QTest::mouseRelease(canvas(), Qt::LeftButton, Qt::NoModifier, to);
    }

    // With WHITEBOARD_PICTURES, a folder, the window is left there to be looked at.
    void look(const QString &name) const
    {
        if (qEnvironmentVariableIsSet("WHITEBOARD_PICTURES"))
            m_window->grab().save(qEnvironmentVariable("WHITEBOARD_PICTURES") + '/' + name + ".png");
    }

    QMainWindow *m_window{};
};

namespace {

void drive()
{
    QTimer::singleShot(0, QCoreApplication::instance(), [] {
        tst_Whiteboard cases;
        QCoreApplication::exit(QTest::qExec(&cases, QCoreApplication::arguments()));
    });
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(drive)

#include "tst_Whiteboard.moc"
