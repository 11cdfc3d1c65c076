// Whole runs of the program as users get it, beside a bare program that starts the same shell
// commands.
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <map>

#include "measure.h"
#include "program.h"
#include "report.h"
#include "versions_home.h"

namespace dunvey {
namespace {

using namespace bench;

constexpr double kMilliseconds = 1e3;
constexpr int kVersions = 5;

/// A home with versions that end as soon as they are started, and documents of one of them.
class RunHome : public VersionsHome {
 public:
    RunHome(int versions, int documents) : VersionsHome(versions) {
        AddPrograms(DUNVEY_ENDED_AT_ONCE);
        documents_ = AddDocuments(documents);
    }

    Outcome Dunvey(size_t documents, const std::vector<std::string>& more = {}) const {
        return Run({DUNVEY_PROGRAM}, documents, more);
    }
    /// The documents belong to the third version.
    Outcome Bare(size_t documents, const std::vector<std::string>& more = {}) const {
        return Run({DUNVEY_BARE_RUN, DUNVEY_HELPERS, Application(2)}, documents, more);
    }

 private:
    Outcome Run(std::vector<std::string> words, size_t documents,
                const std::vector<std::string>& more) const {
        words.insert(words.end(), documents_.begin(),
                     documents_.begin() + static_cast<std::ptrdiff_t>(documents));
        std::vector<std::string> variables = {
            "HOME=" + Path(), "XDG_CONFIG_HOME=" + Path() + "/config", "PATH=/usr/bin:/bin"};
        variables.insert(variables.end(), more.begin(), more.end());
        Outcome outcome = RunProgram(words, variables);
        if (outcome.status != 0) {
            std::fprintf(stderr, "%s ended with status %d\n", words[0].c_str(), outcome.status);
            std::exit(1);
        }
        return outcome;
    }

    std::vector<std::string> documents_;
};

/// How often a run is measured: the longer, the fewer.
size_t Turns(int documents) {
    return documents <= 10 ? 51 : documents <= 100 ? 15 : documents <= 1'000 ? 3 : 1;
}

std::string Documents(int count) {
    const std::string digits = std::to_string(count);
    if (count == 1) return "1 document";
    return (count < 1'000
                ? digits
                : digits.substr(0, digits.size() - 3) + "," + digits.substr(digits.size() - 3)) +
           " documents";
}

void MeasureDocuments() {
    const std::map<int, Goal> goals = {{1, RatioAtMost(1.5)}, {100, RatioAtMost(1.2)}};
    const RunHome home(kVersions, 10'000);
    std::map<int, double> ours;
    std::map<int, double> bare;
    for (const int count : {1, 10, 100, 1'000, 10'000}) {
        const size_t documents = static_cast<size_t>(count);
        const auto times =
            InTurns({[&] { home.Dunvey(documents); }, [&] { home.Bare(documents); }}, Turns(count));
        ours[count] = times[0];
        bare[count] = times[1];
        Report({"run of " + Documents(count) + ", from start to hand-over", "ms",
                times[0] * kMilliseconds, times[1] * kMilliseconds, "the bare shell commands",
                goals.contains(count) ? goals.at(count) : Goal()});
        ReportGrowth({"documents", "whole run", static_cast<double>(count), times[0],
                      "the bare shell commands", times[1]});
    }
    const auto oneMore = [](const std::map<int, double>& all) {
        return (all.at(1'000) - all.at(100)) / (1'000.0 - 100.0) * kMilliseconds;
    };
    Report({"one more document in a run of 100 to 1,000", "ms", oneMore(ours), oneMore(bare),
            "its shell command", RatioAtMost(1.3)});
}

void MeasureVersions() {
    for (const int versions : {5, 50, 300}) {
        const RunHome home(versions, 1);
        const auto times = InTurns({[&] { home.Dunvey(1); }, [&] { home.Bare(1); }});
        ReportGrowth({"versions", "run of 1 document", static_cast<double>(versions), times[0],
                      "the bare shell commands", times[1]});
    }
}

/// How many libraries the loader brings into the program, the loader itself not counted.
double Libraries(const RunHome& home, const std::string& name,
                 Outcome (RunHome::*run)(size_t, const std::vector<std::string>&) const) {
    const std::string told = home.Path() + "/" + name;
    const Outcome outcome = (home.*run)(1, {"LD_DEBUG=files", "LD_DEBUG_OUTPUT=" + told});
    const std::string text = home.Folder().Read(name + "." + std::to_string(outcome.process));
    double count = -1;
    for (size_t at = 0; (at = text.find("calling init: /", at)) != text.npos; ++at)
        ++count;
    return count;
}

void MeasureLibraries() {
    const RunHome home(kVersions, 1);
    home.Dunvey(1);
    Report({"libraries loaded in a run without a question", "",
            Libraries(home, "ours", &RunHome::Dunvey), Libraries(home, "bare", &RunHome::Bare),
            "the bare program in this language"});
}

}  // namespace
}  // namespace dunvey

int main() {
    dunvey::MeasureDocuments();
    dunvey::MeasureVersions();
    dunvey::MeasureLibraries();
}
