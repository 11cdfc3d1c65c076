#pragma once

#include "platform/bundles/system.h"

namespace dunvey {

/// The texts of dunvey-inspect. Its --tsv and --json output has fixed English words instead.
namespace InspectText {

inline constexpr LocalizedText kFile{"InspectText.kFile", "Document"};
inline constexpr LocalizedText kVersion{"InspectText.kVersion", "Version"};
inline constexpr LocalizedText kByteOrder{"InspectText.kByteOrder", "Byte order"};
inline constexpr LocalizedText kProduct{"InspectText.kProduct", "Product"};
inline constexpr LocalizedText kApplication{"InspectText.kApplication", "Application"};
inline constexpr LocalizedText kApplicationVersion{"InspectText.kApplicationVersion",
                                                   "Its version"};
inline constexpr LocalizedText kRunning{"InspectText.kRunning", "Running"};
inline constexpr LocalizedText kDecision{"InspectText.kDecision", "Dunvey"};

inline constexpr LocalizedText kMissing{"InspectText.kMissing", "not found"};
inline constexpr LocalizedText kFolder{"InspectText.kFolder", "a folder (see --recursive)"};
inline constexpr LocalizedText kNotRegular{"InspectText.kNotRegular", "not a regular file"};
inline constexpr LocalizedText kOtherKind{"InspectText.kOtherKind", "not one of the four kinds"};
inline constexpr LocalizedText kUnreadable{"InspectText.kUnreadable", "can't be read"};
inline constexpr LocalizedText kNoMarker{"InspectText.kNoMarker", "no header of its kind"};
inline constexpr LocalizedText kNoMatch{"InspectText.kNoMatch", "header without a version"};

inline constexpr LocalizedText kLittle{"InspectText.kLittle", "little-endian"};
inline constexpr LocalizedText kBig{"InspectText.kBig", "big-endian"};
inline constexpr LocalizedText kOwn{"InspectText.kOwn", "yes"};
inline constexpr LocalizedText kOwnAndOthers{"InspectText.kOwnAndOthers", "yes, and others"};
inline constexpr LocalizedText kOthers{"InspectText.kOthers", "others"};
inline constexpr LocalizedText kNone{"InspectText.kNone", "no"};
inline constexpr LocalizedText kOpen{"InspectText.kOpen", "opens it there"};
inline constexpr LocalizedText kAnotherRuns{"InspectText.kAnotherRuns",
                                            "asks: another version is running"};
inline constexpr LocalizedText kNotInstalled{"InspectText.kNotInstalled",
                                             "asks: this version is not installed"};

/// Follows the number of documents.
inline constexpr LocalizedText kProgress{"InspectText.kProgress", " documents read"};
inline constexpr LocalizedText kUsage{
    "InspectText.kUsage",
    "Usage: dunvey-inspect [--recursive] [--tsv | --json | --version-only] [--] FILE...\n"
    "\n"
    "Says which version of InDesign made each document, and what Dunvey would do with it. Nothing\n"
    "is opened or written.\n"
    "\n"
    "  --recursive     look for documents in folders, too\n"
    "  --tsv           tab-separated values\n"
    "  --json          a JSON array\n"
    "  --version-only  only the versions, one on each line\n"
    "  --help          this text\n"
    "\n"
    "Exit code: 0 if every file was read, 1 if some were not, 2 for wrong usage.\n"};

}  // namespace InspectText
}  // namespace dunvey
