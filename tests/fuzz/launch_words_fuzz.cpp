#include "fuzz/fuzz.h"
#include "platform/loop/launch_documents.h"

namespace dunvey::fuzz {
namespace {

/// The path written as a URI with every byte escaped, in turn in both letter cases.
std::string Escaped(std::string_view path) {
    std::string uri = "file://";
    for (const char c : path) {
        constexpr const char* kDigits[] = {"0123456789ABCDEF", "0123456789abcdef"};
        const auto byte = static_cast<unsigned char>(c);
        const char* const digits = kDigits[uri.size() % 2];
        uri +=
            c == '/' ? std::string(1, c) : std::string{'%', digits[byte >> 4], digits[byte & 15]};
    }
    return uri;
}

}  // namespace

/// The input is the arguments of a start, each ended by a zero byte.
void TryInput(std::string_view bytes) {
    std::vector<std::string> arguments;
    for (size_t begin = 0; begin < bytes.size();) {
        const size_t end = std::min(bytes.find('\0', begin), bytes.size());
        arguments.emplace_back(bytes.substr(begin, end - begin));
        begin = end + 1;
    }
    for (const std::string& argument : arguments) {
        const std::string path = PathOfArgument(argument);
        const bool isSame = path == argument;
        Check(isSame || path.empty() || path.starts_with("/"), "a URI names an absolute path",
              argument);
        Check(path.find('\0') == path.npos, "no path holds a zero byte", argument);
        Check(path.size() <= argument.size(), "decoding never makes a text longer", argument);
        Check(PathOfArgument(Escaped("/" + argument)) == "/" + argument,
              "an escaped path comes back", argument);
    }
    const Intake intake = TakeIn(arguments, {"indd"});
    Check(intake.documents.size() + intake.refusals.size() == arguments.size(),
          "each argument is a document or refused with a line");
}

}  // namespace dunvey::fuzz
