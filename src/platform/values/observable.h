#pragma once

#include <functional>
#include <memory>
#include <utility>

namespace dunvey {

/// An object with at most one observer, which is called at each change and then reads the whole
/// object.
class Observable {
 public:
    Observable() = default;
    Observable(const Observable&) = delete;
    Observable& operator=(const Observable&) = delete;

    /// Ends the observation when destroyed. It may outlive the observed object.
    class Observation {
     public:
        Observation() = default;
        Observation(Observation&&) = default;
        Observation& operator=(Observation&& other) noexcept {
            End();
            observer_ = std::move(other.observer_);
            return *this;
        }
        ~Observation() { End(); }

     private:
        friend class Observable;
        using Observer = std::function<void()>;
        explicit Observation(std::shared_ptr<Observer> observer) : observer_(std::move(observer)) {}
        void End() {
            if (observer_) *observer_ = nullptr;
            observer_.reset();
        }
        std::shared_ptr<Observer> observer_;
    };

    /// Calls `changed` after each change. Replaces an earlier observer.
    [[nodiscard]] Observation Observe(std::function<void()> changed) {
        observer_ = std::make_shared<std::function<void()>>(std::move(changed));
        return Observation(observer_);
    }

 protected:
    ~Observable() = default;

    void Changed() {
        // The observer may end its own observation.
        const std::shared_ptr<std::function<void()>> observer = observer_;
        if (observer && *observer) (*observer)();
    }

    /// Assigns the value and calls the observer if the value differs.
    template <typename T, typename V>
    void Put(T& member, V&& value) {
        if (member == value) return;
        member = std::forward<V>(value);
        Changed();
    }

 private:
    std::shared_ptr<std::function<void()>> observer_;
};

}  // namespace dunvey
