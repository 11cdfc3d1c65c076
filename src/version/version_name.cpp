#include "version/version_name.h"

#include "platform/text/text.h"

namespace dunvey::InDesign {

std::string GetAppName(const std::string& version) {
    const double v = Val(version);
    const int64_t n = Floor(v);
    if (n >= 1 && n < 3) return version;
    if (n == 3) return "CS";
    if (v >= 4.0 && v < 7.5) return "CS" + Str(n - 2);
    if (v == 7.5) return "CS5.5";
    if (n == 8) return "CS6";
    if (n == 9) return "CC";
    // There is no CC 2016, so from 12 on the year is one higher.
    if (n >= 10 && n < 12) return "CC " + Str(n + 2004);
    if (n >= 12 && n < 15) return "CC " + Str(n + 2005);
    return Str(n + 2005);
}

}  // namespace dunvey::InDesign
