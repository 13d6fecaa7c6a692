#pragma once

// Objects of which every pixel is known, and records in one line.

#include "lesson/log/Record.h"

#include <QtGui/QImage>

// A block of one colour. It reports itself with 10 pixels to each side.
inline InkLesson::Life blockLife(const QRect &block, const QColor &color)
{
    InkLesson::Life life{QLatin1String(InkLesson::kAreaTool)};
    life.ink.color = color;
    life.canvas = {200, 150};
    life.picture = QImage(block.size(), QImage::Format_ARGB32);
    life.picture.fill(color);
    life.position = block.topLeft();
    life.acts.emplace_back(InkLesson::FinishAct());
    return life;
}

// A line of 4 pixels, round at its ends. It reports itself with 30 pixels to each side.
inline InkLesson::Life lineLife(const QPoint &from, const QPoint &to, const QColor &color)
{
    InkLesson::Life life{QStringLiteral("line")};
    life.ink.color = color;
    life.ink.width = 4;
    life.canvas = {200, 150};
    life.acts = {InkLesson::PointerAct{1, from}, InkLesson::PointerAct{5, to}, InkLesson::PointerAct{2, to},
                 InkLesson::FinishAct()};
    return life;
}

// Of one step each. The author's clock stands still.
inline InkLesson::Record record(int author, int number, InkLesson::Deed deed,
                                const InkLesson::PageId &page = InkLesson::kFirstPage)
{
    return {{author, number}, number, 0, page, std::move(deed)};
}
