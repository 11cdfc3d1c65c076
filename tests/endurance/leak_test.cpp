#include <dirent.h>
#include <malloc.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <iterator>

#include "chooser/chooser.h"
#include "support/soak.h"

#ifdef DUNVEY_SANITIZED
extern "C" size_t __sanitizer_get_current_allocated_bytes();
#endif

namespace dunvey {
namespace {

/// What a process holds at one moment.
struct Holdings {
    size_t bytes = 0;
    size_t descriptors = 0;
    size_t children = 0;
};

size_t AllocatedBytes() {
#ifdef DUNVEY_SANITIZED
    return __sanitizer_get_current_allocated_bytes();
#else
    return mallinfo2().uordblks;
#endif
}

size_t OpenDescriptors() {
    size_t count = 0;
    DIR* entries = opendir("/proc/self/fd");
    while (entries != nullptr && readdir(entries) != nullptr)
        ++count;
    if (entries != nullptr) closedir(entries);
    return count;
}

/// Those that nobody has collected among them.
size_t Children() {
    const std::string own = std::to_string(getpid());
    std::ifstream list("/proc/self/task/" + own + "/children");
    return static_cast<size_t>(
        std::distance(std::istream_iterator<pid_t>(list), std::istream_iterator<pid_t>()));
}

class Leaks : public test::Chooser {
 protected:
    Leaks() {
        Installed("CS5", "7.0.4");
        Installed("CS6", "8.1.0");
        Installed("CC", "9.0.0");
        Running({"CC"});
    }

    /// The chooser of the document with this number: something happens in it, then it is closed in
    /// one of the ways that there are. Ahead of that the next one is expected, so that at all times
    /// one expectation is held and no more.
    void ExpectChooser(size_t number) {
        const auto look = [this, number](Window1& window) {
            held_.push_back({AllocatedBytes(), OpenDescriptors(), Children()});
            if (number % 3 == 0) user_->Toggle(*window.CheckBox1());
            user_->Select(*window.AppList(), static_cast<int64_t>(number % 2));
        };
        const auto leave = [this, number](Window1& window) {
            if (number + 1 < count_) ExpectChooser(number + 1);
            if (number % 2 == 0)
                EXPECT_TRUE(user_->Escape(window));
            else
                user_->CloseByTheDesktop(window);
        };
        Expect({look, leave});
    }

    const size_t count_ = test::ShortOrLong(150, 1000);
    std::vector<Holdings> held_;
};

TEST_F(Leaks, ThousandChoosersLeaveNothing) {
    std::vector<Ref<FolderItem>> documents;
    const Ref<FolderItem> document = Document("a.indd", 12);
    documents.assign(count_, document);
    held_.reserve(count_);
    ExpectChooser(0);
    EXPECT_EQ(Open(documents), 0);
    ASSERT_EQ(held_.size(), count_);
    const Holdings& early = held_[count_ / 5];
    const Holdings& late = held_.back();
    // Captions and numbers differ in length; a lost window would be many kilobytes.
    EXPECT_LT(late.bytes, early.bytes + 4 * 1024);
    EXPECT_EQ(late.descriptors, early.descriptors);
    EXPECT_EQ(late.children, early.children);
    test::Figure("choosers in one process", count_);
    test::Figure("bytes more after the last of them",
                 late.bytes > early.bytes ? late.bytes - early.bytes : 0);
}

}  // namespace
}  // namespace dunvey
