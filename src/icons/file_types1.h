#pragma once

#include <string>
#include <vector>

#include "platform/values/reference.h"

/// The document types that are declared to the operating system: one for each generation of
/// documents and books. At run time the extension and the header decide what a document is, not
/// this table.
///
/// Each row: its name, FileType's Name, MacType and UTI. Its number is ten times the version.
#define DUNVEY_FILE_TYPE_ROWS(ROW)                                     \
    ROW(ID30_Document_Icon, "InDesign® CS Document", "IDd3", "")       \
    ROW(ID40_Document_Icon, "InDesign® CS2 Document", "IDd4", "")      \
    ROW(ID50_Document_Icon, "InDesign® CS3 Document", "IDd5", "")      \
    ROW(ID60_Document_Icon, "InDesign® CS4 Document", "IDd6", "")      \
    ROW(ID20_Document_Icon, "InDesign® Document", "InDd", "")          \
    ROW(ID70_Document_Icon, "InDesign® CS5 Document", "IDd7", "")      \
    ROW(ID30_Book_Icon, "InDesign® CS Book", "IDb3", "")               \
    ROW(ID40_Book_Icon, "InDesign® CS2 Book", "IDb4", "")              \
    ROW(ID50_Book_Icon, "InDesign® CS3 Book", "IDb5", "")              \
    ROW(ID60_Book_Icon, "InDesign® CS4 Book", "IDb6", "")              \
    ROW(ID70_Book_Icon, "InDesign® CS5 Book", "IDb7", "")              \
    ROW(ID75_Document_Icon, "InDesign® CS5.5 Document", "IDd2", "")    \
    ROW(ID75_Book_Icon, "InDesign® CS5.5 Book", "IDb2", "")            \
    ROW(ID80_Document_Icon, "InDesign® CS6 Document", "IDd8", "")      \
    ROW(ID80_Book_Icon, "InDesign® CS6 Book", "IDb8", "")              \
    ROW(UnknownDocument, "Unknown document", "", "public.data")        \
    ROW(ID90_Document_Icon, "InDesign® CC Document", "IDd9", "")       \
    ROW(ID90_Book_Icon, "InDesign® CC Book", "IDb9", "")               \
    ROW(ID100_Document_Icon, "InDesign® CC 2014 Document", "IDdX", "") \
    ROW(ID100_Book_Icon, "InDesign® CC 2014 Book", "IDbX", "")         \
    ROW(ID110_Document_Icon, "InDesign® CC 2015 Document", "IDdB", "") \
    ROW(ID110_Book_Icon, "InDesign® CC 2015 Book", "IDbB", "")         \
    ROW(ID120_Document_Icon, "InDesign® CC 2017 Document", "IDdC", "") \
    ROW(ID120_Book_Icon, "InDesign® CC 2017 Book", "IDbC", "")         \
    ROW(ID_Document_Icon, "InDesign® Document", "IDdD", "")            \
    ROW(ID_Book_Icon, "InDesign® Book", "IDbD", "")

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

namespace FileTypes1 {

/// All rows, in their order; empty until _Initialize.
extern std::vector<Ref<FileType>> pAllFileTypes;

/// Creates the types. Call it once.
void _Initialize();

/// An accessor for each row, such as ID30_Document_Icon(); nil until _Initialize.
#define DUNVEY_ACCESSOR(row, name, macType, uti) Ref<FileType> row();
DUNVEY_FILE_TYPE_ROWS(DUNVEY_ACCESSOR)
#undef DUNVEY_ACCESSOR

}  // namespace FileTypes1
}  // namespace dunvey
