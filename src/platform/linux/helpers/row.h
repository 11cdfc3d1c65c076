#pragma once

#include <stddef.h>
#include <string.h>
#include <sys/mman.h>

namespace dunvey {

/// A growing row of plain items, without the C++ library. It has its memory from the system, page
/// by page as it is used.
template <typename Item>
class Row {
    static_assert(__is_trivially_copyable(Item));

 public:
    Row() = default;
    ~Row() {
        if (items_ != nullptr) munmap(items_, capacity_ * sizeof(Item));
    }
    Row(const Row&) = delete;
    Row& operator=(const Row&) = delete;

    /// Adds as many items behind the others. Returns them to be filled in; null if the memory
    /// lacks, from when on none are added any more.
    Item* Add(size_t count) {
        if (isCutShort_ || !MakeRoom(count)) return nullptr;
        count_ += count;
        return items_ + count_ - count;
    }
    /// Whether as many can be added without the others being moved.
    bool HasRoom(size_t count) const { return count <= capacity_ - count_; }
    /// Whether items are missing.
    bool IsCutShort() const { return isCutShort_; }
    /// Notes that items are missing.
    void CutShort() { isCutShort_ = true; }

    size_t Count() const { return count_; }
    Item* begin() { return items_; }
    Item* end() { return items_ + count_; }
    const Item* begin() const { return items_; }
    const Item* end() const { return items_ + count_; }

 private:
    static constexpr size_t kFirstSize = 65536;

    bool MakeRoom(size_t count) {
        if (HasRoom(count)) return true;
        size_t capacity = capacity_ == 0 ? kFirstSize / sizeof(Item) : 2 * capacity_;
        while (capacity - count_ < count)
            capacity *= 2;
        void* items = Resized(capacity * sizeof(Item));
        isCutShort_ = items == MAP_FAILED;
        if (isCutShort_) return false;
        items_ = static_cast<Item*>(items);
        capacity_ = capacity;
        return true;
    }
    void* Resized(size_t size) {
        if (items_ != nullptr)
            return mremap(items_, capacity_ * sizeof(Item), size, MREMAP_MAYMOVE);
        return mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    }

    Item* items_ = nullptr;
    size_t count_ = 0;
    size_t capacity_ = 0;
    bool isCutShort_ = false;
};

}  // namespace dunvey
