#include <algorithm>
#include <nlohmann/json.hpp>

#include "fuzz/fuzz.h"
#include "persistence/json_exception.h"
#include "persistence/json_item.h"

namespace dunvey::fuzz {

void TryInput(std::string_view bytes) {
    JSONItem item("[\"before\"]");
    const std::string before = item.ToString();
    try {
        item.Load(std::string(bytes));
    } catch (const JSONException& refused) {
        Check(refused.ErrorNumber >= 1 && refused.ErrorNumber <= 10, "a text is refused by a rule");
        Check(item.ToString() == before, "a refused text changes nothing");
        return;
    }
    for (const bool compact : {true, false}) {
        item.Compact = item.EscapeSlashes = compact;
        const std::string text = item.ToString();
        JSONItem again(text);
        again.Compact = again.EscapeSlashes = compact;
        Check(again.ToString() == text, "what was written reads as the same", text);
        const bool isASCII = std::all_of(text.begin(), text.end(), [](char c) { return c >= 0; });
        Check(!isASCII || nlohmann::json::accept(text), "what was written is JSON", text);
    }
}

}  // namespace dunvey::fuzz
