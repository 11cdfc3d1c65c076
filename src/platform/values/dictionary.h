#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

#include "platform/values/exceptions.h"
#include "platform/values/reference.h"
#include "platform/values/variant.h"

namespace dunvey {

/// A map from keys to values. It keeps the order in which keys were added; a value that is replaced
/// keeps its place. Keys are the same if they are equal as values: texts by their bytes, letter
/// case included, numbers by value.
class Dictionary final : public Object {
 public:
    struct Entry {
        Variant Key;
        Variant Value;
    };

    /// The value under the key. Raises KeyNotFoundException.
    Variant Value(const Variant& key, SourcePlace place = SourcePlace::Here()) const;
    /// Adds or replaces.
    void SetValue(Variant key, Variant value);
    /// The value under the key, or `defaultValue`.
    Variant Lookup(const Variant& key, const Variant& defaultValue) const;
    bool HasKey(const Variant& key) const { return Find(key) != nullptr; }
    /// Raises KeyNotFoundException.
    void Remove(const Variant& key, SourcePlace place = SourcePlace::Here());
    void Clear();
    int64_t Count() const { return static_cast<int64_t>(entries_.size()); }
    /// The key at a position from 0. Raises OutOfBoundsException.
    Variant Key(int64_t position, SourcePlace place = SourcePlace::Here()) const;

    /// The value under the key, nullptr if there is none. Valid until the dictionary changes.
    const Variant* Find(const Variant& key) const;
    /// Whether the keys are the whole numbers from 0 in ascending order.
    bool IsList() const { return isList_; }
    /// All pairs in their order.
    const std::vector<Entry>& Entries() const { return entries_; }

 private:
    size_t PositionOf(const Variant& key) const;
    void BuildIndex();

    using Index = std::unordered_multimap<size_t, size_t>;

    std::vector<Entry> entries_;
    /// Whether each key equals its position, as in an array.
    bool isList_ = true;
    /// From the hash of a key to its position; nullptr for a list and for few entries.
    std::unique_ptr<Index> index_;
};

/// Raises KeyNotFoundException with the key in its message.
[[noreturn]] void RaiseKeyNotFound(const Variant& key, SourcePlace place = SourcePlace::Here());

}  // namespace dunvey
