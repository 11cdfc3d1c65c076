#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/text/encoding.h"
#include "platform/text/text.h"
#include "platform/values/memory_block.h"
#include "platform/values/reference.h"

namespace dunvey {

/// Builds a text piece by piece. The block grows by doubling, so an append takes constant time on
/// average. Raises OutOfMemoryException above 256 MiB.
class JSONStringBuffer final {
 public:
    /// Has no block until the first text is assigned.
    JSONStringBuffer() = default;

    uint64_t binaryLength = 0;  ///< bytes in use
    Ref<MemoryBlock> data;
    uint64_t length = 0;  ///< characters appended: bytes that begin one

    // Inline, since most pieces are a few bytes.
    virtual void Append(std::string_view text) {
        uint64_t characters = 0;
        for (const char byte : text)
            characters += BeginsCharacter(byte);
        AppendCounted(text, characters);
    }
    /// Appends a text of as many characters as are given.
    [[gnu::always_inline]] void AppendCounted(std::string_view text, uint64_t characters) {
        MemoryBlock& block = *data;
        const uint64_t needed = binaryLength + text.size();
        if (block.Size() < needed) Grow(needed);
        block.SetStringValue(binaryLength, text.size(), text);
        binaryLength = needed;
        length += characters;
    }
    /// Appends a text whose bytes are one character each.
    [[gnu::always_inline]] void AppendAscii(std::string_view text) {
        AppendCounted(text, text.size());
    }
    /// Starts with a text.
    explicit JSONStringBuffer(std::string_view text);
    /// Starts with a block of `capacity` bytes.
    explicit JSONStringBuffer(uint64_t capacity);
    /// The length in characters.
    virtual uint64_t Len() const { return length; }
    virtual operator std::string() const { return StringValue().Bytes; }
    /// Appends the text, also to a buffer without a block.
    virtual JSONStringBuffer& operator=(std::string_view text);
    /// The bytes so far, with no encoding.
    virtual EncodedText StringValue() const;
    ~JSONStringBuffer() = default;

 private:
    void Grow(uint64_t needed);
};

}  // namespace dunvey
