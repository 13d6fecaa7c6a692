// What is refused, with the words and the place of each; and what is just not.

#include "lesson/log/RecordReader.h"

#include "lesson/log/RecordCode.h"

#include <QtCore/QCborArray>
#include <QtCore/QCborValue>

#include <gtest/gtest.h>

#include <cmath>
#include <sys/resource.h>

using namespace InkLesson;

namespace {

// The error of a line; empty where it is read.
std::string errorOf(const QByteArray &line)
{
    Record record;
    RecordReader reader;
    const bool isRead = reader.readJson(line, record);
    EXPECT_NE(isRead, !reader.error().isEmpty());
    return reader.error().toStdString();
}

// The same for a line that is complete but for its last entries.
std::string errorWith(const QByteArray &rest)
{
    return errorOf("{\"author\":1,\"number\":7," + rest + "}");
}

// The same for a life that is complete but for its last entries.
std::string errorOfLife(const QByteArray &rest)
{
    return errorWith(R"("do":"draw","life":{"tool":"pencil","canvas":[64,48],"color":"red","width":3,)" + rest + "}");
}

std::string errorOfActs(const QByteArray &acts)
{
    return errorWith(R"("do":"change","object":[1,2],"acts":)" + acts);
}

std::string errorOfCbor(const QByteArray &bytes)
{
    Record record;
    RecordReader reader;
    const bool isRead = reader.readCbor(bytes, record);
    EXPECT_NE(isRead, !reader.error().isEmpty());
    return reader.error().toStdString();
}

std::string errorOfMap(const QCborMap &map)
{
    return errorOfCbor(map.toCborValue().toCbor());
}

// A PNG file of so many pixels, which nothing but its first lines tell.
QByteArray claimedPng(int width, int height)
{
    QByteArray png = pngOf(QImage(1, 1, QImage::Format_ARGB32));
    const auto put = [&png](int at, int value) {
        for (int i = 0; i < 4; ++i)
            png[at + i] = char(value >> (24 - 8 * i));
    };
    put(16, width);
    put(20, height);
    quint32 crc = 0xffffffff; // of the header, as the format has it
    for (int i = 12; i < 29; ++i) {
        crc ^= quint8(png[i]);
        for (int bit = 0; bit < 8; ++bit)
            crc = crc & 1 ? crc >> 1 ^ 0xedb88320 : crc >> 1;
    }
    put(29, int(~crc));
    return png;
}

QByteArray paperOf(const QByteArray &png)
{
    return R"("do":"paper","kind":"picture","picture":")" + png.toBase64() + '"';
}

long megabytesSoFar()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss / 1024;
}

constexpr const char *kUnreadable = "do: nothing that can be read";
constexpr const char *kNoNumber = ": not a number that this can be";
constexpr const char *kNoAct = "acts: nothing that can be done to an object";

std::string noNumber(const char *place)
{
    return std::string(place) + kNoNumber;
}

} // namespace

TEST(RecordReader, whatIsNoMapIsRefused)
{
    for (const char *line : {"", " ", "x", "[]", "1", "null", "\"draw\"", "{", "{}}", "{\"do\":\"clear\"", "\xff\xfe"})
        EXPECT_EQ(errorOf(line), kUnreadable) << line;
    EXPECT_EQ(errorOf("{}"), noNumber("author"));
    for (const char *hex : {"", "a1", "80", "01", "f6", "ff", "a1626f", "a16161", "a161ff00", "bf", "d9d9f7a0"})
        EXPECT_EQ(errorOfCbor(QByteArray::fromHex(hex)), kUnreadable) << hex;
    EXPECT_EQ(errorOfCbor(QByteArray::fromHex("a0")), noNumber("author"));
}

