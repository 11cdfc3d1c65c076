#include "persistence/json_data.h"

#include <algorithm>

#include "platform/values/array.h"
#include "platform/values/dictionary.h"

namespace dunvey {
namespace {

using Numbered = std::vector<std::pair<int64_t, Variant>>;

/// The first element at or behind the number.
template <typename Container>
auto From(Container& elements, int64_t index) {
    return std::lower_bound(elements.begin(), elements.end(), index,
                            [](const auto& element, int64_t key) { return element.first < key; });
}

/// Raises KeyNotFoundException unless there is a value under each number from `first` to `last`.
void CheckUnbroken(Numbered& elements, int64_t first, int64_t last) {
    auto element = From(elements, first);
    for (int64_t index = first; index <= last; ++index, ++element) {
        if (element == elements.end() || element->first != index) RaiseKeyNotFound(index);
    }
}

void AssignIn(Numbered& elements, int64_t index, Variant value) {
    const auto place = From(elements, index);
    if (place != elements.end() && place->first == index) {
        place->second = std::move(value);
    } else {
        elements.emplace(place, index, std::move(value));
    }
}

Variant KeyOf(std::string_view name) {
    return {name, TextEncoding::None};
}

}  // namespace

const OrderedTable* JSONData::Members() const {
    if (const auto* members = std::get_if<OrderedTable>(&shape_)) return members;
    const auto* mixed = std::get_if<MixedPointer>(&shape_);
    return mixed != nullptr ? &(*mixed)->members : nullptr;
}

JSONData::Mixed& JSONData::Loosen() {
    if (auto* mixed = std::get_if<MixedPointer>(&shape_)) return **mixed;
    auto mixed = std::make_unique<Mixed>();
    if (Elements* list = List()) {
        for (Variant& value : *list) {
            mixed->elements.emplace_back(UpperBound(mixed->elements) + 1, std::move(value));
        }
    } else {
        mixed->members = std::move(std::get<OrderedTable>(shape_));
    }
    return *shape_.emplace<MixedPointer>(std::move(mixed));
}

void JSONData::Tighten() {
    auto* mixed = std::get_if<MixedPointer>(&shape_);
    if (mixed == nullptr) return;
    Numbered& elements = (*mixed)->elements;
    OrderedTable& members = (*mixed)->members;
    if (members.Count() == 0 &&
        (elements.empty() ||
         (elements.front().first == 0 && elements.back().first == UpperBound(elements)))) {
        Elements list;
        list.reserve(elements.size());
        for (auto& element : elements)
            list.push_back(std::move(element.second));
        shape_ = std::move(list);
    } else if (elements.empty()) {
        shape_ = OrderedTable(std::move(members));
    }
}

const Variant* JSONData::Find(int64_t index) const {
    if (const Elements* list = List()) {
        return index >= 0 && index <= UpperBound(*list) ? &(*list)[static_cast<size_t>(index)]
                                                        : nullptr;
    }
    const auto* mixed = std::get_if<MixedPointer>(&shape_);
    if (mixed == nullptr) return nullptr;
    const auto place = From((*mixed)->elements, index);
    const bool found = place != (*mixed)->elements.end() && place->first == index;
    return found ? &place->second : nullptr;
}

const Variant* JSONData::Find(std::string_view name) const {
    const OrderedTable* members = Members();
    return members != nullptr ? members->Find(KeyOf(name)) : nullptr;
}

void JSONData::Assign(int64_t index, Variant value) {
    Elements* list = List();
    const int64_t count = Count();
    if (list != nullptr && index >= 0 && index < count) {
        (*list)[static_cast<size_t>(index)] = std::move(value);
    } else if (list != nullptr && index == count) {
        list->push_back(std::move(value));
    } else {
        AssignIn(Loosen().elements, index, std::move(value));
        Tighten();
    }
}

void JSONData::Assign(std::string_view name, Variant value) {
    if (Count() == 0) shape_ = OrderedTable();
    if (auto* members = std::get_if<OrderedTable>(&shape_)) {
        members->Assign(KeyOf(name), std::move(value));
    } else {
        Loosen().members.Assign(KeyOf(name), std::move(value));
    }
}

void JSONData::Insert(int64_t index, Variant value) {
    const int64_t count = Count();
    Elements* list = List();
    if (list != nullptr && index >= 0 && index <= count) {
        list->insert(list->begin() + index, std::move(value));
        return;
    }
    Numbered& elements = Loosen().elements;
    CheckUnbroken(elements, index, count - 1);
    for (int64_t moved = count - 1; moved >= index; --moved) {
        AssignIn(elements, moved + 1, std::move(From(elements, moved)->second));
    }
    AssignIn(elements, index, std::move(value));
    Tighten();
}

void JSONData::Remove(int64_t index) {
    const int64_t last = Count() - 1;
    Elements* list = List();
    if (list != nullptr && index >= 0 && last >= 0) {
        list->erase(list->begin() + std::min(index, last));
        return;
    }
    Numbered& elements = Loosen().elements;
    index = std::min(index, last);
    CheckUnbroken(elements, index < last ? index + 1 : last, last);
    for (int64_t moved = index + 1; moved <= last; ++moved) {
        AssignIn(elements, moved - 1, std::move(From(elements, moved)->second));
    }
    elements.erase(From(elements, last));
    Tighten();
}

bool JSONData::Remove(std::string_view name) {
    const OrderedTable* members = Members();
    if (members == nullptr || !const_cast<OrderedTable*>(members)->Remove(KeyOf(name))) {
        return false;
    }
    Tighten();
    return true;
}

int64_t JSONData::Count() const {
    if (const Elements* list = List()) return UpperBound(*list) + 1;
    if (const auto* members = std::get_if<OrderedTable>(&shape_)) {
        return static_cast<int64_t>(members->Count());
    }
    const Mixed& mixed = *std::get<MixedPointer>(shape_);
    return static_cast<int64_t>(mixed.elements.size() + mixed.members.Count());
}

JSONData::Entry JSONData::At(int64_t position) const {
    if (const Elements* list = List()) return {position, {}, dunvey::At(*list, position)};
    if (const auto* mixed = std::get_if<MixedPointer>(&shape_)) {
        const Numbered& elements = (*mixed)->elements;
        if (position >= 0 && position <= UpperBound(elements)) {
            const auto& element = elements[static_cast<size_t>(position)];
            return {element.first, {}, element.second};
        }
        if (position > 0) position -= UpperBound(elements) + 1;
    }
    const OrderedTable::Entry& member = dunvey::At(Members()->Entries(), position);
    return {0, member.Key.TextBytes(), member.Value};
}

}  // namespace dunvey
