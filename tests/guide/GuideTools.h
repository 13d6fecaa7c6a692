#pragma once

// What the tests of the guide share: pages to draw on, and what they ought to show.

#include "Lives.h"
#include "Page.h"
#include "Tools.h"

#include <gtest/gtest.h>

#include <memory>

constexpr QSize kPage(400, 300);

// An object of a class, with its colour and width.
template <typename Class, typename... Arguments>
Guide::Page::Object made(const QColor &color, int width, const Arguments &...arguments)
{
    auto object = std::make_unique<Class>(arguments...);
    object->SetColor(color);
    object->SetWidth(width);
    return object;
}

// Draws and commits an object on a page.
inline CInkGraph &committed(Guide::Page &page, Guide::Page::Object object, const QPoint &from, const QPoint &to)
{
    CInkGraph &graph = page.begin(std::move(object));
    page.feed(graph, PT_DOWN, from);
    page.feed(graph, PT_MOVE, to);
    page.feed(graph, PT_UP, to);
    if (!graph.m_bFinished)
        page.finish(graph);
    return graph;
}