TEST(RecordReader, anAuthorAndANumberArePositive)
{
    EXPECT_EQ(errorOf(R"({"number":7,"do":"clear"})"), noNumber("author"));
    EXPECT_EQ(errorOf(R"({"author":0,"number":7,"do":"clear"})"), noNumber("author"));
    EXPECT_EQ(errorOf(R"({"author":"1","number":7,"do":"clear"})"), noNumber("author"));
    EXPECT_EQ(errorOf(R"({"author":1.5,"number":7,"do":"clear"})"), noNumber("author"));
    EXPECT_EQ(errorOf(R"({"author":2147483648,"number":7,"do":"clear"})"), noNumber("author"));
    EXPECT_EQ(errorOf(R"({"author":2147483647,"number":7,"do":"clear"})"), "");
    EXPECT_EQ(errorOf(R"({"author":1,"do":"clear"})"), noNumber("number"));
    EXPECT_EQ(errorOf(R"({"author":1,"number":0,"do":"clear"})"), noNumber("number"));
    EXPECT_EQ(errorOf(R"({"author":1,"number":-1,"do":"clear"})"), noNumber("number"));
    EXPECT_EQ(errorOf(R"({"author":1,"number":2147483646,"do":"clear"})"), "");
    EXPECT_EQ(errorOf(R"({"author":1,"number":2147483647,"do":"clear"})"), noNumber("number")) << "none comes after it";
}

TEST(RecordReader, aStepBeginsWithItsRecordOrBefore)
{
    EXPECT_EQ(errorWith(R"("do":"clear","step":1)"), "");
    EXPECT_EQ(errorWith(R"("do":"clear","step":7)"), "");
    EXPECT_EQ(errorWith(R"("do":"clear","step":0)"), noNumber("step"));
    EXPECT_EQ(errorWith(R"("do":"clear","step":8)"), noNumber("step"));
    EXPECT_EQ(errorWith(R"("do":"clear","step":null)"), noNumber("step"));
}

TEST(RecordReader, aTimeIsANumberThatBothFormsKeep)
{
    EXPECT_EQ(errorWith(R"("do":"clear","time":-1)"), "");
    EXPECT_EQ(errorWith(R"("do":"clear","time":9007199254740992)"), "");
    EXPECT_EQ(errorWith(R"("do":"clear","time":-9007199254740992)"), "");
    EXPECT_EQ(errorWith(R"("do":"clear","time":9007199254740993)"), noNumber("time"));
    EXPECT_EQ(errorWith(R"("do":"clear","time":-9007199254740994)"), noNumber("time"));
    EXPECT_EQ(errorWith(R"("do":"clear","time":1e300)"), noNumber("time"));
    EXPECT_EQ(errorWith(R"("do":"clear","time":1.5)"), noNumber("time"));
    EXPECT_EQ(errorWith(R"("do":"clear","time":"now")"), noNumber("time"));
}

TEST(RecordReader, namesAreAnAuthorAndANumber)
{
    EXPECT_EQ(errorWith(R"("do":"clear","page":[0,1])"), "");
    for (const char *page :
         {"[0,0]", "[-1,1]", "[1]", "[1,2,3]", "[1,\"2\"]", "1", "\"1\"", "{}", "[1,2147483648]", "[1.5,2]"})
        EXPECT_EQ(errorWith(R"("do":"clear","page":)" + QByteArray(page)), "page: not a name") << page;
    EXPECT_EQ(errorWith(R"("do":"change")"), "object: not a name");
    EXPECT_EQ(errorWith(R"("do":"change","object":[1,0])"), "object: not a name");
    EXPECT_EQ(errorWith(R"("do":"replace")"), "object: not a name");
    EXPECT_EQ(errorWith(R"("do":"order")"), "object: not a name");
    EXPECT_EQ(errorWith(R"("do":"order","object":[1,2],"above":[1,0])"), "above: not a name");
    EXPECT_EQ(errorWith(R"("do":"undo")"), "of: not a name");
    EXPECT_EQ(errorWith(R"("do":"undo","of":[1,2])"), "");
    EXPECT_EQ(errorWith(R"("do":"delete","objects":[[1,2],[3]])"), "objects: not the name of an object");
    EXPECT_EQ(errorWith(R"("do":"delete","objects":[1,2])"), "objects: not the name of an object");
    EXPECT_EQ(errorWith(R"("do":"delete","objects":[[1,2]])"), "");
}

TEST(RecordReader, aDeedThatIsNotKnownIsRefused)
{
    for (const char *deed : {R"("do":"fly")", R"("do":"")", R"("do":1)", R"("do":null)", R"("did":"clear")",
                             R"("do":"Clear")", R"("do":["clear"])"})
        EXPECT_EQ(errorWith(deed), "do: nothing that can be done") << deed;
}

