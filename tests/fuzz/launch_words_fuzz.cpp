#include <unistd.h>

#include <algorithm>
#include <cctype>

#include "fuzz/fuzz.h"
#include "platform/loop/application.h"
#include "platform/loop/launch_documents.h"
#include "platform/values/exceptions.h"

namespace dunvey::fuzz {
namespace {

/// Takes the documents of one launch; an event without a document ends it.
class Taker : public Application {
 public:
    void Event_Open() override {
        PostLaunchDocuments(EventLoop::Current());
        EventLoop::Current().PostOpenDocument(nullptr);
    }
    void Event_OpenDocument(const Ref<FolderItem>& document) override {
        if (!document) throw EndException(0);
        paths.push_back(document->NativePath());
    }

    std::vector<std::string> paths;
};

bool SameIgnoringCase(std::string_view left, std::string_view right) {
    const auto same = [](char a, char b) { return std::tolower(a) == std::tolower(b); };
    return std::equal(left.begin(), left.end(), right.begin(), right.end(), same);
}

std::string OwnName() {
    char name[256] = {};
    gethostname(name, sizeof name - 1);
    return name;
}

/// Percent-decodes the text; false if an escape is broken or stands for a zero byte.
bool Decode(std::string_view text, std::string& decoded) {
    static constexpr std::string_view kDigits = "0123456789ABCDEFabcdef";
    while (!text.empty()) {
        const size_t plain = std::min(text.find('%'), text.size());
        decoded += text.substr(0, plain);
        text.remove_prefix(plain);
        if (text.empty()) break;
        const std::string digits(text.substr(1, 2));
        if (digits.size() < 2 || digits.find_first_not_of(kDigits) != digits.npos) return false;
        decoded += static_cast<char>(std::stoi(digits, nullptr, 16));
        if (decoded.back() == '\0') return false;
        text.remove_prefix(3);
    }
    return true;
}

std::string Expected(const std::string& word) {
    std::string_view rest = word;
    if (!SameIgnoringCase(rest.substr(0, 5), "file:")) return word;
    rest.remove_prefix(5);
    if (rest.starts_with("//")) {
        static const std::string own = OwnName();
        rest.remove_prefix(2);
        const std::string_view machine = rest.substr(0, rest.find('/'));
        const bool here = machine.empty() || SameIgnoringCase(machine, "localhost") ||
                          SameIgnoringCase(machine, own);
        if (!here) return word;
        rest.remove_prefix(machine.size());
    }
    std::string path;
    return rest.starts_with("/") && Decode(rest, path) ? path : word;
}

/// The path from the root on, piece by piece: no empty pieces and no dots.
std::string Absolute(const std::string& path) {
    char folder[4096];
    std::string rest =
        path[0] == '/' ? path : std::string(getcwd(folder, sizeof folder)) + "/" + path;
    std::string absolute;
    for (rest += "/"; !rest.empty(); rest.erase(0, rest.find('/') + 1)) {
        const std::string piece = rest.substr(0, rest.find('/'));
        if (!piece.empty() && piece != ".") absolute += "/" + piece;
    }
    return absolute.empty() ? "/" : absolute;
}

}  // namespace

/// The input is the words of a start, each ended by a zero byte.
void TryInput(std::string_view bytes) {
    std::vector<std::string> words;
    std::vector<std::string> expected;
    for (size_t begin = 0; begin < bytes.size();) {
        const size_t end = std::min(bytes.find('\0', begin), bytes.size());
        words.emplace_back(bytes.substr(begin, end - begin));
        begin = end + 1;
        const std::string path = Expected(words.back());
        Check(PathOfWord(words.back()) == path, "a word is a path or a local URI", words.back());
        if (!path.empty()) expected.push_back(Absolute(path));
    }
    Check(PathOfWord("file://" + OwnName() + "/a") == "/a", "the machine's own name is local");
    KeepLaunchWords(words);
    EventLoop loop;
    Taker taker;
    loop.Run(taker);
    Check(taker.paths == expected, "each word is one document, in order, by its absolute path");
}

}  // namespace dunvey::fuzz
