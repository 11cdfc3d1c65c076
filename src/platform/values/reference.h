#pragma once

#include <cstddef>
#include <memory>
#include <type_traits>
#include <utility>

namespace dunvey {

/// Raises NilObjectException; apart from the template so that its users stay small.
[[noreturn]] void RaiseNilObject();

/// A shared reference to an object. It may be nil; a use of nil raises NilObjectException. The
/// object lives as long as a reference to it does.
template <typename T>
class Ref {
 public:
    Ref() = default;
    Ref(std::nullptr_t) {}
    explicit Ref(std::shared_ptr<T> pointer) : pointer_(std::move(pointer)) {}
    template <typename U, typename = std::enable_if_t<std::is_convertible_v<U*, T*>>>
    Ref(const Ref<U>& other) : pointer_(other.Shared()) {}

    T* operator->() const { return &Use(); }
    T& operator*() const { return Use(); }
    explicit operator bool() const { return pointer_ != nullptr; }

    /// The object's address, nullptr for nil.
    T* Get() const { return pointer_.get(); }
    const std::shared_ptr<T>& Shared() const { return pointer_; }
    /// The same, and leaves nil.
    std::shared_ptr<T> Release() && { return std::move(pointer_); }

    /// The same object as a U; nil if it is none.
    template <typename U>
    Ref<U> As() const {
        return Ref<U>(std::dynamic_pointer_cast<U>(pointer_));
    }

    friend bool operator==(const Ref& left, const Ref& right) {
        return left.pointer_ == right.pointer_;
    }

 private:
    T& Use() const {
        if (!pointer_) RaiseNilObject();
        return *pointer_;
    }

    std::shared_ptr<T> pointer_;
};

/// A new T, made with the given arguments.
template <typename T, typename... Arguments>
Ref<T> New(Arguments&&... arguments) {
    return Ref<T>(std::make_shared<T>(std::forward<Arguments>(arguments)...));
}

}  // namespace dunvey
