#include "platform/controls/reg_ex_xojo.h"

#include "platform/controls/message_dialog.h"
#include "platform/text/text.h"
#include "platform/values/exceptions.h"

namespace dunvey::RegExXojo {
namespace {

void Prepare(std::string_view source, const std::string& pattern, int64_t start,
             bool caseSensitive) {
    MakeRegEx();
    reg->Options.CaseSensitive = caseSensitive;
    reg->SearchStartPosition = BytesOfCharacters(source, start);
    reg->SearchPattern = pattern;
}

void ShowError(const RegExException& error) {
    MsgBox("RegEx error: " + std::string(EndOfLine::Platform) + error.Message);
}

}  // namespace

Ref<RegEx> reg;

void MakeRegEx() {
    reg = New<RegEx>();
}

bool Mach(std::string_view source, const std::string& pattern, int64_t start, bool caseSensitive) {
    if (source.empty() || pattern.empty()) return false;
    try {
        Prepare(source, pattern, start, caseSensitive);
        return static_cast<bool>(reg->Search(source));
    } catch (const RegExException& error) {
        ShowError(error);
        return false;
    }
}

std::string Replace(std::string_view source, const std::string& pattern,
                    const std::string& replacement, int64_t start, bool caseSensitive) {
    if (source.empty() || pattern.empty()) return std::string(source);
    if (pattern == "^" || pattern == "$" || pattern == "\\b") {
        MsgBox(kAlert_Metacharacters(""));
        return std::string(source);
    }
    try {
        Prepare(source, pattern, start, caseSensitive);
        reg->Options.ReplaceAllMatches = false;
        reg->ReplacementPattern = replacement;
        return reg->Replace(source);
    } catch (const RegExException& error) {
        ShowError(error);
        return {};
    }
}

}  // namespace dunvey::RegExXojo
