#include "persistence/json_string_buffer.h"

#include <algorithm>

namespace dunvey {

JSONStringBuffer::JSONStringBuffer(std::string_view text)
    : JSONStringBuffer(uint64_t{text.size()}) {
    JSONStringBuffer::Append(text);
}

JSONStringBuffer::JSONStringBuffer(uint64_t capacity) : data(New<MemoryBlock>(capacity)) {}

void JSONStringBuffer::Grow(uint64_t needed) {
    uint64_t size = std::max<uint64_t>(data->Size(), 1);  // an empty block has nothing to double
    while (size < needed)
        size *= 2;
    data->SetSize(size);
}

JSONStringBuffer& JSONStringBuffer::operator=(std::string_view text) {
    if (!data) data = New<MemoryBlock>(uint64_t{1024});
    Append(text);
    return *this;
}

EncodedText JSONStringBuffer::StringValue() const {
    if (!data) return {};
    return {data->StringValue(0, binaryLength), TextEncoding::None};
}

}  // namespace dunvey
