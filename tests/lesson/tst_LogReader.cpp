#include "lesson/storage/LogReader.h"

#include "lesson/log/RecordCode.h"

#include <QtCore/QBuffer>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

using namespace InkLesson;

namespace {

constexpr const char *kHeader = "{\"inkboard\":2,\"size\":[64,48]}\n";
constexpr const char *kFirstHeader = "{\"inkboard\":1,\"size\":[64,48]}\n"; // of version 1

// A file, read to its end or to the first line that is wrong.
struct Reading
{
    explicit Reading(const QByteArray &contents)
    {
        QByteArray bytes = contents;
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::ReadOnly);
        LogReader reader(buffer);
        if (!reader.readHeader(header)) {
            error = reader.error().toStdString();
            return;
        }
        lesson = std::make_unique<Lesson>(header);
        Record record;
        while (reader.read(*lesson, record)) {
            lines.push_back(toJson(record).toStdString());
            lesson->apply(record);
        }
        error = reader.error().toStdString();
    }

    Header header{};
    std::unique_ptr<Lesson> lesson{};
    std::vector<std::string> lines{};
    std::string error{};
};

std::string errorOfHeader(const QByteArray &line)
{
    return Reading(line + '\n').error;
}

// Of a line of version 2 behind a header.
std::string errorOfLine(const QByteArray &line)
{
    return Reading(kHeader + line + '\n').error;
}

QByteArray joined(const std::vector<QByteArray> &lines)
{
    QByteArray all;
    for (const QByteArray &line : lines)
        all += line + '\n';
    return all;
}

// What lines of version 1 become.
Reading translated(const std::vector<QByteArray> &lines)
{
    return Reading(kFirstHeader + joined(lines));
}

// A stroke of version 1 as the first, second, ... object of its page.
QByteArray stroke(int id, int page = 1, const QByteArray &more = {})
{
    return "{\"do\":\"draw\",\"id\":" + QByteArray::number(id) + more +
           R"(,"life":{"acts":[[1,10,10],[2,20,20],"finish"],"canvas":[64,48],"color":"#ff0000ff","tool":"pencil","width":3},"page":)" +
           QByteArray::number(page) + '}';
}

// The same as a record of version 2.
std::string strokeLine(int number, const std::string &more = {})
{
    return R"({"author":1,"do":"draw","life":{"acts":["d10 10u10 10f"],"canvas":[64,48],"color":"#ff0000ff",)"
           R"("tool":"pencil","width":3},"number":)" +
           std::to_string(number) + more + R"(,"time":0})";
}

// A header, and then a line of so many bytes that clears the page. Read far beyond what a line may have, it gives up.
class LongLine : public QIODevice
{
public:
    explicit LongLine(qint64 length)
        : m_length(length)
    {
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }

    bool isSequential() const override { return true; }
    bool atEnd() const override { return m_given == m_length; }
    qint64 given() const { return m_given; } // of the line

protected:
    qint64 readData(char * /*data*/, qint64 /*most*/) override { return -1; } // only by lines
    qint64 readLineData(char *data, qint64 most) override
    {
        const QByteArray text = m_isHeaderGiven ? R"({"author":1,"do":"clear","number":1})" : kHeader;
        const qint64 given = m_isHeaderGiven ? std::min(most, m_length - m_given) : text.size();
        if (m_given > (1 << 27))
            return -1;
        std::memset(data, ' ', std::size_t(given));
        if (m_given == 0)
            std::memcpy(data, text.constData(), std::size_t(text.size()));
        m_given += m_isHeaderGiven ? given : 0;
        if (m_given == m_length)
            data[given - 1] = '\n';
        m_isHeaderGiven = true;
        return given;
    }
    qint64 writeData(const char * /*data*/, qint64 /*size*/) override { return -1; }

private:
    const qint64 m_length;
    qint64 m_given{};
    bool m_isHeaderGiven{};
};

