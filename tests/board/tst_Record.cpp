#include "RecordText.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtTest/QtTest>

using namespace Board;

namespace {

QByteArray written(const Record &record)
{
    return QJsonDocument(toJson(record)).toJson(QJsonDocument::Compact);
}

QJsonObject object(const QByteArray &json)
{
    return QJsonDocument::fromJson(json).object();
}

// One of every act.
Life fullLife()
{
    Life life{QStringLiteral("highlighter"), {QColor(1, 2, 3, 4), 7, 55}, {400, 300}};
    QImage image(2, 1, QImage::Format_ARGB32);
    image.setPixel(0, 0, 0x01020304);
    image.setPixel(1, 0, 0xFFFEFDFC);
    life.acts = {PointerAct{1, {-5, 6}},
                 PointerAct{2, {2147483647, -2147483647}},
                 FinishAct(),
                 ReopenAct(),
                 ColorAct{QColor(255, 0, 0, 128)},
                 WidthAct{-3},
                 TextAct{QStringLiteral("Größe\n\"2\""), image}};
    return life;
}

} // namespace

class tst_Record : public QObject
{
    Q_OBJECT

private slots:
    void writesARecord_data();
    void writesARecord();
    void readsWhatItWrote();
    void keepsAPictureBitForBit();
    void leavesOutThePictureOfAReplacement();
    void saysWhatIsWrong_data();
    void saysWhatIsWrong();
};

