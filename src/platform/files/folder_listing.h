#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/files/file_stamp.h"

namespace dunvey {

/// The names in a folder, in byte order. Each question looks at the disk, but the folder is read
/// again only if it has changed: a walk that asks for the number of entries at each step stays
/// linear.
class FolderListing {
 public:
    /// The names without "." and ".."; as far as the folder can be read.
    const std::vector<std::string>& Names(const std::string& folder);

 private:
    std::optional<FileStamp> stamp_;
    std::vector<std::string> names_;
};

}  // namespace dunvey
