#pragma once

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

}  // namespace dunvey::test
