#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/files/folder_item.h"
#include "platform/values/reference.h"

namespace dunvey::InDesign {

/// What a document's header says.
struct HeaderReading {
    enum State {
        kFound,
        kUnreadable,  ///< the file can't be read
        kNoMarker,    ///< neither byte order's marker is in the first 48 bytes
        kNoMatch      ///< a marker is there, but what follows it is no version
    };

    State state = kNoMarker;
    /// The byte order of the marker that was found.
    bool littleEndian = false;
    /// Major and minor number, each 0 to 255; 0 and 0 unless the state is kFound.
    std::vector<int64_t> version = {0, 0};
};

/// Reads the first 48 bytes of a document and tries the patterns of its extension, whose letter
/// case doesn't count.
HeaderReading ReadHeader(const Ref<FolderItem>& item, const std::string& extension);

/// ReadHeader's version.
std::vector<int64_t> GetVerHexToDec(const Ref<FolderItem>& item, const std::string& extension);

}  // namespace dunvey::InDesign
