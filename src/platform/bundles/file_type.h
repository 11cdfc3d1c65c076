#pragma once

#include <string>

namespace dunvey {

/// A kind of documents, as it is declared to the system's file-type machinery.
class FileType {
 public:
    /// For the user.
    std::string Name;
    /// Those of its files, joined by ";".
    std::string Extensions;
    /// The four characters of its type code and of its creator code.
    std::string MacType;
    std::string MacCreator;
    std::string MimeType;
    /// Whether the type is another program's.
    bool Imported = false;
    /// The type identifier above its own one.
    std::string ConformsTo;
    std::string UTI;
};

}  // namespace dunvey