void tst_Record::writesARecord_data()
{
    QTest::addColumn<QByteArray>("json");
    Life life{QStringLiteral("line"), {Qt::red, 4}, {400, 300}};
    life.acts = {PointerAct{1, {10, 20}}, FinishAct()};
    const QByteArray lifeJson = R"("life":{"acts":[[1,10,20],"finish"],"canvas":[400,300],"color":"#ffff0000",)"
                                R"("tool":"line","width":4})";
    const auto row = [](const char *name, const Record &record, const QByteArray &json) {
        QTest::newRow(name) << json;
        QCOMPARE(written(record), json);
    };
    row("draw", DrawRecord{7, life, false}, R"({"do":"draw","id":7,)" + lifeJson + "}");
    row("draw in its place", DrawRecord{7, life, true}, R"({"do":"draw","id":7,)" + lifeJson + R"(,"succeeds":true})");
    row("replace", ReplaceRecord{7, life}, R"({"do":"replace","id":7,)" + lifeJson + "}");
    life.ink.dash = Qt::DotLine;
    life.acts = {PointerAct{1, {10, 20}}, DashAct{Qt::DashDotDotLine}, DashAct{Qt::SolidLine}};
    row("dashed", DrawRecord{7, life, false},
        R"({"do":"draw","id":7,"life":{"acts":[[1,10,20],{"dash":"dash-dot-dot"},{"dash":"solid"}],)"
        R"("canvas":[400,300],"color":"#ffff0000","dash":"dot","tool":"line","width":4}})");
    row("delete", DeleteRecord{7}, R"({"do":"delete","id":7})");
    row("order", OrderRecord{7, 2}, R"({"do":"order","id":7,"place":2})");
    row("clear", ClearRecord(), R"({"do":"clear"})");
    row("blank", PaperRecord{{Paper::Kind::Blank, {}}}, R"({"do":"paper","kind":"blank"})");
    row("ruled", PaperRecord{{Paper::Kind::Ruled, {}}}, R"({"do":"paper","kind":"ruled"})");
    row("squared", PaperRecord{{Paper::Kind::Squared, {}}}, R"({"do":"paper","kind":"squared"})");
    row("size", SizeRecord{{400, 300}}, R"({"do":"size","size":[400,300]})");
}

// The other way; what is written is checked where the rows are made.
void tst_Record::writesARecord()
{
    QFETCH(QByteArray, json);
    RecordReader reader;
    Record record;
    QVERIFY2(reader.read(object(json), record), qPrintable(reader.error()));
    QCOMPARE(written(record), json);
}

void tst_Record::readsWhatItWrote()
{
    const QByteArray json = written(DrawRecord{1, fullLife(), false});
    RecordReader reader;
    Record record;
    QVERIFY2(reader.read(object(json), record), qPrintable(reader.error()));
    QCOMPARE(written(record), json);
    const Life life = std::get<DrawRecord>(record).life;
    QCOMPARE(life.acts.size(), std::size_t(7));
    QCOMPARE(std::get<PointerAct>(life.acts[1]).pt.x(), 2147483647);
    QCOMPARE(std::get<ColorAct>(life.acts[4]).color, QColor(255, 0, 0, 128));
    QCOMPARE(std::get<WidthAct>(life.acts[5]).width, -3);
    const auto &text = std::get<TextAct>(life.acts[6]);
    QCOMPARE(text.text, QStringLiteral("Größe\n\"2\""));
    QCOMPARE(text.image.pixel(0, 0), 0x01020304U);
    QCOMPARE(text.image.pixel(1, 0), 0xFFFEFDFCU);
    QCOMPARE(life.ink.option, std::optional<int>(55));
}

// Every value at every alpha, as no premultiplied format could keep it.
void tst_Record::keepsAPictureBitForBit()
{
    QImage picture(256, 256, QImage::Format_ARGB32);
    for (int alpha = 0; alpha < 256; ++alpha) {
        for (int value = 0; value < 256; ++value)
            picture.setPixel(value, alpha, qRgba(value, 255 - value, value / 2, alpha));
    }
    Life life{kPictureTool, {}, {400, 300}, picture, {-3, 9}};
    RecordReader reader;
    Record record;
    QVERIFY(reader.read(toJson(DrawRecord{1, life, false}), record));
    QCOMPARE(std::get<DrawRecord>(record).life.picture, picture);
    QCOMPARE(std::get<DrawRecord>(record).life.position, QPoint(-3, 9));
    QVERIFY(reader.read(toJson(PaperRecord{{Paper::Kind::Picture, picture}}), record));
    QCOMPARE(std::get<PaperRecord>(record).paper.picture, picture);
}

void tst_Record::leavesOutThePictureOfAReplacement()
{
    QImage picture(2, 2, QImage::Format_ARGB32);
    picture.fill(Qt::green);
    const Life life{kPictureTool, {}, {400, 300}, picture, {0, 0}};
    QVERIFY(!written(ReplaceRecord{1, life}).contains("\"picture\":\""));
    QVERIFY(written(DrawRecord{1, life, false}).contains("\"picture\":\""));
}

void tst_Record::saysWhatIsWrong_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("error");
    const auto row = [](const char *json, const char *error) {
        QTest::newRow(json) << QByteArray(json) << QString::fromLatin1(error);
    };
    row("{}", "do: nothing that can be done");
    row(R"({"do":"paint"})", "do: nothing that can be done");
    row(R"({"do":"delete"})", "id: not a whole number");
    row(R"({"do":"delete","id":"7"})", "id: not a whole number");
    row(R"({"do":"delete","id":1.5})", "id: not a whole number");
    row(R"({"do":"delete","id":1e10})", "id: not a whole number");
    row(R"({"do":"order","id":1})", "place: not a whole number");
    row(R"({"do":"paper","kind":"silk"})", "kind: no kind of paper");
    row(R"({"do":"paper","kind":"picture","picture":"AAAA"})", "picture: not a picture");
    row(R"({"do":"size","size":[4]})", "size: not a size");
    row(R"({"do":"draw","id":1})", "life.canvas: not a size");
    row(R"({"do":"draw","id":1,"life":{"canvas":[4,3],"tool":"wand"}})", "life.tool: no tool of this board");
    row(R"({"do":"draw","id":1,"life":{"canvas":[4,3],"tool":"laser"}})", "life.tool: no tool of this board");
    row(R"({"do":"draw","id":1,"life":{"canvas":[4,3],"tool":"line"}})", "life.color: not a colour");
    row(R"({"do":"draw","id":1,"life":{"canvas":[4,3],"tool":"line","color":"#ff0000"}})",
        "life.width: not a whole number");
    row(R"({"do":"draw","id":1,"life":{"canvas":[4,3],"tool":"line","color":"#ff0000","width":1}})",
        "life.acts: not an array");
    row(R"({"do":"draw","id":1,"life":{"canvas":[4,3],"tool":"line","color":"#ff0000","width":1,"option":"x"}})",
        "life.option: not a whole number");
    row(R"({"do":"draw","id":1,"life":{"canvas":[4,3],"tool":"line","color":"#ff0000","width":1,"dash":"wavy"}})",
        "life.dash: no kind of line");
    row(R"({"do":"draw","id":1,"life":{"canvas":[4,3],"tool":"line","color":"#ff0000","width":1,"dash":2}})",
        "life.dash: no kind of line");
    row(R"({"do":"draw","id":1,"life":{"canvas":[4,3],"tool":"picture"}})", "life.position: not a point");
    row(R"({"do":"draw","id":1,"life":{"canvas":[4,3],"tool":"picture","position":[0,0],"picture":"x"}})",
        "life.picture: not a picture");
    for (const char *act :
         {"[1,2]", "[1,2,\"3\"]", "\"jump\"", "{\"color\":\"no\"}", "{\"width\":null}", "{\"dash\":\"\"}", "{}", "7"})
        QTest::newRow(act) << QByteArray(R"({"do":"draw","id":1,"life":{"canvas":[4,3],"tool":"line",)"
                                         R"("color":"#ff0000","width":1,"acts":[[1,2,3],)") +
                                  act + "]}}"
                           << QStringLiteral("life.acts[1]: nothing that can be done to an object");
}

void tst_Record::saysWhatIsWrong()
{
    QFETCH(QByteArray, json);
    QFETCH(QString, error);
    QVERIFY(!QJsonDocument::fromJson(json).isNull());
    RecordReader reader;
    Record record;
    QVERIFY(!reader.read(object(json), record));
    QCOMPARE(reader.error(), error);
}

QTEST_GUILESS_MAIN(tst_Record)
#include "tst_Record.moc"
