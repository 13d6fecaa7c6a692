#pragma once

// Comparisons to the last bit. QPointF's own operator== is fuzzy, so it has no place in these tests.

#include <QtCore/QPointF>
#include <QtCore/QRect>
#include <QtGui/QImage>

#include <gtest/gtest.h>

#include <ostream>

#define EXPECT_POINT(point, expectedX, expectedY)                                                                      \
    do {                                                                                                               \
        const QPointF actualPoint_ = (point);                                                                          \
        EXPECT_EQ(actualPoint_.x(), (expectedX)) << #point ".x()";                                                     \
        EXPECT_EQ(actualPoint_.y(), (expectedY)) << #point ".y()";                                                     \
    } while (false)

#define EXPECT_EDGES(rect, expectedLeft, expectedTop, expectedRight, expectedBottom)                                   \
    do {                                                                                                               \
        const QRect actualRect_ = (rect);                                                                              \
        EXPECT_EQ(actualRect_.left(), (expectedLeft)) << #rect ".left()";                                              \
        EXPECT_EQ(actualRect_.top(), (expectedTop)) << #rect ".top()";                                                 \
        EXPECT_EQ(actualRect_.right(), (expectedRight)) << #rect ".right()";                                           \
        EXPECT_EQ(actualRect_.bottom(), (expectedBottom)) << #rect ".bottom()";                                        \
    } while (false)

// A null QRect: left 0, top 0, right -1, bottom -1.
#define EXPECT_NULL_RECT(rect) EXPECT_EDGES(rect, 0, 0, -1, -1)

inline std::ostream &operator<<(std::ostream &out, const QRect &rect)
{
    return out << '(' << rect.left() << ',' << rect.top() << ")-(" << rect.right() << ',' << rect.bottom() << ')';
}

// Equal to the last bit of every pixel; names the first pixel that differs.
inline ::testing::AssertionResult samePixels(const QImage &actual, const QImage &expected)
{
    if (actual.size() != expected.size() || actual.format() != expected.format())
        return ::testing::AssertionFailure() << "the images differ in size or format";
    for (int y = 0; y < actual.height(); ++y) {
        for (int x = 0; x < actual.width(); ++x) {
            if (actual.pixel(x, y) != expected.pixel(x, y))
                return ::testing::AssertionFailure() << "pixel (" << x << ',' << y << ") is " << std::hex
                                                     << actual.pixel(x, y) << ", not " << expected.pixel(x, y);
        }
    }
    return ::testing::AssertionSuccess();
}
