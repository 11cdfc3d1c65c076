#include "platform/pictures/icon_channels.h"

#include <algorithm>

namespace dunvey {
namespace {

/// The colour times its alpha, which is how bitmaps hold it.
uint32_t Scaled(uint8_t color, uint32_t alpha) {
    return (color * alpha + 127) / 255;
}

}  // namespace

std::vector<uint8_t> UnpackRuns(std::string_view packed, size_t count) {
    std::vector<uint8_t> bytes;
    bytes.reserve(count);
    while (bytes.size() < count && packed.size() >= 2) {
        const auto control = static_cast<uint8_t>(packed[0]);
        packed.remove_prefix(1);
        const bool repeats = control >= 128;
        const size_t length = repeats ? control - 125u : control + 1u;
        const size_t taken = repeats ? 1 : length;
        if (length > count - bytes.size() || taken > packed.size()) return {};
        if (repeats) {
            bytes.insert(bytes.end(), length, static_cast<uint8_t>(packed[0]));
        } else {
            bytes.insert(bytes.end(), packed.begin(),
                         packed.begin() + static_cast<std::ptrdiff_t>(length));
        }
        packed.remove_prefix(taken);
    }
    if (bytes.size() < count) bytes.clear();
    return bytes;
}

Ref<Bitmap> BitmapOfChannels(const std::vector<uint8_t>& colors, const std::vector<uint8_t>& alpha,
                             int64_t pixels) {
    const auto count = static_cast<size_t>(pixels * pixels);
    if (colors.size() != 3 * count || (!alpha.empty() && alpha.size() != count)) return nullptr;
    Ref<Bitmap> bitmap = New<Bitmap>(Bitmap{pixels, pixels, std::vector<uint32_t>(count)});
    for (size_t place = 0; place < count; ++place) {
        const uint32_t opacity = alpha.empty() ? 255u : alpha[place];
        const uint32_t red = Scaled(colors[place], opacity);
        const uint32_t green = Scaled(colors[count + place], opacity);
        const uint32_t blue = Scaled(colors[2 * count + place], opacity);
        bitmap->Pixels[place] = opacity << 24 | red << 16 | green << 8 | blue;
    }
    return bitmap;
}

}  // namespace dunvey
