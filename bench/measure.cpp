#include "measure.h"

#include <algorithm>
#include <chrono>

namespace dunvey::bench {
namespace {

/// Shorter times are lost in noise.
constexpr double kLeastSeconds = 0.003;
/// The first call of a work that takes longer counts; a shorter one only warms up.
constexpr double kLongSeconds = 0.2;

double SecondsOf(const Work& work, size_t calls) {
    const auto start = std::chrono::steady_clock::now();
    for (size_t i = 0; i < calls; ++i)
        work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

struct Measured {
    const Work& work;
    size_t calls = 1;
    std::vector<double> seconds;

    void Prepare() {
        double all = SecondsOf(work, calls);
        if (all >= kLongSeconds) seconds.push_back(all);
        while (all < kLeastSeconds) {
            calls *= 2;
            all = SecondsOf(work, calls);
        }
    }
    void Run() { seconds.push_back(SecondsOf(work, calls) / static_cast<double>(calls)); }
};

}  // namespace

double Median(std::vector<double> values) {
    if (values.empty()) return 0;
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

std::vector<double> InTurns(const std::vector<Work>& works, size_t turns) {
    std::vector<Measured> all;
    for (const Work& work : works)
        all.push_back({work, 1, {}});
    for (Measured& each : all)
        each.Prepare();
    for (size_t turn = 0; turn < turns; ++turn) {
        for (size_t i = 0; i < all.size(); ++i) {
            // Every other turn runs backwards, so no work is always first.
            Measured& each = all[turn % 2 == 0 ? i : all.size() - 1 - i];
            if (each.seconds.size() < turns) each.Run();
        }
    }
    std::vector<double> medians;
    for (Measured& each : all)
        medians.push_back(Median(std::move(each.seconds)));
    return medians;
}

}  // namespace dunvey::bench
