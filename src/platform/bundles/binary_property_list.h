#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace dunvey {

/// A binary property list whose top value is a dictionary. Only the requested values are read.
/// libplist builds the whole tree: 200 bytes of arrays that refer to each other repeatedly then
/// take all memory, and 40,000 nested arrays take 8 seconds.
class BinaryPropertyList {
 public:
    static bool HasSignature(std::string_view bytes) { return bytes.starts_with("bplist00"); }

    explicit BinaryPropertyList(std::string bytes);

    bool IsDictionary() const { return dictionary_.has_value(); }
    /// The text under an ASCII key; nullopt if there is none or the value is no text.
    std::optional<std::string> Text(std::string_view key) const;

 private:
    /// A value: its kind, and the offset and the number of its elements.
    struct Value {
        unsigned kind = 0;
        size_t begin = 0;
        size_t count = 0;
    };

    /// The big-endian number of `size` bytes at an offset; nullopt outside the list.
    std::optional<size_t> Number(size_t begin, size_t size) const;
    /// The object with that index in the offset table; nullopt if it is invalid.
    std::optional<Value> Object(std::optional<size_t> number) const;
    std::optional<std::string> TextOf(std::optional<size_t> number) const;

    std::string bytes_;
    size_t offsetSize_ = 0;
    size_t referenceSize_ = 0;
    size_t offsets_ = 0;
    std::optional<Value> dictionary_;
};

}  // namespace dunvey
