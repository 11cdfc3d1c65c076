#include "platform/text/shown_text.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "platform/pictures/picture.h"
#include "support/hostile_names.h"

namespace dunvey {
namespace {

TEST(ShownTextTest, AnyTextBecomesOneLineThatDisturbsNothing) {
    for (const std::string& name : test::HostileNames()) {
        const std::string line = OneLine(name);
        EXPECT_TRUE(std::none_of(line.begin(), line.end(), [](char byte) {
            return (byte >= 0 && byte < 0x20) || byte == 0x7F;
        })) << name;
        EXPECT_EQ(line.find("\xE2\x80\xAE"), std::string::npos);
    }
    struct Case {
        const char* text;
        const char* line;
    };
    for (const Case& each :
         std::vector<Case>{{"a\nb\tc", "a\u240Ab\u2409c"},
                           {"\x7F", "\u2421"},
                           {"\u202Egnp.exe", "\uFFFDgnp.exe"},
                           {"\u2066x\u2069", "\uFFFDx\uFFFD"},
                           {"\u200Fa\u061C (1)\u200B\uFEFF", "\uFFFDa\uFFFD (1)\uFFFD\uFFFD"},
                           {"a\u2028b\u2029", "a\uFFFDb\uFFFD"},
                           {"\u2027\u202F\u2065", "\u2027\u202F\u2065"},
                           {"\xC2\x85\xC2\x9F\xC2\xA0", "\uFFFD\uFFFD\u00A0"},
                           {"\xE2\x80", "\xE2\x80"},
                           {"\xC2", "\xC2"},
                           {"日本語 שלום", "日本語 שלום"}}) {
        EXPECT_EQ(OneLine(each.text), each.line) << each.text;
    }
}

TEST(ShownTextTest, AColourMovesOnlyAsFarAsItMust) {
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

TEST(ShownTextTest, OnlyOrdinaryLightThemesKeepLessContrast) {
    EXPECT_EQ(LeastContrast({0xFFFFFF}, {0}), 4.5);
    EXPECT_EQ(LeastContrast({0}, {0xFFFFFF}), 4.5);
    EXPECT_EQ(LeastContrast({0xEFEFEF}, {0}), 2.5);
    EXPECT_EQ(LeastContrast({0x202022}, {0xFFFFFF}), 4.5);
}

TEST(PictureTest, TheLeastResolutionThatSuffices) {
    EXPECT_EQ(Picture(16, 8).PixelsFor(3).Width, 16);
    const Picture picture(16, 16,
                          {New<Picture>(16, 16), New<Picture>(32, 32), New<Picture>(64, 64)});
    for (const auto& [scale, expected] : std::vector<std::pair<double, int64_t>>{
             {1, 16}, {1.25, 32}, {2, 32}, {2.01, 64}, {4, 64}, {8, 64}}) {
        EXPECT_EQ(picture.PixelsFor(scale).Width, expected) << scale;
    }
}

}  // namespace
}  // namespace dunvey
