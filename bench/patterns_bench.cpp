// Regular expressions: the ones the program uses, on usual and on hostile texts.
#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>

#include <algorithm>
#include <chrono>
#include <string>
#include <vector>

#include "measure.h"
#include "platform/text/reg_ex_xojo.h"
#include "platform/text/text.h"
#include "report.h"
#include "support/headers.h"

namespace dunvey {
namespace {

using namespace bench;

constexpr const char* kHeader = ".+444f43554d454e5401700f0000(..)000000(..).*";
constexpr const char* kRunning =
    "/Applications/Adobe InDesign .+?/Adobe InDesign .+?.app/Contents/MacOS/Adobe InDesign [^/]+$";
constexpr const char* kBundle =
    "/Applications/Adobe InDesign .+?/(Adobe InDesign .+?.app)/Contents/MacOS/Adobe InDesign .+";

PCRE2_SPTR Units(const char* text) {
    return reinterpret_cast<PCRE2_SPTR>(text);
}

/// The engine itself, with the pattern compiled once.
class BarePattern {
 public:
    explicit BarePattern(const char* pattern) {
        int error = 0;
        size_t position = 0;
        code_ = pcre2_compile(Units(pattern), PCRE2_ZERO_TERMINATED, 0, &error, &position, nullptr);
        pcre2_jit_compile(code_, PCRE2_JIT_COMPLETE);
        match_ = pcre2_match_data_create_from_pattern(code_, nullptr);
    }
    ~BarePattern() {
        pcre2_match_data_free(match_);
        pcre2_code_free(code_);
    }
    BarePattern(const BarePattern&) = delete;
    BarePattern& operator=(const BarePattern&) = delete;

    void Match(const std::string& text) const {
        Keep(pcre2_match(code_, Units(text.data()), text.size(), 0, 0, match_, nullptr));
    }
    void Replace(const std::string& text) const {
        PCRE2_UCHAR result[256];
        size_t length = sizeof result;
        Keep(pcre2_substitute(code_, Units(text.data()), text.size(), 0, 0, match_, nullptr,
                              Units("$1.$2"), PCRE2_ZERO_TERMINATED, result, &length));
    }

 private:
    pcre2_code* code_ = nullptr;
    pcre2_match_data* match_ = nullptr;
};

void MeasureHeader() {
    const BarePattern bare(kHeader);
    const std::string text = Lowercase(EncodeHex(test::Header("DOCUMENT", 8, 1)));
    const auto times =
        InTurns({[&] { Keep(RegExXojo::Replace(text, kHeader, "\\1.\\2", 0, true)); },
                 [&] { bare.Replace(text); }},
                51);
    Report({"version cut out of a header's hexadecimal digits", "µs", times[0] * 1e6,
            times[1] * 1e6, "PCRE2 with JIT, compiled once"});
}

/// What a list of processes looks like; every twentieth line is a version that runs.
std::vector<std::string> ProcessLines() {
    std::vector<std::string> lines;
    for (int i = 0; i < 400; ++i) {
        const std::string name = "Adobe InDesign CC " + std::to_string(2013 + i / 20);
        lines.push_back(i % 20 == 0
                            ? "/Applications/" + name + "/" + name + ".app/Contents/MacOS/" + name
                            : "/usr/lib/desktop/services/service-" + std::to_string(i));
    }
    return lines;
}

void MeasureProcessLines() {
    const BarePattern bare(kRunning);
    const std::vector<std::string> lines = ProcessLines();
    const auto ours = [&] {
        for (const std::string& line : lines)
            Keep(RegExXojo::Mach(line, kRunning, 0, true));
    };
    const auto floor = [&] {
        for (const std::string& line : lines)
            bare.Match(line);
    };
    const auto times = InTurns({ours, floor}, 51);
    Report({"400 lines against the pattern of running versions", "ms", times[0] * 1e3,
            times[1] * 1e3, "PCRE2 with JIT, compiled once"});
}

std::string Repeated(const std::string& piece, size_t size) {
    std::string text;
    while (text.size() < size)
        text += piece;
    text.resize(size);
    return text;
}

const std::string kFalseStart = "/Applications/Adobe InDesign ";

void MeasureHostileLine() {
    const BarePattern bare(kRunning);
    const std::string line = Repeated(kFalseStart, 16'000);
    const auto times = InTurns(
        {[&] { Keep(RegExXojo::Mach(line, kRunning, 0, true)); }, [&] { bare.Match(line); }}, 11);
    Report({"a hostile process line of 16,000 bytes", "ms", times[0] * 1e3, times[1] * 1e3,
            "PCRE2 with JIT, without limits", OursAtMost(5)});
}

/// Texts that begin to match again and again, and plain ones.
std::vector<std::string> LongTexts() {
    std::vector<std::string> texts;
    for (const std::string piece :
         {kFalseStart.c_str(), "/Applications/Adobe InDesign a/Adobe InDesign b.app/",
          "/Applications/Adobe InDesign a/Adobe InDesign b.app/Contents/MacOS/Adobe InDesign c/",
          "444f43554d454e5401700f0000", "444f43554d454e5401700f0000aa00000", "a", " ", "\n",
          "\xE9\x9B\xBB"}) {
        texts.push_back(Repeated(piece, 1'000'000));
    }
    return texts;
}

void MeasureLongTexts() {
    double longest = 0;
    for (const std::string& text : LongTexts()) {
        for (const char* pattern : {kRunning, kBundle, kHeader, " .+"}) {
            const auto times =
                InTurns({[&] { Keep(RegExXojo::Replace(text, pattern, "\\1", 0, true)); }}, 3);
            longest = std::max(longest, times[0]);
        }
    }
    Report({"the slowest of 36 replacements in texts of 1 MB, hostile ones among them", "ms",
            longest * 1e3, 0, "", OursAtMost(50)});
}

}  // namespace
}  // namespace dunvey

int main() {
    dunvey::MeasureHeader();
    dunvey::MeasureProcessLines();
    dunvey::MeasureHostileLine();
    dunvey::MeasureLongTexts();
}
