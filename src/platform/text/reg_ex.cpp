#include "platform/text/reg_ex.h"

#include "platform/text/compiled_pattern.h"

namespace dunvey {
namespace {

size_t StartOf(const RegEx& expression) {
    return expression.SearchStartPosition < 0 ? 0
                                              : static_cast<size_t>(expression.SearchStartPosition);
}

void AppendReplacement(std::string& result, std::string_view replacement, std::string_view text,
                       const CompiledPattern& pattern) {
    for (size_t i = 0; i < replacement.size(); ++i) {
        const char next = i + 1 < replacement.size() ? replacement[i + 1] : '\0';
        if (replacement[i] != '\\' || (next != '\\' && (next < '0' || next > '9'))) {
            result += replacement[i];
            continue;
        }
        ++i;
        if (next == '\\') {
            result += next;
        } else {
            const auto [begin, end] = pattern.Group(static_cast<size_t>(next - '0'));
            result.append(text.substr(begin, end - begin));
        }
    }
}

}  // namespace

Ref<RegExMatch> RegEx::Search(std::string_view text) const {
    CompiledPattern& pattern = PatternFor(SearchPattern, Options.CaseSensitive);
    if (!pattern.Find(text, StartOf(*this))) return nullptr;
    const auto [begin, end] = pattern.Group(0);
    return New<RegExMatch>(static_cast<int64_t>(begin),
                           std::string(text.substr(begin, end - begin)));
}

std::string RegEx::Replace(std::string_view text) const {
    CompiledPattern& pattern = PatternFor(SearchPattern, Options.CaseSensitive);
    std::string result;
    size_t copied = 0;
    size_t position = StartOf(*this);
    while (pattern.Find(text, position)) {
        const auto [begin, end] = pattern.Group(0);
        result.append(text.substr(copied, begin - copied));
        AppendReplacement(result, ReplacementPattern, text, pattern);
        copied = end;
        // An empty match would be found again at the same place.
        position = end > begin ? end : end + 1;
        if (!Options.ReplaceAllMatches) break;
    }
    return result.append(text.substr(copied));
}

}  // namespace dunvey
