#pragma once

#include <concepts>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "platform/text/encoding.h"
#include "platform/values/object.h"
#include "platform/values/reference.h"
#include "platform/values/variant_types.h"

namespace dunvey {

/// A value of one of the types of VariantType. Texts and arrays are copied with it, objects shared.
/// It takes 16 bytes; texts of up to 14 bytes need nothing beside it.
class Variant {
 public:
    Variant() noexcept = default;
    Variant(std::nullptr_t) noexcept {}
    Variant(std::same_as<bool> auto value) noexcept { Put(value, Kind::Boolean); }
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
    template <std::derived_from<Object> T>
    Variant(Ref<T>&& object) {
        if (object) Put(ObjectHold::Take(std::move(object).Release()), Kind::Object);
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
        return IsArray() ? VariantType::Array | ArrayElementType()
                         : kTypes[static_cast<size_t>(WhichKind())];
    }
    bool IsNull() const { return WhichKind() == Kind::Nil; }
    bool IsText() const { return WhichKind() == Kind::ShortText || WhichKind() == Kind::LongText; }
    bool IsInteger() const {
        return WhichKind() == Kind::Integer32 || WhichKind() == Kind::Integer64;
    }
    bool IsArray() const { return WhichKind() == Kind::Array; }
    bool IsObject() const { return WhichKind() == Kind::Object; }
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
        if (WhichKind() == Kind::ShortText) {
            return {reinterpret_cast<const char*>(halves_), halves_[1] >> kLengthShift & 0xF};
        }
        return WhichKind() == Kind::LongText ? LongTextBytes() : std::string_view();
    }
    TextEncoding Encoding() const {
        return IsText() ? static_cast<TextEncoding>(halves_[1] >> kEncodingShift & 0xF)
                        : TextEncoding::None;
    }
    /// The object's address, nullptr for other values.
    Object* ObjectAddress() const { return IsObject() ? Get<Object*>() : nullptr; }

    /// Numbers are equal by value whatever their types, texts by their bytes, objects if they are
    /// the same one, arrays by type and elements. Values of different kinds are never equal.
    friend bool operator==(const Variant& left, const Variant& right) {
        if (left.WhichKind() == Kind::ShortText && right.WhichKind() == Kind::ShortText) {
            // The bytes behind a short text are zero.
            return ((left.halves_[0] ^ right.halves_[0]) |
                    ((left.halves_[1] ^ right.halves_[1]) & ~kEncodingBits)) == 0;
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
    // Where things stand in the second half.
    static constexpr int kEncodingShift = 48;
    static constexpr int kLengthShift = 52;
    static constexpr int kKindShift = 56;
    static constexpr uint64_t kEncodingBits = uint64_t{0xF} << kEncodingShift;

    Variant(int elementType, std::vector<Variant> elements);

    Kind WhichKind() const { return static_cast<Kind>(halves_[1] >> kKindShift); }
    void Put(uint64_t first, uint64_t second, Kind kind) {
        halves_[0] = first;
        halves_[1] = second | uint64_t{static_cast<uint8_t>(kind)} << kKindShift;
    }
    template <typename T>
    void Put(T value, Kind kind) {
        static_assert(std::is_trivially_copyable_v<T> && sizeof value <= sizeof(uint64_t));
        uint64_t first = 0;
        std::memcpy(&first, &value, sizeof value);
        Put(first, 0, kind);
    }
    template <typename T>
    T Get() const {
        T value;
        std::memcpy(&value, halves_, sizeof value);
        return value;
    }

    void MoveFrom(Variant& other) noexcept {
        halves_[0] = other.halves_[0];
        halves_[1] = std::exchange(other.halves_[1], 0);
    }
    void CopyFrom(const Variant& other);
    void Release() noexcept {
        if (WhichKind() >= Kind::LongText) ReleaseMemory();
    }
    void ReleaseMemory() noexcept;
    void PutLongText(std::string_view text, TextEncoding encoding);
    std::string_view LongTextBytes() const;
    const Array& Elements() const;
    bool Equals(const Variant& other) const;
    [[noreturn]] void RaiseMismatch(const char* wanted) const;

    // The value, or the bytes of a short text, or the address of what is elsewhere. Above the last
    // six bytes stand a text's encoding, the length of a short one and the kind; below them the
    // size of a long text. Written and moved half by half: a processor waits when it reads as a
    // whole what was just written in parts. Both systems have the low byte first.
    uint64_t halves_[2] = {};
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