// Of the line behind the header.
std::string errorOfLong(LongLine &&device)
{
    LogReader reader(device);
    Header header;
    EXPECT_TRUE(reader.readHeader(header)) << reader.error().toStdString();
    const Lesson lesson(header);
    Record record;
    const bool isRead = reader.read(lesson, record);
    EXPECT_NE(isRead, !reader.error().isEmpty());
    EXPECT_LE(device.given(), 67108864);
    return reader.error().toStdString();
}

} // namespace

TEST(LogReader, aHeaderTellsSizeAndDensity)
{
    const Reading plain("{\"inkboard\":2,\"size\":[640,480]}\n");
    EXPECT_EQ(plain.error, "");
    EXPECT_EQ(plain.header.size, QSize(640, 480));
    EXPECT_EQ(plain.header.density, 1.0);
    const Reading dense("{\"density\":1.5,\"inkboard\":2,\"size\":[640,480]}\n");
    EXPECT_EQ(dense.error, "");
    EXPECT_EQ(dense.header.density, 1.5);
}

TEST(LogReader, aHeaderIsWrittenWithoutTheUsualDensity)
{
    EXPECT_EQ(headerLine({{640, 480}, 1}), R"({"inkboard":2,"size":[640,480]})");
    EXPECT_EQ(headerLine({{640, 480}, 2}), R"({"density":2,"inkboard":2,"size":[640,480]})");
}

TEST(LogReader, whatIsNoLessonIsRefused)
{
    constexpr const char *kNoLesson = "line 1: this is not a lesson of this board";
    EXPECT_EQ(Reading("").error, kNoLesson);
    for (const char *line : {"", "x", "[]", "{}", R"({"inkboard":"2","size":[64,48]})", R"({"size":[64,48]})",
                             R"({"inkboard":0,"size":[64,48]})", R"({"inkboard":-1,"size":[64,48]})",
                             R"({"inkboard":1.5,"size":[64,48]})"})
        EXPECT_EQ(errorOfHeader(line), kNoLesson) << line;
    EXPECT_EQ(Reading("{\"inkboard\":2,\"size\":[64,48]}").error, "line 1: it was cut off here");
}

TEST(LogReader, aLaterVersionIsRefused)
{
    EXPECT_EQ(errorOfHeader(R"({"inkboard":3,"size":[64,48]})"),
              "line 1: the lesson was written by a later version of this board");
    EXPECT_EQ(errorOfHeader(R"({"inkboard":2147483648,"size":[64,48]})"),
              "line 1: the lesson was written by a later version of this board");
    EXPECT_EQ(errorOfHeader(R"({"inkboard":3})"), "line 1: the lesson was written by a later version of this board");
}

TEST(LogReader, aPageThatCannotBeIsRefused)
{
    EXPECT_EQ(errorOfHeader(R"({"inkboard":2})"), "line 1: a side must be 1 to 16384 pixels");
    EXPECT_EQ(errorOfHeader(R"({"inkboard":2,"size":[64,16385]})"), "line 1: a side must be 1 to 16384 pixels");
    EXPECT_EQ(errorOfHeader(R"({"inkboard":2,"size":[16384,4097]})"),
              "line 1: a page has at most 67108864 pixels in all");
    for (const char *density : {"0", "0.49", "8.01", "\"1\"", "null"})
        EXPECT_EQ(errorOfHeader(R"({"inkboard":2,"size":[64,48],"density":)" + QByteArray(density) + '}'),
                  "line 1: no density of a page")
            << density;
    EXPECT_EQ(errorOfHeader(R"({"inkboard":2,"size":[64,48],"density":0.5})"), "");
    EXPECT_EQ(errorOfHeader(R"({"inkboard":2,"size":[64,48],"density":8})"), "");
}

