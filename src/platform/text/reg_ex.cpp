#define PCRE2_CODE_UNIT_WIDTH 8
#include "platform/text/reg_ex.h"

#include <pcre2.h>

#include <map>
#include <memory>
#include <utility>

#include "platform/values/exceptions.h"

namespace dunvey {
namespace {

// Far more than an ordinary line needs. A hostile one reaches them within milliseconds.
constexpr uint32_t kMatchLimit = 200'000;
constexpr uint32_t kDepthLimit = 10'000;
constexpr size_t kStackStart = 32 * 1024;
constexpr size_t kStackLimit = 1024 * 1024;

template <auto Free>
struct Deleter {
    template <typename T>
    void operator()(T* pointer) const {
        Free(pointer);
    }
};

/// A compiled pattern and its last match.
class CompiledPattern {
 public:
    /// Raises RegExException for a pattern that can't be compiled.
    CompiledPattern(const std::string& pattern, bool caseSensitive);

    /// Looks for the first match at or after `start` (bytes). False if there is none or a limit of
    /// the engine was reached.
    bool Find(std::string_view text, size_t start);

    /// The part of `text` that a group of the last match covers; empty for a group that is
    /// unmatched or missing.
    std::string_view Group(std::string_view text, size_t number) const;

 private:
    std::unique_ptr<pcre2_code, Deleter<pcre2_code_free>> code_;
    std::unique_ptr<pcre2_match_data, Deleter<pcre2_match_data_free>> match_;
    std::unique_ptr<pcre2_match_context, Deleter<pcre2_match_context_free>> context_;
    std::unique_ptr<pcre2_jit_stack, Deleter<pcre2_jit_stack_free>> stack_;
};

std::string CompileErrorText(int error) {
    PCRE2_UCHAR text[256];
    const int length = pcre2_get_error_message(error, text, sizeof text);
    return length < 0
               ? "unknown error"
               : std::string(reinterpret_cast<const char*>(text), static_cast<size_t>(length));
}

CompiledPattern::CompiledPattern(const std::string& pattern, bool caseSensitive) {
    int error = 0;
    size_t position = 0;
    code_.reset(pcre2_compile(reinterpret_cast<PCRE2_SPTR>(pattern.data()), pattern.size(),
                              caseSensitive ? 0 : PCRE2_CASELESS, &error, &position, nullptr));
    if (!code_) throw RegExException(CompileErrorText(error), error);
    match_.reset(pcre2_match_data_create_from_pattern(code_.get(), nullptr));
    context_.reset(pcre2_match_context_create(nullptr));
    pcre2_set_match_limit(context_.get(), kMatchLimit);
    pcre2_set_depth_limit(context_.get(), kDepthLimit);
    // If the kernel forbids generated code, PCRE2 interprets the pattern.
    if (pcre2_jit_compile(code_.get(), PCRE2_JIT_COMPLETE) == 0) {
        stack_.reset(pcre2_jit_stack_create(kStackStart, kStackLimit, nullptr));
        pcre2_jit_stack_assign(context_.get(), nullptr, stack_.get());
    }
}

bool CompiledPattern::Find(std::string_view text, size_t start) {
    if (start > text.size()) return false;
    return pcre2_match(code_.get(), reinterpret_cast<PCRE2_SPTR>(text.data()), text.size(), start,
                       0, match_.get(), context_.get()) > 0;
}

std::string_view CompiledPattern::Group(std::string_view text, size_t number) const {
    if (number >= pcre2_get_ovector_count(match_.get())) return {};
    const size_t* pair = pcre2_get_ovector_pointer(match_.get()) + 2 * number;
    return pair[0] == PCRE2_UNSET ? std::string_view() : text.substr(pair[0], pair[1] - pair[0]);
}

/// The compiled pattern; valid until the next call. It is cached, since compiling takes about
/// twenty times as long as a match. Raises RegExException for a pattern that can't be compiled.
CompiledPattern& PatternOf(const RegEx& expression) {
    constexpr size_t kMaxCached = 16;
    // Never destroyed: patterns are used until the process ends.
    static auto& cache = *new std::map<std::pair<std::string, bool>, CompiledPattern>;
    const std::pair key(expression.SearchPattern, expression.Options.CaseSensitive);
    const auto found = cache.find(key);
    if (found != cache.end()) return found->second;
    CompiledPattern compiled(key.first, key.second);
    if (cache.size() == kMaxCached) cache.clear();
    return cache.emplace(key, std::move(compiled)).first->second;
}

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
            result += pattern.Group(text, static_cast<size_t>(next - '0'));
        }
    }
}

}  // namespace

Ref<RegExMatch> RegEx::Search(std::string_view text) const {
    CompiledPattern& pattern = PatternOf(*this);
    if (!pattern.Find(text, StartOf(*this))) return nullptr;
    const std::string_view match = pattern.Group(text, 0);
    return New<RegExMatch>(match.data() - text.data(), std::string(match));
}

std::string RegEx::Replace(std::string_view text) const {
    CompiledPattern& pattern = PatternOf(*this);
    std::string result;
    size_t copied = 0;
    size_t position = StartOf(*this);
    while (pattern.Find(text, position)) {
        const std::string_view match = pattern.Group(text, 0);
        const auto begin = static_cast<size_t>(match.data() - text.data());
        result.append(text.substr(copied, begin - copied));
        AppendReplacement(result, ReplacementPattern, text, pattern);
        copied = begin + match.size();
        // An empty match would be found again at the same place.
        position = match.empty() ? copied + 1 : copied;
        if (!Options.ReplaceAllMatches) break;
    }
    return result.append(text.substr(copied));
}

}  // namespace dunvey
