#pragma once

#include "lesson/Export.h"

#include <QtCore/QSize>
#include <QtCore/QString>

namespace InkLesson {

constexpr int kMaxPageSide = 16384;                 // pixels
constexpr qint64 kMaxPagePixels = 64 * 1024 * 1024; // a page keeps four images of its size

constexpr bool isPageSide(double side)
{
    return side >= 1 && side <= kMaxPageSide;
}

// How many pixels of a page may lie along one of a plain screen.
constexpr bool isDensity(double density)
{
    return density >= 0.5 && density <= 8;
}

// Of a page that fills so many pixels of a plain screen.
INKLESSON_EXPORT QSize pageSizeAt(const QSize &plain, double density);

// "WIDTHxHEIGHT", or an invalid size.
INKLESSON_EXPORT QSize pageSizeFromText(const QString &text);

// What is wrong with a page of that size; empty for a good one.
INKLESSON_EXPORT QString pageSizeProblem(const QSize &size);

} // namespace InkLesson