TEST(LogReader, recordsAreReadInTheirOrder)
{
    const std::vector<QByteArray> lines{strokeLine(1).c_str(),
                                        R"({"author":2,"do":"change","number":1,"object":[1,1],"time":0,"width":8})",
                                        R"({"author":1,"do":"undo","number":2,"of":[1,1],"time":0})"};
    const Reading reading(kHeader + joined(lines));
    EXPECT_EQ(reading.error, "");
    ASSERT_EQ(reading.lines.size(), 3u);
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_EQ(reading.lines[i], lines[i].toStdString());
}

TEST(LogReader, anErrorNamesLineAndPlace)
{
    EXPECT_EQ(errorOfLine(R"({"author":1,"do":"fly","number":1})"), "line 2: do: nothing that can be done");
    EXPECT_EQ(errorOfLine(R"({"do":"clear"})"), "line 2: author: not a number that this can be");
    EXPECT_EQ(errorOfLine(""), "line 2: nothing that can be read");
    EXPECT_EQ(errorOfLine("[1]"), "line 2: nothing that can be read");
    EXPECT_EQ(Reading(kHeader + joined({strokeLine(1).c_str(), strokeLine(2).c_str(), "x"})).error,
              "line 4: nothing that can be read");
}

TEST(LogReader, whatWasReadBeforeAnErrorHolds)
{
    const Reading reading(kHeader + joined({strokeLine(1).c_str(), "x", strokeLine(2).c_str()}));
    EXPECT_EQ(reading.lines.size(), 1u);
    EXPECT_EQ(reading.error, "line 3: nothing that can be read");
}

TEST(LogReader, aLineThatWasCutOffIsToldSo)
{
    const Reading reading(kHeader + joined({strokeLine(1).c_str()}) + strokeLine(2).c_str());
    EXPECT_EQ(reading.lines.size(), 1u);
    EXPECT_EQ(reading.error, "line 3: it was cut off here");
}

TEST(LogReader, aLineHasAtMostSixtyFourMebibytes)
{
    EXPECT_EQ(errorOfLong(LongLine(67108864)), "");
    EXPECT_EQ(errorOfLong(LongLine(67108865)), "line 2: it is longer than any board writes");
    EXPECT_EQ(errorOfLong(LongLine(Q_INT64_C(1) << 40)), "line 2: it is longer than any board writes");
}

TEST(LogReader, strokesOfVersion1AreNumberedAnew)
{
    const Reading reading = translated({stroke(1), stroke(5)});
    EXPECT_EQ(reading.error, "");
    ASSERT_EQ(reading.lines.size(), 2u);
    EXPECT_EQ(reading.lines[0], strokeLine(1));
    EXPECT_EQ(reading.lines[1], strokeLine(2));
}

TEST(LogReader, anObjectOfVersion1ThatSucceedsBelongsToTheStepBefore)
{
    const Reading reading =
        translated({stroke(1), stroke(2, 1, R"(,"succeeds":true)"), stroke(3, 1, R"(,"succeeds":true)"),
                    stroke(4, 1, R"(,"succeeds":false)"), R"({"do":"undo"})", R"({"do":"undo"})"});
    EXPECT_EQ(reading.error, "");
    ASSERT_EQ(reading.lines.size(), 6u);
    EXPECT_EQ(reading.lines[1], strokeLine(2, R"(,"step":1)"));
    EXPECT_EQ(reading.lines[2], strokeLine(3, R"(,"step":1)"));
    EXPECT_EQ(reading.lines[3], strokeLine(4));
    EXPECT_EQ(reading.lines[4], R"({"author":1,"do":"undo","number":5,"of":[1,4],"time":0})");
    EXPECT_EQ(reading.lines[5], R"({"author":1,"do":"undo","number":6,"of":[1,1],"time":0})");
    EXPECT_TRUE(reading.lesson->page(kFirstPage).items().empty());
}

