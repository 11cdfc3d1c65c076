#include "platform/bundles/binary_property_list.h"

#include <cstdint>

#include "platform/text/text.h"

namespace dunvey {
namespace {

constexpr std::string_view kMark = "bplist00";
constexpr size_t kTrailerSize = 32;

// The kinds of values, the upper half of a value's first byte; the lower half is the count, or 15
// if that stands behind it as a number of its own.
constexpr unsigned kNumber = 0x1;
constexpr unsigned kAsciiText = 0x5;
constexpr unsigned kUtf16Text = 0x6;
constexpr unsigned kDictionary = 0xD;
constexpr unsigned kLongCount = 0xF;

/// UTF-8 of big-endian UTF-16; half a pair gives U+FFFD.
std::string FromUtf16(std::string_view bytes) {
    const auto unit = [bytes](size_t i) {
        return static_cast<uint32_t>(static_cast<unsigned char>(bytes[i]) << 8 |
                                     static_cast<unsigned char>(bytes[i + 1]));
    };
    std::string text;
    for (size_t i = 0; i + 1 < bytes.size(); i += 2) {
        const uint32_t first = unit(i);
        const uint32_t second = i + 3 < bytes.size() ? unit(i + 2) : 0;
        if (first >> 10 == 0x36 && second >> 10 == 0x37) {
            text += Chr(0x10000 + ((first & 0x3FF) << 10) + (second & 0x3FF));
            i += 2;
        } else {
            text += Chr(first);
        }
    }
    return text;
}

}  // namespace

bool IsBinaryPropertyList(std::string_view bytes) {
    return bytes.starts_with(kMark);
}

BinaryPropertyList::BinaryPropertyList(std::string bytes) : bytes_(std::move(bytes)) {
    if (!IsBinaryPropertyList(bytes_) || bytes_.size() < kMark.size() + kTrailerSize) return;
    const size_t trailer = bytes_.size() - kTrailerSize;
    offsetSize_ = Number(trailer + 6, 1).value_or(0);
    referenceSize_ = Number(trailer + 7, 1).value_or(0);
    objects_ = Number(trailer + 8, 8).value_or(0);
    offsets_ = Number(trailer + 24, 8).value_or(0);
    const std::optional<Value> top = ValueOf(Number(trailer + 16, 8).value_or(SIZE_MAX));
    if (top && top->kind == kDictionary) dictionary_ = top;
}

std::optional<size_t> BinaryPropertyList::Number(size_t begin, size_t size) const {
    if (size < 1 || size > 8 || begin > bytes_.size() || size > bytes_.size() - begin) {
        return std::nullopt;
    }
    uint64_t number = 0;
    for (size_t i = begin; i < begin + size; ++i) {
        number = number << 8 | static_cast<unsigned char>(bytes_[i]);
    }
    return number;
}

std::optional<size_t> BinaryPropertyList::Reference(size_t begin, size_t position) const {
    // Any position beyond the file's size is outside, and can't overflow below.
    if (position > bytes_.size()) return std::nullopt;
    return Number(begin + position * referenceSize_, referenceSize_);
}

std::optional<BinaryPropertyList::Value> BinaryPropertyList::ValueOf(size_t reference) const {
    if (reference >= objects_ || reference > bytes_.size() || offsets_ > bytes_.size()) {
        return std::nullopt;
    }
    const std::optional<size_t> begin = Number(offsets_ + reference * offsetSize_, offsetSize_);
    const std::optional<size_t> first = begin ? Number(*begin, 1) : std::nullopt;
    if (!first) return std::nullopt;
    Value value{static_cast<unsigned>(*first >> 4), *begin + 1, *first & 0xF};
    if (value.count != kLongCount) return value;
    const std::optional<size_t> marker = Number(value.begin, 1);
    if (!marker || *marker >> 4 != kNumber) return std::nullopt;
    const size_t size = size_t{1} << (*marker & 0xF);
    const std::optional<size_t> count = Number(value.begin + 1, size);
    if (!count) return std::nullopt;
    value.begin += 1 + size;
    value.count = *count;
    return value;
}

std::optional<std::string> BinaryPropertyList::TextOf(size_t reference) const {
    const std::optional<Value> value = ValueOf(reference);
    if (!value || (value->kind != kAsciiText && value->kind != kUtf16Text)) return std::nullopt;
    const size_t unit = value->kind == kUtf16Text ? 2 : 1;
    if (value->begin > bytes_.size() || value->count > (bytes_.size() - value->begin) / unit) {
        return std::nullopt;
    }
    const std::string_view raw = std::string_view(bytes_).substr(value->begin, value->count * unit);
    return unit == 2 ? FromUtf16(raw) : std::string(raw);
}

std::optional<std::string> BinaryPropertyList::Text(std::string_view key) const {
    if (!dictionary_) return std::nullopt;
    const size_t count = dictionary_->count;
    for (size_t i = 0; i < count; ++i) {
        const std::optional<size_t> name = Reference(dictionary_->begin, i);
        if (!name) return std::nullopt;
        if (TextOf(*name) != key) continue;
        const std::optional<size_t> text = Reference(dictionary_->begin, count + i);
        return text ? TextOf(*text) : std::nullopt;
    }
    return std::nullopt;
}

}  // namespace dunvey
