// The program's regular expressions on hostile texts.
#include <algorithm>
#include <string>
#include <vector>

#include "measure.h"
#include "platform/controls/reg_ex_xojo.h"
#include "report.h"

namespace dunvey {
namespace {

using namespace bench;

constexpr const char* kHeader = ".+444f43554d454e5401700f0000(..)000000(..).*";
constexpr const char* kRunning =
    "/Applications/Adobe InDesign .+?/Adobe InDesign .+?.app/Contents/MacOS/Adobe InDesign [^/]+$";
constexpr const char* kBundle =
    "/Applications/Adobe InDesign .+?/(Adobe InDesign .+?.app)/Contents/MacOS/Adobe InDesign .+";
/// The beginning of a match, which a hostile text repeats.
constexpr const char* kBeginning = "/Applications/Adobe InDesign ";

std::string Repeated(const std::string& piece, size_t size) {
    std::string text;
    while (text.size() < size)
        text += piece;
    text.resize(size);
    return text;
}

void MeasureHostileLine() {
    const std::string line = Repeated(kBeginning, 16'000);
    const auto times = InTurns({[&] { Keep(RegExXojo::Mach(line, kRunning, 0, true)); }}, 11);
    Report({"hostile ps line of 16,000 bytes", "ms", times[0] * 1e3, 0, "", OursAtMost(5)});
}

void MeasureLongTexts() {
    double longest = 0;
    for (const std::string piece :
         {kBeginning, "/Applications/Adobe InDesign a/Adobe InDesign b.app/",
          "/Applications/Adobe InDesign a/Adobe InDesign b.app/Contents/MacOS/Adobe InDesign c/",
          "444f43554d454e5401700f0000", "444f43554d454e5401700f0000aa00000", "a", " ", "\n",
          "\xE9\x9B\xBB"}) {
        const std::string text = Repeated(piece, 1'000'000);
        for (const char* pattern : {kRunning, kBundle, kHeader, " .+"}) {
            const auto times =
                InTurns({[&] { Keep(RegExXojo::Replace(text, pattern, "\\1", 0, true)); }}, 3);
            longest = std::max(longest, times[0]);
        }
    }
    Report({"slowest of 36 replacements in texts of 1 MB", "ms", longest * 1e3, 0, "",
            OursAtMost(50)});
}

}  // namespace
}  // namespace dunvey

int main() {
    dunvey::MeasureHostileLine();
    dunvey::MeasureLongTexts();
}
