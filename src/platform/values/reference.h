#pragma once

#include <cstddef>
#include <memory>
#include <type_traits>
#include <utility>

namespace dunvey {

/// The base of the objects that a Variant can hold.
class Object {
 public:
    Object() = default;
    virtual ~Object() = default;
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;

 protected:
    Object(Object&&) = default;
    Object& operator=(Object&&) = default;
};

/// Raises NilObjectException with the place of the call. Not declared noreturn: the compiler would
/// move the call out of the function that the exception must name.
[[gnu::noinline, gnu::returns_nonnull]] void* RaiseNilObject();

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

    // Inlined always, so that RaiseNilObject is called from the code that uses the reference.
    [[gnu::always_inline]] T* operator->() const {
        return pointer_ != nullptr ? pointer_.get() : static_cast<T*>(RaiseNilObject());
    }
    [[gnu::always_inline]] T& operator*() const { return *operator->(); }
    explicit operator bool() const { return pointer_ != nullptr; }

    /// The object's address, nullptr for nil.
    T* Get() const { return pointer_.get(); }
    const std::shared_ptr<T>& Shared() const { return pointer_; }

    /// The same object as a U; nil if it is none.
    template <typename U>
    Ref<U> As() const {
        return Ref<U>(std::dynamic_pointer_cast<U>(pointer_));
    }

    friend bool operator==(const Ref& left, const Ref& right) {
        return left.pointer_ == right.pointer_;
    }

 private:
    std::shared_ptr<T> pointer_;
};

/// A new T, made with the given arguments.
template <typename T, typename... Arguments>
Ref<T> New(Arguments&&... arguments) {
    return Ref<T>(std::make_shared<T>(std::forward<Arguments>(arguments)...));
}

}  // namespace dunvey
