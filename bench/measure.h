#pragma once

#include <functional>
#include <vector>

namespace dunvey::bench {

/// What is measured; it is run again and again.
using Work = std::function<void()>;

/// The median seconds of one call of each work. They are run in turns, so that a noisy moment hits
/// all alike; a short one many times in each turn.
std::vector<double> InTurns(const std::vector<Work>& works, size_t turns = 31);

/// The middle one, the higher of two; 0 if there is none.
double Median(std::vector<double> values);

/// Keeps what a work computes from being left out.
template <typename T>
void Keep(const T& value) {
    asm volatile("" : : "r,m"(value) : "memory");
}

}  // namespace dunvey::bench
