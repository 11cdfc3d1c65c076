#include "platform/pictures/native_image.h"

#include <algorithm>

namespace dunvey {
namespace {

/// One byte of `below` with as much of it left as the alpha above lets through.
uint32_t Through(uint32_t below, uint32_t alpha, unsigned shift) {
    return ((below >> shift & 0xFF) * (255 - alpha) + 127) / 255 << shift;
}

uint32_t Over(uint32_t above, uint32_t below) {
    if (below == 0) return above;
    const uint32_t alpha = above >> 24;
    return above + Through(below, alpha, 0) + Through(below, alpha, 8) + Through(below, alpha, 16) +
           Through(below, alpha, 24);
}

}  // namespace

void CGContextDrawImage(Bitmap& context, const PixelRectangle& rectangle, const Bitmap& image) {
    if (image.Width <= 0 || image.Height <= 0) return;
    // The usual case, hundreds of times for a long list, and a division for each pixel is dear.
    const bool keepsSize = image.Width == rectangle.Width && image.Height == rectangle.Height;
    const int64_t right = std::min(context.Width, rectangle.X + rectangle.Width);
    const int64_t bottom = std::min(context.Height, rectangle.Y + rectangle.Height);
    for (int64_t y = std::max<int64_t>(0, rectangle.Y); y < bottom; ++y) {
        const int64_t row = (y - rectangle.Y) * image.Height / rectangle.Height;
        for (int64_t x = std::max<int64_t>(0, rectangle.X); x < right; ++x) {
            const int64_t place = x - rectangle.X;
            const int64_t column = keepsSize ? place : place * image.Width / rectangle.Width;
            uint32_t& pixel = context.Pixels[static_cast<size_t>(y * context.Width + x)];
            pixel = Over(image.Pixels[static_cast<size_t>(row * image.Width + column)], pixel);
        }
    }
}

}  // namespace dunvey
