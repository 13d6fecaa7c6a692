// Run once for each of several scales of the screen, which QT_SCALE_FACTOR sets.

#include "board/window/MainWindow.h"

#include "Paper.h"
#include "Patience.h"
#include "board/editors/TextEditor.h"
#include "lesson/storage/LogReader.h"

#include "board/canvas/Canvas.h"

#include <QtCore/QTemporaryDir>
#include <QtGui/QBackingStore>
#include <QtTest/QtTest>
#include <QtWidgets/QTextEdit>

using namespace Board;

namespace {

constexpr QSize kSize{400, 300};

QImage grabbed(QWidget &widget)
{
    QImage image = widget.grab().toImage().convertToFormat(QImage::Format_RGB32);
    image.setDevicePixelRatio(1);
    return image;
}

} // namespace

class tst_Density : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void makesPagesForTheScreen();
    void inksEveryPixelOfTheScreen();
    void scalesTheWidthOfThePen();
    void showsAPlainLessonAsLarge();
    void showsAnyLessonAsLarge();
    void rendersTextForTheScreen();
    void repaintsAllThatAStrokeChanged();
    void growsWithTheWindow();
    void staysAtOneForAHugePage();

private:
    void show(double density);
    void drag(const QPointF &from, const QPointF &to);
    double ratio() const { return m_canvas->devicePixelRatioF(); }
    const InkLesson::Page &page() const { return m_document->page(); }

    std::unique_ptr<Document> m_document;
    std::unique_ptr<Canvas> m_canvas;
};

void tst_Density::init()
{
    const double ratio = qEnvironmentVariable("QT_SCALE_FACTOR", QStringLiteral("1")).toDouble();
    show(ratio);
    QCOMPARE(this->ratio(), ratio); // or nothing would be tested
}

void tst_Density::cleanup()
{
    m_canvas.reset();
}

void tst_Density::show(double density)
{
    m_canvas.reset();
    m_document = std::make_unique<Document>(QSize(int(400 * density), int(300 * density)), density);
    m_canvas = std::make_unique<Canvas>(*m_document);
    m_canvas->setColor(Qt::red);
    m_canvas->setInkWidth(4);
    m_canvas->resize(kSize);
    m_canvas->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_canvas.get(), kPatience));
}

void tst_Density::drag(const QPointF &from, const QPointF &to)
{
    const auto mouse = [this](QEvent::Type type, const QPointF &pos) {
        QMouseEvent event(type, pos, pos, pos, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(m_canvas.get(), &event);
    };
    mouse(QEvent::MouseButtonPress, from);
    mouse(QEvent::MouseMove, to);
    mouse(QEvent::MouseButtonRelease, to);
}

void tst_Density::makesPagesForTheScreen()
{
    const QSize dense = ratio() == 1 ? QSize(600, 500) : ratio() == 1.5 ? QSize(900, 750) : QSize(1200, 1000);
    MainWindow window(QSize(600, 500));
    QCOMPARE(window.document().density(), ratio());
    QCOMPARE(window.document().page().rect().size(), dense);
    QCOMPARE(window.canvas().sizeHint(), QSize(600, 500));
    const QByteArray header = InkLesson::headerLine(window.document().lesson().header());
    if (ratio() == 1)
        QCOMPARE(header, QByteArray(R"({"inkboard":2,"size":[600,500]})"));
    else if (ratio() == 1.5)
        QCOMPARE(header, QByteArray(R"({"density":1.5,"inkboard":2,"size":[900,750]})"));
    else
        QCOMPARE(header, QByteArray(R"({"density":2,"inkboard":2,"size":[1200,1000]})"));
}

// The window shows the very pixels of the page.
void tst_Density::inksEveryPixelOfTheScreen()
{
    m_canvas->setTool(*findTool(QStringLiteral("ellipse")));
    drag({20, 30}, {250, 170});
    m_canvas->finish();
    QVERIFY(page().picture() != blankPaper(page().rect().size()));
    QCOMPARE(m_canvas->view().scale(), 1.0);
    QCOMPARE(grabbed(*m_canvas), page().surface());
}

// A pen of 4 pixels at y = 50 inks the rows from 48 on, which is 72 or 96 for six or eight pixels.
void tst_Density::scalesTheWidthOfThePen()
{
    drag({20, 50}, {80, 50});
    const int first = ratio() == 1 ? 48 : ratio() == 1.5 ? 72 : 96;
    const int last = ratio() == 1 ? 51 : ratio() == 1.5 ? 77 : 103;
    const int x = 60;
    QCOMPARE(page().picture().pixel(x, first - 1), 0xFFFFFFFFU);
    QCOMPARE(page().picture().pixel(x, first), 0xFFFF0000U);
    QCOMPARE(page().picture().pixel(x, last), 0xFFFF0000U);
    QCOMPARE(page().picture().pixel(x, last + 1), 0xFFFFFFFFU);
}

void tst_Density::showsAPlainLessonAsLarge()
{
    show(1);
    QCOMPARE(m_canvas->view().scale(), ratio());
    drag({20, 50}, {80, 50});
    QCOMPARE(page().rect().size(), kSize);
    QCOMPARE(page().picture().pixel(50, 48), 0xFFFF0000U);
    QCOMPARE(page().picture().pixel(50, 47), 0xFFFFFFFFU);
    const QImage image = grabbed(*m_canvas);
    QCOMPARE(image.pixel(int(50 * ratio()), int(50 * ratio())), 0xFFFF0000U);
    QCOMPARE(image.pixel(int(50 * ratio()), int(45 * ratio())), 0xFFFFFFFFU);
    QCOMPARE(image.pixel(int(50 * ratio()), int(54 * ratio())), 0xFFFFFFFFU);
}

void tst_Density::showsAnyLessonAsLarge()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("lesson.inkboard"));
    show(3);
    drag({20, 50}, {80, 50});
    const QImage picture = page().picture().copy();
    QCOMPARE(picture.size(), QSize(1200, 900));
    QCOMPARE(picture.pixel(150, 144), 0xFFFF0000U);
    QCOMPARE(picture.pixel(150, 155), 0xFFFF0000U);
    QCOMPARE(picture.pixel(150, 156), 0xFFFFFFFFU);
    QCOMPARE(m_document->save(file), QString());

    show(ratio());
    QCOMPARE(m_document->open(file), QString());
    QCOMPARE(m_document->density(), 3.0);
    QCOMPARE(page().picture(), picture);
    QCOMPARE(m_canvas->view().scale(), ratio() / 3);
    QCOMPARE(m_canvas->view().fromPage(QPointF(150, 150)), QPointF(50, 50));
}

