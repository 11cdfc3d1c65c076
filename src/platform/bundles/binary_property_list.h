#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace dunvey {

/// Whether the bytes begin like a property list in the binary form.
bool IsBinaryPropertyList(std::string_view bytes);

/// A property list in the binary form whose top value is a dictionary. Only what is asked for is
/// looked at: a library that builds all values can be made to build more than there is memory,
/// since a list of a few hundred bytes may refer to its values over and over.
class BinaryPropertyList {
 public:
    explicit BinaryPropertyList(std::string bytes);

    /// Whether the bytes are whole enough to find the top dictionary.
    bool IsDictionary() const { return dictionary_.has_value(); }
    /// The text under the key; none if there is none, or it is no text.
    std::optional<std::string> Text(std::string_view key) const;

 private:
    /// A value with a count: where its contents begin, in bytes, and how many things they are.
    struct Value {
        unsigned kind = 0;
        size_t begin = 0;
        size_t count = 0;
    };

    std::optional<size_t> Number(size_t begin, size_t size) const;
    std::optional<size_t> Reference(size_t begin, size_t position) const;
    std::optional<Value> ValueOf(size_t reference) const;
    std::optional<std::string> TextOf(size_t reference) const;

    std::string bytes_;
    size_t offsetSize_ = 0;
    size_t referenceSize_ = 0;
    size_t objects_ = 0;
    size_t offsets_ = 0;
    std::optional<Value> dictionary_;
};

}  // namespace dunvey
