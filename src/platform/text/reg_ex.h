#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/values/reference.h"

namespace dunvey {

/// A match. The start is a byte offset.
class RegExMatch {
 public:
    RegExMatch(int64_t start, std::string text) : start_(start), text_(std::move(text)) {}

    int64_t Start() const { return start_; }
    const std::string& Text() const { return text_; }

 private:
    int64_t start_;
    std::string text_;
};

/// A Perl-compatible regular expression over bytes: "." takes any byte but a line feed. A search
/// that reaches the limits of the engine counts as no match, so that a hostile text can't block the
/// program: on one of 16,000 bytes it ends within milliseconds.
class RegEx {
 public:
    struct OptionSet {
        bool CaseSensitive = false;
        bool ReplaceAllMatches = false;
    };

    OptionSet Options;
    std::string SearchPattern;
    /// "\1" to "\9" are the groups, "\0" the whole match, "\\" a backslash.
    std::string ReplacementPattern;
    /// Where a search begins, in bytes.
    int64_t SearchStartPosition = 0;

    /// The first match, nil if there is none. Raises RegExException for a pattern that can't be
    /// compiled.
    Ref<RegExMatch> Search(std::string_view text) const;

    /// The text with the first match, or all of them, replaced; unchanged without a match. Raises
    /// RegExException as Search does.
    std::string Replace(std::string_view text) const;
};

}  // namespace dunvey