TEST(RecordReader, sizesAreThoseOfPages)
{
    EXPECT_EQ(errorWith(R"("do":"size","size":[16384,4096])"), "");
    EXPECT_EQ(errorWith(R"("do":"size","size":[1,1])"), "");
    EXPECT_EQ(errorWith(R"("do":"size","size":[16385,1])"), "size: a side must be 1 to 16384 pixels");
    EXPECT_EQ(errorWith(R"("do":"size","size":[1,0])"), "size: a side must be 1 to 16384 pixels");
    EXPECT_EQ(errorWith(R"("do":"size","size":[16384,4097])"), "size: a page has at most 67108864 pixels in all");
    EXPECT_EQ(errorWith(R"("do":"size")"), "size: not a size");
    EXPECT_EQ(errorWith(R"("do":"size","size":[1,2,3])"), "size: not a size");
    EXPECT_EQ(errorWith(R"("do":"add-page","at":0)"), "size: not a size");
    EXPECT_EQ(errorWith(R"("do":"draw")"), "canvas: not a size");
    EXPECT_EQ(errorWith(R"("do":"draw","life":[])"), "canvas: not a size");
    EXPECT_EQ(errorWith(R"("do":"replace","object":[1,2],"life":"pencil")"), "canvas: not a size");
}

TEST(RecordReader, placesOfPagesAreNotNegative)
{
    EXPECT_EQ(errorWith(R"("do":"add-page","at":-1,"size":[1,1])"), noNumber("at"));
    EXPECT_EQ(errorWith(R"("do":"add-page","size":[1,1])"), noNumber("at"));
    EXPECT_EQ(errorWith(R"("do":"add-page","at":2147483647,"size":[1,1])"), "");
    EXPECT_EQ(errorWith(R"("do":"move-page","at":-1)"), noNumber("at"));
    EXPECT_EQ(errorWith(R"("do":"move-page","at":0)"), "");
    EXPECT_EQ(errorWith(R"("do":"remove-page")"), "");
}

TEST(RecordReader, aLifeNeedsAToolItsInkAndItsActs)
{
    EXPECT_EQ(errorOfLife(R"("acts":[])"), "");
    EXPECT_EQ(errorOfLife(R"("act":[])"), "acts: not an array");
    EXPECT_EQ(errorOfLife(R"("acts":"d1 1")"), "acts: not an array");
    EXPECT_EQ(errorOfLife(R"("acts":[],"option":1.5)"), noNumber("option"));
    EXPECT_EQ(errorOfLife(R"("acts":[],"option":-2147483648)"), "");
    EXPECT_EQ(errorOfLife(R"("acts":[],"dash":"wavy")"), "dash: not a style of lines");
    EXPECT_EQ(errorOfLife(R"("acts":[],"dash":1)"), "dash: not a style of lines");
    EXPECT_EQ(errorOfLife(R"("acts":[],"position":[1])"), "position: not a point");
    EXPECT_EQ(errorOfLife(R"("acts":[],"picture":"AAAA")"), "picture: not a picture");
    const auto with = [](const char *life) { return errorWith(R"("do":"draw","life":)" + QByteArray(life)); };
    EXPECT_EQ(with(R"({"canvas":[1,1],"acts":[]})"), "tool: no tool of this board");
    EXPECT_EQ(with(R"({"canvas":[1,1],"acts":[],"tool":"chisel"})"), "tool: no tool of this board");
    EXPECT_EQ(with(R"({"canvas":[1,1],"acts":[],"tool":"laser"})"), "tool: no tool of this board")
        << "it leaves no ink";
    EXPECT_EQ(with(R"({"canvas":[1,1],"acts":[],"tool":7})"), "tool: no tool of this board");
    EXPECT_EQ(with(R"({"canvas":[1,1],"acts":[],"tool":"pencil"})"), "color: not a colour");
    EXPECT_EQ(with(R"({"canvas":[1,1],"acts":[],"tool":"pencil","color":"red"})"), noNumber("width"));
    EXPECT_EQ(with(R"({"canvas":[1,1],"acts":[],"tool":"pencil","color":"red","width":2147483648})"),
              noNumber("width"));
    EXPECT_EQ(with(R"({"canvas":[1,1],"acts":[],"tool":"pencil","color":"red","width":-2147483648})"), "");
    EXPECT_EQ(with(R"({"canvas":[1,1],"acts":[],"tool":"picture"})"), "") << "which takes no ink";
}

