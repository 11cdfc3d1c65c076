#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "platform/pictures/picture.h"
#include "platform/values/reference.h"

namespace dunvey {

/// A kind of part of an icon file that holds a picture: its size in pixels, and for one whose
/// colours may stand without alpha the type of the part that has it.
struct IconKind {
    std::string_view type;
    int64_t size;
    std::string_view mask;
};

/// A picture of an icon file in the bytes that it has there.
class PackedIcon {
 public:
    /// Gives a picture out of the bytes of a PNG; nil if that can't be.
    using PngDecoder = std::function<Ref<Bitmap>(std::string_view)>;

    explicit PackedIcon(const IconKind& kind, std::string bytes);

    /// Whether a part that begins so is in a format that can't be used.
    static bool IsUnusable(std::string_view start);
    /// How many bytes of a part tell that.
    static constexpr size_t kLongestMark = 8;

    /// Whether it has its colours alone and can be given a mask.
    bool LacksMask() const;
    /// The alpha of such a picture; empty means opaque.
    void SetMask(std::string mask) { mask_ = std::move(mask); }

    /// The bytes that it takes.
    size_t Size() const { return bytes_.size() + mask_.size(); }
    /// The picture in its own size; nil if the bytes don't make one.
    Ref<Bitmap> Unpack(const PngDecoder& decodePng) const;

 private:
    Ref<Bitmap> UnpackChannels() const;
    Ref<Bitmap> UnpackColors() const;

    IconKind kind_;
    std::string bytes_;
    std::string mask_;
};

}  // namespace dunvey
