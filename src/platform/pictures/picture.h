#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "platform/values/reference.h"

namespace dunvey {

/// Pixels, row by row from the top left corner: premultiplied alpha, red, green and blue, each a
/// byte, alpha highest.
struct Bitmap {
    int64_t Width = 0;
    int64_t Height = 0;
    std::vector<uint32_t> Pixels;
};

/// A bitmap of a size in points, or several resolutions of the same one.
class Picture {
 public:
    /// A transparent bitmap with one pixel for each point; a negative side counts as 0.
    Picture(int64_t width, int64_t height);
    /// One picture out of several of different resolutions, the smallest first.
    Picture(int64_t width, int64_t height, std::vector<Ref<Picture>> images);

    int64_t Width() const { return width_; }
    int64_t Height() const { return height_; }
    /// Draws on its own pixels when they are first looked at: of a long list few rows are ever
    /// seen. What had to be drawn before is drawn first; what fails isn't tried again.
    void DrawWhenSeen(std::function<void(Bitmap&)> drawing);
    /// Its own pixels; none for a picture of several resolutions.
    const Bitmap& Pixels() const;
    Bitmap& Pixels();
    /// The pixels to draw it with at so many pixels to the point: the least resolution that has
    /// enough of them, else the one with the most.
    const Bitmap& PixelsFor(double scale) const;
    /// The resolutions it was made of; empty for a plain bitmap.
    const std::vector<Ref<Picture>>& Images() const { return images_; }

 private:
    int64_t width_;
    int64_t height_;
    mutable Bitmap pixels_;
    mutable std::vector<std::function<void(Bitmap&)>> drawings_;
    std::vector<Ref<Picture>> images_;
};

}  // namespace dunvey
