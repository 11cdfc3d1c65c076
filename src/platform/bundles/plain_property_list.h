#pragma once

#include <optional>
#include <string_view>
#include <vector>

namespace dunvey {

/// A property list in the XML form, as plain as nearly all are: texts, whole numbers, truth values,
/// arrays and dictionaries, without entities, comments or attributes. To read one so takes a
/// quarter of the time that a reader of all of XML needs, and there is one in each application.
class PlainPropertyList {
 public:
    /// Reads the bytes, which have to stand as long as the list. Nothing if they aren't that plain
    /// or the outermost value is no dictionary; they may be a sound list all the same.
    static std::optional<PlainPropertyList> Read(std::string_view bytes);

    /// The text under a key of the outermost dictionary, where a key that stands there several
    /// times has its last value; nothing without the key or with another kind of value.
    std::optional<std::string_view> Text(std::string_view key) const;

 private:
    class Reader;
    struct Entry {
        std::string_view key;
        std::optional<std::string_view> text;
    };
    std::vector<Entry> entries_;
};

}  // namespace dunvey
