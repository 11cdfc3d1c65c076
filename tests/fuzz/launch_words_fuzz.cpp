#include "fuzz/fuzz.h"
#include "platform/loop/launch_documents.h"
#include "platform/text/text.h"

namespace dunvey::fuzz {

/// The input is the arguments of a launch, each ended by a zero byte.
void TryInput(std::string_view bytes) {
    std::vector<std::string> arguments;
    for (size_t begin = 0; begin < bytes.size();) {
        const size_t end = std::min(bytes.find('\0', begin), bytes.size());
        arguments.emplace_back(bytes.substr(begin, end - begin));
        begin = end + 1;
    }
    for (const std::string& argument : arguments) {
        const std::string path = PathOfArgument(argument);
        Check(path == argument || path.empty() || path.starts_with("/"),
              "a URI names an absolute path", argument);
        Check(path.find('\0') == path.npos, "no path holds a zero byte", argument);
        Check(path.size() <= argument.size(), "decoding never makes a text longer", argument);
        std::string uri = "file:///";
        for (const char c : argument)
            uri += c == '/' ? "/" : "%" + EncodeHex(std::string(1, c));
        Check(PathOfArgument(uri) == "/" + argument, "an escaped path reads as written", argument);
    }
    const Intake intake = TakeIn(arguments, {"indd"});
    Check(intake.documents.size() + intake.refusals.size() == arguments.size(),
          "each argument is a document or refused with a line");
}

}  // namespace dunvey::fuzz
