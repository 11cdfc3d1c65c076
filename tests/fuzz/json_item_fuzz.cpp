#include <array>
#include <functional>
#include <string>
#include <vector>

#include "fuzz/fuzz.h"
#include "fuzz/json_item_model.h"
#include "persistence/json_exception.h"
#include "persistence/json_item.h"
#include "platform/text.h"

namespace dunvey::fuzz {
namespace {

constexpr size_t kItems = 3;

/// Runs the input as a program: each operation on an item and on its model, side by side.
class Program {
 public:
    explicit Program(std::string_view bytes) : input_(bytes) {
        for (Ref<JSONItem>& item : items_)
            item = New<JSONItem>();
    }
    ~Program() {
        // They may hold each other.
        for (const Ref<JSONItem>& item : items_)
            item->Clear();
    }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    void Run() {
        constexpr int kMost = 64;
        for (int i = 0; i < kMost && !input_.IsAtEnd(); ++i) {
            number_ = input_.Below(kItems);
            Step();
            CheckState();
        }
        Compare(
            "ToString", [&] { return Item().ToString(); }, [&] { return Written(number_, 0); });
    }

 private:
    using Result = std::string;

    JSONItem& Item() { return *items_[number_]; }
    Model& Own() { return models_[number_]; }

    int64_t Index() {
        static constexpr std::array<int64_t, 4> kFar = {INT64_MIN, INT64_MAX, INT64_MAX - 1,
                                                        int64_t{1} << 32};
        const auto byte = input_.Byte();
        return byte < 240 ? byte % 12 - 3 : kFar[byte % kFar.size()];
    }
    std::string Name() {
        static const std::array<std::string, 6> kNames = {"a", "A", "b", "", "\u00e9", "7"};
        return kNames[input_.Below(kNames.size())];
    }
    Value ItemValue(size_t number) const {
        const std::string told = "item " + std::to_string(number);
        return {told, told, {}, static_cast<int>(number)};
    }
    /// A value for the item and what the model has for it.
    Variant AnyValue(Value& told) {
        const uint8_t worth = input_.Byte();
        const std::string digits = std::to_string(worth);
        switch (input_.Below(8)) {
            case 0:
                told = {"nil", "nil", "null"};
                return nullptr;
            case 1:
                told = worth % 2 != 0 ? Value{"true", "true", "true"}
                                      : Value{"false", "false", "false"};
                return worth % 2 != 0;
            case 2:
                told = {"int " + digits, "int " + digits, digits};
                return int32_t{worth};
            case 3:
                told = {"long " + digits, "long " + digits, digits};
                return int64_t{worth};
            case 4:
                told = {"double " + digits, "double " + digits, digits + ".5"};
                return worth + 0.5;
            case 5:
                told = {"text \xE9 3", "text \u00e9 1", "\"\u00e9\""};
                return {"\xE9", Encodings::ISOLatin1};
            case 6:
                told = {"text " + digits + " 1", "text " + digits + " 1", "\"" + digits + "\""};
                return digits;
            default:
                told = ItemValue(worth % kItems);
                return items_[worth % kItems];
        }
    }

    Result Told(const Variant& value) const {
        switch (value.VarType()) {
            case VariantType::Nil:
                return "nil";
            case VariantType::Boolean:
                return value.BooleanValue() ? "true" : "false";
            case VariantType::Integer32:
                return "int " + std::to_string(value.Int32Value());
            case VariantType::Integer64:
                return "long " + std::to_string(value.Int64Value());
            case VariantType::Double:
                return "double " + std::to_string(static_cast<int>(value.DoubleValue()));
            case VariantType::String:
                return "text " + std::string(value.TextBytes()) + " " +
                       std::to_string(static_cast<int>(value.Encoding()));
            default:
                return Told(value.ObjectValue().As<JSONItem>());
        }
    }
    Result Told(const Ref<JSONItem>& item) const {
        if (!item) return "nil";
        for (size_t i = 0; i < kItems; ++i) {
            if (items_[i] == item) return "item " + std::to_string(i);
        }
        return "other " + item->ToString();
    }

