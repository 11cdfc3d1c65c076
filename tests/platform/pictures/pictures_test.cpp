#include <gtest/gtest.h>

#include "platform/pictures/contrast.h"
#include "platform/pictures/picture.h"

namespace dunvey {
namespace {

TEST(Contrast, AColourMovesOnlyAsFarAsNeeded) {
    EXPECT_EQ(Readable({0xFB0C43}, {0xEFEFEF}, 2.5), (Color{0xFB0C43}));
    for (const uint32_t ground : {0xFB0C43u, 0x808080u, 0xFFFFFFu, 0x000000u, 0xFFFF00u})
        EXPECT_GE(Contrast(Readable({0xFB0C43}, {ground}, 4.5), {ground}), 4.5) << ground;
}

TEST(Picture, TheLeastResolutionThatSuffices) {
    EXPECT_EQ(Picture(16, 8).PixelsFor(3).Width, 16);
    const Picture picture(16, 16,
                          {New<Picture>(16, 16), New<Picture>(32, 32), New<Picture>(64, 64)});
    const std::pair<double, int64_t> cases[] = {{1, 16}, {1.25, 32}, {2.01, 64}, {8, 64}};
    for (const auto& [scale, width] : cases)
        EXPECT_EQ(picture.PixelsFor(scale).Width, width) << scale;
}

}  // namespace
}  // namespace dunvey
