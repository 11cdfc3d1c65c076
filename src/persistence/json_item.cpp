#include "persistence/json_item.h"

#include "persistence/json_exception.h"
#include "persistence/json_parser.h"
#include "persistence/json_writer.h"
#include "platform/text/hex_text.h"
#include "platform/text/text.h"
#include "platform/text/white_space.h"
#include "platform/values/array.h"
#include "platform/values/exceptions.h"

namespace dunvey {
namespace {

constexpr char kNotAArray[] = "JSONItem is not a array";
constexpr char kNotAnArray[] = "JSONItem is not an array";

/// Texts come from the parser as bare bytes: here they are declared to be what they are.
Variant Repaired(const Variant& value) {
    if (!value.IsText() || value.Encoding() == Encodings::UTF8) return value;
    return ConvertEncoding(value.EncodedValue(), Encodings::UTF8);
}

const Variant& Found(const Variant* value, const Variant& key) {
    if (value == nullptr) RaiseKeyNotFound(key);
    return *value;
}

Ref<JSONItem> ItemOf(const Variant& value) {
    if (value.IsNull()) return nullptr;
    Ref<JSONItem> item;
    if (value.IsObject()) item = value.ObjectValue().As<JSONItem>();
    if (!item) throw IllegalCastException("The value is no JSONItem.");
    return item;
}

/// The elements of an array as an item.
Ref<JSONItem> ItemOfArray(const Variant& array) {
    switch (array.ArrayElementType()) {
        case VariantType::Boolean:
        case VariantType::Integer32:
        case VariantType::Integer64:
        case VariantType::Single:
        case VariantType::Double:
        case VariantType::String:
        case VariantType::Object:
            break;
        default:
            throw TypeMismatchException("JSON has no form for an array of type " +
                                        Str(int64_t{array.VarType()}) + ".");
    }
    Ref<JSONItem> item = New<JSONItem>();
    for (const Variant& element : array.ArrayElements())
        item->Append(element);
    return item;
}

}  // namespace

JSONItem::JSONItem() = default;

JSONItem::JSONItem(std::string text) {
    JSONItem::Load(std::move(text));
}

JSONItem::JSONItem(const Dictionary& source) {
    for (const OrderedTable::Entry& entry : source.Table().Entries()) {
        _data.Assign(entry.Key.StringValue(), entry.Value);
    }
}

std::string JSONItem::Serialize(const JSONItem* item) const {
    return item == nullptr ? std::string() : JSONWriter(*this).Serialize(*item);
}

std::string JSONItem::KeyEncode(std::string_view name) {
    return EncodeHex(name);
}

std::string JSONItem::KeyDecode(std::string_view key) {
    return DecodeHex(key);
}

Ref<JSONItem> JSONItem::Parse(std::string text) {
    _ParseBuffer = New<MemoryBlock>(std::move(text));
    JSONParser parser(_ParseBuffer->Used());
    int64_t position = 0;
    parser.skipWhiteSpace(position);
    const std::string_view first = parser.ParsePeek(position, 1);
    if (first == "{") return parser.parseObject(position);
    if (first != "[") throw JSONException("Parse Error: Expecting '{' or '['", 1, position);
    _mIsArray = true;
    return parser.parseArray(position);
}

void JSONItem::Load(std::string text) {
    if (Trim(text).empty()) return;
    const Ref<JSONItem> parsed = Parse(std::move(text));
    _data = std::move(parsed->_data);
}

void JSONItem::CheckArray(const char* message) const {
    if (_data.Count() > 0 && !_mIsArray) throw JSONException(message, 12, int64_t{0});
}

void JSONItem::CheckObject() const {
    if (_mIsArray) throw JSONException("JSONItem is an array", 13, int64_t{0});
}

void JSONItem::Append(Variant value) {
    CheckArray(kNotAArray);
    _data.Assign(_data.Count(), std::move(value));
    _mIsArray = true;
}

Ref<JSONItem> JSONItem::Child(int64_t index) const {
    const Variant* value = _data.Find(index);
    if (value == nullptr) RaiseOutOfBounds(index);
    return ItemOf(*value);
}

void JSONItem::SetChild(int64_t index, const Ref<JSONItem>& child) {
    CheckArray(kNotAArray);
    _data.Assign(index, child);
    _mIsArray = true;
}

Ref<JSONItem> JSONItem::Child(const std::string& name) const {
    return ItemOf(Found(_data.Find(name), name));
}

void JSONItem::SetChild(const std::string& name, const Ref<JSONItem>& child) {
    _data.Assign(name, child);
}

void JSONItem::Clear() {
    _data = JSONData();
}

int64_t JSONItem::Count() const {
    return _data.Count();
}

bool JSONItem::HasName(const Variant& name) const {
    return _data.Find(name.StringValue()) != nullptr;
}

void JSONItem::Insert(int64_t index, Variant value) {
    CheckArray(kNotAArray);
    _data.Insert(index, std::move(value));
    _mIsArray = true;
}

const Variant* JSONItem::FindInternal(const Variant& key) const {
    if (key.IsText()) {
        const std::string name = KeyDecode(key.TextBytes());
        return KeyEncode(name) == key.TextBytes() ? _data.Find(name) : nullptr;
    }
    const bool isNumber = key.VarType() >= VariantType::Integer32 &&
                          key.VarType() <= VariantType::Double && key == Variant(key.Int64Value());
    return isNumber ? _data.Find(key.Int64Value()) : nullptr;
}

Variant JSONItem::InternalValue(const Variant& key) const {
    return Found(FindInternal(key), key);
}

bool JSONItem::IsArray() const {
    return _mIsArray;
}

Variant JSONItem::Lookup(const std::string& name, const Variant& defaultValue) const {
    CheckObject();
    const Variant* value = _data.Find(name);
    return Repaired(value == nullptr ? defaultValue : *value);
}

Variant JSONItem::Key(int64_t position) const {
    const JSONData::Entry entry = _data.At(position);
    return entry.name ? Variant(KeyEncode(*entry.name)) : Variant(entry.index);
}

std::string JSONItem::Name(int64_t position) const {
    return std::string(_data.At(position).name.value_or(std::string_view()));
}

std::vector<std::string> JSONItem::Names() const {
    std::vector<std::string> names;
    _data.ForEach([&](const JSONData::Entry& entry) {
        if (entry.name) names.emplace_back(*entry.name);
    });
    return names;
}

Variant JSONItem::Subscript(int64_t index) const {
    CheckArray(kNotAArray);
    const Variant* value = _data.Find(index);
    if (value == nullptr) RaiseOutOfBounds(index);
    return *value;
}

void JSONItem::SetSubscript(int64_t index, Variant value) {
    CheckArray(kNotAArray);
    if (index >= _data.Count()) RaiseOutOfBounds(index);
    _data.Assign(index, std::move(value));
    _mIsArray = true;
}

void JSONItem::Remove(int64_t index) {
    CheckArray(kNotAArray);
    _data.Remove(index);
}

void JSONItem::Remove(const std::string& name) {
    if (!_data.Remove(name)) RaiseKeyNotFound(name);
}

Variant JSONItem::Value(int64_t index) const {
    CheckArray(kNotAnArray);
    return Repaired(Found(_data.Find(index), index));
}

void JSONItem::SetValue(int64_t index, Variant value) {
    CheckArray(kNotAnArray);
    _data.Assign(index, std::move(value));
    _mIsArray = true;
}

Variant JSONItem::Value(const std::string& name) const {
    CheckObject();
    return Repaired(Found(_data.Find(name), name));
}

void JSONItem::SetValue(const std::string& name, Variant value) {
    CheckObject();
    if (value.IsArray()) value = ItemOfArray(value);
    _data.Assign(name, std::move(value));
}

}  // namespace dunvey
