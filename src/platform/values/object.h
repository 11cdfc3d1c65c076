#pragma once

#include <cstdint>
#include <memory>

namespace dunvey {

/// The base of the objects that a Variant can hold.
class Object {
 public:
    Object() = default;
    virtual ~Object() = default;
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;

 private:
    friend class ObjectHold;

    // While values hold the object it keeps itself alive: so a value needs one plain pointer, half
    // of what a shared reference takes.
    std::shared_ptr<Object> self_;
    uint32_t holders_ = 0;
};

/// How a value holds an object.
class ObjectHold {
 public:
    /// Keeps the object alive for one more holder.
    static Object* Take(std::shared_ptr<Object> object);
    static Object* TakeAgain(Object* object) noexcept;
    /// Lets go. Objects that die with others die one after the other, however deep they are nested:
    /// the stack doesn't grow with the depth.
    static void Release(Object* object) noexcept;
    static const std::shared_ptr<Object>& Shared(const Object* object) { return object->self_; }
};

}  // namespace dunvey
