#include "register/request.h"

#include <algorithm>
#include <map>
#include <string_view>

#include "platform/text/encoding.h"
#include "platform/text/shown_text.h"
#include "register/message.h"

namespace dunvey {
namespace {

/// How the names begin that Dunvey looks for among the installed and the running applications.
constexpr std::string_view kNameBegin = "Adobe InDesign ";
/// The longest name of a file is 255 bytes; the bundle's has ".app" behind it.
constexpr size_t kNameLimit = 251;

bool IsText(const std::string& name) {
    const EncodedText wide = ConvertEncoding({name, Encodings::UTF8}, Encodings::UTF16);
    return ConvertEncoding(wide, Encodings::UTF8).Bytes == name && OneLine(name) == name;
}

void CheckName(const std::string& name) {
    const std::string subject = "the name " + Quoted(name);
    if (!name.starts_with(kNameBegin) || name.size() == kNameBegin.size() || name.back() == ' ') {
        throw UsageError{subject +
                         " isn't one that Dunvey looks for. Write \"Adobe InDesign\" and a "
                         "version, such as \"Adobe InDesign CS6\"."};
    }
    if (name.find('/') != std::string::npos || !IsText(name)) {
        throw UsageError{subject +
                         " can't be used: it has to be UTF-8 text on one line, with no "
                         "\"/\" in it."};
    }
    if (name.size() > kNameLimit)
        throw UsageError{subject + " is too long. It may have 251 bytes."};
}

void CheckVersion(const std::string& version) {
    const bool isNumbers = version.find_first_not_of("0123456789.") == std::string::npos;
    const bool hasEmptyOne = ("." + version + ".").find("..") != std::string::npos;
    if (isNumbers && !hasEmptyOne) return;
    throw UsageError{"the version " + Quoted(version) +
                     " isn't one. Write numbers with dots between them, such as 8.0.1."};
}

void CheckRegistration(const Request& request) {
    if (request.name.empty()) throw UsageError{"--name is missing."};
    CheckName(request.name);
    if (request.version.empty()) throw UsageError{"--version is missing."};
    CheckVersion(request.version);
    if (request.command.empty() || request.command.front().empty())
        throw UsageError{"the command is missing. It goes to the end, behind \"--\"."};
}

void OnlyOne(const std::vector<std::string>& words, size_t count) {
    if (words.size() != count)
        throw UsageError{words.front() + (count == 1 ? " stands alone." : " takes one name.")};
}

Request ReadRegistration(const std::vector<std::string>& words) {
    Request request;
    request.action = Request::Action::Register;
    const std::map<std::string, std::string*> options = {
        {"--name", &request.name}, {"--version", &request.version}, {"--icon", &request.icon}};
    const auto end = std::find(words.begin(), words.end(), "--");
    for (auto word = words.begin(); word != end; ++word) {
        const auto option = options.find(*word);
        if (option == options.end()) throw UsageError{Quoted(*word) + " isn't understood."};
        if (++word == end || word->empty()) throw UsageError{option->first + " needs a value."};
        if (!option->second->empty()) throw UsageError{option->first + " stands there twice."};
        *option->second = *word;
    }
    if (end != words.end()) request.command.assign(end + 1, words.end());
    CheckRegistration(request);
    return request;
}

}  // namespace

Request ReadRequest(const std::vector<std::string>& words) {
    if (words.empty()) throw UsageError{"nothing is asked for."};
    Request request;
    if (words.front() == "--help") return request;
    if (words.front() == "--list") {
        OnlyOne(words, 1);
        request.action = Request::Action::List;
    } else if (words.front() == "--remove") {
        OnlyOne(words, 2);
        CheckName(words[1]);
        request.action = Request::Action::Remove;
        request.name = words[1];
    } else {
        request = ReadRegistration(words);
    }
    return request;
}

}  // namespace dunvey
