#include "platform/values/variant.h"

#include <algorithm>

#include "platform/values/exceptions.h"

namespace dunvey {

static_assert(sizeof(Variant) == 16);

namespace {

template <typename Word>
uint64_t WordAt(const char* bytes) {
    Word word = 0;
    std::memcpy(&word, bytes, sizeof word);
    return word;
}

/// The first eight bytes, the lowest first; zeros follow fewer.
uint64_t FirstBytes(std::string_view text) {
    const char* bytes = text.data();
    const size_t size = text.size();
    if (size >= 8) return WordAt<uint64_t>(bytes);
    // Two pieces that may overlap.
    if (size >= 4)
        return WordAt<uint32_t>(bytes) | WordAt<uint32_t>(bytes + size - 4) << (size - 4) * 8;
    if (size >= 2)
        return WordAt<uint16_t>(bytes) | WordAt<uint16_t>(bytes + size - 2) << (size - 2) * 8;
    return size == 1 ? WordAt<uint8_t>(bytes) : 0;
}

}  // namespace

Variant::Variant(std::string_view bytes, TextEncoding encoding) {
    if (bytes.size() > kShortTextRoom) {
        PutLongText(bytes, encoding);
        return;
    }
    const uint64_t second = bytes.size() > 8 ? FirstBytes(bytes.substr(8)) : 0;
    Put(FirstBytes(bytes),
        second | uint64_t{static_cast<uint8_t>(encoding)} << kEncodingShift |
            uint64_t{bytes.size()} << kLengthShift,
        Kind::ShortText);
}

Variant::Variant(int elementType, std::vector<Variant> elements) {
    Put(new Array{elementType, std::move(elements)}, Kind::Array);
}

void Variant::PutLongText(std::string_view text, TextEncoding encoding) {
    char* copy = new char[text.size()];
    std::memcpy(copy, text.data(), text.size());
    // Six bytes are room for a size beyond any machine's.
    Put(reinterpret_cast<uintptr_t>(copy),
        uint64_t{text.size()} | uint64_t{static_cast<uint8_t>(encoding)} << kEncodingShift,
        Kind::LongText);
}

std::string_view Variant::LongTextBytes() const {
    return {Get<const char*>(), halves_[1] & ((uint64_t{1} << kEncodingShift) - 1)};
}

void Variant::CopyFrom(const Variant& other) {
    switch (other.WhichKind()) {
        case Kind::LongText:
            return PutLongText(other.LongTextBytes(), other.Encoding());
        case Kind::Array:
            return Put(new Array(*other.Get<Array*>()), Kind::Array);
        case Kind::Object:
            return Put(ObjectHold::TakeAgain(other.Get<Object*>()), Kind::Object);
        default:
            halves_[0] = other.halves_[0];
            halves_[1] = other.halves_[1];
    }
}

void Variant::ReleaseMemory() noexcept {
    switch (WhichKind()) {
        case Kind::LongText:
            delete[] Get<char*>();
            break;
        case Kind::Object:
            ObjectHold::Release(Get<Object*>());
            break;
        default:
            delete Get<Array*>();
    }
    halves_[1] = 0;
}

const Variant::Array& Variant::Elements() const {
    if (WhichKind() != Kind::Array) RaiseMismatch("an array");
    return *Get<const Array*>();
}

bool Variant::Equals(const Variant& other) const {
    const auto isNumber = [](Kind kind) { return kind >= Kind::Integer32 && kind <= Kind::Double; };
    if (IsText()) return other.IsText() && TextBytes() == other.TextBytes();
    if (IsInteger() && other.IsInteger()) return Int64Value() == other.Int64Value();
    if (isNumber(WhichKind()) && isNumber(other.WhichKind())) {
        // Both must agree: as doubles alone, neighbours beyond 2^53 would be equal.
        return DoubleValue() == other.DoubleValue() &&
               (IsInteger() == other.IsInteger() || Int64Value() == other.Int64Value());
    }
    if (WhichKind() != other.WhichKind()) return false;
    switch (WhichKind()) {
        case Kind::Boolean:
            return Get<bool>() == other.Get<bool>();
        case Kind::Date:
            return Get<Date>() == other.Get<Date>();
        case Kind::Color:
            return Get<Color>() == other.Get<Color>();
        case Kind::Object:
            return Get<Object*>() == other.Get<Object*>();
        case Kind::Array:
            return ArrayElementType() == other.ArrayElementType() &&
                   ArrayElements() == other.ArrayElements();
        default:
            return true;
    }
}

}  // namespace dunvey
