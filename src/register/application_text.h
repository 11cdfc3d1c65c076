#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "register/command.h"

namespace dunvey {

/// The icon's file in the bundle's Resources.
inline constexpr const char* kIconName = "Application.icns";

/// What an application's property list says.
struct ApplicationRecord {
    std::string name;
    std::string version;
    Command command;
    /// The fingerprints of the script and the icon that dunvey-register wrote; the icon's is empty
    /// if it wrote none. A file with another fingerprint was changed by the user.
    std::string scriptFingerprint;
    std::string iconFingerprint;
};

/// A 64-bit hash of the bytes in 16 hexadecimal digits.
std::string Fingerprint(std::string_view bytes);

/// The property list. Raises Refusal if it would be too long to be read again.
std::string PropertyListText(const ApplicationRecord& record, bool hasIcon);

/// The record of an application; nullopt unless PropertyListText wrote the property list.
std::optional<ApplicationRecord> ReadRecord(const std::string& name, std::string propertyList);

/// The shell script that is an application's program: it runs as long as the command does.
std::string ScriptText(const std::string& name, const Command& command);

}  // namespace dunvey
