#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace dunvey::fuzz {

/// Defined by each target: tries one input and aborts if a rule is broken.
void TryInput(std::string_view bytes);

/// Aborts if the rule doesn't hold, so that libFuzzer reports the input.
inline void Check(bool holds, const char* rule, std::string_view seen = "") {
    if (holds) return;
    std::fprintf(stderr, "Broken rule: %s\n%.*s\n", rule, static_cast<int>(seen.size()),
                 seen.data());
    std::abort();
}

}  // namespace dunvey::fuzz