TEST(RecordReader, whatAChangeTellsIsRead)
{
    const auto with = [](const char *rest) { return errorWith(R"("do":"change","object":[1,2],)" + QByteArray(rest)); };
    EXPECT_EQ(with(R"("color":"blurple")"), "color: not a colour");
    EXPECT_EQ(with(R"("color":null)"), "color: not a colour");
    EXPECT_EQ(with(R"("width":"3")"), noNumber("width"));
    EXPECT_EQ(with(R"("dash":"")"), "dash: not a style of lines");
    EXPECT_EQ(with(R"("option":true)"), noNumber("option"));
    EXPECT_EQ(with(R"("by":[1,2147483648])"), "by: not a point");
    EXPECT_EQ(with(R"("by":[-2147483648,2147483647])"), "");
    EXPECT_EQ(with(R"("acts":{})"), "acts: not an array");
}

TEST(RecordReader, coloursHaveNamesOrNumbers)
{
    const auto read = [](const char *name) {
        Record record;
        RecordReader reader;
        EXPECT_TRUE(reader.readJson(
            R"({"author":1,"number":1,"do":"change","object":[1,2],"color":")" + QByteArray(name) + "\"}", record))
            << name;
        return std::get<Change>(record.deed).color->rgba();
    };
    EXPECT_EQ(read("#80102030"), 0x80102030);
    EXPECT_EQ(read("#102030"), 0xff102030);
    EXPECT_EQ(read("#123"), 0xff112233);
    EXPECT_EQ(read("red"), 0xffff0000);
    EXPECT_EQ(read("transparent"), 0u);
    EXPECT_EQ(read("lightgoldenrodyellow"), 0xfffafad2);
}

TEST(RecordReader, aNameThatNoColourHasIsNotReadAsTheUsualOne)
{
    const auto with = [](const QByteArray &color) {
        return errorWith(R"("do":"draw","life":{"tool":"pencil","canvas":[1,1],"width":3,"acts":[],"color":")" + color +
                         "\"}");
    };
    EXPECT_EQ(with(QByteArray(32, 'x')), "color: not a colour");
    EXPECT_EQ(with(QByteArray(33, 'x')), "color: not a colour");
    EXPECT_EQ(with(""), "color: not a colour");
}

