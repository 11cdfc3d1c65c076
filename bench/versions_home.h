#pragma once

#include <string>
#include <vector>

#include "support/temporary_folder.h"

namespace dunvey::bench {

/// A home with so many installed versions, numbered from 6 on, each with a property list of about 5
/// KB as applications have one.
class VersionsHome {
 public:
    static constexpr int kOldest = 6;

    explicit VersionsHome(int versions);

    const std::string& Path() const { return folder_.Path(); }
    const test::TemporaryFolder& Folder() const { return folder_; }

    /// The paths of what each version holds, by the numbers from 0 on.
    std::string Application(int index) const;
    std::string PropertyList(int index) const;

    /// Gives each version a program that is this one.
    void AddPrograms(const std::string& program) const;
    /// Gives each version an icon file with these bytes.
    void AddIcons(const std::string& icon) const;
    /// Makes that many other folders beside the versions' own.
    void AddOthers(int count) const;

    /// So many documents of the given version.
    std::vector<std::string> AddDocuments(int count, int version = kOldest + 2) const;

 private:
    std::string Contents(int index) const;

    test::TemporaryFolder folder_;
    int versions_;
};

}  // namespace dunvey::bench
