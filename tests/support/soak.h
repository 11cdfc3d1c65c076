#pragma once

#include <cstdio>
#include <cstdlib>

namespace dunvey::test {

/// Whether the long form of a test is wanted: tools/soak sets the variable.
inline bool IsSoak() {
    return std::getenv("DUNVEY_SOAK") != nullptr;
}

/// The one of the two that the form of the test asks for.
inline size_t ShortOrLong(size_t shortForm, size_t longForm) {
    return IsSoak() ? longForm : shortForm;
}

/// Prints a figure of the long form, which tools/soak collects. Figures of the same name are added
/// up; of those with "at the most" in it the highest counts.
inline void Figure(const char* what, size_t figure) {
    if (!IsSoak()) return;
    std::printf("soak: %s = %zu\n", what, figure);
    std::fflush(stdout);
}

}  // namespace dunvey::test
