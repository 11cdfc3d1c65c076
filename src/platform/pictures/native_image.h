#pragma once

#include <cstdint>
#include <functional>

#include "platform/pictures/picture.h"

namespace dunvey {

/// A place in pixels.
struct PixelRectangle {
    int64_t X = 0;
    int64_t Y = 0;
    int64_t Width = 0;
    int64_t Height = 0;
};

/// A bitmap that is made by the call, for as long as the desktop is there. What it is made of is
/// settled before, but for what stands in for a damaged picture, or for none.
using CGImage = std::function<Bitmap()>;

/// An image of the operating system, in no particular size.
class NSImage {
 public:
    virtual ~NSImage() = default;
    /// The image, as it is now, as a bitmap of the rectangle's size.
    virtual CGImage CGImageForProposedRect(const PixelRectangle& rectangle) const = 0;
};

/// Draws the bitmap over what is in the rectangle of another one, scaled if need be (by the nearest
/// pixel: ask the image for the size that is needed). What would stand outside is cut off.
void CGContextDrawImage(Bitmap& context, const PixelRectangle& rectangle, const Bitmap& image);

}  // namespace dunvey
