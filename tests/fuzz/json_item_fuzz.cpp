#include <functional>
#include <iterator>
#include <set>
#include <string>
#include <vector>

#include "fuzz/fuzz.h"
#include "persistence/json_exception.h"
#include "persistence/json_item.h"

namespace dunvey::fuzz {
namespace {

/// Takes an operation and its arguments from the front of the input and calls it.
void Operate(JSONItem& item, std::string_view& input) {
    static constexpr int64_t kFar[] = {INT64_MIN, INT64_MAX, int64_t{1} << 32};
    static const std::string kNames[] = {"a", "A", "", "\u00e9", "7"};
    const auto next = [&input] {
        const size_t byte = input.empty() ? 0 : static_cast<uint8_t>(input[0]);
        input.remove_prefix(input.empty() ? 0 : 1);
        return byte;
    };
    const size_t operation = next();
    const size_t place = next();
    const int64_t index = place < 240 ? static_cast<int64_t>(place % 12) - 3 : kFar[place % 3];
    const std::string& name = kNames[next() % std::size(kNames)];
    const Variant values[] = {Variant(), true, 7, "text", New<JSONItem>("{\"in\":[1]}")};
    const Variant& value = values[next() % std::size(values)];
    const std::function<void()> operations[] = {
        [&] { item.Append(value); },
        [&] { item.SetValue(index, value); },
        [&] { item.SetSubscript(index, value); },
        [&] { item.SetValue(name, value); },
        [&] { item.SetChild(index, nullptr); },
        [&] { item.SetChild(name, New<JSONItem>("[2]")); },
        [&] { item.Insert(index, value); },
        [&] { item.Remove(index); },
        [&] { item.Remove(name); },
        [&] { item.Clear(); },
        [&] { item.Load(next() % 2 == 0 ? " [1, \"t\"] " : "{\"b\":1,\"b\":2}"); },
        [&] { item.Load("[1"); },
        [&] { item.Value(index); },
        [&] { item.Value(name); }};
    operations[operation % std::size(operations)]();
}

void CheckKeys(const JSONItem& item) {
    std::set<std::string> keys;
    std::vector<std::string> names;
    for (int64_t i = 0; i < item.Count(); ++i) {
        const Variant key = item.Key(i);
        keys.insert((key.IsText() ? "text " : "index ") + key.StringValue());
        item.InternalValue(key);
        if (!key.IsText()) continue;
        names.push_back(item.Name(i));
        Check(item.HasName(item.Name(i)), "a name is found", item.Name(i));
    }
    Check(keys.size() == static_cast<size_t>(item.Count()), "keys are different");
    Check(item.Names() == names, "Names returns each name");
}

}  // namespace

void TryInput(std::string_view bytes) {
    JSONItem item;
    for (int i = 0; i < 64 && !bytes.empty(); ++i) {
        const std::string before = item.ToString();
        const bool wasArray = item.IsArray();
        const int64_t count = item.Count();
        try {
            Operate(item, bytes);
        } catch (const RuntimeException& raised) {
            const int number = raised.ErrorNumber;
            Check(number != 12 || (!wasArray && count > 0), "12 is raised for an object only");
            Check(number != 13 || wasArray, "13 is raised for an array only");
            // A text that begins with "[" makes the item an array, even if it is refused.
            Check(number == 2 || item.ToString() == before, "a failure changes nothing", before);
        }
        Check(item.IsArray() || !wasArray, "an array stays an array");
        CheckKeys(item);
        const std::string text = item.ToString();
        Check(JSONItem(text).ToString() == text, "what is written reads as the same", text);
    }
}

}  // namespace dunvey::fuzz
