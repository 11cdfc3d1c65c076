#include "register/message.h"

#include <unistd.h>

#include "platform/files/file_descriptor.h"
#include "platform/text/shown_text.h"

namespace dunvey {

std::string Quoted(std::string_view text) {
    return "\"" + OneLine(text) + "\"";
}

void Complain(std::string_view text) {
    // Nobody is left to be told that standard error can't be written.
    WriteFully(STDERR_FILENO, "dunvey-register: " + std::string(text) + "\n");
}

}  // namespace dunvey
