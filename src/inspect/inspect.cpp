// dunvey-inspect: says which version each document has and what Dunvey would do with it.
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <functional>
#include <map>
#include <optional>

#include "inspect/report.h"
#include "inspect/texts.h"
#include "platform/files/file_descriptor.h"
#include "platform/processes/error_line.h"
#include "platform/processes/process_setup.h"
#include "platform/values/exceptions.h"

namespace dunvey {
namespace {

void Complain(const std::string& text) {
    WriteErrorLine("dunvey-inspect: " + text);
}

/// Returns the exit code. A closed pipe isn't reported.
int Print(const std::string& text, int exitCode) {
    const int error = WriteFully(STDOUT_FILENO, text);
    if (error == 0) return exitCode;
    if (error != EPIPE)
        Complain(std::string("standard output can't be written: ") + std::strerror(error));
    return 1;
}

/// Shows the number of documents on a terminal after one second; removes it at the end.
class Progress {
 public:
    ~Progress() {
        if (isShown_) WriteFully(STDERR_FILENO, clear_);
    }
    void operator()(size_t count) {
        const auto now = std::chrono::steady_clock::now();
        if (now < next_ || isatty(STDERR_FILENO) != 1) return;
        next_ = now + std::chrono::milliseconds(200);
        isShown_ = true;
        WriteFully(STDERR_FILENO, clear_ + std::to_string(count) + InspectText::kProgress(""));
    }

 private:
    const std::string clear_ = "\r\x1B[K";
    std::chrono::steady_clock::time_point next_ =
        std::chrono::steady_clock::now() + std::chrono::seconds(1);
    bool isShown_ = false;
};

/// What the arguments ask for.
struct Options {
    ReportFormat format = ReportFormat::kTable;
    bool recursive = false;
    bool help = false;
    std::vector<std::string> files;
    /// What is wrong with the arguments; empty if nothing is.
    std::string fault;
};

void ReadOption(const std::string& option, Options& options) {
    static const std::map<std::string, ReportFormat> kFormats = {
        {"--tsv", ReportFormat::kTabs},
        {"--json", ReportFormat::kJson},
        {"--version-only", ReportFormat::kVersions}};
    const auto format = kFormats.find(option);
    if (option == "--recursive") {
        options.recursive = true;
    } else if (option == "--help") {
        options.help = true;
    } else if (format == kFormats.end()) {
        options.fault = "unknown option " + Quoted(option);
    } else if (options.format != ReportFormat::kTable && options.format != format->second) {
        options.fault = "only one of --tsv, --json and --version-only can be given";
    } else {
        options.format = format->second;
    }
}

Options ReadOptions(const std::vector<std::string>& arguments) {
    Options options;
    auto argument = arguments.begin();
    for (; argument != arguments.end() && *argument != "--"; ++argument) {
        if (argument->starts_with("-")) {
            ReadOption(*argument, options);
        } else {
            options.files.push_back(*argument);
        }
    }
    if (argument != arguments.end())
        options.files.insert(options.files.end(), argument + 1, arguments.end());
    if (options.fault.empty() && options.files.empty()) options.fault = "no file is given";
    return options;
}

int Inspect(const Options& options) {
    std::optional<Progress> progress(std::in_place);
    Inspector inspector(options.format != ReportFormat::kVersions,
                        [&](size_t count) { (*progress)(count); });
    for (const std::string& file : options.files)
        inspector.Examine(file, options.recursive);
    progress.reset();
    const std::vector<Finding>& findings = inspector.Findings();
    const bool allRead =
        std::all_of(findings.begin(), findings.end(), std::mem_fn(&Finding::IsRead));
    return Print(Report(findings, options.format), allRead ? 0 : 1);
}

int Run(const std::vector<std::string>& arguments) {
    const Options options = ReadOptions(arguments);
    if (options.help) return Print(InspectText::kUsage(""), 0);
    if (options.fault.empty()) return Inspect(options);
    Complain(options.fault + ". See dunvey-inspect --help.");
    return 2;
}

}  // namespace
}  // namespace dunvey

int main(int argc, char** argv) {
    using namespace dunvey;
    SetUpProcess();
    try {
        return Run({argv + (argc > 0 ? 1 : 0), argv + argc});
    } catch (const RuntimeException& failure) {
        Complain(failure.Message);
    } catch (const std::exception& failure) {
        Complain(failure.what());
    }
    return 1;
}
