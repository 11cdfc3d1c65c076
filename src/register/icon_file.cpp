#include "register/icon_file.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

#include "platform/files/streams.h"
#include "platform/values/exceptions.h"
#include "register/refusal.h"

namespace dunvey {
namespace {

constexpr int64_t kSizeLimit = 16 * 1024 * 1024;
constexpr size_t kHeaderSize = 8;
/// What a PNG begins with: its mark, and the length and the type of its first part.
constexpr std::string_view kPngBegin("\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR", 16);

/// The kinds of parts that hold a PNG, by the pixels of their sides.
struct PartKind {
    uint32_t side;
    std::string_view type;
};
constexpr std::array<PartKind, 7> kPartKinds = {{{16, "icp4"},
                                                 {32, "icp5"},
                                                 {64, "icp6"},
                                                 {128, "ic07"},
                                                 {256, "ic08"},
                                                 {512, "ic09"},
                                                 {1024, "ic10"}}};

/// The number of four bytes, the highest first.
uint32_t Number(const std::string& bytes, size_t begin) {
    uint32_t number = 0;
    for (size_t i = begin; i < begin + 4; ++i)
        number = number << 8 | static_cast<unsigned char>(bytes[i]);
    return number;
}

std::string WithHeader(std::string_view type, const std::string& contents) {
    std::string bytes(type);
    const size_t size = contents.size() + kHeaderSize;
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes += static_cast<char>(size >> shift & 0xFF);
    return bytes + contents;
}

std::string ReadBytes(const std::string& path) {
    try {
        const Ref<BinaryStream> stream = BinaryStream::Open(New<FolderItem>(path));
        if (stream->Length() > kSizeLimit)
            throw Refusal{"the icon " + Quoted(path) + " is too large. It may have 16 MiB."};
        return stream->Read(stream->Length());
    } catch (const IOException& failure) {
        throw Refusal{"the icon " + Quoted(path) + " can't be read: " + failure.Message};
    }
}

std::string FromPng(const std::string& png, const std::string& path) {
    const uint32_t width = Number(png, kPngBegin.size());
    const uint32_t height = Number(png, kPngBegin.size() + 4);
    const uint32_t side = std::max(width, height);
    const auto* const kind = std::find_if(kPartKinds.begin(), kPartKinds.end(),
                                          [&](const PartKind& each) { return each.side >= side; });
    if (std::min(width, height) == 0 || kind == kPartKinds.end())
        throw Refusal{"the icon " + Quoted(path) + " may have 1024 x 1024 pixels at most."};
    return WithHeader("icns", WithHeader(kind->type, png));
}

}  // namespace

std::string ReadIcon(const std::string& path) {
    std::string bytes = ReadBytes(path);
    const bool isPng = bytes.starts_with(kPngBegin) && bytes.size() >= kPngBegin.size() + 8;
    if (isPng) return FromPng(bytes, path);
    const bool isIcon = bytes.starts_with("icns") && bytes.size() > kHeaderSize;
    if (isIcon && Number(bytes, 4) == bytes.size()) return bytes;
    throw Refusal{"the icon " + Quoted(path) + " is neither a PNG nor a whole .icns file."};
}

}  // namespace dunvey
