#include "platform/processes/error_line.h"

#include <unistd.h>

#include "platform/files/file_descriptor.h"
#include "platform/text/shown_text.h"

namespace dunvey {

void WriteErrorLine(std::string_view text) {
    WriteFully(STDERR_FILENO, Printable(text) + "\n");
}

}  // namespace dunvey
