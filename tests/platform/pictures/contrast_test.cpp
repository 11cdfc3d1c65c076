#include "platform/pictures/contrast.h"

#include <gtest/gtest.h>

namespace dunvey {
namespace {

TEST(ContrastTest, AColourMovesOnlyAsFarAsNeeded) {
    EXPECT_NEAR(Contrast({0}, {0xFFFFFF}), 21, 0.01);
    EXPECT_NEAR(Contrast({0x123456}, {0x123456}), 1, 0.01);
    EXPECT_NEAR(Contrast({0xFF0000}, {0xFFFFFF}), 4.0, 0.01);
    for (const uint32_t theme : {0xEFEFEFu, 0xF6F5F4u, 0xFFFFFFu, 0x202022u}) {
        EXPECT_EQ(Readable({0xFB0C43}, {theme}, 2.5), (Color{0xFB0C43})) << theme;
    }
    EXPECT_EQ(Readable({0x999999}, {0xF1F2F2}, 2.5), (Color{0x999999}));
    for (const uint32_t ground : {0xFB0C43u, 0x808080u, 0xFFFFFFu, 0x000000u, 0xFFFF00u}) {
        const Color moved = Readable({0xFB0C43}, {ground}, 4.5);
        EXPECT_GE(Contrast(moved, {ground}), 4.5) << ground;
    }
    EXPECT_LT(Contrast(Readable({0x999999}, {0xFFFFFF}, 4.5), {0xFFFFFF}), 5.5);
}

TEST(ContrastTest, OnlyOrdinaryLightThemesKeepLessContrast) {
    EXPECT_EQ(LeastContrast({0xFFFFFF}, {0}), 4.5);
    EXPECT_EQ(LeastContrast({0}, {0xFFFFFF}), 4.5);
    EXPECT_EQ(LeastContrast({0xEFEFEF}, {0}), 2.5);
    EXPECT_EQ(LeastContrast({0x202022}, {0xFFFFFF}), 4.5);
}

}  // namespace
}  // namespace dunvey
