#pragma once

#include <string>

namespace dunvey::test {

/// The first 16 bytes of every document.
inline const std::string kDocumentMark =
    "\x06\x06\xED\xF5\xD8\x1D\x46\xE5\xBD\x31\xEF\xE7\xFE\x74\xB7\x1D";

/// The first 48 bytes of a document as the page-layout program writes them.
inline std::string Header(const std::string& typeWord, int major, int minor,
                          bool littleEndian = true) {
    const std::string zeros(3, '\0');
    const std::string low(1, static_cast<char>(major));
    const std::string lowMinor(1, static_cast<char>(minor));
    std::string block = kDocumentMark + typeWord;
    if (littleEndian) {
        block += std::string("\x01\x70\x0F\0\0", 5) + low + zeros + lowMinor + zeros;
    } else {
        block += std::string("\x02\0\0\x0F\x70", 5) + zeros + low + zeros + lowMinor;
    }
    block.resize(48, '\0');
    return block;
}

/// The bytes of a text of hexadecimal digits.
inline std::string Bytes(const std::string& hexadecimal) {
    std::string bytes;
    for (size_t i = 0; i + 1 < hexadecimal.size(); i += 2) {
        bytes += static_cast<char>(std::stoi(hexadecimal.substr(i, 2), nullptr, 16));
    }
    return bytes;
}

}  // namespace dunvey::test
