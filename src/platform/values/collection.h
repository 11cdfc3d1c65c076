#pragma once

#include <cstdint>
#include <vector>

#include "platform/values/array.h"
#include "platform/values/reference.h"
#include "platform/values/variant.h"

namespace dunvey {

/// A list of values with positions from 1.
class Collection final : public Object {
 public:
    void Add(Variant value) { items_.push_back(std::move(value)); }
    int64_t Count() const { return UpperBound(items_) + 1; }
    /// The value at the position, from 1. Raises OutOfBoundsException.
    Variant Item(int64_t position, SourcePlace place = SourcePlace::Here()) const {
        if (position < 1) RaiseOutOfBounds(position, place);
        return At(items_, position - 1, place);
    }
    const std::vector<Variant>& Items() const { return items_; }

 private:
    std::vector<Variant> items_;
};

}  // namespace dunvey
