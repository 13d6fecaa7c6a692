#pragma once

// Shortcuts to a page of 400 x 300 pixels with ink on it.

#include "Page.h"
#include "Paper.h"
#include "Tools.h"

#include "PointerEvent.h"

constexpr QSize kSize{400, 300};

inline std::unique_ptr<CInkGraph> object(const char *tool, const QColor &color = Qt::red, int width = 4)
{
    return InkLesson::createObject(*InkLesson::findTool(QString::fromLatin1(tool)), {color, width}, kSize);
}

// Press, one move and release.
inline void drag(Board::Page &page, const QPoint &from, const QPoint &to)
{
    page.feed(PT_DOWN, from);
    page.feed(PT_MOVE, to);
    page.feed(PT_UP, to);
}

inline void drawLineOn(Board::Page &page, const QColor &color, const QPoint &from, const QPoint &to)
{
    page.begin(object("line", color));
    drag(page, from, to);
    page.finish();
}

inline bool isBlank(const Board::Page &page)
{
    QImage transparent(page.rect().size(), QImage::Format_ARGB32_Premultiplied);
    transparent.fill(Qt::transparent);
    const QImage paper = blankPaper(page.rect().size());
    return page.picture() == paper && page.surface() == paper && page.ink() == transparent;
}
