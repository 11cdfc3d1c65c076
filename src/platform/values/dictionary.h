#pragma once

#include <cstdint>

#include "platform/values/object.h"
#include "platform/values/ordered_table.h"
#include "platform/values/variant.h"

namespace dunvey {

/// A map from keys to values. It keeps the order in which keys were added; a value that is replaced
/// keeps its place. Keys are the same if they are equal as values: texts by their bytes, letter
/// case included, numbers by what they are worth.
class Dictionary : public Object {
 public:
    /// The value under the key. Raises KeyNotFoundException.
    Variant Value(const Variant& key) const;
    /// Adds or replaces.
    void SetValue(const Variant& key, const Variant& value) {
        table_.Assign(Variant(key), Variant(value));
    }
    /// The value under the key, or `defaultValue`.
    Variant Lookup(const Variant& key, const Variant& defaultValue) const;
    bool HasKey(const Variant& key) const { return table_.Find(key) != nullptr; }
    /// Raises KeyNotFoundException.
    void Remove(const Variant& key);
    void Clear() { table_ = OrderedTable(); }
    int64_t Count() const { return static_cast<int64_t>(table_.Count()); }
    /// The key at a position in the order of the keys, from 0. Raises OutOfBoundsException.
    Variant Key(int64_t position) const;

    const OrderedTable& Table() const { return table_; }

 private:
    OrderedTable table_;
};

/// Raises KeyNotFoundException with the key in its message.
[[noreturn]] void RaiseKeyNotFound(const Variant& key);

}  // namespace dunvey
