#include <InkGraphicsVersion>

#include "LibInkGraphics.h"

#include <gtest/gtest.h>

#if INKGRAPHICS_VERSION < INKGRAPHICS_VERSION_CHECK(2, 7, 3236) ||                                                     \
    INKGRAPHICS_VERSION >= INKGRAPHICS_VERSION_CHECK(2, 8, 0)
#error The preprocessor orders versions.
#endif

TEST(InkGraphicsVersion, numbersAreThoseOfTheRelease)
{
    EXPECT_EQ(INKGRAPHICS_VERSION_MAJOR, 2);
    EXPECT_EQ(INKGRAPHICS_VERSION_MINOR, 7);
    EXPECT_EQ(INKGRAPHICS_VERSION_PATCH, 3236);
    EXPECT_EQ(INKGRAPHICS_VERSION, 0x02070CA4);
    EXPECT_STREQ(INKGRAPHICS_VERSION_STRING, "2.7.3236");
}

TEST(InkGraphicsVersion, partsDoNotReachIntoEachOther)
{
    EXPECT_EQ(INKGRAPHICS_VERSION_CHECK(2, 255, 65535), 0x02FFFFFF);
    EXPECT_EQ(INKGRAPHICS_VERSION_CHECK(1 + 2, 0, 1), 0x03000001);
}

TEST(InkGraphicsVersion, versionTextOfTheLibraryTellsTheSame)
{
    EXPECT_NE(Lectern::GetVerisonString().find(INKGRAPHICS_VERSION_STRING), std::string::npos);
}