    /// The model's item as JSON text; `above` has a bit for each item that holds it.
    std::string Written(size_t number, unsigned above) const {
        if ((above >> number & 1) != 0) throw kCircular;
        above |= 1u << number;
        const Model& model = models_[number];
        std::string text;
        const auto add = [&](const std::string& name, const Value& value) {
            if (!text.empty()) text += ',';
            if (!model.isArray) text += "\"" + name + "\":";
            const bool isItem = value.item >= 0;
            text += isItem ? Written(static_cast<size_t>(value.item), above) : value.json;
        };
        for (const auto& [index, value] : model.elements)
            add("", value);
        for (const auto& [name, value] : model.members)
            add(name, value);
        return model.isArray ? "[" + text + "]" : "{" + text + "}";
    }

    /// Both do the same: what they give, or what they raise.
    void Compare(const char* operation, const std::function<Result()>& real,
                 const std::function<Result()>& model) {
        std::string seen;
        std::string expected;
        try {
            seen = real();
        } catch (const JSONException& raised) {
            seen = "JSONException " + std::to_string(raised.ErrorNumber);
        } catch (const RuntimeException& raised) {
            seen = raised.Name();
        }
        try {
            expected = model();
        } catch (const Raised& raised) {
            expected = raised.name;
        }
        Check(seen == expected, operation, "seen: " + seen + "\nexpected: " + expected);
    }
    /// The same for operations that give nothing.
    void CompareChange(const char* operation, const std::function<void()>& real,
                       const std::function<void()>& model) {
        Compare(
            operation, [&] { return real(), Result("done"); },
            [&] { return model(), Result("done"); });
    }

    void Step() {
        static constexpr std::array<void (Program::*)(), 8> kSteps = {
            &Program::Add,       &Program::Move,     &Program::PutChild, &Program::ReadIndex,
            &Program::ReadChild, &Program::ReadName, &Program::Replace,  &Program::PutArray};
        (this->*kSteps[input_.Below(kSteps.size())])();
    }

    void Add() {
        Value told;
        const int64_t index = Index();
        const std::string name = Name();
        const Variant value = AnyValue(told);
        switch (input_.Below(4)) {
            case 0:
                return CompareChange(
                    "Append", [&] { Item().Append(value); },
                    [&] { Own().Put(Own().Count(), told); });
            case 1:
                return CompareChange(
                    "SetValue by index", [&] { Item().SetValue(index, value); },
                    [&] { Own().Put(index, told); });
            case 2:
                return CompareChange(
                    "SetSubscript", [&] { Item()[index] = value; },
                    [&] {
                        Own().CheckArray();
                        if (index >= Own().Count()) throw kOutside;
                        Own().Put(index, told);
                    });
            default:
                return CompareChange(
                    "SetValue by name", [&] { Item().SetValue(name, value); },
                    [&] { Own().CheckObject(), Own().Put(name, told); });
        }
    }

    void Move() {
        Value told;
        const int64_t index = Index();
        const std::string name = Name();
        const Variant value = AnyValue(told);
        switch (input_.Below(3)) {
            case 0:
                return CompareChange(
                    "Insert", [&] { Item().Insert(index, value); },
                    [&] { Own().Insert(index, told); });
            case 1:
                return CompareChange(
                    "Remove by index", [&] { Item().Remove(index); }, [&] { Own().Remove(index); });
            default:
                return CompareChange(
                    "Remove by name", [&] { Item().Remove(name); }, [&] { Own().Remove(name); });
        }
    }

    void PutChild() {
        const int64_t index = Index();
        const std::string name = Name();
        const size_t number = input_.Below(kItems + 1);
        const Ref<JSONItem> child = number < kItems ? items_[number] : nullptr;
        const Value told = number < kItems ? ItemValue(number) : Value{"nil", "nil", "null"};
        if (input_.Below(2) == 0) {
            CompareChange(
                "SetChild by index", [&] { Item().SetChild(index, child); },
                [&] { Own().Put(index, told); });
        } else {
            CompareChange(
                "SetChild by name", [&] { Item().SetChild(name, child); },
                [&] { Own().Put(name, told); });
        }
    }

    void ReadIndex() {
        const int64_t index = Index();
        const auto found = [this, index](const Raised& missing) -> const Value& {
            Own().CheckArray();
            const Value* value = Own().Find(index);
            return value != nullptr ? *value : throw missing;
        };
        Compare(
            "Value by index", [&] { return Told(Item().Value(index)); },
            [&] { return found(kNoKey).read; });
        Compare(
            "Subscript", [&] { return Told(Item()[index]); },
            [&] { return found(kOutside).stored; });
    }

