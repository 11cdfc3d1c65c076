#include <charconv>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <limits>

#include "platform/text/number_format.h"
#include "platform/text/text.h"
#include "platform/values/exceptions.h"
#include "platform/values/variant.h"

namespace dunvey {
namespace {

/// The whole number that the text is, exactly; else the number at its beginning, cut off.
int64_t WholeNumber(const std::string& text) {
    int64_t number = 0;
    const char* end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    return result.ec == std::errc() && result.ptr == end ? number : Truncate(Val(text));
}

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

void Variant::RaiseMismatch(const char* wanted) const {
    throw TypeMismatchException("A value of type " + Str(int64_t{VarType()}) +
                                " can't be taken as " + wanted + ".");
}

bool Variant::BooleanValue() const {
    switch (WhichKind()) {
        case Kind::Boolean:
            return Get<bool>();
        case Kind::ShortText:
        case Kind::LongText: {
            const std::string text = StringValue();
            return Lowercase(text) == "true" || Val(text) != 0;
        }
        case Kind::Integer32:
        case Kind::Integer64:
            return Int64Value() != 0;
        case Kind::Nil:
        case Kind::Single:
        case Kind::Double:
            return DoubleValue() != 0;
        default:
            RaiseMismatch("a Boolean");
    }
}

int32_t Variant::Int32Value() const {
    using Limits = std::numeric_limits<int32_t>;
    return static_cast<int32_t>(
        std::clamp(Int64Value(), int64_t{Limits::min()}, int64_t{Limits::max()}));
}

int64_t Variant::Int64Value() const {
    switch (WhichKind()) {
        case Kind::Integer32:
            return Get<int32_t>();
        case Kind::Integer64:
            return Get<int64_t>();
        case Kind::ShortText:
        case Kind::LongText:
            return WholeNumber(StringValue());
        default:
            return Truncate(DoubleValue());
    }
}

float Variant::SingleValue() const {
    return WhichKind() == Kind::Single ? Get<float>() : static_cast<float>(DoubleValue());
}

double Variant::DoubleValue() const {
    switch (WhichKind()) {
        case Kind::Nil:
            return 0;
        case Kind::Boolean:
            return Get<bool>() ? 1 : 0;
        case Kind::Integer32:
            return Get<int32_t>();
        case Kind::Integer64:
            return static_cast<double>(Get<int64_t>());
        case Kind::Single:
            return double{Get<float>()};
        case Kind::Double:
            return Get<double>();
        case Kind::ShortText:
        case Kind::LongText:
            return Val(StringValue());
        default:
            RaiseMismatch("a number");
    }
}

std::string Variant::StringValue() const {
    switch (WhichKind()) {
        case Kind::Nil:
            return {};
        case Kind::Boolean:
            return Get<bool>() ? "True" : "False";
        case Kind::Integer32:
        case Kind::Integer64:
            return Str(Int64Value());
        case Kind::Single:
        case Kind::Double:
            return Str(DoubleValue());
        case Kind::Date:
            return DateText(Get<Date>());
        case Kind::Color:
            return ColorText(Get<Color>());
        case Kind::ShortText:
        case Kind::LongText:
            return ConvertEncoding(EncodedValue(), Encodings::UTF8).Bytes;
        default:
            RaiseMismatch("a text");
    }
}

EncodedText Variant::EncodedValue() const {
    if (IsText()) return {std::string(TextBytes()), Encoding()};
    return {StringValue(), Encodings::UTF8};
}

Ref<Object> Variant::ObjectValue() const {
    if (IsNull()) return nullptr;
    if (!IsObject()) RaiseMismatch("an object");
    return Ref<Object>(ObjectHold::Shared(Get<Object*>()));
}

}  // namespace dunvey
