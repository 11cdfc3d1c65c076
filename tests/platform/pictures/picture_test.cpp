#include "platform/pictures/picture.h"

#include <gtest/gtest.h>

namespace dunvey {
namespace {

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
