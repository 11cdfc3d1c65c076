#pragma once

#include <signal.h>
#include <sys/types.h>

#include <string>
#include <vector>

#include "support/temporary_folder.h"

namespace dunvey::bench {

/// A home with that many installed versions, numbered from 6 on, each with a property list of about
/// 5 KB, an icon file and a program that ends at once.
class VersionsHome {
 public:
    static constexpr int kOldest = 6;

    explicit VersionsHome(int versions);

    const std::string& Path() const { return folder_.Path(); }

    /// The bundle and the property list of a version, by its number from 0 on.
    std::string Application(int index) const;
    std::string PropertyList(int index) const {
        return Application(index) + "/Contents/Info.plist";
    }

    /// Adds that many other folders to the applications folder.
    void AddOthers(int count) const;
    /// Writes that many documents of the version and returns their paths.
    std::vector<std::string> AddDocuments(int count, int version = kOldest + 2) const;
    /// The variables of a program that runs in this home.
    std::vector<std::string> Variables() const;

 private:
    std::string Name(int index) const;

    test::TemporaryFolder folder_;
};

/// That many sleeping processes, which end with the object.
class Crowd {
 public:
    explicit Crowd(int count);
    ~Crowd();
    Crowd(const Crowd&) = delete;
    Crowd& operator=(const Crowd&) = delete;

 private:
    std::vector<pid_t> processes_;
};

}  // namespace dunvey::bench
