#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/text/encoding.h"
#include "platform/values/memory_block.h"
#include "platform/values/reference.h"

namespace dunvey {

/// Builds a text piece by piece. The block behind it doubles as needed, so that many small pieces
/// cost no more than their bytes.
class JSONStringBuffer {
 public:
    /// Without a block until the first text comes.
    JSONStringBuffer() = default;
    /// Starts with a text.
    explicit JSONStringBuffer(std::string_view text);
    /// Starts with a block of `capacity` bytes.
    explicit JSONStringBuffer(uint64_t capacity);
    virtual ~JSONStringBuffer() = default;

    uint64_t binaryLength = 0;  ///< bytes in use
    Ref<MemoryBlock> data;
    uint64_t length = 0;  ///< characters appended, each piece counted by itself

    virtual void Append(std::string_view text);
    /// The length in characters.
    virtual uint64_t Len() const { return length; }
    virtual operator std::string() const { return StringValue().Bytes; }
    virtual JSONStringBuffer& operator=(std::string_view text);
    /// The bytes so far, with no encoding.
    virtual EncodedText StringValue() const;

    /// The bytes so far, without a copy; the buffer is empty then.
    std::string TakeText();
};

}  // namespace dunvey
