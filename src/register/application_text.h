#pragma once

#include <string>
#include <vector>

namespace dunvey {

/// The key in an application's property list that says who made it; its value shows the command.
inline constexpr const char* kMadeByKey = "DunveyRegisterCommand";
/// The file of the icon in the bundle's Resources.
inline constexpr const char* kIconName = "Application.icns";

/// The words as one line for a reader: as a shell would take them, but for characters that would
/// break the line or are no text.
std::string ShownCommand(const std::vector<std::string>& command);

/// The property list of an application.
std::string PropertyListText(const std::string& name, const std::string& version,
                             const std::vector<std::string>& command, bool hasIcon);

/// The script that stands in for an application's program. It hands each word on byte for byte, and
/// stays as long as the command does, since it is what counts as running.
std::string WrapperText(const std::vector<std::string>& command);

}  // namespace dunvey
