#pragma once

// Shortcuts to a document with ink on it, and to its files.

#include "PageProbe.h"
#include "board/document/Document.h"

#include <QtTest/QtTest>

inline void draw(Board::Document &document, const char *tool, const QPoint &from, const QPoint &to,
                 const QColor &color = Qt::red)
{
    document.author().begin(lifeOf(tool, color));
    drag(document.author(), from, to);
    document.author().finish();
}

inline bool isRed(const InkLesson::Page &page, const QPoint &pt)
{
    return page.picture().pixel(pt) == 0xFFFF0000U;
}

inline QImage greenPicture()
{
    QImage picture(40, 20, QImage::Format_ARGB32);
    picture.fill(QColor(0, 255, 0, 120));
    return picture;
}

// Everything that there is, on three pages.
inline void holdLesson(Board::Document &document)
{
    for (const InkLesson::Tool &tool : InkLesson::tools())
        draw(document, tool.name, {30, 40}, {200, 160}, QColor(200, 30, 60, 120));
    InkLesson::Author &author = document.author();
    InkLesson::Life picture{InkLesson::kPictureTool};
    picture.canvas = kSize;
    picture.picture = InkLesson::exactImage(greenPicture());
    picture.position = {250, 40};
    author.insert(picture);
    drag(author, {260, 50}, {280, 90});
    author.finish();
    document.addPage(1);
    author.setPaper({InkLesson::Paper::Kind::Squared, {}});
    draw(document, "rectangle", {50, 50}, {150, 120});
    draw(document, "ellipse", {80, 60}, {250, 200}, Qt::blue);
    const InkLesson::ObjectId rectangle = document.page().items()[0]->id;
    const InkLesson::ObjectId ellipse = document.page().items()[1]->id;
    author.order(rectangle, ellipse);
    author.duplicate(ellipse, {30, 30});
    author.remove({ellipse});
    document.undo();
    document.undo();
    document.redo();
    document.addPage(2);
    author.setPaper({InkLesson::Paper::Kind::Picture, InkLesson::exactImage(greenPicture())});
    draw(document, "pencil", {10, 10}, {300, 200});
    author.clear();
    draw(document, "fill", {100, 100}, {100, 100});
    author.pour({5, 5}, Qt::yellow);
    author.grow({500, 350});
    draw(document, "text", {60, 60}, {200, 200});
    document.movePage(2, 0);
    document.addPage(0);
    document.removePage(0);
}

inline void compareDocuments(Board::Document &actual, Board::Document &expected)
{
    QCOMPARE(actual.pageCount(), expected.pageCount());
    QCOMPARE(actual.stepsToUndo(), expected.stepsToUndo());
    for (int i = 0; i < actual.pageCount(); ++i) {
        QCOMPARE(actual.page(i).picture(), expected.page(i).picture());
        QCOMPARE(actual.page(i).ink(), expected.page(i).ink());
        QCOMPARE(actual.page(i).surface(), expected.page(i).surface());
        QCOMPARE(actual.page(i).items().size(), expected.page(i).items().size());
    }
}

inline QByteArray contents(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

inline void write(const QString &fileName, const QByteArray &bytes)
{
    QFile file(fileName);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), qint64(bytes.size()));
}

// Without the times.
inline QByteArray timeless(const QByteArray &lines)
{
    static const QRegularExpression time(QStringLiteral(",\"time\":\\d+"));
    return QString::fromLatin1(lines).remove(time).toLatin1();
}