TEST(RecordReader, aColourHasTheEightBitsThatAreWritten)
{
    Record record;
    RecordReader reader;
    ASSERT_TRUE(
        reader.readJson(R"({"author":1,"number":1,"do":"change","object":[1,2],"color":"#12ff34ff56ff"})", record));
    EXPECT_EQ(*std::get<Change>(record.deed).color, QColor(0x13, 0x35, 0x57)); // rounded
}

TEST(RecordReader, actsAreWhatCanBeDone)
{
    for (const char *acts : {R"([])", R"(["d1 1"])", R"(["finish","reopen","p"])", R"([[1,2,3]])", R"([{"width":3}])",
                             R"([{"color":"red"}])", R"([{"dash":"dot"}])"})
        EXPECT_EQ(errorOfActs(acts), "") << acts;
    for (const char *acts :
         {R"([1])", R"([null])", R"([true])", R"(["fly"])", R"(["d1"])", R"([[]])", R"([[1,2]])", R"([[1,2,3,4]])",
          R"([[1,2,"3"]])", R"([[1,2147483648,3]])", R"([{}])", R"([{"width":"3"}])", R"([{"color":3}])",
          R"([{"dash":"wavy"}])", R"([{"text":"a"}])", R"([{"text":1,"image":""}])", R"(["d2147483647 0m1 0"])"})
        EXPECT_EQ(errorOfActs(acts), kNoAct) << acts;
}

TEST(RecordReader, aTextHasAtMostAMillionLetters)
{
    const QByteArray image = pngOf(QImage(1, 1, QImage::Format_ARGB32)).toBase64();
    const auto with = [&](int letters) {
        return errorOfActs(R"([{"image":")" + image + R"(","text":")" + QByteArray(letters, 'a') + "\"}]");
    };
    EXPECT_EQ(with(0), "");
    EXPECT_EQ(with(1048576), "");
    EXPECT_EQ(with(1048577), kNoAct);
}

TEST(RecordReader, aLifeHasAtMostFourMillionActs)
{
    EXPECT_EQ(errorOfActs("[\"" + QByteArray(4194304, 'p') + "\"]"), "");
    EXPECT_EQ(errorOfActs("[\"" + QByteArray(4194305, 'p') + "\"]"), "acts: more than one object can go through");
}

TEST(RecordReader, paperIsOneOfFour)
{
    EXPECT_EQ(errorWith(R"("do":"paper")"), "kind: no paper of this board");
    EXPECT_EQ(errorWith(R"("do":"paper","kind":"lined")"), "kind: no paper of this board");
    EXPECT_EQ(errorWith(R"("do":"paper","kind":1)"), "kind: no paper of this board");
    EXPECT_EQ(errorWith(R"("do":"paper","kind":"ruled")"), "");
    EXPECT_EQ(errorWith(R"("do":"paper","kind":"picture")"), "picture: not a picture");
}

TEST(RecordReader, picturesArePngFiles)
{
    const QByteArray png = pngOf(QImage(1, 1, QImage::Format_ARGB32));
    EXPECT_EQ(errorWith(paperOf(png)), "");
    EXPECT_EQ(
        errorWith(R"("do":"paper","kind":"picture","picture":")" + png.toBase64(QByteArray::Base64UrlEncoding) + '"'),
        "");
    EXPECT_EQ(errorWith(paperOf({})), "picture: not a picture");
    EXPECT_EQ(errorWith(paperOf(png.left(20))), "picture: not a picture");
    EXPECT_EQ(errorWith(paperOf("GIF89a\1\1\1\1\1")), "picture: not a picture");
    EXPECT_EQ(errorWith(R"("do":"paper","kind":"picture","picture":[1])"), "picture: not a picture");
}

TEST(RecordReader, aPictureThatClaimsToBeHugeIsNotTried)
{
    const long before = megabytesSoFar();
    EXPECT_EQ(errorWith(paperOf(claimedPng(8192, 8193))), "picture: the picture is too large");
    EXPECT_EQ(errorWith(paperOf(claimedPng(1000000, 1000000))), "picture: the picture is too large");
    EXPECT_LT(megabytesSoFar() - before, 100);
}

TEST(RecordReader, cborOfAnotherTypeIsRefused)
{
    const QCborMap clear{
        {QLatin1String("author"), 1}, {QLatin1String("number"), 7}, {QLatin1String("do"), QLatin1String("clear")}};
    EXPECT_EQ(errorOfMap(clear), "");
    const auto with = [&](const char *key, const QCborValue &value) {
        QCborMap map = clear;
        map.insert(QLatin1String(key), value);
        return errorOfMap(map);
    };
    EXPECT_EQ(with("author", 1.0), noNumber("author"));
    EXPECT_EQ(with("author", std::nan("")), noNumber("author"));
    EXPECT_EQ(with("number", INFINITY), noNumber("number"));
    EXPECT_EQ(with("number", QCborValue(QByteArray("7"))), noNumber("number"));
    EXPECT_EQ(with("step", Q_INT64_C(4294967297)), noNumber("step"));
    EXPECT_EQ(with("time", std::nan("")), noNumber("time"));
    EXPECT_EQ(with("page", QCborArray{1.0, 2}), "page: not a name");
    EXPECT_EQ(with("do", QCborValue(QByteArray("clear"))), "do: nothing that can be done");
    EXPECT_EQ(with("7", QCborValue()), "") << "what is not asked for is passed over";
}

TEST(RecordReader, deepNestingIsRefused)
{
    EXPECT_EQ(errorOf(QByteArray("[").repeated(1000000)), kUnreadable);
    EXPECT_EQ(errorOf(QByteArray("{\"a\":").repeated(1000000)), kUnreadable);
    EXPECT_EQ(errorOfCbor(QByteArray::fromHex("81").repeated(1000000)), kUnreadable);
    EXPECT_EQ(errorOfCbor(QByteArray::fromHex("a161"
                                              "61")
                              .repeated(1000000)),
              kUnreadable);
    EXPECT_EQ(errorOfCbor(QByteArray::fromHex("d8").repeated(1000000)), kUnreadable);
}

TEST(RecordReader, lengthsThatAreOnlyClaimedTakeNoMemory)
{
    const long before = megabytesSoFar();
    for (const char *hex : {"9bffffffffffffffff", "9b7fffffffffffffff", "bb7fffffffffffffff", "5b7fffffffffffffff",
                            "7b7fffffffffffffff", "5b000000007fffffff", "7b000000007ffffff0", "9b000000007fffffff",
                            "a162646f7b000000007fffffff", "bf7f7b000000007fffffff"})
        EXPECT_EQ(errorOfCbor(QByteArray::fromHex(hex)), kUnreadable) << hex;
    EXPECT_LT(megabytesSoFar() - before, 100);
}

TEST(RecordReader, manyPartsTakeNoMemory)
{
    const long before = megabytesSoFar();
    const QByteArray start = R"({"author":1,"do":"clear","number":1,"x":[)";
    EXPECT_EQ(errorOf(start + QByteArray("[],").repeated(8 << 20) + "1]}"), kUnreadable);
    EXPECT_EQ(errorOfCbor(QByteArray::fromHex("9f") + QByteArray::fromHex("80").repeated(24 << 20)), kUnreadable);
    EXPECT_LT(megabytesSoFar() - before, 150);
}

TEST(RecordReader, aRecordHasAtMostFourMillionParts)
{
    // One for the map, one for each of the seven keys and values before, and one for the array.
    const QByteArray cbor = QByteArray::fromHex("a466617574686f7201666e756d6265720762646f65636c6561726178");
    const auto withParts = [&](int count) {
        const QByteArray array = QByteArray::fromHex("9a") + char(count >> 24) + char(count >> 16 & 255) +
                                 char(count >> 8 & 255) + char(count & 255);
        return errorOfCbor(cbor + array + QByteArray(count, '\0'));
    };
    EXPECT_EQ(withParts(4194304 - 9), "");
    EXPECT_EQ(withParts(4194304 - 8), kUnreadable);

    // The commas, also those of texts, and what opens: three behind the first keys and one brace.
    const auto withCommas = [](int count) {
        return errorOf(R"({"author":1,"do":"clear","number":1,"x":")" + QByteArray(count, ',') + "\"}");
    };
    EXPECT_EQ(withCommas(4194304 - 4), "");
    EXPECT_EQ(withCommas(4194304 - 3), kUnreadable);
}

