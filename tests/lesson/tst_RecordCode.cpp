#include "lesson/log/RecordCode.h"

#include "lesson/log/RecordReader.h"

#include "PointerEvent.h"

#include <QtCore/QCborValue>
#include <QtCore/QJsonDocument>

#include <gtest/gtest.h>

using namespace InkLesson;

namespace {

// Of the first author's seventh record, at the fifth millisecond.
Record seventh(Deed deed)
{
    return {{1, 7}, 7, 5, kFirstPage, std::move(deed)};
}

Life pencil()
{
    Life life{QStringLiteral("pencil")};
    life.ink.color = QColor(16, 32, 255);
    life.ink.width = 3;
    life.canvas = QSize(640, 480);
    life.acts = {PointerAct{PT_DOWN, {10, 20}}, PointerAct{PT_UP, {11, 18}}, FinishAct()};
    return life;
}

// Every pixel another, with colours that nobody sees among them.
QImage picture()
{
    QImage image(3, 2, QImage::Format_ARGB32);
    const QRgb pixels[] = {0xff000000, 0x00123456, 0x01fedcba, 0x80ff0001, 0xffffffff, 0x7f00ff00};
    for (int i = 0; i < 6; ++i)
        image.setPixel(i % 3, i / 3, pixels[i]);
    return image;
}

bool isSame(const QImage &actual, const QImage &expected)
{
    if (actual.size() != expected.size() || actual.format() != QImage::Format_ARGB32 || actual.devicePixelRatio() != 1)
        return false;
    for (int y = 0; y < actual.height(); ++y) {
        for (int x = 0; x < actual.width(); ++x) {
            if (actual.pixel(x, y) != expected.pixel(x, y))
                return false;
        }
    }
    return true;
}

// What is read from the line, and from the CBOR of what is read.
std::vector<Record> readBack(const Record &record)
{
    std::vector<Record> read(2);
    RecordReader reader;
    EXPECT_TRUE(reader.readJson(toJson(record), read[0])) << reader.error().toStdString();
    EXPECT_TRUE(reader.readCbor(toCbor(record), read[1])) << reader.error().toStdString();
    return read;
}

struct Line
{
    const char *what;
    Deed deed;
    std::string json;
};

std::vector<Line> lines()
{
    const std::string life =
        R"({"acts":["d10 20u1 -2f"],"canvas":[640,480],"color":"#ff1020ff","tool":"pencil","width":3})";
    const std::string end = R"("number":7,"time":5})";
    return {
        {"draw", Draw{pencil()}, R"({"author":1,"do":"draw","life":)" + life + "," + end},
        {"replace", Replace{{2, 3}, pencil()},
         R"({"author":1,"do":"replace","life":)" + life + R"(,"number":7,"object":[2,3],"time":5})"},
        {"change nothing", Change{{2, 3}}, R"({"author":1,"do":"change","number":7,"object":[2,3],"time":5})"},
        {"change all",
         Change{
             {2, 3}, QColor(1, 2, 3, 4), -5, Qt::DashDotDotLine, 6, {-7, 8}, {PointerAct{PT_MOVE, {1, 1}}, PaintAct()}},
         R"({"acts":["m1 1p"],"author":1,"by":[-7,8],"color":"#04010203","dash":"dash-dot-dot","do":"change",)"
         R"("number":7,"object":[2,3],"option":6,"time":5,"width":-5})"},
        {"delete", Delete{{{1, 2}, {3, 4}}},
         R"({"author":1,"do":"delete","number":7,"objects":[[1,2],[3,4]],"time":5})"},
        {"delete nothing", Delete{}, R"({"author":1,"do":"delete","number":7,"objects":[],"time":5})"},
        {"order above", Order{{1, 2}, {3, 4}},
         R"({"above":[3,4],"author":1,"do":"order","number":7,"object":[1,2],"time":5})"},
        {"order to the bottom", Order{{1, 2}, kNothing},
         R"({"author":1,"do":"order","number":7,"object":[1,2],"time":5})"},
        {"clear", Clear(), R"({"author":1,"do":"clear",)" + end},
        {"blank paper", SetPaper{{Paper::Kind::Blank}}, R"({"author":1,"do":"paper","kind":"blank",)" + end},
        {"ruled paper", SetPaper{{Paper::Kind::Ruled}}, R"({"author":1,"do":"paper","kind":"ruled",)" + end},
        {"squared paper", SetPaper{{Paper::Kind::Squared, picture()}},
         R"({"author":1,"do":"paper","kind":"squared",)" + end},
        {"size", Grow{{800, 600}}, R"({"author":1,"do":"size","number":7,"size":[800,600],"time":5})"},
        {"add a page", AddPage{2, {800, 600}},
         R"({"at":2,"author":1,"do":"add-page","number":7,"size":[800,600],"time":5})"},
        {"remove a page", RemovePage(), R"({"author":1,"do":"remove-page",)" + end},
        {"move a page", MovePage{3}, R"({"at":3,"author":1,"do":"move-page",)" + end},
        {"undo", Undo{{1, 4}}, R"({"author":1,"do":"undo","number":7,"of":[1,4],"time":5})"},
    };
}

} // namespace