TEST(LogReader, undoAndRedoOfVersion1NameTheirSteps)
{
    const Reading reading = translated({stroke(1), stroke(2), R"({"do":"undo"})", R"({"do":"undo"})",
                                        R"({"do":"redo"})", R"({"do":"redo"})", R"({"do":"undo"})"});
    EXPECT_EQ(reading.error, "");
    ASSERT_EQ(reading.lines.size(), 7u);
    EXPECT_EQ(reading.lines[2], R"({"author":1,"do":"undo","number":3,"of":[1,2],"time":0})");
    EXPECT_EQ(reading.lines[3], R"({"author":1,"do":"undo","number":4,"of":[1,1],"time":0})");
    EXPECT_EQ(reading.lines[4], R"({"author":1,"do":"undo","number":5,"of":[1,4],"time":0})");
    EXPECT_EQ(reading.lines[5], R"({"author":1,"do":"undo","number":6,"of":[1,3],"time":0})");
    EXPECT_EQ(reading.lines[6], R"({"author":1,"do":"undo","number":7,"of":[1,2],"time":0})");
}

TEST(LogReader, thereIsNothingToUndoOrRedoInVersion1)
{
    EXPECT_EQ(translated({R"({"do":"undo"})"}).error, "line 2: there is nothing to undo");
    EXPECT_EQ(translated({R"({"do":"redo"})"}).error, "line 2: there is nothing to redo");
    EXPECT_EQ(translated({stroke(1), R"({"do":"redo"})"}).error, "line 3: there is nothing to redo");
    EXPECT_EQ(translated({stroke(1), R"({"do":"undo"})", stroke(2), R"({"do":"redo"})"}).error,
              "line 5: there is nothing to redo");
    EXPECT_EQ(translated({R"({"do":"size","page":1,"size":[80,60]})", R"({"do":"undo"})"}).error,
              "line 3: there is nothing to undo");
}

TEST(LogReader, changesOfVersion1NameTheirObjects)
{
    const Reading reading = translated(
        {stroke(2), stroke(7),
         R"({"do":"replace","id":7,"life":{"acts":["finish"],"canvas":[64,48],"color":"#ff00ff00","tool":"pencil","width":5},"page":1})",
         R"({"do":"delete","id":2,"page":1})"});
    EXPECT_EQ(reading.error, "");
    ASSERT_EQ(reading.lines.size(), 4u);
    EXPECT_EQ(reading.lines[2],
              R"({"author":1,"do":"replace","life":{"acts":["f"],"canvas":[64,48],"color":"#ff00ff00","tool":"pencil",)"
              R"("width":5},"number":3,"object":[1,2],"time":0})");
    EXPECT_EQ(reading.lines[3], R"({"author":1,"do":"delete","number":4,"objects":[[1,1]],"time":0})");
}

TEST(LogReader, aPlaceOfVersion1IsTheObjectBelow)
{
    const auto lastLine = [](const QByteArray &order) {
        const Reading reading = translated({stroke(1), stroke(2), stroke(3), order});
        EXPECT_EQ(reading.error, "");
        return reading.lines.back();
    };
    EXPECT_EQ(lastLine(R"({"do":"order","id":3,"page":1,"place":0})"),
              R"({"author":1,"do":"order","number":4,"object":[1,3],"time":0})");
    EXPECT_EQ(lastLine(R"({"do":"order","id":3,"page":1,"place":1})"),
              R"({"above":[1,1],"author":1,"do":"order","number":4,"object":[1,3],"time":0})");
    EXPECT_EQ(lastLine(R"({"do":"order","id":1,"page":1,"place":1})"),
              R"({"above":[1,2],"author":1,"do":"order","number":4,"object":[1,1],"time":0})");
    EXPECT_EQ(lastLine(R"({"do":"order","id":1,"page":1,"place":2})"),
              R"({"above":[1,3],"author":1,"do":"order","number":4,"object":[1,1],"time":0})");
    EXPECT_EQ(lastLine(R"({"do":"order","id":1,"page":1,"place":9})"),
              R"({"above":[1,3],"author":1,"do":"order","number":4,"object":[1,1],"time":0})");
}

