#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "register/command.h"

namespace dunvey {

/// The icon's file in the bundle's Resources.
inline constexpr const char* kIconName = "Application.icns";

/// An application as its property list describes it.
struct ApplicationRecord {
    std::string name;
    std::string version;
    Command command;
    /// The fingerprints of the files that dunvey-register wrote. A file with another fingerprint is
    /// the user's. The icon's is empty if dunvey-register wrote none.
    std::string scriptFingerprint;
    std::string iconFingerprint;
};

/// 16 hexadecimal digits that change when the bytes do.
std::string Fingerprint(std::string_view bytes);

/// The property list. Raises Refusal if it would be too long to be read again.
std::string PropertyListText(const ApplicationRecord& record, bool hasIcon);

/// The record of an application; none if the property list isn't one that PropertyListText made.
std::optional<ApplicationRecord> ReadRecord(const std::string& name, std::string propertyList);

}  // namespace dunvey
