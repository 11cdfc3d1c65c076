#include "platform/variant.h"

#include <algorithm>

#include "platform/exceptions.h"

namespace dunvey {

static_assert(sizeof(Variant) == 16);

Variant::Variant(std::string_view bytes, TextEncoding encoding)
    : detail_(static_cast<uint8_t>(encoding)) {
    if (bytes.size() > kShortTextRoom) {
        PutLongText(bytes);
    } else {
        kind_ = Kind::ShortText;
        detail_ |= static_cast<uint8_t>(bytes.size() << 4);
        if (!bytes.empty()) std::memcpy(bytes_, bytes.data(), bytes.size());
    }
}

Variant::Variant(int elementType, std::vector<Variant> elements) {
    Put(new Array{elementType, std::move(elements)}, Kind::Array);
}

void Variant::PutLongText(std::string_view text) {
    const uint64_t size = text.size();
    char* copy = new char[size];
    std::memcpy(copy, text.data(), size);
    Put(copy, Kind::LongText);
    // Six bytes are room for more than any machine holds. Both systems have the low byte first.
    std::memcpy(bytes_ + kSizePlace, &size, kShortTextRoom - kSizePlace);
}

std::string_view Variant::LongTextBytes() const {
    uint64_t size = 0;
    std::memcpy(&size, bytes_ + kSizePlace, kShortTextRoom - kSizePlace);
    return {Get<const char*>(), size};
}

void Variant::CopyFrom(const Variant& other) {
    switch (other.kind_) {
        case Kind::LongText:
            PutLongText(other.LongTextBytes());
            break;
        case Kind::Object:
            Put(ObjectHold::TakeAgain(other.Get<Object*>()));
            break;
        case Kind::Array:
            Put(new Array(*other.Get<Array*>()));
            break;
        default:
            std::memcpy(bytes_, other.bytes_, sizeof bytes_);
    }
    detail_ = other.detail_;
    kind_ = other.kind_;
}

void Variant::ReleaseMemory() noexcept {
    switch (kind_) {
        case Kind::LongText:
            delete[] Get<char*>();
            break;
        case Kind::Object:
            ObjectHold::Release(Get<Object*>());
            break;
        default:
            delete Get<Array*>();
    }
    kind_ = Kind::Nil;
}

const Variant::Array& Variant::Elements() const {
    if (kind_ != Kind::Array) RaiseMismatch("an array");
    return *Get<const Array*>();
}

bool Variant::Equals(const Variant& other) const {
    const auto isNumber = [](Kind kind) { return kind >= Kind::Integer32 && kind <= Kind::Double; };
    if (IsText()) return other.IsText() && TextBytes() == other.TextBytes();
    if (IsInteger() && other.IsInteger()) return Int64Value() == other.Int64Value();
    if (isNumber(kind_) && isNumber(other.kind_)) {
        // Both must agree: as doubles alone, neighbours beyond 2^53 would be equal.
        return DoubleValue() == other.DoubleValue() &&
               (IsInteger() == other.IsInteger() || Int64Value() == other.Int64Value());
    }
    if (kind_ != other.kind_) return false;
    switch (kind_) {
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
