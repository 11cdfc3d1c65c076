#pragma once

#include <cstdint>
#include <vector>

#include "platform/values/array.h"
#include "platform/values/object.h"
#include "platform/values/variant.h"

namespace dunvey {

/// A list of values, counted from 1.
class Collection : public Object {
 public:
    void Add(const Variant& value) { items_.push_back(value); }
    int64_t Count() const { return static_cast<int64_t>(items_.size()); }
    /// The value at the position, from 1. Raises OutOfBoundsException.
    Variant Item(int64_t position) const {
        if (position < 1) RaiseOutOfBounds(position);
        return At(items_, position - 1);
    }
    const std::vector<Variant>& Items() const { return items_; }

 private:
    std::vector<Variant> items_;
};

}  // namespace dunvey
