#include <unistd.h>

#include "platform/loop/launch_documents.h"
#include "platform/text/text.h"

namespace dunvey {
namespace {

std::vector<std::string>& KeptWords() {
    static std::vector<std::string> words;
    return words;
}

int HexadecimalDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

/// Decodes "%41" and the like; false for a broken escape or one of a zero byte.
bool DecodePercent(const std::string& text, std::string& decoded) {
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '%') {
            decoded += text[i];
            continue;
        }
        if (i + 2 >= text.size()) return false;
        const int high = HexadecimalDigit(text[i + 1]);
        const int low = HexadecimalDigit(text[i + 2]);
        if (high < 0 || low < 0 || high + low == 0) return false;
        decoded += static_cast<char>(high * 16 + low);
        i += 2;
    }
    return true;
}

bool IsThisMachine(const std::string& name) {
    char own[256] = {};
    const bool known = gethostname(own, sizeof own - 1) == 0;
    return name.empty() || name == "localhost" || (known && name == Lowercase(own));
}

/// The part of a URI behind its machine, still encoded; empty if that isn't this machine.
std::string LocalPart(const std::string& uri) {
    std::string rest = uri.substr(uri.find(':') + 1);
    if (!rest.starts_with("//")) return rest;
    const size_t path = rest.find('/', 2);
    if (path == std::string::npos) return {};
    const std::string machine = Lowercase(rest.substr(2, path - 2));
    return IsThisMachine(machine) ? rest.substr(path) : std::string();
}

}  // namespace

void KeepLaunchWords(std::vector<std::string> words) {
    KeptWords() = std::move(words);
}

const std::vector<std::string>& LaunchWords() {
    return KeptWords();
}

std::string PathOfWord(const std::string& word) {
    if (Lowercase(LeftB(word, 5)) != "file:") return word;
    const std::string encoded = LocalPart(word);
    std::string path;
    const bool decoded = encoded.starts_with("/") && DecodePercent(encoded, path);
    return decoded ? path : word;
}

}  // namespace dunvey
