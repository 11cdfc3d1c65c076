#include <array>

#include "fuzz/fuzz.h"
#include "fuzz/memory_file.h"
#include "version/header_version.h"

namespace dunvey::fuzz {
namespace {

std::string Digits(std::string_view bytes) {
    std::string digits;
    for (const char c : bytes) {
        digits += "0123456789abcdef"[static_cast<uint8_t>(c) >> 4];
        digits += "0123456789abcdef"[static_cast<uint8_t>(c) & 0xF];
    }
    return digits;
}

/// What tells a header in one byte order: a few digits that decide for it, and all of them, with
/// "?" for any digit and "major" and "minor" as "MM" and "mm".
struct Form {
    std::string probe;
    std::string digits;
};

Form Little(const std::string& word, const std::string& end) {
    return {word + "01700f0", end + "01700f0000MM000000mm"};
}

Form Big(const std::string& word, const std::string& end) {
    return {word + "0200000f7", end + "0200000f70000000MM000000mm"};
}

std::array<Form, 2> FormsOf(const std::string& extension) {
    if (extension == "indb") {
        const std::string half = Digits("BOOK");
        return {Little(half + half, half), Big(half + half, half + half)};
    }
    if (extension == "indl") {
        const std::string letters = Digits("LIBRARY");
        const std::string word = Digits("LIBRARY4");
        return {Little(word, word), Form{letters, Big("", letters + "??").digits}};
    }
    const std::string word = Digits("DOCUMENT");
    return {Little(word, word), Big(word, word)};
}

bool Fits(const std::string& header, size_t at, const std::string& digits) {
    if (at + digits.size() > header.size()) return false;
    for (size_t i = 0; i < digits.size(); ++i) {
        if (std::string_view("?Mm").find(digits[i]) != std::string_view::npos) continue;
        if (digits[i] != header[at + i]) return false;
    }
    return true;
}

/// The version read digit by digit: of several places that fit, the last one counts.
std::vector<int64_t> Expected(std::string_view bytes, const std::string& extension) {
    const std::string header = Digits(bytes.substr(0, 48));
    for (const Form& form : FormsOf(extension)) {
        if (header.find(form.probe) == header.npos) continue;
        for (size_t at = header.size(); at > 0; --at) {
            if (!Fits(header, at, form.digits)) continue;
            const size_t major = at + form.digits.find("MM");
            const size_t minor = at + form.digits.find("mm");
            return {std::stoi(header.substr(major, 2), nullptr, 16),
                    std::stoi(header.substr(minor, 2), nullptr, 16)};
        }
        break;
    }
    return {0, 0};
}

}  // namespace

void TryInput(std::string_view bytes) {
    static MemoryFile file;
    static const Ref<FolderItem> document = New<FolderItem>(file.Path());
    file.Write(bytes);
    for (const char* extension : {"indd", "indt", "indb", "indl"}) {
        Check(InDesign::GetVerHexToDec(document, extension) == Expected(bytes, extension),
              "the version is that of the header", extension);
    }
    Check(InDesign::GetVerHexToDec(document, "InDB") == Expected(bytes, "indb"),
          "the extension's letter case doesn't count");
    for (const char* extension : {"", "ind", "idml"}) {
        Check(InDesign::GetVerHexToDec(document, extension) == std::vector<int64_t>{0, 0},
              "another extension has no version", extension);
    }
}

}  // namespace dunvey::fuzz
