#pragma once

#include <cstdint>
#include <vector>

#include "platform/values/reference.h"

namespace dunvey {

/// Pixels, row by row from the top left corner. Each is premultiplied 0xAARRGGBB.
struct Bitmap {
    int64_t Width = 0;
    int64_t Height = 0;
    std::vector<uint32_t> Pixels;
};

/// A bitmap with a size in points, or several resolutions of one.
class Picture {
 public:
    /// A transparent bitmap with one pixel for each point; a negative side counts as 0.
    Picture(int64_t width, int64_t height);
    /// A picture of several resolutions, the smallest first.
    Picture(int64_t width, int64_t height, std::vector<Ref<Picture>> images);

    int64_t Width() const { return width_; }
    int64_t Height() const { return height_; }
    /// Its own pixels; none for a picture of several resolutions.
    Bitmap& Pixels() { return pixels_; }
    /// The pixels to draw it with at `scale` pixels for each point: the lowest resolution that has
    /// enough of them, else the highest.
    const Bitmap& PixelsFor(double scale) const;

 private:
    int64_t width_;
    int64_t height_;
    Bitmap pixels_;
    std::vector<Ref<Picture>> images_;
};

}  // namespace dunvey
