#include "platform/bundles/binary_property_list.h"

#include <cstdint>

#include "platform/text/encoding.h"

namespace dunvey {
namespace {

constexpr size_t kTrailerSize = 32;

// The kinds of values, the upper half of a value's first byte. The lower half is the count; 15
// means that a number with the count follows.
constexpr unsigned kNumber = 0x1;
constexpr unsigned kAsciiText = 0x5;
constexpr unsigned kUtf16Text = 0x6;
constexpr unsigned kDictionary = 0xD;
constexpr unsigned kLongCount = 0xF;

}  // namespace

BinaryPropertyList::BinaryPropertyList(std::string bytes) : bytes_(std::move(bytes)) {
    if (!HasSignature(bytes_) || bytes_.size() < kTrailerSize) return;
    const size_t trailer = bytes_.size() - kTrailerSize;
    offsetSize_ = *Number(trailer + 6, 1);
    referenceSize_ = *Number(trailer + 7, 1);
    offsets_ = *Number(trailer + 24, 8);
    const std::optional<Value> top = Object(Number(trailer + 16, 8));
    if (top && top->kind == kDictionary && top->count <= bytes_.size()) dictionary_ = top;
}

std::optional<size_t> BinaryPropertyList::Number(size_t begin, size_t size) const {
    if (size < 1 || size > 8 || begin > bytes_.size() || size > bytes_.size() - begin)
        return std::nullopt;
    uint64_t number = 0;
    for (size_t i = begin; i < begin + size; ++i)
        number = number << 8 | static_cast<unsigned char>(bytes_[i]);
    return number;
}

std::optional<BinaryPropertyList::Value> BinaryPropertyList::Object(
    std::optional<size_t> number) const {
    // With these limits the sum below can't overflow.
    if (!number || *number > bytes_.size() || offsets_ > bytes_.size()) return std::nullopt;
    const auto begin = Number(offsets_ + *number * offsetSize_, offsetSize_);
    const auto first = begin ? Number(*begin, 1) : std::nullopt;
    if (!first) return std::nullopt;
    Value value{static_cast<unsigned>(*first >> 4), *begin + 1, *first & 0xF};
    if (value.count != kLongCount) return value;
    const auto marker = Number(value.begin, 1);
    if (!marker || *marker >> 4 != kNumber) return std::nullopt;
    const size_t size = size_t{1} << (*marker & 0xF);
    const auto count = Number(value.begin + 1, size);
    if (!count) return std::nullopt;
    return Value{value.kind, value.begin + 1 + size, *count};
}

std::optional<std::string> BinaryPropertyList::TextOf(std::optional<size_t> number) const {
    const std::optional<Value> value = Object(number);
    if (!value || (value->kind != kAsciiText && value->kind != kUtf16Text)) return std::nullopt;
    const size_t unit = value->kind == kUtf16Text ? 2 : 1;
    if (value->begin > bytes_.size() || value->count > (bytes_.size() - value->begin) / unit)
        return std::nullopt;
    const std::string text = bytes_.substr(value->begin, value->count * unit);
    if (unit == 1) return text;
    return ConvertEncoding({"\xFE\xFF" + text, Encodings::UTF16}, Encodings::UTF8).Bytes;
}

std::optional<std::string> BinaryPropertyList::Text(std::string_view key) const {
    if (!dictionary_) return std::nullopt;
    // The references to the keys come first, then those to the values.
    const size_t begin = dictionary_->begin;
    const size_t count = dictionary_->count;
    for (size_t i = 0; i < count; ++i) {
        const auto name = Number(begin + i * referenceSize_, referenceSize_);
        const std::optional<Value> value = Object(name);
        // Keys of another length aren't copied: all of them may refer to one huge text.
        if (value && value->count == key.size() && TextOf(name) == key)
            return TextOf(Number(begin + (count + i) * referenceSize_, referenceSize_));
    }
    return std::nullopt;
}

}  // namespace dunvey
