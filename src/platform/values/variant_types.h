#pragma once

#include <cstdint>

namespace dunvey {

/// The type codes of Variant. An array has the code of its elements with the bit of Array set.
namespace VariantType {
inline constexpr int Nil = 0;
inline constexpr int Integer32 = 2;
inline constexpr int Integer64 = 3;
inline constexpr int Single = 4;
inline constexpr int Double = 5;
inline constexpr int Date = 7;
inline constexpr int String = 8;
inline constexpr int Object = 9;
inline constexpr int Boolean = 11;
inline constexpr int Color = 16;
inline constexpr int Array = 4096;
}  // namespace VariantType

/// A moment, in seconds since the beginning of 1970 in universal time.
struct Date {
    int64_t SecondsSince1970 = 0;
    friend bool operator==(const Date&, const Date&) = default;
};

/// A colour: red, green and blue in the low three bytes, blue lowest.
struct Color {
    uint32_t RedGreenBlue = 0;
    friend bool operator==(const Color&, const Color&) = default;
};

}  // namespace dunvey
