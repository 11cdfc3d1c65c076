#include <array>
#include <functional>
#include <string>
#include <type_traits>
#include <vector>

#include "fuzz/fuzz.h"
#include "fuzz/json_item_model.h"
#include "persistence/json_exception.h"
#include "persistence/json_item.h"
#include "platform/text/text.h"

namespace dunvey::fuzz {
namespace {

constexpr size_t kItems = 3;
const std::array<std::string, 6> kNames = {"a", "A", "b", "", "\u00e9", "7"};
const Value kNil{"nil", "nil", "null"};

using Result = std::string;

/// An operation on an item and the same on its model; each gives a result, or raises.
struct Operation {
    const char* name;
    std::function<Result()> real;
    std::function<Result()> model;
};

/// What a step works with: each value as it is and as the model has it.
struct Arguments {
    int64_t index = 0;
    std::string name;
    Value told;
    Variant value;
    Ref<JSONItem> child;
    Value toldChild;
};

/// Runs the input as a program, six bytes a step: the item, the operation, its index, its name, and
/// two for its value. Each is done on an item and on its model, side by side.
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
        Compare({"ToString", Tell([this] { return Item().ToString(); }),
                 Tell([this] { return Written(number_, 0); })});
    }

 private:
    JSONItem& Item() { return *items_[number_]; }
    Model& Own() { return models_[number_]; }

    int64_t Index() {
        static constexpr std::array<int64_t, 4> kFar = {INT64_MIN, INT64_MAX, INT64_MAX - 1,
                                                        int64_t{1} << 32};
        const auto byte = input_.Byte();
        return byte < 240 ? byte % 12 - 3 : kFar[byte % kFar.size()];
    }
    Variant AnyValue(Value& told) {
        const size_t kind = input_.Below(6);
        const uint8_t worth = input_.Byte();
        const std::string digits = std::to_string(worth);
        switch (kind) {
            case 0:
                told = kNil;
                return nullptr;
            case 1:
                told = {"true", "true", "true"};
                return true;
            case 2:
                told = {"int " + digits, "int " + digits, digits};
                return int32_t{worth};
            case 3:
                told = {"text \xE9 3", "text \u00e9 1", "\"\u00e9\""};
                return {"\xE9", Encodings::ISOLatin1};
            case 4:
                told = {"text " + digits + " 1", "text " + digits + " 1", "\"" + digits + "\""};
                return digits;
            default:
                const std::string item = "item " + std::to_string(worth % kItems);
                told = {item, item, {}, static_cast<int>(worth % kItems)};
                return items_[worth % kItems];
        }
    }

