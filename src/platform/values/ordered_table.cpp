#include "platform/values/ordered_table.h"

#include <algorithm>
#include <bit>
#include <functional>
#include <limits>
#include <stdexcept>
#include <utility>

namespace dunvey {
namespace {

constexpr size_t kIndexedFrom = 12;

// What a slot holds besides a position, which is stored with an offset.
constexpr uint32_t kFree = 0;
constexpr uint32_t kRemoved = 1;
constexpr uint32_t kOffset = 2;

size_t HashOf(const Variant& key) {
    if (key.IsText()) return std::hash<std::string_view>()(key.TextBytes());
    switch (key.VarType()) {
        case VariantType::Integer32:
        case VariantType::Integer64:
        case VariantType::Single:
        case VariantType::Double:
            break;
        case VariantType::Object:
            return std::hash<Object*>()(key.ObjectAddress());
        default:
            return 0;
    }
    // Whole numbers one after the other shall not fall into few slots.
    return std::hash<double>()(key.DoubleValue()) * 0x9E3779B97F4A7C15u >> 16;
}

uint32_t SlotValue(size_t position) {
    if (position >= std::numeric_limits<uint32_t>::max() - kOffset) {
        throw std::length_error("too many entries");
    }
    return static_cast<uint32_t>(position) + kOffset;
}

}  // namespace

size_t OrderedTable::PositionOf(const Variant& key) const {
    if (!index_) {
        const auto found = std::find_if(entries_.begin(), entries_.end(),
                                        [&](const Entry& entry) { return entry.Key == key; });
        return found == entries_.end() ? kNowhere : static_cast<size_t>(found - entries_.begin());
    }
    const uint32_t* slot = SlotOf(key);
    return slot == nullptr ? kNowhere : *slot - kOffset;
}

uint32_t* OrderedTable::SlotOf(const Variant& key) const {
    std::vector<uint32_t>& slots = index_->slots;
    for (size_t at = HashOf(key);; ++at) {
        uint32_t& slot = slots[at & (slots.size() - 1)];
        if (slot == kFree) return nullptr;
        if (slot != kRemoved && entries_[slot - kOffset].Key == key) return &slot;
    }
}

void OrderedTable::AddToIndex(size_t position) {
    std::vector<uint32_t>& slots = index_->slots;
    size_t at = HashOf(entries_[position].Key);
    while (slots[at & (slots.size() - 1)] != kFree)
        ++at;
    slots[at & (slots.size() - 1)] = SlotValue(position);
    ++index_->used;
}

void OrderedTable::Reserve(size_t count) {
    entries_.reserve(count);
    if (count >= kIndexedFrom) Reindex();
}

void OrderedTable::Reindex() {
    index_ = std::make_unique<Index>(std::bit_ceil(entries_.capacity() * 2));
    for (size_t i = 0; i < entries_.size(); ++i)
        AddToIndex(i);
}

const Variant* OrderedTable::Find(const Variant& key) const {
    const size_t position = PositionOf(key);
    return position == kNowhere ? nullptr : &entries_[position].Value;
}

void OrderedTable::Assign(Variant&& key, Variant&& value) {
    const size_t position = PositionOf(key);
    if (position != kNowhere) {
        entries_[position].Value = std::move(value);
        return;
    }
    entries_.push_back({std::move(key), std::move(value)});
    if (index_ && (index_->used + 1) * 4 <= index_->slots.size() * 3) {
        AddToIndex(entries_.size() - 1);
    } else if (index_ || entries_.size() >= kIndexedFrom) {
        Reindex();
    }
}

bool OrderedTable::Remove(const Variant& key) {
    const size_t position = PositionOf(key);
    if (position == kNowhere) return false;
    if (position + 1 == entries_.size()) {
        if (index_) *SlotOf(key) = kRemoved;
        entries_.pop_back();
        return true;
    }
    if (index_) {
        const uint32_t removed = SlotValue(position);
        for (uint32_t& slot : index_->slots) {
            slot = slot > removed ? slot - 1 : slot == removed ? kRemoved : slot;
        }
    }
    entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(position));
    return true;
}

}  // namespace dunvey