TEST(RecordCode, eachDeedIsALine)
{
    for (const Line &line : lines())
        EXPECT_EQ(toJson(seventh(line.deed)).toStdString(), line.json) << line.what;
}

TEST(RecordCode, eachDeedIsReadBackFromBothForms)
{
    for (const Line &line : lines()) {
        SCOPED_TRACE(line.what);
        for (const Record &read : readBack(seventh(line.deed))) {
            EXPECT_EQ(read.id, (StepId{1, 7}));
            EXPECT_EQ(read.step, 7);
            EXPECT_EQ(read.time, 5);
            EXPECT_EQ(read.page, (PageId{0, 1}));
            EXPECT_EQ(read.deed.index(), line.deed.index());
            EXPECT_EQ(toJson(read).toStdString(), line.json);
            EXPECT_EQ(toCbor(read), toCbor(seventh(line.deed)));
        }
    }
}

TEST(RecordCode, whatOneFormTellsTheOtherTells)
{
    for (const Line &line : lines())
        EXPECT_EQ(jsonLine(toCbor(seventh(line.deed))).toStdString(), line.json) << line.what;
}

TEST(RecordCode, aChangeMovesNothingBeyondTheLastPlace)
{
    Change change{{1, 1}};
    change.by = QPoint(2147483647, -2147483647 - 1);
    Life life = pencil();
    life.acts.push_back(PointerAct{PT_MOVE, {-5, 5}});
    life = changed(changed(life, change), change);
    EXPECT_EQ(std::get<PointerAct>(life.acts[0]).pt.x(), 2147483647);
    EXPECT_EQ(std::get<PointerAct>(life.acts[0]).pt.y(), -2147483647 - 1);
    EXPECT_EQ(life.position.x(), 2147483647);
    change.by = QPoint(3, -4);
    life = changed(pencil(), change);
    EXPECT_EQ(std::get<PointerAct>(life.acts[1]).pt.x(), 14);
    EXPECT_EQ(std::get<PointerAct>(life.acts[1]).pt.y(), 14);
}

TEST(RecordCode, whatHasNoHandlesIsDrawnAgainWithTheOtherPen)
{
    Change change{{1, 1}};
    change.color = QColor(9, 8, 7);
    change.width = 11;
    change.option = 5;
    change.acts = {PaintAct()};
    const Life life = changed(pencil(), change);
    EXPECT_EQ(life.ink.color.rgba(), 0xff090807);
    EXPECT_EQ(life.ink.width, 11);
    EXPECT_EQ(life.ink.option, 5);
    ASSERT_EQ(life.acts.size(), 4u);
    EXPECT_TRUE(std::holds_alternative<PaintAct>(life.acts[3]));
}

TEST(RecordCode, cborIsTheSameMap)
{
    // A map of four: "author" 1, "number" 7, "time" 5, "do" "clear".
    EXPECT_EQ(toCbor(seventh(Clear())).toHex(), "a466617574686f7201666e756d626572076474696d650562646f65636c656172");
}

TEST(RecordCode, whatIsUsualIsLeftOut)
{
    Record record = seventh(Clear());
    record.step = 6;
    EXPECT_EQ(toJson(record).toStdString(), R"({"author":1,"do":"clear","number":7,"step":6,"time":5})");
    record.page = {2, 1};
    EXPECT_EQ(toJson(record).toStdString(), R"({"author":1,"do":"clear","number":7,"page":[2,1],"step":6,"time":5})");
    for (const Record &read : readBack(record)) {
        EXPECT_EQ(read.step, 6);
        EXPECT_EQ(read.page, (PageId{2, 1}));
    }
}

