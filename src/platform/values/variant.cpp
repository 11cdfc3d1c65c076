#include "platform/values/variant.h"

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <limits>

#include "platform/text/text.h"
#include "platform/values/exceptions.h"

namespace dunvey {
namespace {

std::string DateText(Date date) {
    const auto seconds = static_cast<time_t>(date.SecondsSince1970);
    struct tm fields = {};
    char text[64];
    if (gmtime_r(&seconds, &fields) == nullptr) return Str(date.SecondsSince1970);
    return {text, std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &fields)};
}

std::string ColorText(Color color) {
    char text[16];
    std::snprintf(text, sizeof text, "&h%06X", static_cast<unsigned>(color.RedGreenBlue));
    return text;
}

}  // namespace

const Variant::Array& Variant::Elements() const {
    if (!IsArray()) RaiseMismatch("an array");
    return std::get<Array>(value_);
}

void Variant::RaiseMismatch(const char* wanted) const {
    throw TypeMismatchException("A value of type " + Str(int64_t{VarType()}) +
                                " can't be converted to " + wanted + ".");
}

bool Variant::BooleanValue() const {
    if (const bool* value = std::get_if<bool>(&value_)) return *value;
    if (IsText()) {
        const std::string text = StringValue();
        return Lowercase(text) == "true" || Val(text) != 0;
    }
    return DoubleValue() != 0;
}

int32_t Variant::Int32Value() const {
    using Limits = std::numeric_limits<int32_t>;
    return static_cast<int32_t>(
        std::clamp(Int64Value(), int64_t{Limits::min()}, int64_t{Limits::max()}));
}

int64_t Variant::Int64Value() const {
    if (const auto* value = std::get_if<int32_t>(&value_)) return *value;
    if (const auto* value = std::get_if<int64_t>(&value_)) return *value;
    return Truncate(DoubleValue());
}

float Variant::SingleValue() const {
    return static_cast<float>(DoubleValue());
}

double Variant::DoubleValue() const {
    if (IsNull()) return 0;
    if (const auto* value = std::get_if<double>(&value_)) return *value;
    if (const auto* value = std::get_if<float>(&value_)) return double{*value};
    if (const auto* value = std::get_if<bool>(&value_)) return *value ? 1 : 0;
    if (IsInteger()) return static_cast<double>(Int64Value());
    if (!IsText()) RaiseMismatch("a number");
    return Val(StringValue());
}

std::string Variant::StringValue() const {
    if (IsNull()) return {};
    if (const auto* value = std::get_if<bool>(&value_)) return *value ? "True" : "False";
    if (IsInteger()) return Str(Int64Value());
    if (IsNumber()) return Str(DoubleValue());
    if (const auto* value = std::get_if<Date>(&value_)) return DateText(*value);
    if (const auto* value = std::get_if<Color>(&value_)) return ColorText(*value);
    if (!IsText()) RaiseMismatch("a text");
    return ConvertEncoding(EncodedValue(), Encodings::UTF8).Bytes;
}

EncodedText Variant::EncodedValue() const {
    if (const auto* text = std::get_if<EncodedText>(&value_)) return *text;
    return {StringValue(), Encodings::UTF8};
}

Ref<Object> Variant::ObjectValue() const {
    if (IsNull()) return nullptr;
    if (!IsObject()) RaiseMismatch("an object");
    return std::get<Ref<Object>>(value_);
}

bool Variant::Array::operator==(const Array& other) const {
    return type == other.type && elements == other.elements;
}

bool Variant::HasSameValue(const Variant& other) const {
    if (IsInteger() && other.IsInteger()) return Int64Value() == other.Int64Value();
    if (IsNumber() && other.IsNumber()) return DoubleValue() == other.DoubleValue();
    return value_ == other.value_;
}

}  // namespace dunvey