TEST(LogReader, paperSizeAndClearOfVersion1)
{
    const Reading reading =
        translated({R"({"do":"paper","kind":"ruled","page":1})", R"({"do":"size","page":1,"size":[80,60]})", stroke(1),
                    R"({"do":"clear","page":1})"});
    EXPECT_EQ(reading.error, "");
    ASSERT_EQ(reading.lines.size(), 4u);
    EXPECT_EQ(reading.lines[0], R"({"author":1,"do":"paper","kind":"ruled","number":1,"time":0})");
    EXPECT_EQ(reading.lines[1], R"({"author":1,"do":"size","number":2,"size":[80,60],"time":0})");
    EXPECT_EQ(reading.lines[3], R"({"author":1,"do":"clear","number":4,"time":0})");
    EXPECT_EQ(reading.lesson->page(kFirstPage).rect().size(), QSize(80, 60));
    EXPECT_EQ(reading.lesson->page(kFirstPage).paper().kind, Paper::Kind::Ruled);
}

TEST(LogReader, paperAndPicturesOfVersion1KeepTheirPixels)
{
    QImage image(2, 1, QImage::Format_ARGB32);
    image.setPixel(0, 0, 0x80123456);
    image.setPixel(1, 0, 0xff00ff00);
    const QByteArray png = pngOf(image).toBase64();
    const Reading reading =
        translated({R"({"do":"paper","kind":"picture","page":1,"picture":")" + png + "\"}",
                    R"({"do":"draw","id":1,"life":{"acts":["finish"],"canvas":[64,48],"picture":")" + png +
                        R"(","position":[5,6],"tool":"picture"},"page":1})"});
    EXPECT_EQ(reading.error, "");
    const QImage paper = reading.lesson->page(kFirstPage).paper().picture;
    EXPECT_EQ(paper.size(), QSize(2, 1));
    EXPECT_EQ(paper.pixel(0, 0), 0x80123456);
    EXPECT_EQ(paper.pixel(1, 0), 0xff00ff00);
    const auto life = reading.lesson->life({1, 2});
    ASSERT_TRUE(life.has_value());
    EXPECT_EQ(life->picture.pixel(0, 0), 0x80123456);
    EXPECT_EQ(life->position.x(), 5);
    EXPECT_EQ(life->position.y(), 6);
}

TEST(LogReader, pagesOfVersion1HaveNumbersAndPlaces)
{
    const Reading reading = translated({R"({"at":1,"do":"add-page","page":2,"size":[32,24]})", stroke(1, 2), stroke(1),
                                        R"({"do":"move-page","from":1,"to":0})", R"({"do":"delete","id":1,"page":2})",
                                        R"({"at":1,"do":"remove-page"})"});
    EXPECT_EQ(reading.error, "");
    ASSERT_EQ(reading.lines.size(), 6u);
    EXPECT_EQ(reading.lines[0], R"({"at":1,"author":1,"do":"add-page","number":1,"size":[32,24],"time":0})");
    EXPECT_EQ(reading.lines[1], strokeLine(2, R"(,"page":[1,1])"));
    EXPECT_EQ(reading.lines[2], strokeLine(3));
    EXPECT_EQ(reading.lines[3], R"({"at":0,"author":1,"do":"move-page","number":4,"page":[1,1],"time":0})");
    EXPECT_EQ(reading.lines[4], R"({"author":1,"do":"delete","number":5,"objects":[[1,2]],"page":[1,1],"time":0})");
    EXPECT_EQ(reading.lines[5], R"({"author":1,"do":"remove-page","number":6,"time":0})");
    EXPECT_EQ(reading.lesson->pageCount(), 1);
    EXPECT_EQ(reading.lesson->pageId(0), (PageId{1, 1}));
}

