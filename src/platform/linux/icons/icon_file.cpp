#include "platform/linux/icons/icon_file.h"

#include <png.h>
#include <unistd.h>

#include <algorithm>
#include <bit>
#include <optional>
#include <string_view>

#include "platform/files/file_descriptor.h"

namespace dunvey {
namespace {

constexpr int kHeaderSize = 8;
/// Real files have up to 20 parts. More would only take time.
constexpr int kMostParts = 64;
constexpr uint32_t kMostBytes = 16 << 20;
/// The largest type of part has 1,024.
constexpr uint32_t kMostPixelsOnASide = 2048;

/// Pixels on a side of a part, by its type; 0 for an unknown type. The types are listed in
/// https://en.wikipedia.org/wiki/Apple_Icon_Image_format.
int SideOf(const std::string& type) {
    static constexpr std::pair<int, std::string_view> kTypes[] = {
        {16, "is32 icp4 ic04"}, {32, "il32 icp5 ic05 ic11"}, {48, "ih32"},       {64, "icp6 ic12"},
        {128, "it32 ic07"},     {256, "ic08 ic13"},          {512, "ic09 ic14"}, {1024, "ic10"}};
    for (const auto& [side, types] : kTypes)
        if (types.find(type) != types.npos) return side;
    return 0;
}

/// The part whose header of type and length is at the offset.
std::optional<IconFilePart> PartAt(const FileDescriptor& file, int64_t offset) {
    unsigned char bytes[2 * kHeaderSize];
    const ssize_t count = pread(file.Get(), bytes, sizeof bytes, offset);
    if (count < kHeaderSize) return std::nullopt;
    uint32_t length = 0;
    for (int i = 4; i < kHeaderSize; ++i)
        length = length << 8 | bytes[i];
    if (length < kHeaderSize) return std::nullopt;  // it includes the header
    const std::string type(bytes, bytes + 4);
    const bool isPng =
        count == sizeof bytes && png_sig_cmp(bytes + kHeaderSize, 0, kHeaderSize) == 0;
    return IconFilePart{type, SideOf(type), isPng, offset + kHeaderSize, length - kHeaderSize};
}

uint32_t Premultiplied(uint32_t pixel) {
    const uint32_t alpha = pixel >> 24;
    uint32_t result = alpha << 24;
    for (const int shift : {0, 8, 16})
        result |= ((pixel >> shift & 0xFF) * alpha + 127) / 255 << shift;
    return result;
}

}  // namespace

IconFile::IconFile(std::string path) : path_(std::move(path)) {
    int error = 0;
    const FileDescriptor file = OpenRegularFile(path_, error);
    std::optional<IconFilePart> part = PartAt(file, 0);
    if (!part || part->Type != "icns") return;
    int64_t offset = kHeaderSize;
    for (int i = 0; i < kMostParts && (part = PartAt(file, offset)); ++i) {
        if (part->Side > 0 && part->Length <= kMostBytes) parts_.push_back(*part);
        offset = part->Offset + part->Length;
    }
}

std::vector<IconFilePart> IconFile::PartsFor(int side) const {
    std::vector<IconFilePart> parts = parts_;
    std::stable_sort(parts.begin(), parts.end(),
                     [side](const IconFilePart& first, const IconFilePart& second) {
                         const bool isFirstEnough = first.Side >= side;
                         if (isFirstEnough != (second.Side >= side)) return isFirstEnough;
                         return isFirstEnough ? first.Side < second.Side : first.Side > second.Side;
                     });
    return parts;
}

Bitmap IconFile::ReadPng(const IconFilePart& part) const {
    int error = 0;
    const FileDescriptor file = OpenRegularFile(path_, error);
    std::string bytes(part.Length, '\0');
    if (pread(file.Get(), bytes.data(), part.Length, part.Offset) != ssize_t{part.Length})
        return {};
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (png_image_begin_read_from_memory(&image, bytes.data(), bytes.size()) == 0) return {};
    image.format = std::endian::native == std::endian::little ? PNG_FORMAT_BGRA : PNG_FORMAT_ARGB;
    std::vector<uint32_t> pixels;
    if (std::max(image.width, image.height) <= kMostPixelsOnASide)
        pixels.resize(size_t{image.width} * image.height);
    if (pixels.empty() || png_image_finish_read(&image, nullptr, pixels.data(), 0, nullptr) == 0) {
        png_image_free(&image);
        return {};
    }
    std::transform(pixels.begin(), pixels.end(), pixels.begin(), Premultiplied);
    return {image.width, image.height, std::move(pixels)};
}

}  // namespace dunvey
