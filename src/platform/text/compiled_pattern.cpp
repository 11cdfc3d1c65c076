#include "platform/text/compiled_pattern.h"

#include <list>

#include "platform/values/exceptions.h"

namespace dunvey {
namespace {

// Enough for every honest line many times over; reached by a hostile one within milliseconds.
constexpr uint32_t kMatchLimit = 200'000;
constexpr uint32_t kDepthLimit = 10'000;
constexpr size_t kStackStart = 32 * 1024;
constexpr size_t kStackLimit = 1024 * 1024;
constexpr size_t kKeptPatterns = 16;

std::string CompileErrorText(int error) {
    PCRE2_UCHAR text[256];
    const int length = pcre2_get_error_message(error, text, sizeof text);
    return length < 0
               ? "unknown error"
               : std::string(reinterpret_cast<const char*>(text), static_cast<size_t>(length));
}

struct Kept {
    std::string pattern;
    bool caseSensitive;
    CompiledPattern compiled;
};

}  // namespace

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
    // Where the system forbids code made at run time the interpreter does the work, limits and all.
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

CompiledPattern::Bounds CompiledPattern::Group(size_t number) const {
    if (number >= pcre2_get_ovector_count(match_.get())) return {};
    const size_t* pair = pcre2_get_ovector_pointer(match_.get()) + 2 * number;
    return pair[0] == PCRE2_UNSET ? Bounds{} : Bounds{pair[0], pair[1]};
}

CompiledPattern& PatternFor(const std::string& pattern, bool caseSensitive) {
    // Never destroyed: it is asked at the very end of the process too.
    static std::list<Kept>& kept = *new std::list<Kept>;
    for (auto it = kept.begin(); it != kept.end(); ++it) {
        if (it->caseSensitive == caseSensitive && it->pattern == pattern) {
            kept.splice(kept.begin(), kept, it);
            return it->compiled;
        }
    }
    kept.push_front({pattern, caseSensitive, CompiledPattern(pattern, caseSensitive)});
    if (kept.size() > kKeptPatterns) kept.pop_back();
    return kept.front().compiled;
}

}  // namespace dunvey