TEST(LogReader, whatIsNotThereInVersion1IsRefused)
{
    EXPECT_EQ(translated({stroke(1, 2)}).error, "line 2: there is no such page");
    EXPECT_EQ(translated({R"({"do":"clear"})"}).error, "line 2: there is no such page");
    EXPECT_EQ(translated({R"({"at":1,"do":"add-page","page":2,"size":[32,24]})", R"({"at":1,"do":"remove-page"})",
                          stroke(1, 2)})
                  .error,
              "line 4: there is no such page");
    EXPECT_EQ(translated({R"({"at":2,"do":"add-page","page":2,"size":[32,24]})"}).error,
              "line 2: there is no place for this page");
    EXPECT_EQ(translated({R"({"at":-1,"do":"add-page","page":2,"size":[32,24]})"}).error,
              "line 2: there is no place for this page");
    EXPECT_EQ(translated({R"({"do":"add-page","page":2,"size":[32,24]})"}).error,
              "line 2: there is no place for this page");
    EXPECT_EQ(translated({R"({"at":1,"do":"remove-page"})"}).error, "line 2: there is no such page");
    EXPECT_EQ(translated({R"({"do":"move-page","from":1,"to":0})"}).error, "line 2: there is no such page");
    EXPECT_EQ(translated({R"({"do":"move-page","from":0})"}).error, "line 2: at: not a number that this can be");
    EXPECT_EQ(translated({stroke(1), R"({"do":"delete","id":2,"page":1})"}).error, "line 3: there is no such object");
    EXPECT_EQ(translated({stroke(1), R"({"do":"order","id":1,"page":1})"}).error, "line 3: there is no such place");
    EXPECT_EQ(translated({stroke(1), R"({"do":"order","id":1,"page":1,"place":-1})"}).error,
              "line 3: there is no such place");
    EXPECT_EQ(translated({stroke(1), stroke(1)}).error, "line 3: this cannot be done on the page");
    EXPECT_EQ(translated({stroke(0)}).error, "line 2: this cannot be done on the page");
    EXPECT_EQ(translated({R"({"do":"fly","page":1})"}).error, "line 2: do: nothing that can be done");
    EXPECT_EQ(translated({R"({"at":0,"do":"fly-page"})"}).error, "line 2: do: nothing that can be done");
    EXPECT_EQ(translated({"[]"}).error, "line 2: nothing that can be read");
}

TEST(LogReader, numbersOfVersion1AreWhole)
{
    EXPECT_EQ(translated({R"({"do":"clear","page":1.5})"}).error, "line 2: there is no such page");
    EXPECT_EQ(translated({R"({"do":"clear","page":1e300})"}).error, "line 2: there is no such page");
    EXPECT_EQ(translated({R"({"at":0.5,"do":"remove-page"})"}).error, "line 2: there is no such page");
    EXPECT_EQ(translated({stroke(1), R"({"do":"delete","id":1,"page":1})"}).error, "");
    for (const char *id : {"1.5", "\"1\"", "null", "4294967297", "1e10"})
        EXPECT_EQ(translated({stroke(1), R"({"do":"delete","id":)" + QByteArray(id) + R"(,"page":1})"}).error,
                  "line 3: there is no such object")
            << id;
    EXPECT_EQ(translated({stroke(1), R"({"do":"order","id":1,"page":1,"place":0.5})"}).error,
              "line 3: there is no such place");
}

TEST(LogReader, anObjectOfVersion1IsOfItsPage)
{
    const Reading reading =
        translated({R"({"at":1,"do":"add-page","page":2,"size":[32,24]})", stroke(4, 2), stroke(3)});
    EXPECT_EQ(reading.error, "") << "the numbers rise on each page alone";
    EXPECT_EQ(translated({R"({"at":1,"do":"add-page","page":2,"size":[32,24]})", stroke(1, 2),
                          R"({"do":"delete","id":1,"page":1})"})
                  .error,
              "line 4: there is no such object");
}
