#pragma once

#include <cstddef>
#include <memory>
#include <utility>

namespace dunvey {

/// Room for many objects of one size, got from the system in one piece: a document of many small
/// items is read and let go much faster than with a piece for each. It goes back when the last
/// object in it has died.
class JSONSlab {
 public:
    explicit JSONSlab(size_t places) : places_(places) {}

    bool IsFull() const { return taken_ == places_; }
    /// The next place; the size is the same each time.
    void* Take(size_t size) {
        if (!memory_) memory_.reset(new std::byte[places_ * size]);
        return memory_.get() + size * taken_++;
    }

 private:
    size_t places_;
    size_t taken_ = 0;
    std::unique_ptr<std::byte[]> memory_;
};

/// Puts what std::allocate_shared makes into a slab, and keeps the slab with it.
template <typename T>
class JSONSlabAllocator {
 public:
    using value_type = T;

    explicit JSONSlabAllocator(std::shared_ptr<JSONSlab> slab) : slab_(std::move(slab)) {}
    template <typename U>
    JSONSlabAllocator(const JSONSlabAllocator<U>& other) : slab_(other.Slab()) {}

    T* allocate(size_t) { return static_cast<T*>(slab_->Take(sizeof(T))); }
    void deallocate(T*, size_t) noexcept {}
    const std::shared_ptr<JSONSlab>& Slab() const { return slab_; }

    friend bool operator==(const JSONSlabAllocator&, const JSONSlabAllocator&) = default;

 private:
    std::shared_ptr<JSONSlab> slab_;
};

}  // namespace dunvey
