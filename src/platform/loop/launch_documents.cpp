#include "platform/loop/launch_documents.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "platform/files/file_descriptor.h"
#include "platform/loop/application.h"
#include "platform/text/text.h"

namespace dunvey {
namespace {

/// Decodes "%41" and the like; empty for a broken escape or an encoded zero byte.
std::string DecodePercent(const std::string& text) {
    std::string decoded;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '%') {
            decoded += text[i];
            continue;
        }
        const std::string byte = DecodeHex(text.substr(i + 1, 2));
        if (byte.size() != 1 || byte[0] == '\0') return {};
        decoded += byte;
        i += 2;
    }
    return decoded;
}

bool IsThisComputer(const std::string& name) {
    char own[256] = {};
    const bool known = gethostname(own, sizeof own - 1) == 0;
    return name.empty() || name == "localhost" || (known && name == Lowercase(own));
}

/// Why the path isn't accepted; empty if it is.
std::string ReasonToRefuse(const std::string& path, const std::vector<std::string>& extensions) {
    switch (RefusalOf(path, extensions)) {
        case Refusal::kNone:
            return {};
        case Refusal::kFolder:
            return "it is a folder";
        case Refusal::kNotRegular:
            return "it is not a regular file";
        case Refusal::kOtherKind:
            return "it is not of a kind that Dunvey opens";
        case Refusal::kMissing:
            break;
    }
    const char* const reason = std::strerror(errno);
    if (path.starts_with("-")) return "there is no such file, and Dunvey takes no options";
    if (path.find("://") != path.npos) return "only files of this computer can be opened";
    return reason;
}

}  // namespace

std::vector<std::string> launchArguments;

std::string PathOfArgument(const std::string& argument) {
    if (Lowercase(LeftB(argument, 5)) != "file:") return argument;
    std::string encoded = argument.substr(5);
    if (encoded.starts_with("//")) {
        const size_t path = std::min(encoded.find('/', 2), encoded.size());
        if (!IsThisComputer(Lowercase(encoded.substr(2, path - 2)))) return {};
        encoded.erase(0, path);
    }
    return encoded.starts_with("/") ? DecodePercent(encoded) : std::string();
}

Refusal RefusalOf(const std::string& path, const std::vector<std::string>& extensions) {
    struct stat status {};
    if (Uninterrupted([&] { return stat(path.c_str(), &status); }) != 0) return Refusal::kMissing;
    if (S_ISDIR(status.st_mode)) return Refusal::kFolder;
    if (!S_ISREG(status.st_mode)) return Refusal::kNotRegular;
    const std::string extension = FileExtension(FolderItem(path).Name());
    const bool isKnown = extensions.empty() || IsExtensionIn(extensions, extension);
    return isKnown ? Refusal::kNone : Refusal::kOtherKind;
}

Intake TakeIn(const std::vector<std::string>& arguments,
              const std::vector<std::string>& extensions) {
    Intake intake;
    for (const std::string& argument : arguments) {
        const std::string path = PathOfArgument(argument);
        const bool isBadUri = path.empty() && !argument.empty();
        const std::string reason = isBadUri ? "it is not the address of a file on this computer"
                                            : ReasonToRefuse(path, extensions);
        if (reason.empty()) {
            intake.documents.push_back(path);
        } else {
            intake.refusals.push_back("\"" + argument + "\" isn't opened: " + reason + ".");
        }
    }
    return intake;
}

bool IsNothingToOpen() {
    return !launchArguments.empty() &&
           TakeIn(launchArguments, Application::Current()->DocumentExtensions()).documents.empty();
}

}  // namespace dunvey
