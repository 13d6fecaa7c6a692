#pragma once

// Two who draw on one page of 200 x 150 pixels, and the records that they make.

#include "LessonKit.h"

#include "lesson/authoring/Author.h"

#include "PointerEvent.h"

#include <gtest/gtest.h>

constexpr QRgb kWhite = 0xFFFFFFFF, kRed = 0xFFFF0000, kGreen = 0xFF00FF00, kBlue = 0xFF0000FF;

inline InkLesson::Life fresh(const char *tool, QRgb color = kRed, int width = 4)
{
    InkLesson::Life life{QString::fromLatin1(tool)};
    life.ink.color = QColor(color);
    life.ink.width = width;
    life.canvas = {200, 150};
    return life;
}

inline void drag(InkLesson::Author &author, const QPoint &from, const QPoint &to)
{
    author.feed(PT_DOWN, from);
    author.feed(PT_MOVE, {(from + to) / 2, to});
    author.feed(PT_UP, to);
}

class AuthorTest : public ::testing::Test
{
protected:
    AuthorTest()
    {
        lesson.page(InkLesson::kFirstPage).surface(); // somebody looks from the start
    }
    QRgb at(int x, int y) const { return lesson.page(InkLesson::kFirstPage).picture().pixel(x, y); }
    QRgb shown(int x, int y) const { return lesson.page(InkLesson::kFirstPage).surface().pixel(x, y); }
    std::size_t things() const { return lesson.page(InkLesson::kFirstPage).items().size(); }
    template <typename Kind>
    const Kind &last() const
    {
        return std::get<Kind>(records.back().deed);
    }

    // A committed box between two corners, which the author has let go.
    InkLesson::ObjectId box(InkLesson::Author &author, const QPoint &from, const QPoint &to)
    {
        author.begin(fresh("rectangle"));
        drag(author, from, to);
        author.finish();
        return records.back().id;
    }

    // A committed line from (20,20) to (60,20), which the author has let go.
    InkLesson::ObjectId line(InkLesson::Author &author)
    {
        author.begin(fresh("line"));
        drag(author, {20, 20}, {60, 20});
        author.finish();
        return records.back().id;
    }

    InkLesson::Lesson lesson{{{200, 150}, 1}};
    std::vector<InkLesson::Record> records;
    qint64 now{1000};
    const InkLesson::Author::Clock clock = [this] { return ++now; };
    const InkLesson::Author::Listener listener = [this](const InkLesson::Record &record) {
        records.push_back(record);
        EXPECT_EQ(lesson.log().size(), records.size()); // it has been applied
    };
    InkLesson::Author me{lesson, 1, clock, listener}, other{lesson, 2, clock, listener};
};
