#include "platform/values/dictionary.h"

#include <algorithm>
#include <functional>
#include <string_view>
#include <utility>

#include "platform/text/number_text.h"
#include "platform/values/array.h"

namespace dunvey {
namespace {

constexpr size_t kNotFound = SIZE_MAX;
/// Up to this many entries a linear search is faster than the index.
constexpr size_t kFew = 16;

size_t HashOf(const Variant& key) {
    if (key.IsText()) return std::hash<std::string_view>()(key.TextBytes());
    // Equal numbers of different types must have the same hash.
    if (key.IsNumber()) return std::hash<int64_t>()(Truncate(key.DoubleValue()));
    return std::hash<Object*>()(key.ObjectAddress());
}

}  // namespace

void RaiseKeyNotFound(const Variant& key, SourcePlace place) {
    const bool hasText = !key.IsObject() && !key.IsArray();
    const std::string name = hasText ? " \"" + key.StringValue() + "\"" : "";
    throw KeyNotFoundException("There is no value under the key" + name + ".", 0, place);
}

size_t Dictionary::PositionOf(const Variant& key) const {
    if (isList_) {
        const auto position = static_cast<size_t>(key.IsNumber() ? key.Int64Value() : -1);
        return position < entries_.size() && entries_[position].Key == key ? position : kNotFound;
    }
    if (!index_) {
        for (size_t i = 0; i < entries_.size(); ++i) {
            if (entries_[i].Key == key) return i;
        }
        return kNotFound;
    }
    const auto [first, last] = index_->equal_range(HashOf(key));
    for (auto place = first; place != last; ++place) {
        if (entries_[place->second].Key == key) return place->second;
    }
    return kNotFound;
}

const Variant* Dictionary::Find(const Variant& key) const {
    const size_t position = PositionOf(key);
    return position == kNotFound ? nullptr : &entries_[position].Value;
}

Variant Dictionary::Value(const Variant& key, SourcePlace place) const {
    const Variant* value = Find(key);
    if (value == nullptr) RaiseKeyNotFound(key, place);
    return *value;
}

Variant Dictionary::Lookup(const Variant& key, const Variant& defaultValue) const {
    const Variant* value = Find(key);
    return value == nullptr ? defaultValue : *value;
}

void Dictionary::SetValue(Variant key, Variant value) {
    const size_t position = PositionOf(key);
    if (position != kNotFound) {
        entries_[position].Value = std::move(value);
        return;
    }
    isList_ = isList_ && key == Variant(static_cast<int64_t>(entries_.size()));
    if (entries_.empty()) entries_.reserve(4);  // most objects have a few entries
    entries_.push_back({std::move(key), std::move(value)});
    if (index_) {
        index_->emplace(HashOf(entries_.back().Key), entries_.size() - 1);
    } else {
        BuildIndex();
    }
}

void Dictionary::BuildIndex() {
    index_.reset();
    if (isList_ || entries_.size() <= kFew) return;
    index_ = std::make_unique<Index>();
    for (size_t i = 0; i < entries_.size(); ++i)
        index_->emplace(HashOf(entries_[i].Key), i);
}

void Dictionary::Remove(const Variant& key, SourcePlace place) {
    const size_t position = PositionOf(key);
    if (position == kNotFound) RaiseKeyNotFound(key, place);
    const size_t hash = HashOf(entries_[position].Key);
    const bool isLast = position + 1 == entries_.size();
    entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(position));
    isList_ = isList_ && isLast;
    if (!isLast) return BuildIndex();
    if (!index_) return;
    const auto [first, last] = index_->equal_range(hash);
    index_->erase(
        std::find_if(first, last, [&](const auto& each) { return each.second == position; }));
}

void Dictionary::Clear() {
    entries_.clear();
    isList_ = true;
    index_.reset();
}

Variant Dictionary::Key(int64_t position, SourcePlace place) const {
    return At(entries_, position, place).Key;
}

}  // namespace dunvey
