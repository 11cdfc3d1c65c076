#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/values/exceptions.h"

/// An array is a std::vector; these are the operations that the vector lacks.
namespace dunvey {

/// Raises OutOfBoundsException.
[[noreturn]] void RaiseOutOfBounds(int64_t position, SourcePlace place = SourcePlace::Here());

/// The position of the last element, -1 for an empty array.
template <typename T>
int64_t UpperBound(const std::vector<T>& array) {
    return static_cast<int64_t>(array.size()) - 1;
}

/// The element at the position. Raises OutOfBoundsException outside the array.
template <typename T>
const T& At(const std::vector<T>& array, int64_t position,
            SourcePlace place = SourcePlace::Here()) {
    if (position < 0 || position > UpperBound(array)) RaiseOutOfBounds(position, place);
    return array[static_cast<size_t>(position)];
}

/// The first position of an equal element at or after `start`, -1 if there is none.
template <typename T, typename U>
int64_t IndexOf(const std::vector<T>& array, const U& value, int64_t start = 0) {
    for (int64_t i = start < 0 ? 0 : start; i <= UpperBound(array); ++i) {
        if (array[static_cast<size_t>(i)] == value) return i;
    }
    return -1;
}

}  // namespace dunvey
