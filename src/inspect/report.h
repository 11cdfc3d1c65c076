#pragma once

#include <string>
#include <vector>

#include "inspect/inspector.h"

namespace dunvey {

enum class ReportFormat { kTable, kTabs, kJson, kVersions };

/// The findings as text, each line ended by a line feed: a table with aligned columns in the user's
/// language, or a form for programs with fixed English words. Control characters of names are shown
/// as "?"; JSON has them escaped, and U+FFFD for bytes that aren't UTF-8.
std::string Report(const std::vector<Finding>& findings, ReportFormat format);

}  // namespace dunvey