    static std::string AsChild(const Value* value, const Raised& missing) {
        if (value == nullptr) throw missing;
        const bool isItem = value->item >= 0 || value->stored.starts_with("other");
        if (!isItem && value->stored != "nil") throw kNoItem;
        return value->stored;
    }

    void ReadChild() {
        const int64_t index = Index();
        const std::string name = Name();
        Compare(
            "Child by index", [&] { return Told(Item().Child(index)); },
            [&] { return AsChild(Own().Find(index), kOutside); });
        Compare(
            "Child by name", [&] { return Told(Item().Child(name)); },
            [&] { return AsChild(Own().Find(name), kNoKey); });
    }

    void ReadName() {
        const std::string name = Name();
        Value told;
        const Variant usual = AnyValue(told);
        const auto found = [&]() -> const Value* {
            Own().CheckObject();
            return Own().Find(name);
        };
        Compare(
            "Value by name", [&] { return Told(Item().Value(name)); },
            [&] { return found() != nullptr ? found()->read : throw kNoKey; });
        Compare(
            "Lookup", [&] { return Told(Item().Lookup(name, usual)); },
            [&] { return found() != nullptr ? found()->read : told.read; });
        Check(Item().HasName(name) == (Own().Find(name) != nullptr), "HasName");
    }

    void Replace() {
        static const Value kOne{"int 1", "int 1", "1"};
        static const Value kText{"text t 0", "text t 1", "\"t\""};
        switch (input_.Below(5)) {
            case 0:
                Item().Clear();
                Own() = {Own().isArray, {}, {}};
                break;
            case 1:
                Item().Load(" [1, \"t\"] ");
                Own() = {true, {{0, kOne}, {1, kText}}, {}};
                break;
            case 2:
                Item().Load("{\"b\":\"t\",\"a\":\"t\",\"b\":1}");
                Own() = {Own().isArray, {}, {{"b", kOne}, {"a", kText}}};
                break;
            case 3:
                Item().Load(" \n\t");
                break;
            default:
                CompareChange(
                    "Load", [&] { Item().Load("[1"); },
                    [&] {
                        Own().isArray = true;
                        throw Raised{"JSONException 2"};
                    });
        }
    }

    /// An array becomes an item of its own.
    void PutArray() {
        const std::string name = Name();
        const auto array = [&](const Variant& value, const std::string& json) {
            CompareChange(
                "SetValue of an array", [&] { Item().SetValue(name, value); },
                [&] {
                    Own().CheckObject();
                    Own().Put(name, {"other " + json, "other " + json, json});
                });
        };
        switch (input_.Below(4)) {
            case 0:
                return array(std::vector<int32_t>{1, 2}, "[1,2]");
            case 1:
                return array(std::vector<bool>{true}, "[true]");
            case 2:
                return array(std::vector<std::string>{"t"}, "[\"t\"]");
            default:
                return array(std::vector<double>(), "{}");
        }
    }

    void CheckState() {
        const Model& model = Own();
        Check(Item().Count() == model.Count(), "Count");
        Check(Item().IsArray() == model.isArray, "IsArray");
        int64_t position = 0;
        const auto entry = [&](const Variant& key, const std::string& name, const Value& value) {
            Check(Item().Key(position) == key, "Key", name);
            Check(Item().Name(position++) == name, "Name", name);
            Check(Told(Item().InternalValue(key)) == value.stored, "InternalValue", value.stored);
        };
        for (const auto& [index, value] : model.elements)
            entry(index, "", value);
        std::vector<std::string> names;
        for (const auto& [name, value] : model.members) {
            entry(EncodeHex(name), name, value);
            names.push_back(name);
        }
        Check(Item().Names() == names, "Names");
    }

    Input input_;
    std::array<Ref<JSONItem>, kItems> items_;
    std::array<Model, kItems> models_;
    size_t number_ = 0;
};

}  // namespace

void TryInput(std::string_view bytes) {
    Program(bytes).Run();
}

}  // namespace dunvey::fuzz
