#pragma once

#include <cstdint>

#include "platform/pictures/picture.h"

namespace dunvey {

/// A rectangle in pixels.
struct PixelRectangle {
    int64_t X = 0;
    int64_t Y = 0;
    int64_t Width = 0;
    int64_t Height = 0;
};

/// An image of the operating system that can be drawn at any size.
class NSImage {
 public:
    virtual ~NSImage() = default;
    /// The image as a bitmap of the rectangle's size.
    virtual Bitmap CGImageForProposedRect(const PixelRectangle& rectangle) const = 0;
};

/// Copies the image to the rectangle's corner in `context`, which is blank there. The image has the
/// rectangle's size; pixels outside the context are cut off.
void CGContextDrawImage(Bitmap& context, const PixelRectangle& rectangle, const Bitmap& image);

/// A picture of `size` by `size` points with 1 and 2 pixels for each point.
Ref<Picture> InTwoResolutions(const NSImage& image, int64_t size);

}  // namespace dunvey
