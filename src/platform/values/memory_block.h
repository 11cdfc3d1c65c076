#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace dunvey {

/// A block of bytes that can be resized.
class MemoryBlock {
 public:
    /// A block of `size` bytes, all zero.
    explicit MemoryBlock(uint64_t size) { SetSize(size); }
    /// A block filled with the bytes of the text.
    explicit MemoryBlock(std::string text) : size_(text.size()), used_(std::move(text)) {}

    uint64_t Size() const { return size_; }
    /// New bytes at the end are zero.
    void SetSize(uint64_t size);

    /// `length` bytes from `offset`. Raises OutOfBoundsException if they reach beyond the block.
    std::string StringValue(uint64_t offset, uint64_t length) const;
    /// Writes the first `length` bytes of the text at `offset`; a shorter text is followed by zero
    /// bytes. Raises OutOfBoundsException if they reach beyond the block.
    void SetStringValue(uint64_t offset, uint64_t length, std::string_view text);

    /// The bytes as far as anything was written; those behind are zero. Valid until a change.
    std::string_view Used() const { return used_; }
    /// The same without a copy; the block is empty then.
    std::string TakeUsed() {
        size_ = 0;
        return std::exchange(used_, {});
    }

 private:
    void CheckBounds(uint64_t offset, uint64_t length) const;

    // Zeros at the end are only thought of: memory that is never used is never touched.
    uint64_t size_ = 0;
    std::string used_;
};

}  // namespace dunvey
