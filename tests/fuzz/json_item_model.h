#pragma once

#include <algorithm>
#include <cstdint>
#include <map>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace dunvey::fuzz {

/// What a value is, as text: its type, and what it is worth. A text is told as it is stored and as
/// it is read.
struct Value {
    std::string stored;
    std::string read;
    std::string json;
    int item = -1;  // the number of the item that it is
};

/// What an operation must raise, in the place of its result.
struct Raised {
    std::string name;
};

inline const Raised kNoArray{"JSONException 12"};
inline const Raised kArray{"JSONException 13"};
inline const Raised kCircular{"JSONException 14"};
inline const Raised kNoKey{"KeyNotFoundException"};
inline const Raised kOutside{"OutOfBoundsException"};
inline const Raised kNoItem{"IllegalCastException"};

/// An item as a map and a list, each operation as simple as its rule.
struct Model {
    bool isArray = false;
    std::map<int64_t, Value> elements;
    std::vector<std::pair<std::string, Value>> members;

    int64_t Count() const { return static_cast<int64_t>(elements.size() + members.size()); }
    void CheckArray() const {
        if (Count() > 0 && !isArray) throw kNoArray;
    }
    void CheckObject() const {
        if (isArray) throw kArray;
    }
    Value* Find(int64_t index) {
        const auto found = elements.find(index);
        return found == elements.end() ? nullptr : &found->second;
    }
    Value* Find(const std::string& name) {
        for (auto& [key, value] : members) {
            if (key == name) return &value;
        }
        return nullptr;
    }
    void Put(int64_t index, const Value& value) {
        CheckArray();
        elements[index] = value;
        isArray = true;
    }
    void Put(const std::string& name, const Value& value) {
        if (Value* place = Find(name)) {
            *place = value;
        } else {
            members.emplace_back(name, value);
        }
    }
    void Insert(int64_t index, const Value& value) {
        CheckArray();
        const std::map<int64_t, Value> before = elements;
        for (int64_t moved = Count() - 1; moved >= index; --moved) {
            if (!before.contains(moved)) {
                elements = before;
                throw kNoKey;
            }
            elements[moved + 1] = before.at(moved);
        }
        Put(index, value);
    }
    void Remove(int64_t index) {
        CheckArray();
        const std::map<int64_t, Value> before = elements;
        const int64_t last = Count() - 1;
        try {
            for (int64_t moved = std::min(index, last); moved < last; ++moved)
                elements[moved] = before.at(moved + 1);
            if (elements.erase(last) == 0) throw kNoKey;
        } catch (const std::out_of_range&) {
            elements = before;
            throw kNoKey;
        }
    }
    void Remove(const std::string& name) {
        const auto isIt = [&](const auto& member) { return member.first == name; };
        if (std::erase_if(members, isIt) == 0) throw kNoKey;
    }
};

}  // namespace dunvey::fuzz