TEST(RecordCode, theTimeOfThisCenturyIsExact)
{
    Record record = seventh(Clear());
    record.time = 1790000000123;
    EXPECT_EQ(toJson(record).toStdString(), R"({"author":1,"do":"clear","number":7,"time":1790000000123})");
    for (const Record &read : readBack(record))
        EXPECT_EQ(read.time, 1790000000123);
}

TEST(RecordCode, aLifeTellsItsOptionAndItsDash)
{
    Life life = pencil();
    life.ink.option = -2;
    life.ink.dash = Qt::DotLine;
    const std::string json =
        R"({"author":1,"do":"draw","life":{"acts":["d10 20u1 -2f"],"canvas":[640,480],"color":"#ff1020ff","dash":"dot",)"
        R"("option":-2,"tool":"pencil","width":3},"number":7,"time":5})";
    EXPECT_EQ(toJson(seventh(Draw{life})).toStdString(), json);
    for (const Record &record : readBack(seventh(Draw{life}))) {
        const Life &read = std::get<Draw>(record.deed).life;
        EXPECT_EQ(read.ink.option, -2);
        EXPECT_EQ(read.ink.dash, Qt::DotLine);
        EXPECT_EQ(read.ink.color.rgba(), 0xff1020ff);
        EXPECT_EQ(read.ink.width, 3);
        EXPECT_EQ(read.canvas, QSize(640, 480));
        EXPECT_EQ(read.tool, QLatin1String("pencil"));
        EXPECT_EQ(read.acts.size(), 3u);
        EXPECT_EQ(toJson(record).toStdString(), json);
    }
}

TEST(RecordCode, everyDashHasItsWord)
{
    const std::pair<Qt::PenStyle, const char *> dashes[] = {{Qt::SolidLine, "solid"},
                                                            {Qt::DashLine, "dash"},
                                                            {Qt::DotLine, "dot"},
                                                            {Qt::DashDotLine, "dash-dot"},
                                                            {Qt::DashDotDotLine, "dash-dot-dot"}};
    for (const auto &[dash, word] : dashes) {
        Change change{{1, 1}};
        change.dash = dash;
        EXPECT_EQ(toJson(seventh(change)).toStdString(), R"({"author":1,"dash":")" + std::string(word) +
                                                             R"(","do":"change","number":7,"object":[1,1],"time":5})");
        for (const Record &read : readBack(seventh(change)))
            EXPECT_EQ(std::get<Change>(read.deed).dash, dash);
    }
}

TEST(RecordCode, actsThatNeedMoreStandBetweenTexts)
{
    Change change{{1, 1}};
    change.acts = {PointerAct{PT_DOWN, {5, 5}}, ColorAct{QColor(255, 0, 0)}, WidthAct{9},
                   PointerAct{PT_UP, {6, 4}},   DashAct{Qt::DashLine},       ReopenAct()};
    const std::string json =
        R"({"acts":["d5 5",{"color":"#ffff0000"},{"width":9},"u1 -1",{"dash":"dash"},"r"],"author":1,"do":"change",)"
        R"("number":7,"object":[1,1],"time":5})";
    EXPECT_EQ(toJson(seventh(change)).toStdString(), json);
    for (const Record &record : readBack(seventh(change))) {
        const auto &acts = std::get<Change>(record.deed).acts;
        ASSERT_EQ(acts.size(), 6u);
        EXPECT_EQ(std::get<ColorAct>(acts[1]).color.rgba(), 0xffff0000);
        EXPECT_EQ(std::get<WidthAct>(acts[2]).width, 9);
        EXPECT_EQ(std::get<PointerAct>(acts[3]).pt.x(), 6);
        EXPECT_EQ(std::get<PointerAct>(acts[3]).pt.y(), 4);
        EXPECT_EQ(std::get<DashAct>(acts[4]).dash, Qt::DashLine);
        EXPECT_EQ(toJson(record).toStdString(), json);
    }
}

TEST(RecordCode, aStyleWithoutANameIsSolid)
{
    for (const Qt::PenStyle dash : {Qt::NoPen, Qt::CustomDashLine}) {
        Change change{{1, 1}};
        change.dash = dash;
        EXPECT_EQ(toJson(seventh(change)).toStdString(),
                  R"({"author":1,"dash":"solid","do":"change","number":7,"object":[1,1],"time":5})");
    }
}

