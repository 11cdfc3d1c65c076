#pragma once

#include <QTimer>
#include <functional>
#include <vector>

namespace dunvey::test {

/// What a user does later, each step as an event of its own. What is left ends with it.
class Steps {
 public:
    using Step = std::function<void()>;

    /// Takes the step as soon as it is so.
    void When(const std::function<bool()>& so, const Step& then) {
        QTimer::singleShot(0, &life_, [this, so, then] { so() ? then() : When(so, then); });
    }
    void Take(const std::vector<Step>& steps, size_t place = 0) {
        if (place == steps.size()) return;
        steps[place]();
        QTimer::singleShot(0, &life_, [this, steps, place] { Take(steps, place + 1); });
    }
    void Soon(const Step& step) { QTimer::singleShot(0, &life_, step); }

 private:
    QObject life_;
};

}  // namespace dunvey::test
