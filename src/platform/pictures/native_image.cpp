#include "platform/pictures/native_image.h"

#include <algorithm>

namespace dunvey {

void CGContextDrawImage(Bitmap& context, const PixelRectangle& rectangle, const Bitmap& image) {
    const int64_t left = std::max<int64_t>(0, rectangle.X);
    const int64_t right = std::min(context.Width, rectangle.X + image.Width);
    const int64_t bottom = std::min(context.Height, rectangle.Y + image.Height);
    if (left >= right) return;
    for (int64_t y = std::max<int64_t>(0, rectangle.Y); y < bottom; ++y) {
        const int64_t source = (y - rectangle.Y) * image.Width + left - rectangle.X;
        std::copy_n(image.Pixels.begin() + source, right - left,
                    context.Pixels.begin() + y * context.Width + left);
    }
}

Ref<Picture> InTwoResolutions(const NSImage& image, int64_t size) {
    const auto render = [&image](int64_t side) {
        const PixelRectangle rectangle{0, 0, side, side};
        Ref<Picture> picture = New<Picture>(side, side);
        CGContextDrawImage(picture->Pixels(), rectangle, image.CGImageForProposedRect(rectangle));
        return picture;
    };
    return New<Picture>(size, size, std::vector{render(size), render(size * 2)});
}

}  // namespace dunvey