TEST(RecordCode, aTextKeepsItsLettersAndItsImage)
{
    Change change{{1, 1}};
    change.acts = {TextAct{QStringLiteral("a\"\n\u00e4\u20ac"), picture()}};
    for (const Record &record : readBack(seventh(change))) {
        const auto &acts = std::get<Change>(record.deed).acts;
        ASSERT_EQ(acts.size(), 1u);
        EXPECT_EQ(std::get<TextAct>(acts[0]).text, QStringLiteral("a\"\n\u00e4\u20ac"));
        EXPECT_TRUE(isSame(std::get<TextAct>(acts[0]).image, picture()));
    }
}

TEST(RecordCode, picturesAreKeptBitForBit)
{
    Life life{QLatin1String(kPictureTool)};
    life.canvas = QSize(64, 48);
    life.picture = picture();
    life.position = QPoint(-4, 9);
    life.acts = {FinishAct()};
    for (const Record &record : readBack(seventh(Draw{life}))) {
        const Life &read = std::get<Draw>(record.deed).life;
        EXPECT_TRUE(isSame(read.picture, picture()));
        EXPECT_EQ(read.position.x(), -4);
        EXPECT_EQ(read.position.y(), 9);
    }
    for (const Record &read : readBack(seventh(SetPaper{{Paper::Kind::Picture, picture()}}))) {
        EXPECT_EQ(std::get<SetPaper>(read.deed).paper.kind, Paper::Kind::Picture);
        EXPECT_TRUE(isSame(std::get<SetPaper>(read.deed).paper.picture, picture()));
    }
}

// Every value at every alpha, as no premultiplied format could keep it.
TEST(RecordCode, everyValueIsKeptAtEveryAlpha)
{
    QImage all(256, 256, QImage::Format_ARGB32);
    for (int alpha = 0; alpha < 256; ++alpha) {
        for (int value = 0; value < 256; ++value)
            all.setPixel(value, alpha, qRgba(value, 255 - value, value / 2, alpha));
    }
    for (const Record &read : readBack(seventh(SetPaper{{Paper::Kind::Picture, all}})))
        EXPECT_TRUE(isSame(std::get<SetPaper>(read.deed).paper.picture, all));
}

TEST(RecordCode, aPictureIsAPngFileInBothForms)
{
    const Record record = seventh(SetPaper{{Paper::Kind::Picture, picture()}});
    const QByteArray png = toMap(record).value(QLatin1String("picture")).toByteArray();
    EXPECT_EQ(png.left(8), QByteArray::fromHex("89504e470d0a1a0a"));
    EXPECT_EQ(png, pngOf(picture()));
    EXPECT_TRUE(isSame(QImage::fromData(png, "PNG"), picture()));
    const QString text = QJsonDocument::fromJson(toJson(record)).object().value(QLatin1String("picture")).toString();
    EXPECT_EQ(QByteArray::fromBase64(text.toLatin1(), QByteArray::Base64UrlEncoding), png);
}

TEST(RecordCode, aPictureHasNoInkAndAReplacedOneNoPixels)
{
    Life life{QLatin1String(kPictureTool)};
    life.canvas = QSize(64, 48);
    life.position = QPoint(2, 3);
    EXPECT_EQ(toJson(seventh(Replace{{1, 2}, life})).toStdString(),
              R"({"author":1,"do":"replace","life":{"acts":[],"canvas":[64,48],"position":[2,3],"tool":"picture"},)"
              R"("number":7,"object":[1,2],"time":5})");
}

TEST(RecordCode, aReplacedAreaKeepsItsPlace)
{
    Life life = pencil();
    life.tool = QLatin1String(kAreaTool);
    life.position = QPoint(2, 3);
    for (const Record &record : readBack(seventh(Replace{{1, 2}, life}))) {
        const Life &read = std::get<Replace>(record.deed).life;
        EXPECT_TRUE(read.picture.isNull());
        EXPECT_EQ(read.position.x(), 2);
        EXPECT_EQ(read.position.y(), 3);
    }
}

TEST(RecordCode, aFilledAreaIsItsPixelsAndItsInk)
{
    Life life = pencil();
    life.tool = QLatin1String(kAreaTool);
    life.picture = picture();
    life.position = QPoint(2, 3);
    for (const Record &record : readBack(seventh(Draw{life}))) {
        const Life &read = std::get<Draw>(record.deed).life;
        EXPECT_TRUE(isSame(read.picture, picture()));
        EXPECT_EQ(read.position.x(), 2);
        EXPECT_EQ(read.position.y(), 3);
        EXPECT_EQ(read.ink.color.rgba(), 0xff1020ff);
    }
}
