#include "platform/linux/helpers/message.h"

#include "platform/linux/helpers/complaint.h"

namespace dunvey {

std::string Quoted(std::string_view path) {
    std::string quoted(1, '"');
    for (const char byte : path)
        quoted += Printable(byte);
    quoted += '"';
    return quoted;
}

void Complain(std::string_view program, std::string_view text) {
    Complain(Slice(program.data(), program.size()), Slice(text.data(), text.size()));
}

}  // namespace dunvey
