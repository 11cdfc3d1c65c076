#include "platform/linux/helpers/message.h"

#include <unistd.h>

#include <algorithm>

#include "platform/file_descriptor.h"

namespace dunvey {

std::string PrintableLine(std::string_view text) {
    std::string line(text);
    const auto isControl = [](char byte) { return (byte >= 0 && byte < ' ') || byte == '\x7f'; };
    std::replace_if(line.begin(), line.end(), isControl, '?');
    return line;
}

std::string Quoted(std::string_view path) {
    std::string quoted(1, '"');
    quoted += PrintableLine(path);
    quoted += '"';
    return quoted;
}

void Complain(std::string_view program, std::string_view text) {
    // Nobody is left to be told that standard error can't be written.
    WriteFully(STDERR_FILENO, std::string(program) + ": " + std::string(text) + "\n");
}

}  // namespace dunvey
