#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "platform/values/array.h"
#include "platform/values/exceptions.h"

namespace dunvey {

/// A block of bytes that can be resized, of up to 256 MiB.
class MemoryBlock {
 public:
    /// A block of `size` bytes, all zero. Raises OutOfMemoryException.
    explicit MemoryBlock(uint64_t size) { SetSize(size); }
    /// A block filled with the bytes of the text.
    explicit MemoryBlock(std::string text) : bytes_(std::move(text)) {}

    uint64_t Size() const { return bytes_.size(); }
    /// New bytes at the end are zero. Raises OutOfMemoryException.
    void SetSize(uint64_t size, SourcePlace place = SourcePlace::Here());

    /// `length` bytes from `offset`. Raises OutOfBoundsException if they reach beyond the block.
    std::string StringValue(uint64_t offset, uint64_t length,
                            SourcePlace place = SourcePlace::Here()) const;
    /// Writes the first `length` bytes of the text at `offset`; a shorter text is followed by zero
    /// bytes. Raises OutOfBoundsException if they reach beyond the block.
    void SetStringValue(uint64_t offset, uint64_t length, std::string_view text,
                        SourcePlace place = SourcePlace::Here()) {
        CheckBounds(offset, length, place);
        text.copy(bytes_.data() + offset, length);
        if (text.size() < length)
            std::fill_n(bytes_.data() + offset + text.size(), length - text.size(), '\0');
    }

    /// All bytes; valid until a change.
    std::string_view Bytes() const { return bytes_; }
    /// Moves the bytes out and leaves the block empty.
    std::string Release() { return std::exchange(bytes_, {}); }

 private:
    void CheckBounds(uint64_t offset, uint64_t length, SourcePlace place) const {
        if (offset <= Size() && length <= Size() - offset) return;
        RaiseOutOfBounds(static_cast<int64_t>(std::max(offset, Size())), place);
    }

    std::string bytes_;
};

}  // namespace dunvey
