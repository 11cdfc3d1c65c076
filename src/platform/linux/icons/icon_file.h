#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/pictures/picture.h"

namespace dunvey {

/// A part of an icon file: one image.
struct IconFilePart {
    std::string Type;  ///< four characters
    int Side = 0;      ///< pixels
    bool IsPng = false;
    int64_t Offset = 0;
    uint32_t Length = 0;  ///< bytes
};

/// An icon file (.icns). Qt's reader loads every image plug-in for a PNG part and takes longer to
/// list the parts than to read one of them.
class IconFile {
 public:
    /// A file that is no icon file has no parts; a damaged one has those before the damage.
    explicit IconFile(std::string path);

    const std::string& Path() const { return path_; }
    /// The parts in the order in which they suit `side` pixels: the smallest that has at least as
    /// many, then larger ones, then smaller ones, the largest of them first.
    std::vector<IconFilePart> PartsFor(int side) const;
    /// The pixels of a PNG part; none for a damaged part and for one that is far larger than its
    /// type says.
    Bitmap ReadPng(const IconFilePart& part) const;

 private:
    std::string path_;
    std::vector<IconFilePart> parts_;
};

}  // namespace dunvey
