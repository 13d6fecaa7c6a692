#pragma once

// Shortcuts to a page of 400 x 300 pixels with ink on it.

#include "Paper.h"
#include "board/tools/Tools.h"

#include "lesson/authoring/Author.h"

#include "PointerEvent.h"

constexpr QSize kSize{400, 300};

inline std::unique_ptr<CInkGraph> object(const char *tool, const QColor &color = Qt::red, int width = 4)
{
    return InkLesson::createObject(*InkLesson::findTool(QString::fromLatin1(tool)), {color, width}, kSize);
}

// A lesson of one blank page, and who draws on it.
struct Drawing
{
    explicit Drawing(const QSize &size = kSize)
        : lesson({size})
    {
    }

    const InkLesson::Page &page() { return lesson.page(author.page()); }

    InkLesson::Lesson lesson;
    InkLesson::Author author{lesson, 1, [] { return qint64(0); }};
};

inline InkLesson::Life lifeOf(const char *tool, const QColor &color = Qt::red, int width = 4)
{
    return {QString::fromLatin1(tool), {color, width}, kSize};
}

// Press, one move and release.
inline void drag(InkLesson::Author &author, const QPoint &from, const QPoint &to)
{
    author.feed(PT_DOWN, from);
    author.feed(PT_MOVE, to);
    author.feed(PT_UP, to);
}

inline void drawLineOn(InkLesson::Author &author, const QColor &color, const QPoint &from, const QPoint &to)
{
    author.begin(lifeOf("line", color));
    drag(author, from, to);
    author.finish();
}

inline bool isBlank(const InkLesson::Page &page)
{
    QImage transparent(page.rect().size(), QImage::Format_ARGB32_Premultiplied);
    transparent.fill(Qt::transparent);
    const QImage paper = blankPaper(page.rect().size());
    return page.picture() == paper && page.surface() == paper && page.ink() == transparent;
}
