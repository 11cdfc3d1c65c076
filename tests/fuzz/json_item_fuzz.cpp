#include <array>
#include <set>
#include <string>
#include <vector>

#include "fuzz/fuzz.h"
#include "persistence/json_exception.h"
#include "persistence/json_item.h"

namespace dunvey::fuzz {
namespace {

constexpr std::array<const char*, 5> kNames = {"a", "A", "", "\u00e9", "7"};

/// Does one operation on the item.
void Operate(JSONItem& item, Input& input) {
    static constexpr std::array<int64_t, 3> kFar = {INT64_MIN, INT64_MAX, int64_t{1} << 32};
    const size_t operation = input.Below(14);
    const uint8_t byte = input.Byte();
    const int64_t index = byte < 240 ? byte % 12 - 3 : kFar[byte % kFar.size()];
    const std::string name = kNames[input.Below(kNames.size())];
    const std::array<Variant, 5> values = {Variant(), true, 7, "text",
                                           Variant(New<JSONItem>("{\"in\":[1]}"))};
    const Variant& value = values[input.Below(values.size())];
    switch (operation) {
        case 0:
            return item.Append(value);
        case 1:
            return item.SetValue(index, value);
        case 2:
            return item.SetSubscript(index, value);
        case 3:
            return item.SetValue(name, value);
        case 4:
            return item.SetChild(index, nullptr);
        case 5:
            return item.SetChild(name, New<JSONItem>("[2]"));
        case 6:
            return item.Insert(index, value);
        case 7:
            return item.Remove(index);
        case 8:
            return item.Remove(name);
        case 9:
            return item.Clear();
        case 10:
            return item.Load(input.Below(2) == 0 ? " [1, \"t\"] " : "{\"b\":1,\"b\":2}");
        case 11:
            return item.Load("[1");
        case 12:
            return static_cast<void>(item.Value(index));
        default:
            return static_cast<void>(item.Value(name));
    }
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
    Check(item.Names() == names, "Names gives each name");
}

}  // namespace

void TryInput(std::string_view bytes) {
    Input input(bytes);
    JSONItem item;
    for (int i = 0; i < 64 && !input.IsAtEnd(); ++i) {
        const std::string before = item.ToString();
        const bool wasArray = item.IsArray();
        const int64_t count = item.Count();
        try {
            Operate(item, input);
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
