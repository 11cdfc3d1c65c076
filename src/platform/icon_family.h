#pragma once

#include <sys/types.h>

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_descriptor.h"
#include "platform/picture.h"
#include "platform/reference.h"

namespace dunvey {

/// Larger icon files aren't looked at; those of real applications have some megabytes.
inline constexpr int64_t kIconFileLimit = 64 * 1024 * 1024;
/// Larger parts of a file aren't read; 1,024 by 1,024 pixels without compression are 4 MiB.
inline constexpr int64_t kIconPartLimit = 8 * 1024 * 1024;
/// What stands behind so many parts isn't looked at; a complete file has some twenty.
inline constexpr size_t kIconPartCount = 256;

/// An icon file (.icns): the same icon as pictures of several sizes. The file is held open, and of
/// its bytes only those of the pictures that are asked for are read.
class IconFamily {
 public:
    /// Gives a picture out of the bytes of a PNG; nil if that can't be.
    using PngDecoder = std::function<Ref<Bitmap>(std::string_view)>;

    /// A file that can't be read, is no regular file or no icon file gives a family without
    /// pictures. Of a damaged one the parts ahead of the damage count. Never waits for a FIFO.
    explicit IconFamily(const std::string& path);

    /// The picture for a square of so many pixels: the smallest that is at least as large, else the
    /// largest. One that can't be used, such as JPEG 2000, gives way to the next best; nil if there
    /// is none. The bitmap has the picture's own size.
    Ref<Bitmap> Image(int64_t pixels, const PngDecoder& decodePng) const;

 private:
    struct Part {
        std::string type;
        off_t place;
        size_t length;
    };
    struct Kind;
    struct Choice {
        const Kind* kind;
        const Part* part;
    };

    void ListParts();
    std::vector<Choice> ChoicesFor(int64_t pixels) const;
    std::string Read(const Part& part, size_t length) const;
    Ref<Bitmap> Decode(const Choice& choice, const PngDecoder& decodePng) const;
    Ref<Bitmap> DecodeChannels(const Kind& kind, std::string_view bytes) const;
    /// The alpha channel that belongs to a kind; empty if there is none.
    std::vector<uint8_t> Mask(const Kind& kind) const;

    FileDescriptor file_;
    std::vector<Part> parts_;
    /// The last picture that was decoded: both resolutions of an icon often come out of one part.
    mutable const Part* lastPart_ = nullptr;
    mutable Ref<Bitmap> last_;
};

}  // namespace dunvey
