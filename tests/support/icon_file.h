#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace dunvey::test {

inline std::string BigEndian(size_t number) {
    std::string bytes;
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes += static_cast<char>(number >> shift & 0xFF);
    return bytes;
}

/// A part of an icon file with a correct header.
inline std::string IconPart(const std::string& type, const std::string& data) {
    return type + BigEndian(data.size() + 8) + data;
}

inline std::string IconFile(const std::vector<std::string>& parts) {
    std::string all;
    for (const std::string& part : parts)
        all += part;
    return IconPart("icns", all);
}

/// `count` equal bytes in the run-length coding of icon files.
inline std::string Packed(size_t count, uint8_t value) {
    std::string packed;
    for (; count >= 3; count -= count < 130 ? count : 130) {
        packed += static_cast<char>((count < 130 ? count : 130) + 125);
        packed += static_cast<char>(value);
    }
    if (count > 0) {
        packed += static_cast<char>(count - 1);
        packed.append(count, static_cast<char>(value));
    }
    return packed;
}

/// A square in one colour: the packed red, green and blue channels.
inline std::string PlainColors(size_t pixels, uint8_t red, uint8_t green, uint8_t blue) {
    const size_t count = pixels * pixels;
    return Packed(count, red) + Packed(count, green) + Packed(count, blue);
}

/// The same after an alpha channel.
inline std::string PlainArgb(size_t pixels, uint8_t alpha, uint8_t red, uint8_t green,
                             uint8_t blue) {
    return "ARGB" + Packed(pixels * pixels, alpha) + PlainColors(pixels, red, green, blue);
}

}  // namespace dunvey::test
