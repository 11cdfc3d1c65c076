#include "platform/values/memory_block.h"

#include <algorithm>

#include "platform/values/array.h"

namespace dunvey {

void MemoryBlock::SetSize(uint64_t size) {
    if (size < used_.size()) used_.resize(size);
    used_.reserve(size);
    size_ = size;
}

void MemoryBlock::CheckBounds(uint64_t offset, uint64_t length) const {
    if (offset > size_ || length > size_ - offset) {
        RaiseOutOfBounds(static_cast<int64_t>(std::max(offset, size_)));
    }
}

std::string MemoryBlock::StringValue(uint64_t offset, uint64_t length) const {
    CheckBounds(offset, length);
    std::string bytes;
    if (offset < used_.size()) bytes = used_.substr(offset, length);
    bytes.resize(length);
    return bytes;
}

void MemoryBlock::SetStringValue(uint64_t offset, uint64_t length, std::string_view text) {
    CheckBounds(offset, length);
    if (used_.size() < offset) used_.resize(offset);
    text = text.substr(0, length);
    used_.replace(offset, length, text);
    if (text.size() < length) used_.insert(offset + text.size(), length - text.size(), '\0');
}

}  // namespace dunvey
