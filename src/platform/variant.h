#pragma once

#include <concepts>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "platform/encoding.h"
#include "platform/object.h"
#include "platform/reference.h"
#include "platform/variant_types.h"

namespace dunvey {

/// A value of one of the types of VariantType. Texts and arrays are copied with it, objects shared.
/// It takes 16 bytes; texts of up to 14 bytes need nothing beside it.
class Variant {
 public:
    Variant() noexcept = default;
    Variant(std::nullptr_t) noexcept {}
    Variant(std::same_as<bool> auto value) noexcept : kind_(Kind::Boolean) { Put(value); }
    /// A signed integer, or an unsigned one with room to spare, of up to 64 bits.
    template <std::integral T>
    requires(!std::same_as<T, bool> && (std::signed_integral<T> || sizeof(T) < 8)) Variant(T value)
    noexcept {
        if constexpr (sizeof(T) + std::unsigned_integral<T> <= 4) {
            Put(static_cast<int32_t>(value), Kind::Integer32);
        } else {
            Put(static_cast<int64_t>(value), Kind::Integer64);
        }
    }
    Variant(float value) noexcept { Put(value, Kind::Single); }
    Variant(double value) noexcept { Put(value, Kind::Double); }
    Variant(Date value) noexcept { Put(value, Kind::Date); }
    Variant(Color value) noexcept { Put(value, Kind::Color); }
    /// A text in UTF-8.
    Variant(const char* text) : Variant(std::string_view(text)) {}
    Variant(const std::string& text) : Variant(std::string_view(text)) {}
    Variant(std::string_view bytes, TextEncoding encoding = Encodings::UTF8);
    Variant(const EncodedText& text) : Variant(text.Bytes, text.Encoding) {}
    /// An object; a nil reference gives Nil.
    template <std::derived_from<Object> T>
    Variant(const Ref<T>& object) {
        if (object) Put(ObjectHold::Take(object.Shared()), Kind::Object);
    }
    /// An array. Its element type is that of T, whatever the array holds.
    template <typename T>
    Variant(const std::vector<T>& array)
        : Variant(ElementType<T>(), std::vector<Variant>(array.begin(), array.end())) {}

    Variant(const Variant& other) { CopyFrom(other); }
    Variant(Variant&& other) noexcept { MoveFrom(other); }
    Variant& operator=(const Variant& other) {
        if (this != &other) *this = Variant(other);
        return *this;
    }
    Variant& operator=(Variant&& other) noexcept {
        if (this != &other) {
            Release();
            MoveFrom(other);
        }
        return *this;
    }
    ~Variant() { Release(); }

    /// The code of VariantType, with the bit of Array for an array.
    int VarType() const {
        return kind_ == Kind::Array ? VariantType::Array | ArrayElementType()
                                    : kTypes[static_cast<size_t>(kind_)];
    }
    bool IsNull() const { return kind_ == Kind::Nil; }
    bool IsText() const { return kind_ == Kind::ShortText || kind_ == Kind::LongText; }
    bool IsInteger() const { return kind_ == Kind::Integer32 || kind_ == Kind::Integer64; }
    bool IsArray() const { return kind_ == Kind::Array; }
    bool IsObject() const { return kind_ == Kind::Object; }
    /// The type code of an array's elements, VariantType::Nil for elements of any type. Raises
    /// TypeMismatchException for what is no array.
    int ArrayElementType() const { return Elements().type; }
    /// Raises TypeMismatchException for what is no array.
    const std::vector<Variant>& ArrayElements() const { return Elements().elements; }

    // Conversions. Nil gives False, 0, the empty text and the nil reference. What has no sense as
    // the type asked for (an array, an object, a date or a colour as a number) raises
    // TypeMismatchException.

    /// A number is True unless it is 0; a text if it says "true", in any letter case, or begins
    /// with a number other than 0.
    bool BooleanValue() const;
    /// Fractions are cut off; what is out of range ends at the nearest limit, NaN gives 0. A
    /// Boolean is 1 or 0, a text the number at its beginning, 0 if there is none.
    int32_t Int32Value() const;
    int64_t Int64Value() const;
    /// As the integers, with fractions.
    float SingleValue() const;
    double DoubleValue() const;
    /// In UTF-8. Numbers as Str gives them, "True" and "False", a date as "2000-12-31 23:59:59", a
    /// colour as "&hFF8000".
    std::string StringValue() const;
    /// A text as it is; other values as StringValue gives them.
    EncodedText EncodedValue() const;
    /// The object; nil for Nil. Raises TypeMismatchException for other values.
    Ref<Object> ObjectValue() const;

