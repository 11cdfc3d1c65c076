// dunvey-register: creates applications that start a command of the user, so that Dunvey finds them.
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
#include "register/refusal.h"
#include "register/registration.h"
#include "register/request.h"

namespace dunvey {
namespace {

constexpr const char* kHelp =
    R"(Registers a command as a version of InDesign, so that Dunvey finds it.

  dunvey-register --name NAME --version VERSION [OPTIONS] [--] COMMAND [ARGUMENT...]
  dunvey-register --name NAME --version VERSION [OPTIONS] --wine PREFIX EXE [ARGUMENT...]
  dunvey-register --list
  dunvey-register --remove NAME

  --name NAME        "Adobe InDesign" and a version, such as "Adobe InDesign CS6"
  --version VERSION  numbers with dots between them, such as 8.0.1
  --icon FILE        a PNG of up to 1024 x 1024 pixels, or an .icns file
  --wine PREFIX      the command is a Windows program in this Wine prefix
  --force            accept a version that doesn't fit, and replace changed files

Dunvey starts the command with the documents as last arguments, as absolute paths. The version
counts as running until the command ends. Examples:

  dunvey-register --name "Adobe InDesign CS6" --version 8.0.1 \
      --wine ~/.wine ~/.wine/drive_c/ID/CS6/InDesign.exe
  dunvey-register --name "Adobe InDesign CC" --version 9.2 -- env LANG=ja_JP.UTF-8 /opt/id/start
  dunvey-register --remove "Adobe InDesign CS6"
)";

void Complain(const std::string& text) {
    WriteErrorLine("dunvey-register: " + text);
}

void Print(const std::string& text) {
    if (WriteFully(STDOUT_FILENO, text) != 0)
        throw Refusal{"standard output can't be written."};
}

std::string Padded(const std::string& text, int64_t width) {
    return text + std::string(static_cast<size_t>(std::max<int64_t>(width - Len(text), 0)), ' ');
}

/// A line for each application: name, version and command in columns.
std::string ListText(const std::vector<Registered>& all) {
    int64_t nameWidth = 0;
    int64_t versionWidth = 0;
    for (const Registered& each : all) {
        nameWidth = std::max(nameWidth, Len(OneLine(each.record.name)));
        versionWidth = std::max(versionWidth, Len(OneLine(each.record.version)));
    }
    std::string text;
    for (const Registered& each : all) {
        text += Padded(OneLine(each.record.name), nameWidth) + "  " +
                Padded(OneLine(each.record.version), versionWidth) + "  " +
                ShownCommand(each.record.command);
        if (!each.missing.empty()) text += "  (missing: " + OneLine(each.missing) + ")";
        text += "\n";
    }
    return text;
}

/// Returns the exit code.
int PrintList() {
    std::vector<std::string> problems;
    Print(ListText(RegisteredApplications(problems)));
    for (const std::string& problem : problems)
        Complain(problem);
    return problems.empty() ? 0 : 1;
}

void RegisterAndTell(const Request& request) {
    const std::string bundle = Register(request);
    Print("Registered " + OneLine(Quoted(bundle)) + ".\n");
    if (!ReturnsAtOnce(ResolveCommand(request))) return;
    Complain(
        "warning: this command returns before the program that it starts has ended. Dunvey then "
        "takes the version as not running and may start it twice. See THE COMMAND in man "
        "dunvey-register.");
}

void RemoveAndTell(const std::string& name) {
    const std::string kept = Remove(name);
    if (kept.empty()) return;
    std::string text = Quoted(kept) + " stays: it holds files that dunvey-register didn't write.";
    if (kept.ends_with(".app")) text += " Dunvey shows it until you move it away.";
    Complain(text);
}

/// Returns the exit code.
int Run(const Request& request) {
    switch (request.action) {
        case Request::Action::Help:
            Print(kHelp);
            break;
        case Request::Action::List:
            return PrintList();
        case Request::Action::Remove:
            RemoveAndTell(request.name);
            break;
        case Request::Action::Register:
            RegisterAndTell(request);
            break;
    }
    return 0;
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
