// How fast JSONItem reads and writes beside nlohmann/json, and how the cost grows. Run it alone on
// a quiet machine.

#include <functional>
#include <nlohmann/json.hpp>
#include <random>
#include <string>
#include <vector>

#include "measure.h"
#include "persistence/json_item.h"
#include "report.h"

namespace dunvey::bench {
namespace {

const std::string kPreferences =
    "{\n  \"AllowOpenHigherVersion\":false,\n  \"AllowQuitButtonActiveted\":true,\n"
    "  \"NonReleaseVersion\":1234,\n  \"IconVersion\":\"10.2.0\"\n}";

/// Nested objects and arrays, texts in Latin and Japanese letters, escapes, numbers of all kinds.
std::string Mixed(size_t size) {
    std::mt19937 random(7);
    std::string text = "{\"records\":[";
    for (int i = 0; text.size() < size; ++i) {
        const auto number = std::to_string(random() % 100000);
        if (i > 0) text += ',';
        text += "{\"id\":" + std::to_string(i) + ",\"name\":\"Layout " + number +
                "\",\"path\":\"\\/Users\\/someone\\/Documents\\/" + number +
                ".indd\",\"title\":\"雑誌の表紙と目次" + number +
                "\",\"note\":\"a \\\"quoted\\\" word\\tand \\u00e9\",\"size\":[" +
                std::to_string(random() % 600) + ".5," + std::to_string(random() % 900) +
                ".25],\"ratio\":0." + std::to_string(random()) +
                ",\"open\":" + (random() % 2 == 0 ? "true" : "false") +
                ",\"parent\":null,\"tags\":[\"print\",\"web\",\"draft\"],\"pages\":{\"first\":1,"
                "\"last\":" +
                std::to_string(random() % 300) + "}}";
    }
    return text + "]}";
}

void ReportTime(const std::string& stage, const Work& ours, const Work& peer) {
    const std::vector<double> seconds = InTurns({ours, peer});
    Report(
        {"JSON, " + stage, "µs", seconds[0] * 1e6, seconds[1] * 1e6, "nlohmann", RatioAtMost(1)});
}

/// The time to read a document includes the time to free it.
void Compare(const std::string& name, const std::string& text) {
    ReportTime(
        "parse " + name, [&] { Keep(JSONItem(text).Count()); },
        [&] { Keep(nlohmann::json::parse(text).size()); });
    JSONItem item(text);
    const auto peer = nlohmann::json::parse(text);
    for (const bool compact : {true, false}) {
        item.Compact = compact;
        ReportTime((compact ? "write compact " : "write indented ") + name,
                   [&] { Keep(item.ToString().size()); },
                   [&] { Keep(peer.dump(compact ? -1 : 2).size()); });
    }
}

/// Measures a work at a size and at ten times that size.
void Grow(const std::string& stage, size_t size, const std::function<Work(size_t)>& workOfSize) {
    const size_t large = size * 10;
    const std::vector<double> seconds = InTurns({workOfSize(size), workOfSize(large)});
    ReportExponent("JSON, " + stage, static_cast<double>(size), seconds[0],
                   static_cast<double>(large), seconds[1]);
}

Work Appending(size_t count) {
    return [count] {
        JSONItem item;
        for (size_t i = 0; i < count; ++i)
            item.Append(static_cast<int64_t>(i));
        Keep(item.Count());
    };
}

Work Parsing(size_t size) {
    return [text = Mixed(size)] { Keep(JSONItem(text).Count()); };
}

Work Writing(size_t size) {
    return [item = New<JSONItem>(Mixed(size))] { Keep(item->ToString().size()); };
}

}  // namespace
}  // namespace dunvey::bench

int main() {
    using namespace dunvey::bench;
    Compare("preferences", kPreferences);
    Compare("mixed", Mixed(2 << 20));
    Grow("append", 10'000, Appending);
    Grow("parse", 200'000, Parsing);
    Grow("write", 200'000, Writing);
    return 0;
}