    /// The bytes and the encoding of a text, as they are; valid while the value stays. No bytes for
    /// other values.
    std::string_view TextBytes() const {
        if (kind_ == Kind::ShortText) return {bytes_, static_cast<size_t>(detail_ >> 4)};
        return kind_ == Kind::LongText ? LongTextBytes() : std::string_view();
    }
    TextEncoding Encoding() const {
        return IsText() ? static_cast<TextEncoding>(detail_ & 0xF) : TextEncoding::None;
    }
    /// The object's address, nullptr for other values.
    Object* ObjectAddress() const { return IsObject() ? Get<Object*>() : nullptr; }

    /// Numbers are equal by value whatever their types, texts by their bytes, objects if they are
    /// the same one, arrays by type and elements. Values of different kinds are never equal.
    friend bool operator==(const Variant& left, const Variant& right) {
        if (left.kind_ == Kind::ShortText && right.kind_ == Kind::ShortText) {
            // The bytes behind a short text are zero.
            return left.detail_ >> 4 == right.detail_ >> 4 &&
                   std::memcmp(left.bytes_, right.bytes_, kShortTextRoom) == 0;
        }
        return left.Equals(right);
    }

    /// The type code for the elements of a std::vector<T>.
    template <typename T>
    static int ElementType();

 private:
    // From LongText on there is memory behind the value.
    enum class Kind : uint8_t {
        Nil,
        Boolean,
        Integer32,
        Integer64,
        Single,
        Double,
        Date,
        Color,
        ShortText,
        LongText,
        Object,
        Array
    };
    /// The type codes in the order of the kinds.
    static constexpr int kTypes[] = {
        VariantType::Nil,    VariantType::Boolean, VariantType::Integer32, VariantType::Integer64,
        VariantType::Single, VariantType::Double,  VariantType::Date,      VariantType::Color,
        VariantType::String, VariantType::String,  VariantType::Object};
    struct Array {
        int type;
        std::vector<Variant> elements;
    };
    static constexpr size_t kShortTextRoom = 14;
    /// Where the size of a long text stands, behind its address.
    static constexpr size_t kSizePlace = sizeof(char*);

    Variant(int elementType, std::vector<Variant> elements);

    template <typename T>
    void Put(T value) {
        static_assert(std::is_trivially_copyable_v<T>);
        std::memcpy(bytes_, &value, sizeof value);
    }
    template <typename T>
    void Put(T value, Kind kind) {
        Put(value);
        kind_ = kind;
    }
    template <typename T>
    T Get() const {
        T value;
        std::memcpy(&value, bytes_, sizeof value);
        return value;
    }

    void MoveFrom(Variant& other) noexcept {
        std::memcpy(bytes_, other.bytes_, sizeof bytes_);
        detail_ = other.detail_;
        kind_ = std::exchange(other.kind_, Kind::Nil);
    }
    void CopyFrom(const Variant& other);
    void Release() noexcept {
        if (kind_ >= Kind::LongText) ReleaseMemory();
    }
    void ReleaseMemory() noexcept;
    void PutLongText(std::string_view text);
    std::string_view LongTextBytes() const;
    const Array& Elements() const;
    bool Equals(const Variant& other) const;
    [[noreturn]] void RaiseMismatch(const char* wanted) const;

    alignas(8) char bytes_[kShortTextRoom] = {};
    uint8_t detail_ = 0;  // of a text: the encoding below, the length of a short one above
    Kind kind_ = Kind::Nil;
};

template <typename T>
int Variant::ElementType() {
    if constexpr (std::same_as<T, Variant>) {
        return VariantType::Nil;
    } else if constexpr (std::same_as<T, std::string> || std::same_as<T, EncodedText>) {
        return VariantType::String;
    } else if constexpr (std::is_convertible_v<T, Ref<Object>>) {
        return VariantType::Object;
    } else {
        return Variant(T()).VarType();
    }
}

}  // namespace dunvey
