#pragma once

#include <stddef.h>
#include <string.h>

namespace dunvey {

/// A part of a text that stands elsewhere, without the C++ library.
struct Slice {
    const char* data = "";
    size_t size = 0;

    constexpr Slice() = default;
    constexpr Slice(const char* begin, size_t length) : data(begin), size(length) {}
    /// A whole text, up to its zero byte.
    constexpr Slice(const char* text) : data(text), size(__builtin_strlen(text)) {}

    constexpr bool IsEmpty() const { return size == 0; }
    const char* begin() const { return data; }
    const char* end() const { return data + size; }

    /// The part behind the first `count` bytes, of which there must be as many.
    constexpr Slice From(size_t count) const { return {data + count, size - count}; }
    /// At most the first `count` bytes.
    constexpr Slice UpTo(size_t count) const { return {data, count < size ? count : size}; }

    /// The place of the first byte that is one of those; the size if there is none.
    size_t FirstOf(Slice bytes) const {
        size_t place = 0;
        while (place < size && !bytes.Has(data[place]))
            ++place;
        return place;
    }
    bool Has(char byte) const { return size > 0 && memchr(data, byte, size) != nullptr; }
    /// Whether the part, which isn't empty, stands in it. What is looked for is short and seldom
    /// there, where memmem spends more on its preparations.
    bool Has(Slice part) const {
        for (size_t place = 0; place + part.size <= size; ++place) {
            if (data[place] == part.data[0] && From(place).StartsWith(part)) return true;
        }
        return false;
    }
    bool StartsWith(Slice part) const {
        return size >= part.size && memcmp(data, part.data, part.size) == 0;
    }
    bool EndsWith(Slice part) const {
        return size >= part.size && From(size - part.size).StartsWith(part);
    }
    bool operator==(Slice other) const { return size == other.size && StartsWith(other); }

    /// What stands behind the last slash; everything if there is none.
    Slice LastElement() const {
        size_t place = size;
        while (place > 0 && data[place - 1] != '/')
            --place;
        return From(place);
    }
};

}  // namespace dunvey