    static Result Told(const Result& text) { return text; }
    Result Told(const Variant& value) const {
        switch (value.VarType()) {
            case VariantType::Nil:
                return "nil";
            case VariantType::Boolean:
                return value.BooleanValue() ? "true" : "false";
            case VariantType::Integer32:
                return "int " + std::to_string(value.Int32Value());
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
    /// The call with its result told; one that gives nothing is told as done.
    template <typename Call>
    std::function<Result()> Tell(Call call) const {
        if constexpr (std::is_void_v<decltype(call())>) {
            return [call]() -> Result {
                call();
                return "done";
            };
        } else {
            return [program = this, call]() -> Result { return program->Told(call()); };
        }
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
    static void Compare(const Operation& operation) {
        std::string seen;
        std::string expected;
        try {
            seen = operation.real();
        } catch (const JSONException& raised) {
            seen = "JSONException " + std::to_string(raised.ErrorNumber);
        } catch (const RuntimeException& raised) {
            seen = raised.Name();
        }
        try {
            expected = operation.model();
        } catch (const Raised& raised) {
            expected = raised.name;
        }
        Check(seen == expected, operation.name, "seen: " + seen + "\nexpected: " + expected);
    }

    void Step() {
        const size_t chosen = input_.Byte();
        given_ = {Index(), kNames[input_.Below(kNames.size())], {}, {}, {}, kNil};
        given_.value = AnyValue(given_.told);
        if (given_.told.item >= 0) {
            given_.child = items_[static_cast<size_t>(given_.told.item)];
            given_.toldChild = given_.told;
        }
        std::vector<Operation> operations = Changes();
        for (const auto& more : {Reads(), Replacements()})
            operations.insert(operations.end(), more.begin(), more.end());
        Compare(operations[chosen % operations.size()]);
    }

    std::vector<Operation> Changes() {
        const auto assign = [this] {
            Own().CheckArray();
            if (given_.index >= Own().Count()) throw kOutside;
            Own().Put(given_.index, given_.told);
        };
        return {
            {"Append", Tell([this] { Item().Append(given_.value); }),
             Tell([this] { Own().Put(Own().Count(), given_.told); })},
            {"SetValue by index", Tell([this] { Item().SetValue(given_.index, given_.value); }),
             Tell([this] { Own().Put(given_.index, given_.told); })},
            {"assignment", Tell([this] { Item()[given_.index] = given_.value; }), Tell(assign)},
            {"SetValue by name", Tell([this] { Item().SetValue(given_.name, given_.value); }),
             Tell([this] { Own().CheckObject(), Own().Put(given_.name, given_.told); })},
            {"SetChild by index", Tell([this] { Item().SetChild(given_.index, given_.child); }),
             Tell([this] { Own().Put(given_.index, given_.toldChild); })},
            {"SetChild by name", Tell([this] { Item().SetChild(given_.name, given_.child); }),
             Tell([this] { Own().Put(given_.name, given_.toldChild); })},
            {"Insert", Tell([this] { Item().Insert(given_.index, given_.value); }),
             Tell([this] { Own().Insert(given_.index, given_.told); })},
            {"Remove by index", Tell([this] { Item().Remove(given_.index); }),
             Tell([this] { Own().Remove(given_.index); })},
            {"Remove by name", Tell([this] { Item().Remove(given_.name); }),
             Tell([this] { Own().Remove(given_.name); })},
        };
    }

    static const Value& Found(const Value* value, const Raised& missing) {
        return value != nullptr ? *value : throw missing;
    }
    static const Result& AsChild(const Value& value) {
        if (value.item < 0 && value.stored != "nil") throw kNoItem;
        return value.stored;
    }

    std::vector<Operation> Reads() {
        const auto byIndex = [this](const Raised& missing) -> const Value& {
            Own().CheckArray();
            return Found(Own().Find(given_.index), missing);
        };
        const auto byName = [this]() -> const Value* {
            Own().CheckObject();
            return Own().Find(given_.name);
        };
        return {
            {"Value by index", Tell([this] { return Item().Value(given_.index); }),
             Tell([byIndex] { return byIndex(kNoKey).read; })},
            {"subscript", Tell([this] { return Variant(Item()[given_.index]); }),
             Tell([byIndex] { return byIndex(kOutside).stored; })},
            {"Value by name", Tell([this] { return Item().Value(given_.name); }),
             Tell([byName] { return Found(byName(), kNoKey).read; })},
            {"Lookup", Tell([this] { return Item().Lookup(given_.name, given_.value); }),
             Tell([=, this] { return byName() != nullptr ? byName()->read : given_.told.read; })},
            {"Child by index", Tell([this] { return Item().Child(given_.index); }),
             Tell([this] { return AsChild(Found(Own().Find(given_.index), kOutside)); })},
            {"Child by name", Tell([this] { return Item().Child(given_.name); }),
             Tell([this] { return AsChild(Found(Own().Find(given_.name), kNoKey)); })},
        };
    }

    std::vector<Operation> Replacements() {
        static const Value kOne{"int 1", "int 1", "1"};
        static const Value kText{"text t 0", "text t 1", "\"t\""};
        const auto load = [this](const char* text) {
            return Tell([this, text] { Item().Load(text); });
        };
        const auto fail = [this] {
            Own().isArray = true;
            throw Raised{"JSONException 2"};
        };
        return {
            {"Clear", Tell([this] { Item().Clear(); }), Tell([this] {
                 Own() = {Own().isArray, {}, {}};
             })},
            {"Load of an array", load(" [1, \"t\"] "), Tell([this] {
                 Own() = {true, {{0, kOne}, {1, kText}}, {}};
             })},
            {"Load of an object", load("{\"b\":\"t\",\"a\":\"t\",\"b\":1}"), Tell([this] {
                 Own() = {Own().isArray, {}, {{"b", kOne}, {"a", kText}}};
             })},
            {"Load of blanks", load(" \n\t"), Tell([] {})},
            {"Load of a broken text", load("[1"), Tell(fail)},
        };
    }

    void CheckState() {
        Model& model = Own();
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
        for (const std::string& name : kNames)
            Check(Item().HasName(name) == (model.Find(name) != nullptr), "HasName", name);
    }

    Input input_;
    std::array<Ref<JSONItem>, kItems> items_;
    std::array<Model, kItems> models_;
    size_t number_ = 0;
    Arguments given_;
};

}  // namespace

void TryInput(std::string_view bytes) {
    Program(bytes).Run();
}

}  // namespace dunvey::fuzz
