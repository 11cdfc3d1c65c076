#pragma once

#include <sys/types.h>

#include <cstdint>
#include <string>
#include <vector>

#include "platform/files/file_descriptor.h"
#include "platform/pictures/packed_icon.h"
#include "platform/pictures/picture.h"
#include "platform/values/reference.h"

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
    /// A file that can't be read, is no regular file or no icon file gives a family without
    /// pictures. Of a damaged one the parts ahead of the damage count. Never waits for a FIFO.
    explicit IconFamily(const std::string& path);

    /// The picture for a square of so many pixels: the smallest that is at least as large, else the
    /// largest. One that can't be used, such as JPEG 2000, gives way to the next best; nil if there
    /// is none. The bitmap has the picture's own size.
    Ref<Bitmap> Image(int64_t pixels, const PackedIcon::PngDecoder& decodePng) const;

    /// What that picture is likely to come out of; nil if there is none. That the bytes are sound
    /// is seen when they are unpacked.
    Ref<PackedIcon> Packed(int64_t pixels) const;

 private:
    /// The place and the length are those of what stands behind the header.
    struct Part {
        std::string type;
        off_t place = 0;
        size_t length = 0;
        off_t End() const { return place + static_cast<off_t>(length); }
    };
    struct Choice {
        const IconKind* kind;
        const Part* part;
    };

    void ListParts();
    /// What the header there says; without a type where there is none.
    Part PartAt(off_t place) const;
    std::vector<Choice> ChoicesFor(int64_t pixels) const;
    /// The first bytes of a part; empty if they aren't all there.
    std::string Read(const Part& part, size_t length) const;
    /// As many of the bytes as the file has.
    std::string Read(off_t place, size_t length) const;
    /// Nil for a part that can't be read or is in a format that can't be used.
    Ref<PackedIcon> Packed(const Choice& choice) const;
    /// The alpha channel that belongs to a kind; empty if there is none.
    std::string Mask(const IconKind& kind) const;

    FileDescriptor file_;
    /// The beginning of the file.
    std::string start_;
    std::vector<Part> parts_;
    /// The last picture that was decoded: both resolutions of an icon often come out of one part.
    mutable const Part* lastPart_ = nullptr;
    mutable Ref<Bitmap> last_;
};

}  // namespace dunvey
