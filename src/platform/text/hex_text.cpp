#include "platform/text/hex_text.h"

#include <cstdint>

#include "platform/text/number_text.h"

namespace dunvey {

std::string DecodeHex(std::string_view digits) {
    std::string bytes;
    bytes.reserve(digits.size() / 2);
    std::string pair;
    for (const char c : digits) {
        const bool isDigit =
            (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
        if (isDigit) pair += c;
        if (pair.size() == 2) {
            bytes += static_cast<char>(static_cast<uint8_t>(HexadecimalValue(pair)));
            pair.clear();
        }
    }
    return bytes;
}

}  // namespace dunvey
