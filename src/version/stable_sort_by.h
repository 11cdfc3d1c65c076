#pragma once

#include <algorithm>
#include <utility>
#include <vector>

namespace dunvey {

/// Sorts the array in place, ascending by the number that `key` returns for an element; it is
/// called once for each. Elements of equal keys keep their order.
template <typename T, typename Key>
void StableSortBy(std::vector<T>& array, Key&& key) {
    std::vector<std::pair<double, T>> keyed;
    keyed.reserve(array.size());
    for (T& element : array) {
        const double number = key(element);
        keyed.emplace_back(number, std::move(element));
    }
    std::stable_sort(keyed.begin(), keyed.end(),
                     [](const auto& left, const auto& right) { return left.first < right.first; });
    std::transform(keyed.begin(), keyed.end(), array.begin(),
                   [](auto& pair) { return std::move(pair.second); });
}

}  // namespace dunvey
