#include "PageProbe.h"

#include "lesson/output/PageOutput.h"

#include <QtCore/QTemporaryDir>
#include <QtCore/QXmlStreamReader>
#include <QtSvg/QSvgRenderer>
#include <QtTest/QtTest>

using namespace InkLesson;

namespace {

void draw(InkLesson::Author &author, const char *tool, const QPoint &from, const QPoint &to,
          const QColor &color = Qt::red)
{
    author.begin(lifeOf(tool, color));
    drag(author, from, to);
    author.finish();
}

QImage paintedOnce(const InkLesson::Page &page)
{
    QImage image(page.rect().size(), QImage::Format_RGB32);
    QPainter painter(&image);
    paintPage(painter, page);
    return image;
}

QByteArray contents(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

int count(const QString &svg, const QString &element)
{
    QXmlStreamReader reader(contents(svg));
    int found = 0;
    while (!reader.atEnd())
        found += reader.readNext() == QXmlStreamReader::StartElement && reader.name() == element ? 1 : 0;
    return reader.hasError() ? -1 : found;
}

} // namespace

class tst_PageOutput : public QObject
{
    Q_OBJECT

private slots:
    void paintsThePageAsItIs_data();
    void paintsThePageAsItIs();
    void showsErasedFilledAndLiftedPixels();
    void scalesVectors();
    void writesVectorsAsSvg();
    void writesOnePdfPage();
    void saysWhatCannotBeWritten();

private:
    QString path(const char *name) const { return m_folder.filePath(QString::fromLatin1(name)); }

    QTemporaryDir m_folder;
};

void tst_PageOutput::paintsThePageAsItIs_data()
{
    QTest::addColumn<QString>("name");
    for (const InkLesson::Tool &tool : InkLesson::tools())
        QTest::newRow(tool.name) << QString::fromLatin1(tool.name);
}

void tst_PageOutput::paintsThePageAsItIs()
{
    QFETCH(QString, name);
    Drawing drawing;
    const Page &page = drawing.page();
    drawing.author.setPaper({InkLesson::Paper::Kind::Squared, {}});
    draw(drawing.author, "rectangle", {20, 20}, {380, 280}, Qt::darkGreen);
    draw(drawing.author, name.toLatin1(), {60, 60}, {300, 200}, QColor(200, 30, 60));
    draw(drawing.author, "line", {20, 150}, {380, 140}, Qt::blue);
    QCOMPARE(paintedOnce(page), page.picture());
}

void tst_PageOutput::showsErasedFilledAndLiftedPixels()
{
    Drawing drawing;
    const Page &page = drawing.page();
    draw(drawing.author, "rectangle", {20, 20}, {380, 280}, Qt::darkGreen);
    draw(drawing.author, "fill", {200, 100}, {200, 100}, Qt::yellow);
    draw(drawing.author, "eraser", {100, 100}, {300, 100});
    draw(drawing.author, "select", {40, 200}, {140, 260});
    const QImage image = paintedOnce(page);
    QCOMPARE(image.pixel(200, 60), 0xFFFFFF00U);
    QCOMPARE(image.pixel(200, 100), 0xFFFFFFFFU);
    QCOMPARE(image, page.picture());
}

// Twice as large, a line of four pixels is eight pixels thick: the rows 96 to 103.
void tst_PageOutput::scalesVectors()
{
    Drawing drawing;
    const Page &page = drawing.page();
    draw(drawing.author, "line", {20, 50}, {180, 50});
    QCOMPARE(exportPage(page, path("twice.png"), 2), QString());
    const QImage image(path("twice.png"));
    QCOMPARE(image.size(), QSize(800, 600));
    for (const int y : {96, 103})
        QCOMPARE(image.pixel(200, y), 0xFFFF0000U);
    for (const int y : {95, 104})
        QCOMPARE(image.pixel(200, y), 0xFFFFFFFFU);
    QVERIFY(!exportPage(page, path("huge.png"), 1000).isEmpty());
    QVERIFY(!QFile::exists(path("huge.png")));
}

void tst_PageOutput::writesVectorsAsSvg()
{
    Drawing drawing;
    const Page &page = drawing.page();
    draw(drawing.author, "pencil", {20, 50}, {180, 50});
    draw(drawing.author, "star-5", {200, 50}, {300, 150}, Qt::blue);
    QCOMPARE(exportPage(page, path("page.svg")), QString());
    QCOMPARE(count(path("page.svg"), QStringLiteral("image")), 0);
    QVERIFY(count(path("page.svg"), QStringLiteral("path")) >= 1);

    QSvgRenderer renderer(path("page.svg"));
    QVERIFY(renderer.isValid());
    QCOMPARE(renderer.viewBox(), QRect(QPoint(), kSize));
    QImage image(kSize, QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    renderer.render(&painter);
    QCOMPARE(image.pixel(100, 50), 0xFFFF0000U);
    QCOMPARE(image.pixel(100, 90), 0xFFFFFFFFU);

    draw(drawing.author, "fill", {10, 10}, {10, 10}, Qt::yellow);
    QCOMPARE(exportPage(page, path("filled.svg")), QString());
    QCOMPARE(count(path("filled.svg"), QStringLiteral("image")), 1);
}

void tst_PageOutput::writesOnePdfPage()
{
    Drawing drawing;
    const Page &page = drawing.page();
    draw(drawing.author, "pencil", {20, 50}, {180, 50});
    QCOMPARE(exportPage(page, path("page.pdf")), QString());
    const QByteArray pdf = contents(path("page.pdf"));
    QVERIFY(pdf.startsWith("%PDF-"));
    QVERIFY(pdf.contains("/Count 1"));
    QVERIFY2(pdf.contains("/MediaBox [0 0 300.000000 225.000000]"),
             pdf.mid(pdf.indexOf("/MediaBox"), 50)); // 400 x 300 at 96 dots an inch, in points
    QVERIFY(!pdf.contains("/Subtype /Image"));
}

void tst_PageOutput::saysWhatCannotBeWritten()
{
    Drawing drawing;
    const Page &page = drawing.page();
    for (const char *name : {"no/folder.svg", "no/folder.pdf", "no/folder.png"})
        QVERIFY(exportPage(page, path(name)).startsWith(path(name) + QStringLiteral(": cannot be written: ")));
}

QTEST_MAIN(tst_PageOutput)
#include "tst_PageOutput.moc"
