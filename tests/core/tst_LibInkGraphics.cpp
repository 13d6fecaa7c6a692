#include "LibInkGraphics.h"

#include <gtest/gtest.h>

#include <type_traits>

TEST(LibInkGraphics, versionTextIsGivenByteForByte)
{
    EXPECT_EQ(Lectern::GetVerisonString(), "version: 2.7.3236 - master/2.7.3236 (2021-04-07 13:09:02)");
}

TEST(LibInkGraphics, markerClassIsEmpty)
{
    const LibInkGraphics marker;
    (void)marker;
    EXPECT_TRUE(std::is_empty_v<LibInkGraphics>);
    EXPECT_FALSE(std::is_polymorphic_v<LibInkGraphics>);
}
