#include "platform/values/memory_block.h"

namespace dunvey {

void MemoryBlock::SetSize(uint64_t size, SourcePlace place) {
    constexpr uint64_t kMaxSize = uint64_t{1} << 28;
    if (size > kMaxSize) {
        throw OutOfMemoryException(
            "A block of " + std::to_string(size) + " bytes is larger than 256 MiB.", 0, place);
    }
    bytes_.resize(size);
}

std::string MemoryBlock::StringValue(uint64_t offset, uint64_t length, SourcePlace place) const {
    CheckBounds(offset, length, place);
    return bytes_.substr(offset, length);
}

}  // namespace dunvey
