#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace dunvey::fuzz {

/// What a target does with one input; it ends the process if a rule is broken.
void TryInput(std::string_view bytes);

/// Ends the process if the rule doesn't hold, so that the input counts as a finding.
inline void Check(bool holds, const char* rule, std::string_view seen = "") {
    if (holds) return;
    std::fprintf(stderr, "Broken rule: %s\n", rule);
    std::fwrite(seen.data(), 1, seen.size(), stderr);
    std::fputc('\n', stderr);
    std::abort();
}

/// Takes an input apart from the front; behind its end all bytes are 0.
class Input {
 public:
    explicit Input(std::string_view bytes) : bytes_(bytes) {}

    bool IsAtEnd() const { return bytes_.empty(); }
    uint8_t Byte() {
        if (bytes_.empty()) return 0;
        const auto byte = static_cast<uint8_t>(bytes_[0]);
        bytes_.remove_prefix(1);
        return byte;
    }
    /// 0 up to `limit` - 1.
    size_t Below(size_t limit) { return Byte() % limit; }

 private:
    std::string_view bytes_;
};

}  // namespace dunvey::fuzz
