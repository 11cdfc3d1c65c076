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

/// The header of a real file, with the file's extension and the expected version.
struct SampleHeader {
    const char* extension;
    const char* version;
    const char* hexadecimal;
};

inline constexpr SampleHeader kSampleHeaders[] = {
    {"indd", "3",
     "0606edf5d81d46e5bd31efe7fe74b71d444f43554d454e540200000f70000000"
     "03000000000000000100111bac000000"},
    {"indd", "2",
     "0606edf5d81d46e5bd31efe7fe74b71d444f43554d454e5401700f0000020000"
     "00000000000100000088c51100000000"},
    // Type word LIBRARY2, little-endian: no version is read.
    {"indl", "0",
     "0606edf5d81d46e5bd31efe7fe74b71d4c4942524152593201700f0000020000"
     "000000000004000000aed21100000000"},
    // An older layout without the marker.
    {"indd", "0",
     "b7000000560000000100000002000000410000004c0000004900000002000000"
     "44000000080000004100000001000000"},
    {"indd", "7",
     "0606edf5d81d46e5bd31efe7fe74b71d444f43554d454e5401700f0000070000"
     "00000000000100000058fe5600000000"},
    {"indd", "7.5",
     "0606edf5d81d46e5bd31efe7fe74b71d444f43554d454e5401700f0000070000"
     "000500000001000000892f0300000000"},
    {"indd", "9",
     "0606edf5d81d46e5bd31efe7fe74b71d444f43554d454e5401700f0000090000"
     "000000000001000000be2c0700000000"},
    {"indd", "10",
     "0606edf5d81d46e5bd31efe7fe74b71d444f43554d454e5401700f00000a0000"
     "0000000000010000007b650100000000"},
    {"indd", "16",
     "0606edf5d81d46e5bd31efe7fe74b71d444f43554d454e5401700f0000100000"
     "0000000000010000009a222500000000"},
};

}  // namespace dunvey::test