// Text of 24 pixels, in the pixels of the screen.
void tst_Density::rendersTextForTheScreen()
{
    m_canvas->setTool(*findTool(QStringLiteral("text")));
    drag({50, 60}, {250, 200});
    auto *editor = m_canvas->findChild<TextEditor *>();
    QVERIFY(editor);
    QCOMPARE(editor->geometry().topLeft(), QPoint(50, 60));
    QTest::keyClicks(editor->findChild<QTextEdit *>(), QStringLiteral("HH"));
    m_canvas->finish();
    QRect ink;
    for (int y = 0; y < page().rect().height(); ++y) {
        for (int x = 0; x < page().rect().width(); ++x) {
            if (page().picture().pixel(x, y) != 0xFFFFFFFFU)
                ink |= QRect(x, y, 1, 1);
        }
    }
    const double height = ink.height() / ratio();
    QVERIFY2(height >= 12 && height <= 24, qPrintable(QString::number(height)));
    QCOMPARE(grabbed(*m_canvas), page().surface());
}

void tst_Density::repaintsAllThatAStrokeChanged()
{
    for (int i = 0; i < 20; ++i) { // at all fractions of a pixel
        drag({20 + i * 1.3, 20 + i * 7.1}, {90 + i * 1.7, 25 + i * 7.3});
        QCoreApplication::processEvents();
    }
    const auto *window = dynamic_cast<const QImage *>(m_canvas->backingStore()->paintDevice());
    QVERIFY(window);
    QImage repainted = window->convertToFormat(QImage::Format_RGB32);
    repainted.setDevicePixelRatio(1);
    QCOMPARE(repainted, page().surface());
}

void tst_Density::growsWithTheWindow()
{
    m_canvas->resize(501, 333);
    const QSize grown = ratio() == 1 ? QSize(501, 333) : ratio() == 1.5 ? QSize(752, 500) : QSize(1002, 666);
    QTRY_COMPARE_WITH_TIMEOUT(page().rect().size(), grown, kPatience);
    QCOMPARE(m_canvas->view().corner(), QPoint(0, 0));
}

// With twice as many pixels a side it could not be saved.
void tst_Density::staysAtOneForAHugePage()
{
    MainWindow window(QSize(16384, 100));
    QCOMPARE(window.document().density(), 1.0);
}

int main(int argc, char **argv)
{
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication application(argc, argv);
    tst_Density test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_Density.moc"
