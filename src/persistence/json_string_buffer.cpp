#include "persistence/json_string_buffer.h"

#include <algorithm>
#include <cstring>

#include "platform/text/text.h"

namespace dunvey {
namespace {

bool IsPlain(char byte) {
    return static_cast<unsigned char>(byte) < 0x80;
}

/// The length of the plain bytes at the beginning.
size_t PlainLength(std::string_view text) {
    constexpr uint64_t kHighBits = 0x8080808080808080;
    size_t length = 0;
    for (uint64_t word = 0; length + sizeof word <= text.size(); length += sizeof word) {
        std::memcpy(&word, text.data() + length, sizeof word);
        if ((word & kHighBits) != 0) break;
    }
    while (length < text.size() && IsPlain(text[length]))
        ++length;
    return length;
}

/// As Len, but quick over the plain bytes that most of JSON is made of. No character reaches over
/// one of them, so the stretches between can be counted by themselves.
uint64_t CharactersIn(std::string_view text) {
    uint64_t count = 0;
    while (!text.empty()) {
        const size_t plain = PlainLength(text);
        const auto end = std::find_if(text.begin() + plain, text.end(), IsPlain);
        const std::string_view stretch(text.begin() + plain, end);
        count += plain + static_cast<uint64_t>(Len(stretch));
        text.remove_prefix(plain + stretch.size());
    }
    return count;
}

}  // namespace

JSONStringBuffer::JSONStringBuffer(std::string_view text)
    : JSONStringBuffer(uint64_t{text.size()}) {
    JSONStringBuffer::Append(text);
}

JSONStringBuffer::JSONStringBuffer(uint64_t capacity) : data(New<MemoryBlock>(capacity)) {}

void JSONStringBuffer::Append(std::string_view text) {
    const uint64_t needed = binaryLength + text.size();
    uint64_t size = data->Size();
    if (size < needed) {
        size = std::max<uint64_t>(size, 1);  // there is nothing to double in an empty block
        while (size < needed)
            size *= 2;
        data->SetSize(size);
    }
    data->SetStringValue(binaryLength, text.size(), text);
    binaryLength = needed;
    length += CharactersIn(text);
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

std::string JSONStringBuffer::TakeText() {
    std::string text = data ? data->TakeUsed() : std::string();
    text.resize(binaryLength);
    binaryLength = length = 0;
    return text;
}

}  // namespace dunvey
