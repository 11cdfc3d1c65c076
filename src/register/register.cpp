// dunvey-register: creates applications that start a command of the user, so that Dunvey finds
// them.
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <exception>
#include <string>
#include <vector>

#include "platform/files/file_descriptor.h"
#include "platform/processes/error_line.h"
#include "platform/text/shown_text.h"
#include "platform/text/text.h"
#include "register/registration.h"
#include "register/request.h"
#include "register/texts.h"

namespace dunvey {
namespace {

void Complain(const std::string& text) {
    WriteErrorLine("dunvey-register: " + text);
}

void Print(const std::string& text) {
    if (WriteFully(STDOUT_FILENO, text) != 0) throw Refusal{"standard output can't be written."};
}

/// A line for each application: name, version and command in columns.
std::string ListText(const std::vector<Registered>& all) {
    int64_t nameWidth = 0;
    int64_t versionWidth = 0;
    for (const Registered& each : all) {
        nameWidth = std::max(nameWidth, Len(OneLine(each.record.name)) + 2);
        versionWidth = std::max(versionWidth, Len(OneLine(each.record.version)) + 2);
    }
    const auto padded = [](const std::string& text, int64_t width) {
        const std::string line = OneLine(text);
        return line + std::string(static_cast<size_t>(width - Len(line)), ' ');
    };
    std::string text;
    for (const Registered& each : all) {
        text += padded(each.record.name, nameWidth) + padded(each.record.version, versionWidth) +
                ShownCommand(each.record.command);
        if (!each.missing.empty()) text += "  (missing: " + OneLine(each.missing) + ")";
        text += "\n";
    }
    return text;
}

void RegisterApplication(const Request& request) {
    const Registered registered = Register(request);
    Print("Registered " + Quoted(OneLine(registered.record.name)) + ".\n");
    if (!ReturnsAtOnce(registered.record.command)) return;
    Complain(
        "warning: this command ends before the program that it starts. Dunvey then takes the "
        "version as not running and may start it twice. See \"Started twice\" in man "
        "dunvey-register.");
}

void RemoveApplication(const std::string& name) {
    const std::string kept = Remove(name);
    if (kept.empty()) return;
    Complain(Quoted(kept) + " stays: it holds files that dunvey-register didn't write." +
             (kept.ends_with(".app") ? " Dunvey shows it until you move it away." : ""));
}

/// Returns the exit code.
int Run(const Request& request) {
    std::vector<std::string> problems;
    switch (request.action) {
        case Request::Action::Help:
            Print(kHelp);
            break;
        case Request::Action::List:
            Print(ListText(RegisteredApplications(problems)));
            break;
        case Request::Action::Remove:
            RemoveApplication(request.name);
            break;
        case Request::Action::Register:
            RegisterApplication(request);
            break;
    }
    for (const std::string& problem : problems)
        Complain(problem);
    return problems.empty() ? 0 : 1;
}

}  // namespace
}  // namespace dunvey

int main(int argumentCount, char** arguments) {
    using namespace dunvey;
    // A write beyond the file size limit then fails instead of ending the process.
    std::signal(SIGXFSZ, SIG_IGN);
    try {
        return Run(ReadRequest({arguments + 1, arguments + argumentCount}));
    } catch (const UsageError& error) {
        Complain(error.text + " See dunvey-register --help.");
        return 2;
    } catch (const Refusal& refusal) {
        Complain(refusal.text);
    } catch (const std::exception& failure) {
        Complain(failure.what());
    }
    return 1;
}
