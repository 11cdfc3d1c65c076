#include "platform/values/dictionary.h"

#include "platform/values/array.h"
#include "platform/values/exceptions.h"

namespace dunvey {

void RaiseKeyNotFound(const Variant& key) {
    const bool hasText = !key.IsObject() && !key.IsArray();
    const std::string name = hasText ? " \"" + key.StringValue() + "\"" : "";
    throw KeyNotFoundException("There is no value under the key" + name + ".");
}

Variant Dictionary::Value(const Variant& key) const {
    const Variant* value = table_.Find(key);
    if (value == nullptr) RaiseKeyNotFound(key);
    return *value;
}

Variant Dictionary::Lookup(const Variant& key, const Variant& defaultValue) const {
    const Variant* value = table_.Find(key);
    return value == nullptr ? defaultValue : *value;
}

void Dictionary::Remove(const Variant& key) {
    if (!table_.Remove(key)) RaiseKeyNotFound(key);
}

Variant Dictionary::Key(int64_t position) const {
    return At(table_.Entries(), position).Key;
}

}  // namespace dunvey
