#include "register/icon_file.h"

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <utility>

#include "platform/files/streams.h"
#include "platform/processes/error_line.h"
#include "platform/text/text.h"
#include "platform/values/exceptions.h"
#include "register/request.h"

namespace dunvey {
namespace {

constexpr int64_t kSizeLimit = 16 * 1024 * 1024;
constexpr size_t kHeaderSize = 8;
/// The signature of a PNG, and the length and the type of its first chunk; its width and height
/// follow.
constexpr std::string_view kPngBegin("\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR", 16);

/// The types of the parts that hold a PNG, by the greatest side in pixels.
constexpr std::pair<uint32_t, const char*> kPartTypes[] = {
    {16, "icp4"},  {32, "icp5"},  {64, "icp6"},  {128, "ic07"},
    {256, "ic08"}, {512, "ic09"}, {1024, "ic10"}};

/// The big-endian number in four bytes.
uint32_t Number(const std::string& bytes, size_t begin) {
    return static_cast<uint32_t>(Val("&h" + EncodeHex(bytes.substr(begin, 4))));
}

std::string WithHeader(const std::string& type, const std::string& contents) {
    std::string size;
    for (int shift = 24; shift >= 0; shift -= 8)
        size += static_cast<char>((contents.size() + kHeaderSize) >> shift & 0xFF);
    return type + size + contents;
}

std::string ReadBytes(const std::string& path) {
    try {
        const Ref<BinaryStream> stream = BinaryStream::Open(New<FolderItem>(path));
        if (stream->Length() > kSizeLimit)
            throw Refusal{"the icon " + Quoted(path) + " is too large. The limit is 16 MiB."};
        return stream->Read(stream->Length());
    } catch (const IOException& failure) {
        throw Refusal{"the icon " + Quoted(path) + " can't be read: " + failure.Message};
    }
}

}  // namespace

std::string ReadIcon(const std::string& path) {
    std::string bytes = ReadBytes(path);
    const size_t size = bytes.size();
    if (bytes.starts_with("icns") && size > kHeaderSize && Number(bytes, 4) == size) return bytes;
    if (!bytes.starts_with(kPngBegin) || size < kPngBegin.size() + 8)
        throw Refusal{"the icon " + Quoted(path) + " is neither a PNG nor a whole .icns file."};
    const uint32_t width = Number(bytes, kPngBegin.size());
    const uint32_t height = Number(bytes, kPngBegin.size() + 4);
    for (const auto& [side, type] : kPartTypes) {
        if (std::min(width, height) > 0 && std::max(width, height) <= side)
            return WithHeader("icns", WithHeader(type, bytes));
    }
    throw Refusal{"the icon " + Quoted(path) + " must have 1 to 1024 pixels on each side."};
}

}  // namespace dunvey
