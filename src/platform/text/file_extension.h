#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "platform/text/text.h"

namespace dunvey {

/// The last dot-separated piece of a file name; the whole name where it has no dot.
inline std::string FileExtension(const std::string& name) {
    return SplitB(name, ".").back();
}

/// Whether the extension is one of those in the list, which are in lower case; its own ASCII letter
/// case doesn't count.
inline bool IsExtensionIn(const std::vector<std::string>& extensions,
                          const std::string& extension) {
    return std::find(extensions.begin(), extensions.end(), Lowercase(extension)) !=
           extensions.end();
}

}  // namespace dunvey
