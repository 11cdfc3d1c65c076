#include "platform/pictures/packed_icon.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "platform/pictures/icon_channels.h"

namespace dunvey {
namespace {

constexpr std::string_view kPngMark = "\x89PNG\r\n\x1A\n";
constexpr std::string_view kArgbMark = "ARGB";
constexpr std::string_view kJpegBoxMark{"\0\0\0\x0CjP  ", 8};
constexpr std::string_view kJpegStreamMark = "\xFF\x4F\xFF\x51";

}  // namespace

PackedIcon::PackedIcon(const IconKind& kind, std::string bytes)
    : kind_(kind), bytes_(std::move(bytes)) {}

bool PackedIcon::IsUnusable(std::string_view start) {
    return start.starts_with(kJpegBoxMark) || start.starts_with(kJpegStreamMark);
}

bool PackedIcon::LacksMask() const {
    return !kind_.mask.empty() && !bytes_.starts_with(kPngMark) && !bytes_.starts_with(kArgbMark);
}

Ref<Bitmap> PackedIcon::Unpack(const PngDecoder& decodePng) const {
    if (bytes_.starts_with(kPngMark)) return decodePng(bytes_);
    if (bytes_.starts_with(kArgbMark)) return UnpackChannels();
    return kind_.mask.empty() ? nullptr : UnpackColors();
}

Ref<Bitmap> PackedIcon::UnpackChannels() const {
    const auto count = static_cast<size_t>(kind_.size * kind_.size);
    const std::string_view packed = std::string_view(bytes_).substr(kArgbMark.size());
    const auto channels = UnpackRuns(packed, 4 * count);
    if (channels.empty()) return nullptr;
    const auto colors = channels.begin() + static_cast<std::ptrdiff_t>(count);
    return BitmapOfChannels({colors, channels.end()}, {channels.begin(), colors}, kind_.size);
}

Ref<Bitmap> PackedIcon::UnpackColors() const {
    const auto count = static_cast<size_t>(kind_.size * kind_.size);
    std::string_view packed = bytes_;
    // The largest kind has four bytes of nothing ahead of its channels.
    if (kind_.type == "it32") packed.remove_prefix(std::min<size_t>(4, packed.size()));
    const auto colors = packed.size() == 3 * count
                            ? std::vector<uint8_t>(packed.begin(), packed.end())
                            : UnpackRuns(packed, 3 * count);
    return BitmapOfChannels(colors, {mask_.begin(), mask_.end()}, kind_.size);
}

}  // namespace dunvey
