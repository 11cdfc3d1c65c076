#include <sstream>

#include "fuzz/fuzz.h"
#include "platform/loop/launch_documents.h"
#include "platform/text/text.h"

/// The input is the arguments of a launch, each ended by a zero byte.
void dunvey::fuzz::TryInput(std::string_view bytes) {
    std::vector<std::string> arguments;
    std::istringstream stream{std::string(bytes)};
    for (std::string argument; std::getline(stream, argument, '\0');) {
        const std::string path = PathOfArgument(argument);
        Check(path == argument || path.empty() || path.starts_with("/"),
              "a URI names an absolute path", argument);
        Check(path.find('\0') == path.npos, "no path holds a zero byte", argument);
        Check(path.size() <= argument.size(), "decoding never makes a text longer", argument);
        std::string uri = "file:///";
        for (const char c : argument)
            uri += c == '/' ? "/" : "%" + EncodeHex(std::string(1, c));
        Check(PathOfArgument(uri) == "/" + argument, "an escaped path reads as written", argument);
        arguments.push_back(argument);
    }
    const Intake intake = TakeIn(arguments, {"indd"});
    Check(intake.documents.size() + intake.refusals.size() == arguments.size(),
          "each argument is a document or refused with a line");
}
