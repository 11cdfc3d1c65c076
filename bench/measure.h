#pragma once

#include <functional>
#include <vector>

namespace dunvey::bench {

/// What is measured; it is called many times.
using Work = std::function<void()>;

/// The median seconds of one call of each work. The works take turns, so that noise hits all alike;
/// a short work is called many times in each turn.
std::vector<double> InTurns(const std::vector<Work>& works, size_t turns = 31);

/// The middle value, the higher of two; 0 for no values.
double Median(std::vector<double> values);

/// Keeps the compiler from removing what computes the value.
template <typename T>
void Keep(const T& value) {
    asm volatile("" : : "r,m"(value) : "memory");
}

}  // namespace dunvey::bench
