#pragma once

#include <string>
#include <vector>

#include "platform/loop/event_loop.h"

namespace dunvey {

/// The documents named by the launch arguments or by the URIs of a drop.
struct Intake {
    /// The paths of the documents, absolute or relative as they were given.
    std::vector<std::string> documents;
    /// A line for each argument that is no document, with the reason.
    std::vector<std::string> refusals;
};

/// The path that an argument names: itself, or the decoded path of a local `file:` URI. Empty for a
/// URI that can't be decoded or names a file of another computer.
std::string PathOfArgument(const std::string& argument);

/// Why a path isn't accepted; kNone if it is.
enum class Refusal { kNone, kMissing, kFolder, kNotRegular, kOtherKind };

/// A document is a regular file, or a link to one, with one of the extensions in any ASCII letter
/// case; without extensions every file is one. The file isn't opened. Sets errno with kMissing.
Refusal RefusalOf(const std::string& path, const std::vector<std::string>& extensions);

/// Separates documents from other arguments. One that begins with "-" is a file name.
Intake TakeIn(const std::vector<std::string>& arguments,
              const std::vector<std::string>& extensions);

/// The launch arguments without the program's own name; set by main.
extern std::vector<std::string> launchArguments;

/// Queues the documents of the launch. On Linux they are the arguments; one that is no document is
/// reported on standard error. On macOS documents arrive through the desktop, which is loaded here.
void PostLaunchDocuments(EventLoop& loop);
/// Whether the launch had arguments, none of them a document of the application.
bool IsNothingToOpen();

}  // namespace dunvey
