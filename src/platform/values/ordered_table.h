#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "platform/values/variant.h"

namespace dunvey {

/// Pairs of key and value in the order in which their keys came, found by key. Keys are the same if
/// they are equal as values.
class OrderedTable {
 public:
    struct Entry {
        Variant Key;
        Variant Value;
    };

    /// The value under the key, nullptr if there is none; valid until the table changes.
    const Variant* Find(const Variant& key) const;
    /// Replaces the value under the key, which keeps its place, or adds the pair at the end.
    void Assign(Variant&& key, Variant&& value);
    /// False if there is no such key.
    bool Remove(const Variant& key);

    size_t Count() const { return entries_.size(); }
    const std::vector<Entry>& Entries() const { return entries_; }
    /// Makes room for so many entries in all.
    void Reserve(size_t count);

 private:
    // The positions of the entries, to be found by the hash of the key. There is none for a few
    // entries: they are quicker looked through.
    struct Index {
        explicit Index(size_t size) : slots(size) {}

        std::vector<uint32_t> slots;  // the size is a power of two
        size_t used = 0;
    };
    static constexpr size_t kNowhere = SIZE_MAX;

    size_t PositionOf(const Variant& key) const;
    /// The index's slot of the key, nullptr if there is none. There must be an index.
    uint32_t* SlotOf(const Variant& key) const;
    void AddToIndex(size_t position);
    void Reindex();

    std::vector<Entry> entries_;
    std::unique_ptr<Index> index_;
};

}  // namespace dunvey
