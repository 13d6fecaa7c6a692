#pragma once

// The fixture of the suite: a fresh object of each tool in turn.

#include "Tools.h"

#include <gtest/gtest.h>

class Protocol : public ::testing::TestWithParam<Tool>
{
protected:
    static bool is(Exception exception) { return GetParam().is(exception); }
    static Graph make() { return Graph(GetParam().make()); }
    void drawAndCommit() const { GetParam().drawAndCommit(*graph); }

    const Graph graph = make();
};

// Runs a file's cases over every tool.
#define INK_OVER_ALL_TOOLS                                                                                             \
    INSTANTIATE_TEST_SUITE_P(Tools, Protocol, ::testing::ValuesIn(allTools()),                                         \
                             [](const auto &row) { return row.param.name; })
