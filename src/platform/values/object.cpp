#include "platform/values/object.h"

#include <utility>
#include <vector>

namespace dunvey {
namespace {

using Dying = std::vector<std::shared_ptr<Object>>;
thread_local Dying* dying = nullptr;

}  // namespace

Object* ObjectHold::Take(std::shared_ptr<Object> object) {
    Object* plain = object.get();
    if (plain->holders_++ == 0) plain->self_ = std::move(object);
    return plain;
}

Object* ObjectHold::TakeAgain(Object* object) noexcept {
    ++object->holders_;
    return object;
}

void ObjectHold::Release(Object* object) noexcept {
    if (--object->holders_ > 0) return;
    std::shared_ptr<Object> last = std::move(object->self_);
    if (dying != nullptr) {
        dying->push_back(std::move(last));
        return;
    }
    Dying others;
    dying = &others;
    last.reset();
    while (!others.empty()) {
        last = std::move(others.back());
        others.pop_back();
        last.reset();
    }
    dying = nullptr;
}

}  // namespace dunvey
