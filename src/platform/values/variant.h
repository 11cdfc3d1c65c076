#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

#include "platform/text/encoding.h"
#include "platform/values/reference.h"
#include "platform/values/variant_types.h"

namespace dunvey {

/// A value of one of the types of VariantType. Texts and arrays are copied with it, objects shared.
class Variant {
 public:
    Variant() noexcept = default;
    Variant(std::nullptr_t) noexcept {}
    Variant(std::same_as<bool> auto value) noexcept : value_(value) {}
    /// A signed integer of up to 64 bits or an unsigned one of up to 32: in 32 bits if T fits.
    template <std::integral T>
    requires(!std::same_as<T, bool> && (std::signed_integral<T> || sizeof(T) < 8)) Variant(T value)
    noexcept : value_(static_cast<Integer<sizeof(T) + std::unsigned_integral<T> <= 4>>(value)) {}
    Variant(float value) noexcept : value_(value) {}
    Variant(double value) noexcept : value_(value) {}
    Variant(Date value) noexcept : value_(value) {}
    Variant(Color value) noexcept : value_(value) {}
    /// A text in UTF-8 unless said otherwise.
    Variant(const char* text) : Variant(std::string(text)) {}
    Variant(std::string bytes, TextEncoding encoding = Encodings::UTF8)
        : Variant(EncodedText{std::move(bytes), encoding}) {}
    Variant(EncodedText text) noexcept : value_(std::move(text)) {}
    /// An object; a nil reference gives Nil.
    template <std::derived_from<Object> T>
    Variant(const Ref<T>& object) {
        if (object) value_ = Ref<Object>(object);
    }
    /// An array. Its element type is that of T, even if the array is empty.
    template <typename T>
    Variant(const std::vector<T>& array) : Variant(ElementType<T>(), array.size()) {
        for (const T& element : array)
            std::get<Array>(value_).elements.emplace_back(element);
    }

    /// The code of VariantType, with the bit of Array for an array.
    int VarType() const {
        return IsArray() ? VariantType::Array | ArrayElementType() : kTypes[value_.index()];
    }
    bool IsNull() const { return Holds<std::monostate>(); }
    bool IsText() const { return Holds<EncodedText>(); }
    bool IsInteger() const { return Holds<int32_t>() || Holds<int64_t>(); }
    bool IsNumber() const { return IsInteger() || Holds<double>() || Holds<float>(); }
    bool IsArray() const { return Holds<Array>(); }
    bool IsObject() const { return Holds<Ref<Object>>(); }
    /// The type code of an array's elements, VariantType::Nil for elements of any type. Raises
    /// TypeMismatchException for a value that is no array.
    int ArrayElementType() const { return Elements().type; }
    /// Raises TypeMismatchException for a value that is no array.
    const std::vector<Variant>& ArrayElements() const { return Elements().elements; }

    // Conversions. Nil gives False, 0, the empty text and the nil reference. Where there is no
    // conversion (an array, an object, a date or a colour to a number) TypeMismatchException is
    // raised.

    /// A number is True unless it is 0; a text if it says "true", in any letter case, or begins
    /// with a number other than 0.
    bool BooleanValue() const;
    /// Fractions are cut off; a value out of range gives the nearest limit, NaN 0. A Boolean is 1
    /// or 0, a text the number at its beginning, 0 if there is none.
    int32_t Int32Value() const;
    int64_t Int64Value() const;
    /// The same with fractions.
    float SingleValue() const;
    double DoubleValue() const;
    /// In UTF-8. Numbers as Str gives them, "True" and "False", a date as "2000-12-31 23:59:59", a
    /// colour as "&hFF8000".
    std::string StringValue() const;
    /// A text as it is; other values as StringValue gives them.
    EncodedText EncodedValue() const;
    /// The object; nil for Nil. Raises TypeMismatchException for other values.
    Ref<Object> ObjectValue() const;

    /// The bytes and the encoding of a text, unconverted; valid until the value changes. No bytes
    /// for other values.
    std::string_view TextBytes() const {
        const auto* text = std::get_if<EncodedText>(&value_);
        return text == nullptr ? std::string_view() : std::string_view(text->Bytes);
    }
    TextEncoding Encoding() const {
        const auto* text = std::get_if<EncodedText>(&value_);
        return text == nullptr ? TextEncoding::None : text->Encoding;
    }
    /// The object's address, nullptr for other values.
    Object* ObjectAddress() const {
        const auto* object = std::get_if<Ref<Object>>(&value_);
        return object == nullptr ? nullptr : object->Get();
    }

    /// Numbers are equal by value whatever their types, texts by their bytes, objects if they are
    /// the same one, arrays by type and elements. Values of different kinds are never equal.
    friend bool operator==(const Variant& left, const Variant& right) {
        if (left.IsText() && right.IsText()) return left.TextBytes() == right.TextBytes();
        return left.HasSameValue(right);
    }

 private:
    template <bool isSmall>
    using Integer = std::conditional_t<isSmall, int32_t, int64_t>;
    struct Array {
        int type;
        std::vector<Variant> elements;
        bool operator==(const Array& other) const;
    };

    Variant(int elementType, size_t count) : value_(Array{elementType, {}}) {
        std::get<Array>(value_).elements.reserve(count);
    }
    /// The type code for the elements of a std::vector<T>.
    template <typename T>
    static int ElementType();
    template <typename T>
    bool Holds() const {
        return std::holds_alternative<T>(value_);
    }
    const Array& Elements() const;
    bool HasSameValue(const Variant& other) const;
    [[noreturn]] void RaiseMismatch(const char* wanted) const;

    /// The type codes of the alternatives of `value_`, in their order.
    static constexpr int kTypes[] = {
        VariantType::Nil,    VariantType::Boolean, VariantType::Integer32, VariantType::Integer64,
        VariantType::Single, VariantType::Double,  VariantType::Date,      VariantType::Color,
        VariantType::String, VariantType::Object};
    std::variant<std::monostate, bool, int32_t, int64_t, float, double, Date, Color, EncodedText,
                 Ref<Object>, Array>
        value_;
};

template <typename T>
int Variant::ElementType() {
    if constexpr (std::same_as<T, Variant>) {
        return VariantType::Nil;
    } else if constexpr (std::is_convertible_v<T, Ref<Object>>) {
        return VariantType::Object;
    } else {
        return Variant(T()).VarType();
    }
}

}  // namespace dunvey
