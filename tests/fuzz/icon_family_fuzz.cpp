#include <algorithm>
#include <array>
#include <cmath>
#include <map>

#include "fuzz/fuzz.h"
#include "fuzz/memory_file.h"
#include "platform/pictures/icon_family.h"
#include "support/icon_file.h"

namespace dunvey::fuzz {
namespace {

constexpr std::array<int64_t, 12> kAsked = {0, 1, 16, 17, 24, 32, 48, 100, 128, 256, 1024, 5000};

/// The types whose parts may hold a picture without being a PNG, by its size in pixels.
const std::map<std::string_view, int64_t> kSides = {
    {"ic04", 16},  {"icp4", 16},  {"is32", 16},  {"icsb", 18},  {"sb24", 24},  {"ic05", 32},
    {"icp5", 32},  {"ic11", 32},  {"il32", 32},  {"icsB", 36},  {"ih32", 48},  {"SB24", 48},
    {"icp6", 64},  {"ic12", 64},  {"ic07", 128}, {"it32", 128}, {"ic08", 256}, {"ic13", 256},
    {"ic09", 512}, {"ic14", 512}, {"ic10", 1024}};

/// Stands for the toolkit: a PNG is a pixel in the colour of its length.
Ref<Bitmap> DecodeStandIn(std::string_view bytes) {
    if (bytes.size() % 2 == 0) return nullptr;
    return New<Bitmap>(Bitmap{1, 1, {0xFF000000u | static_cast<uint32_t>(bytes.size() & 0xFF)}});
}

Ref<Bitmap> NoPng(std::string_view) {
    return nullptr;
}

/// Each colour is at most its alpha.
bool IsPremultiplied(uint32_t pixel) {
    const uint32_t alpha = pixel >> 24;
    return (pixel >> 16 & 0xFF) <= alpha && (pixel >> 8 & 0xFF) <= alpha && (pixel & 0xFF) <= alpha;
}

/// The square is whole, and a type of its size stands in the file.
void CheckBitmap(const Bitmap& bitmap, std::string_view bytes) {
    Check(bitmap.Width == bitmap.Height, "an icon is a square");
    Check(bitmap.Pixels.size() == static_cast<size_t>(bitmap.Width * bitmap.Height),
          "the bitmap is whole");
    Check(std::all_of(bitmap.Pixels.begin(), bitmap.Pixels.end(), &IsPremultiplied),
          "no colour exceeds its alpha");
    if (bitmap.Width == 1) return;
    const auto isThere = [&](const auto& side) {
        return side.second == bitmap.Width && bytes.find(side.first) != bytes.npos;
    };
    Check(bytes.starts_with("icns") && std::any_of(kSides.begin(), kSides.end(), isThere),
          "the size is that of a part");
}

bool SamePicture(const Ref<Bitmap>& left, const Ref<Bitmap>& right) {
    if (!left || !right) return !left && !right;
    return left->Width == right->Width && left->Pixels == right->Pixels;
}

/// Bytes in the run-length coding of icon files: runs of equal ones, else each for itself.
std::string Packed(std::string_view bytes) {
    std::string packed;
    while (!bytes.empty()) {
        constexpr size_t kLongestRun = 130;
        const size_t equal =
            std::min({bytes.find_first_not_of(bytes[0]), bytes.size(), kLongestRun});
        if (equal >= 3) {
            packed += {static_cast<char>(equal + 125), bytes[0]};
        } else {
            packed += {static_cast<char>(equal - 1)};
            packed += bytes.substr(0, equal);
        }
        bytes.remove_prefix(equal);
    }
    return packed;
}

/// An icon drawn with the input's bytes, over and over, gives their colours.
void CheckDrawn(std::string_view bytes, MemoryFile& file) {
    constexpr size_t kSide = 16;
    constexpr size_t kCount = kSide * kSide;
    if (bytes.empty()) return;
    std::string channels;
    while (channels.size() < 4 * kCount)
        channels += bytes.substr(0, 4 * kCount - channels.size());
    file.Write(test::IconFile({test::IconPart("ic04", "ARGB" + Packed(channels))}));
    const Ref<Bitmap> image = IconFamily(file.Path()).Image(kSide, &NoPng);
    Check(image && image->Pixels.size() == kCount, "a sound part gives a picture");
    for (size_t i = 0; i < kCount; ++i) {
        const auto channel = [&](size_t number) {
            return static_cast<uint8_t>(channels[number * kCount + i]);
        };
        uint32_t pixel = channel(0);
        for (size_t color = 1; color < 4; ++color) {
            const double scaled = channel(color) * (channel(0) / 255.0);
            pixel = pixel << 8 | static_cast<uint32_t>(std::lround(scaled));
        }
        Check(image->Pixels[i] == pixel, "the colours are those of the part");
    }
}

}  // namespace

void TryInput(std::string_view bytes) {
    static MemoryFile file;
    CheckDrawn(bytes, file);
    file.Write(bytes);
    const IconFamily family(file.Path());
    const IconFamily plain(file.Path());
    int64_t former = 0;
    bool any = false;
    for (const int64_t pixels : kAsked) {
        const Ref<Bitmap> image = family.Image(pixels, &DecodeStandIn);
        if (image) CheckBitmap(*image, bytes);
        Check(SamePicture(image, IconFamily(file.Path()).Image(pixels, &DecodeStandIn)),
              "what was asked for before makes no difference");
        const Ref<Bitmap> channels = plain.Image(pixels, &NoPng);
        const int64_t side = channels ? channels->Width : 0;
        Check(side >= former, "who asks for more gets no less");
        Check(pixels == kAsked.front() || any == (side > 0), "all sizes have a picture or none");
        former = side;
        any = side > 0;
    }
}

}  // namespace dunvey::fuzz
