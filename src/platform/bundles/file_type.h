#pragma once

#include <string>

namespace dunvey {

/// A kind of document, as declared to the operating system.
class FileType {
 public:
    /// Shown to the user.
    std::string Name;
    /// Extensions, joined by ";".
    std::string Extensions;
    /// Four-character codes of type and creator.
    std::string MacType;
    std::string MacCreator;
    std::string MimeType;
    /// Whether another program owns the type.
    bool Imported = false;
    /// The type identifier of the parent type.
    std::string ConformsTo;
    std::string UTI;
};

}  // namespace dunvey