TEST(RecordReader, eightMapsAndArraysInEachOther)
{
    const QByteArray cbor = QByteArray::fromHex("a466617574686f7201666e756d6265720762646f65636c6561726178");
    const auto withDepth = [&](int depth) { return errorOfCbor(cbor + QByteArray(depth, char(0x81)) + '\0'); };
    EXPECT_EQ(withDepth(7), "") << "and the map itself";
    EXPECT_EQ(withDepth(8), kUnreadable);
}

TEST(RecordReader, nothingStandsBehindARecord)
{
    const QByteArray cbor = QByteArray::fromHex("a366617574686f7201666e756d6265720762646f65636c656172");
    EXPECT_EQ(errorOfCbor(cbor), "");
    EXPECT_EQ(errorOfCbor(cbor + '\0'), kUnreadable);
    EXPECT_EQ(errorOfCbor(cbor + cbor), kUnreadable);
    EXPECT_EQ(errorOf(R"({"author":1,"do":"clear","number":1} {})"), kUnreadable);
}

TEST(RecordReader, anErrorIsToldOfTheLastRecordAlone)
{
    RecordReader reader;
    Record record;
    EXPECT_FALSE(reader.readJson("{}", record));
    EXPECT_FALSE(reader.readJson(R"({"author":1,"number":7,"do":"fly"})", record));
    EXPECT_EQ(reader.error(), QStringLiteral("do: nothing that can be done"));
}

TEST(RecordReader, aRecordThatWasUsedBeforeIsReadAnew)
{
    RecordReader reader;
    Record record;
    ASSERT_TRUE(reader.readJson(
        R"({"author":2,"number":7,"step":3,"page":[2,1],"time":9,"do":"order","object":[1,2],"above":[1,3]})", record));
    EXPECT_EQ(record.step, 3);
    ASSERT_TRUE(reader.readJson(R"({"author":1,"number":8,"do":"order","object":[1,2]})", record));
    EXPECT_EQ(record.step, 8);
    EXPECT_EQ(record.time, 0);
    EXPECT_EQ(record.page, kFirstPage);
    EXPECT_EQ(std::get<Order>(record.deed).above, kNothing);
}
