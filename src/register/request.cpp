#include "register/request.h"

#include <map>
#include <string_view>

#include "platform/processes/error_line.h"
#include "platform/text/encoding.h"
#include "platform/text/shown_text.h"

namespace dunvey {
namespace {

/// Dunvey looks for names with this prefix among the installed and the running applications.
constexpr std::string_view kNamePrefix = "Adobe InDesign ";
/// A file name has at most 255 bytes, and the bundle's name adds ".app".
constexpr size_t kNameLimit = 251;

/// Whether it is valid UTF-8 without control characters and without the two code points that XML
/// excludes, U+FFFE and U+FFFF.
bool IsText(const std::string& name) {
    const EncodedText wide = ConvertEncoding({name, Encodings::UTF8}, Encodings::UTF16);
    return ConvertEncoding(wide, Encodings::UTF8).Bytes == name && OneLine(name) == name &&
           name.find("\xEF\xBF\xBE") == std::string::npos &&
           name.find("\xEF\xBF\xBF") == std::string::npos;
}

void CheckName(const std::string& name) {
    const std::string subject = "the name " + Quoted(name);
    if (!name.starts_with(kNamePrefix) || name.size() == kNamePrefix.size() || name.back() == ' ') {
        throw UsageError{subject +
                         " isn't one that Dunvey looks for. Write \"Adobe InDesign\" and a "
                         "version, such as \"Adobe InDesign CS6\"."};
    }
    if (name.find('/') != std::string::npos || !IsText(name)) {
        throw UsageError{subject +
                         " can't be used: it must be one line of UTF-8 text without \"/\"."};
    }
    if (name.size() > kNameLimit)
        throw UsageError{subject + " is too long. The limit is 251 bytes."};
}

void CheckVersion(const std::string& version) {
    const bool isNumbers = version.find_first_not_of("0123456789.") == std::string::npos;
    const bool hasEmptyField = ("." + version + ".").find("..") != std::string::npos;
    const bool hasLeadingZero = version.size() > 1 && version[0] == '0' && version[1] != '.';
    if (isNumbers && !hasEmptyField && !hasLeadingZero) return;
    throw UsageError{"the version " + Quoted(version) +
                     " can't be used. Write numbers with dots between them, such as 8.0.1."};
}

/// Reads options up to "--" or the first argument that isn't an option; the rest is the command.
Request ReadRegistration(const std::vector<std::string>& arguments) {
    Request request;
    request.action = Request::Action::Register;
    const std::map<std::string, std::string*> options = {{"--name", &request.name},
                                                         {"--version", &request.version},
                                                         {"--icon", &request.icon},
                                                         {"--wine", &request.winePrefix}};
    const auto end = arguments.end();
    auto argument = arguments.begin();
    for (; argument != end && argument->starts_with('-') && *argument != "--"; ++argument) {
        if (*argument == "--force") {
            request.force = true;
            continue;
        }
        const size_t equals = argument->find('=');
        const auto option = options.find(argument->substr(0, equals));
        if (option == options.end())
            throw UsageError{"there is no option " + Quoted(*argument) + "."};
        const bool isSeparate = equals == std::string::npos;
        if (isSeparate && ++argument == end) throw UsageError{option->first + " needs a value."};
        const std::string value = isSeparate ? *argument : argument->substr(equals + 1);
        if (value.empty() || value == "--") throw UsageError{option->first + " needs a value."};
        if (!option->second->empty()) throw UsageError{option->first + " is given twice."};
        *option->second = value;
    }
    if (argument != end && *argument == "--") ++argument;
    request.command.assign(argument, end);
    if (request.name.empty() || request.version.empty())
        throw UsageError{"--name and --version are needed, in front of the command."};
    CheckName(request.name);
    CheckVersion(request.version);
    if (request.command.empty() || request.command.front().empty())
        throw UsageError{"the command is missing. Write it after the options."};
    return request;
}

}  // namespace

Request ReadRequest(const std::vector<std::string>& arguments) {
    if (arguments.empty()) throw UsageError{"arguments are missing."};
    const std::string& first = arguments.front();
    if (first != "--help" && first != "--list" && first != "--remove")
        return ReadRegistration(arguments);
    if (arguments.size() != (first == "--remove" ? 2 : 1))
        throw UsageError{first +
                         (first == "--remove" ? " takes one name." : " takes no arguments.")};
    Request request;
    if (first == "--list") request.action = Request::Action::List;
    if (first != "--remove") return request;
    CheckName(arguments[1]);
    request.action = Request::Action::Remove;
    request.name = arguments[1];
    return request;
}

}  // namespace dunvey
