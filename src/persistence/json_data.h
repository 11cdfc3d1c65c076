#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "platform/values/ordered_table.h"
#include "platform/values/variant.h"

namespace dunvey {

/// The values of a JSON document, each under a whole number or under a name. The numbers come
/// first, in their own order, then the names in the order in which they were added.
class JSONData {
 public:
    using Elements = std::vector<Variant>;

    JSONData() = default;
    /// The values under 0, 1, 2 and so on.
    explicit JSONData(Elements elements) : shape_(std::move(elements)) {}
    /// The values under names; the keys are texts.
    explicit JSONData(OrderedTable members) : shape_(std::move(members)) {}

    /// The value under the number or name, nullptr if there is none; valid until a change.
    const Variant* Find(int64_t index) const;
    const Variant* Find(std::string_view name) const;
    /// Adds or replaces.
    void Assign(int64_t index, Variant value);
    void Assign(std::string_view name, Variant value);
    /// Moves the values from Count()-1 down to `index` one number up and puts the value there.
    /// Raises KeyNotFoundException, with nothing changed, if one of them is missing.
    void Insert(int64_t index, Variant value);
    /// Moves the values behind `index`, as far as Count()-1, one number down and removes the last;
    /// from the last on only that. Raises KeyNotFoundException as Insert does.
    void Remove(int64_t index);
    /// False if there is no such name.
    bool Remove(std::string_view name);

    int64_t Count() const;

    struct Entry {
        int64_t index;
        std::optional<std::string_view> name;  // none if the value stands under `index`
        const Variant& value;
    };
    /// The entry at a position in the order above, from 0. Raises OutOfBoundsException.
    Entry At(int64_t position) const;
    /// Calls `visit` with each entry in that order.
    template <typename Visit>
    void ForEach(Visit&& visit) const {
        if (const Elements* list = List()) {
            int64_t index = 0;
            for (const Variant& value : *list)
                visit(Entry{index++, {}, value});
        } else if (const auto* members = std::get_if<OrderedTable>(&shape_)) {
            for (const auto& member : members->Entries()) {
                visit(Entry{0, member.Key.TextBytes(), member.Value});
            }
        } else {
            for (int64_t position = 0; position < Count(); ++position)
                visit(At(position));
        }
    }

 private:
    // Anything but a plain list or a plain set of members: gaps, numbers below 0, both together.
    struct Mixed {
        std::vector<std::pair<int64_t, Variant>> elements;  // in the order of the numbers
        OrderedTable members;
    };
    using MixedPointer = std::unique_ptr<Mixed>;

    Elements* List() { return std::get_if<Elements>(&shape_); }
    const Elements* List() const { return std::get_if<Elements>(&shape_); }
    const OrderedTable* Members() const;
    Mixed& Loosen();
    void Tighten();

    std::variant<Elements, OrderedTable, MixedPointer> shape_;
};

}  // namespace dunvey
