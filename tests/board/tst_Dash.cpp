#include "CanvasProbe.h"
#include "PageProbe.h"
#include "board/controls/DashControl.h"
#include "board/playing/Player.h"

#include <QtCore/QTemporaryDir>
#include <QtWidgets/QAction>
#include <QtWidgets/QComboBox>

using namespace Board;

namespace {

QImage dashedLine(const QSize &size, Qt::PenStyle dash)
{
    return paper(size, [&](QPainter &painter) {
        painter.setPen(QPen(Qt::red, 4, dash, Qt::RoundCap, Qt::RoundJoin));
        painter.drawLine(QPointF(50, 100), QPointF(350, 100));
    });
}

} // namespace

class tst_Dash : public QObject, private CanvasProbe
{
    Q_OBJECT

private slots:
    void init() { showCanvas(); }
    void cleanup() { m_canvas.reset(); }

    void paintsInEachStyle_data();
    void paintsInEachStyle();
    void toolsTakeOneWhereTheirPixelsShowIt_data();
    void toolsTakeOneWhereTheirPixelsShowIt();
    void changesThePickedObject();
    void isNoStepWithoutAChange();
    void leavesSolidToolsAlone();
    void staysInAFile();
    void goesThroughTheStylesByCommand();

private:
    const QImage &picture() const { return m_canvas->page().picture(); }
    void line()
    {
        choose("line");
        CanvasProbe::drag({50, 100}, {350, 100});
        m_canvas->finish();
    }
    void pickLine()
    {
        choose("pick");
        CanvasProbe::drag({50, 100}, {50, 100}); // its end, which every style paints
    }
    InkLesson::Life life() { return *m_document->lesson().life(m_canvas->page().items().front()->id); }
};

void tst_Dash::paintsInEachStyle_data()
{
    QTest::addColumn<int>("dash");
    for (int dash = Qt::SolidLine; dash <= Qt::DashDotDotLine; ++dash)
        QTest::addRow("%d", dash) << dash;
}

void tst_Dash::paintsInEachStyle()
{
    QFETCH(int, dash);
    m_canvas->setDash(Qt::PenStyle(dash));
    line();
    QCOMPARE(picture(), dashedLine(kSize, Qt::PenStyle(dash)));
}

void tst_Dash::toolsTakeOneWhereTheirPixelsShowIt_data()
{
    QTest::addColumn<QString>("name");
    for (const Tool &tool : tools()) {
        if (!tool.sample.empty())
            QTest::newRow(tool.name) << QString::fromLatin1(tool.name);
    }
}

void tst_Dash::toolsTakeOneWhereTheirPixelsShowIt()
{
    QFETCH(QString, name);
    const Tool &tool = *findTool(name);
    const auto paintedIn = [&](Qt::PenStyle dash) {
        Drawing drawing;
        InkLesson::Life drawn = lifeOf(tool.name);
        drawn.ink.dash = dash;
        drawing.author.begin(drawn);
        for (Gesture gesture : tool.sample) {
            for (QPoint &pt : gesture)
                pt = QPoint(50, 50) + pt * 5;
            playGesture(gesture, drawing.author);
        }
        drawing.author.finish();
        return drawing.page().ink().copy();
    };
    QCOMPARE(paintedIn(Qt::SolidLine) != paintedIn(Qt::DotLine), tool.takesDash());
}

void tst_Dash::changesThePickedObject()
{
    line();
    pickLine();
    m_canvas->setDash(Qt::DotLine);
    m_canvas->finish();
    QCOMPARE(picture(), dashedLine(kSize, Qt::DotLine));
    pickLine();
    m_canvas->setDash(Qt::DashLine);
    m_canvas->finish();
    QCOMPARE(picture(), dashedLine(kSize, Qt::DashLine));
    m_canvas->undo();
    QCOMPARE(picture(), dashedLine(kSize, Qt::DotLine));
    m_canvas->undo();
    QCOMPARE(picture(), dashedLine(kSize, Qt::SolidLine));
    m_canvas->redo();
    QCOMPARE(picture(), dashedLine(kSize, Qt::DotLine));
}

void tst_Dash::isNoStepWithoutAChange()
{
    m_canvas->setDash(Qt::DotLine);
    line();
    pickLine();
    m_canvas->setDash(Qt::DotLine); // as it is
    m_canvas->finish();
    QCOMPARE(picture(), dashedLine(kSize, Qt::DotLine));
    m_canvas->undo(); // so this takes the line away
    QVERIFY(m_canvas->page().items().empty());
}

void tst_Dash::leavesSolidToolsAlone()
{
    choose("rectangle");
    CanvasProbe::drag({50, 100}, {350, 200});
    m_canvas->finish();
    const QImage before = picture();
    const std::size_t acts = life().acts.size();
    pickLine();
    QCOMPARE(QString(m_document->author().hand()->tool->name), QStringLiteral("rectangle"));
    m_canvas->setDash(Qt::DotLine);
    m_canvas->finish();
    QCOMPARE(picture(), before);
    QCOMPARE(life().acts.size(), acts);
    QVERIFY(!isBusy());
}

void tst_Dash::staysInAFile()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("lesson.inkboard"));
    m_canvas->setDash(Qt::DashDotLine);
    line();
    pickLine();
    m_canvas->setDash(Qt::DashDotDotLine);
    m_canvas->finish();
    QCOMPARE(m_document->save(file), QString());
    Document opened(QSize(10, 10));
    QCOMPARE(opened.open(file), QString());
    QCOMPARE(opened.page().picture(), dashedLine(kSize, Qt::DashDotDotLine));
    opened.undo();
    QCOMPARE(opened.page().picture(), dashedLine(kSize, Qt::DashDotLine));
}

void tst_Dash::goesThroughTheStylesByCommand()
{
    QWidget window;
    DashControl control(&window);
    QVector<Qt::PenStyle> picked;
    connect(&control, &DashControl::picked, this, [&](Qt::PenStyle dash) { picked.append(dash); });
    QCOMPARE(control.dash(), Qt::SolidLine);
    auto *next = window.findChild<QAction *>(QStringLiteral("dash"));
    for (int i = 0; i < 5; ++i)
        next->trigger();
    QCOMPARE(picked,
             (QVector<Qt::PenStyle>{Qt::DashLine, Qt::DotLine, Qt::DashDotLine, Qt::DashDotDotLine, Qt::SolidLine}));
    const auto *list = control.findChild<QComboBox *>();
    QCOMPARE(list->itemData(2, Qt::AccessibleTextRole).toString(), QStringLiteral("Dotted line"));
}

QTEST_MAIN(tst_Dash)
#include "tst_Dash.moc"
