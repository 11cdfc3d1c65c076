#include <nlohmann/json.hpp>

#include "fuzz/fuzz.h"
#include "persistence/json_exception.h"
#include "persistence/json_item.h"

namespace dunvey::fuzz {
namespace {

using Reference = nlohmann::json;

/// Whether the number of the reference is what comes back: whole ones go through a double and end
/// at 64 bits, others show fifteen places behind the point, and both are rounded to doubles.
bool SameNumber(const Reference& original, const Reference& written) {
    const auto number = original.get<double>();
    if (written.is_number_float()) {
        const double shown = written.get<double>();
        const double step = std::nextafter(std::abs(number), INFINITY) - std::abs(number);
        return original.is_number_float() && std::abs(shown - number) <= 5e-16 + step;
    }
    constexpr double kLimit = 9223372036854775808.0;
    const int64_t whole = number >= kLimit    ? INT64_MAX
                          : number <= -kLimit ? INT64_MIN
                                              : static_cast<int64_t>(number);
    const bool isWhole = original.is_number_integer() || std::abs(number) >= kLimit;
    return isWhole && written.get<int64_t>() == whole;
}

bool Same(const Reference& original, const Reference& written) {
    if (original.is_number() && written.is_number()) return SameNumber(original, written);
    if (original.type() != written.type()) return false;
    if (!original.is_structured()) return original == written;
    if (original.size() != written.size()) return false;
    for (auto a = original.begin(), b = written.begin(); a != original.end(); ++a, ++b) {
        if (original.is_object() && a.key() != b.key()) return false;
        if (!Same(*a, *b)) return false;
    }
    return true;
}

/// Written and read once more it is the same text, whatever the way of writing.
void CheckRoundTrip(JSONItem& item) {
    for (const bool compact : {true, false}) {
        item.Compact = compact;
        item.EscapeSlashes = compact;
        const std::string text = item.ToString();
        JSONItem again(text);
        again.Compact = compact;
        again.EscapeSlashes = compact;
        Check(again.ToString() == text, "what was written reads as the same", text);
    }
    item.Compact = true;
}

/// Half characters, an exponent of 0 that has a capital letter, and the mark that only one of the
/// two readers steps over.
bool IsReadDifferently(std::string_view bytes) {
    for (const char* part : {"\\ud", "\\uD", "0E", "\xEF\xBB\xBF"}) {
        if (bytes.find(part) != bytes.npos) return true;
    }
    return false;
}

bool IsDeep(std::string_view bytes) {
    constexpr size_t kDeepest = 1000;
    size_t opened = 0;
    for (const char c : bytes)
        opened += c == '[' || c == '{';
    return opened > kDeepest;
}

}  // namespace

void TryInput(std::string_view bytes) {
    const Reference reference = Reference::parse(bytes, nullptr, false);
    const bool comparable = reference.is_structured() && !IsReadDifferently(bytes);
    JSONItem item("[\"before\"]");
    const std::string before = item.ToString();
    try {
        item.Load(std::string(bytes));
    } catch (const JSONException& refused) {
        Check(refused.ErrorNumber >= 1 && refused.ErrorNumber <= 10, "a text is refused by a rule");
        Check(!comparable || IsDeep(bytes), "a sound document is read", refused.Message);
        Check(item.ToString() == before, "a text that is refused changes nothing");
        return;
    }
    CheckRoundTrip(item);
    if (!comparable) return;
    JSONItem fresh{std::string(bytes)};
    const std::string text = fresh.ToString();
    Check(Same(reference, Reference::parse(text)), "what was read is what was written", text);
}

}  // namespace dunvey::fuzz
