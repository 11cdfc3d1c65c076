#include "platform/processes/error_line.h"

#include <unistd.h>

#include "platform/files/file_descriptor.h"

namespace dunvey {
namespace {

/// The length in bytes of the control character at the start of the text, 0 if there is none:
/// U+0000 to U+001F, U+007F, and U+0080 to U+009F in UTF-8.
size_t ControlLength(std::string_view text) {
    const auto byte = static_cast<unsigned char>(text[0]);
    if (byte < 0x20 || byte == 0x7F) return 1;
    if (byte != 0xC2 || text.size() < 2) return 0;
    const auto second = static_cast<unsigned char>(text[1]);
    return second >= 0x80 && second <= 0x9F ? 2 : 0;
}

}  // namespace

std::string Printable(std::string_view text) {
    std::string line;
    while (!text.empty()) {
        const size_t control = ControlLength(text);
        line += control == 0 ? text[0] : '?';
        text.remove_prefix(control == 0 ? 1 : control);
    }
    return line;
}

void WriteErrorLine(std::string_view text) {
    WriteFully(STDERR_FILENO, Printable(text) + "\n");
}

}  // namespace dunvey
