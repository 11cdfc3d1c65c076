#pragma once

#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace dunvey {

/// One pattern, compiled for the processor, with room for its match. It is meant to be kept: to
/// compile costs some twenty times a match.
class CompiledPattern {
 public:
    /// Raises RegExException for a pattern that can't be compiled.
    CompiledPattern(const std::string& pattern, bool caseSensitive);

    /// Looks for the first match at or after `start` (bytes). False if there is none or a limit of
    /// the engine was reached.
    bool Find(std::string_view text, size_t start);

    /// The bounds of a group of the last match; both are equal for a group that took no part or
    /// doesn't exist.
    struct Bounds {
        size_t begin = 0;
        size_t end = 0;
    };
    Bounds Group(size_t number) const;

 private:
    template <auto Free>
    struct Deleter {
        template <typename T>
        void operator()(T* pointer) const {
            Free(pointer);
        }
    };

    std::unique_ptr<pcre2_code, Deleter<pcre2_code_free>> code_;
    std::unique_ptr<pcre2_match_data, Deleter<pcre2_match_data_free>> match_;
    std::unique_ptr<pcre2_match_context, Deleter<pcre2_match_context_free>> context_;
    std::unique_ptr<pcre2_jit_stack, Deleter<pcre2_jit_stack_free>> stack_;
};

/// The pattern compiled now or kept from an earlier call; valid until the next call. No more than a
/// few are kept. Raises RegExException for a pattern that can't be compiled.
CompiledPattern& PatternFor(const std::string& pattern, bool caseSensitive);

}  // namespace dunvey
