#include "persistence/json_item.h"

#include <algorithm>

#include "persistence/json_exception.h"
#include "platform/text/text.h"
#include "platform/values/array.h"

namespace dunvey {
namespace {

constexpr char kNotAArray[] = "JSONItem is not a array";
constexpr char kNotAnArray[] = "JSONItem is not an array";

/// Texts from the parser have no encoding; they are UTF-8.
Variant InUTF8(const Variant& value) {
    if (!value.IsText() || value.Encoding() == Encodings::UTF8) return value;
    return ConvertEncoding(value.EncodedValue(), Encodings::UTF8);
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

std::string JSONItem::KeyEncode(std::string_view name) {
    return EncodeHex(name);
}

std::string JSONItem::KeyDecode(std::string_view key) {
    return DecodeHex(key);
}

void JSONItem::CheckArray(const char* message) const {
    if (Count() > 0 && !_mIsArray) throw JSONException(message, 12, int64_t{0});
}

void JSONItem::CheckObject() const {
    if (_mIsArray) throw JSONException("JSONItem is an array", 13, int64_t{0});
}

void JSONItem::CheckAllPresent(int64_t first, int64_t last) const {
    for (int64_t index = last; index >= first; --index)
        _data.Value(index);
}

void JSONItem::Append(Variant value) {
    CheckArray(kNotAArray);
    _data.SetValue(_data.Count(), std::move(value));
    _mIsArray = true;
}

Ref<JSONItem> JSONItem::Child(int64_t index) const {
    const Variant* value = _data.Find(index);
    if (value == nullptr) RaiseOutOfBounds(index);
    return ItemOf(*value);
}

void JSONItem::SetChild(int64_t index, const Ref<JSONItem>& child) {
    CheckArray(kNotAArray);
    _data.SetValue(index, child);
    _mIsArray = true;
}

Ref<JSONItem> JSONItem::Child(const std::string& name) const {
    return ItemOf(_data.Value(name));
}

void JSONItem::SetChild(const std::string& name, const Ref<JSONItem>& child) {
    _data.SetValue(name, child);
}

void JSONItem::Clear() {
    _data.Clear();
}

JSONItem::JSONItem(std::string text) {
    JSONItem::Load(std::move(text));
}

int64_t JSONItem::Count() const {
    return _data.Count();
}

bool JSONItem::HasName(const Variant& name) const {
    return _data.HasKey(name.StringValue());
}

void JSONItem::Insert(int64_t index, Variant value) {
    CheckArray(kNotAArray);
    CheckAllPresent(index, Count() - 1);
    for (int64_t moved = Count() - 1; moved >= index; --moved)
        _data.SetValue(moved + 1, _data.Value(moved));
    _data.SetValue(index, std::move(value));
    _mIsArray = true;
}

Variant JSONItem::InternalValue(const Variant& key) const {
    if (!key.IsText()) return _data.Value(key);
    const std::string name = KeyDecode(key.TextBytes());
    const Variant* value = _data.Find(name);
    // Only the hexadecimal form that Key gives is a key.
    if (value == nullptr || KeyEncode(name) != key.TextBytes()) RaiseKeyNotFound(key);
    return *value;
}

bool JSONItem::IsArray() const {
    return _mIsArray;
}

void JSONItem::Load(std::string text) {
    if (Trim(text).empty()) return;
    _data = std::move(Parse(std::move(text))->_data);
}

Variant JSONItem::Lookup(const std::string& name, const Variant& defaultValue) const {
    CheckObject();
    return InUTF8(_data.Lookup(name, defaultValue));
}

Variant JSONItem::Key(int64_t position) const {
    const Variant key = _data.Key(position);
    return key.IsText() ? Variant(KeyEncode(key.TextBytes())) : key;
}

std::string JSONItem::Name(int64_t position) const {
    return std::string(_data.Key(position).TextBytes());
}

std::vector<std::string> JSONItem::Names() const {
    std::vector<std::string> names;
    for (const Dictionary::Entry& entry : _data.Entries()) {
        if (entry.Key.IsText()) names.emplace_back(entry.Key.TextBytes());
    }
    return names;
}

JSONItem::JSONItem(const Dictionary& source) {
    for (const Dictionary::Entry& entry : source.Entries())
        _data.SetValue(entry.Key.StringValue(), entry.Value);
}

Variant JSONItem::Subscript(int64_t index) const {
    CheckArray(kNotAArray);
    const Variant* value = _data.Find(index);
    if (value == nullptr) RaiseOutOfBounds(index);
    return *value;
}

void JSONItem::SetSubscript(int64_t index, Variant value) {
    CheckArray(kNotAArray);
    if (index >= Count()) RaiseOutOfBounds(index);
    _data.SetValue(index, std::move(value));
    _mIsArray = true;
}

void JSONItem::Remove(int64_t index) {
    CheckArray(kNotAArray);
    const int64_t last = Count() - 1;
    CheckAllPresent(std::min(index, last - 1) + 1, last);
    for (int64_t moved = index; moved < last; ++moved)
        _data.SetValue(moved, _data.Value(moved + 1));
    _data.Remove(last);
}

void JSONItem::Remove(const std::string& name) {
    _data.Remove(name);
}

Variant JSONItem::Value(int64_t index) const {
    CheckArray(kNotAnArray);
    return InUTF8(_data.Value(index));
}

void JSONItem::SetValue(int64_t index, Variant value) {
    CheckArray(kNotAnArray);
    _data.SetValue(index, std::move(value));
    _mIsArray = true;
}

Variant JSONItem::Value(const std::string& name) const {
    CheckObject();
    return InUTF8(_data.Value(name));
}

void JSONItem::SetValue(const std::string& name, Variant value) {
    CheckObject();
    if (value.IsArray()) value = ItemOfArray(value);
    _data.SetValue(name, std::move(value));
}

}  // namespace dunvey
