// dunvey-register: makes applications that start a command of the user's, so that Dunvey finds
// them.
#include <unistd.h>

#include <exception>
#include <string>
#include <vector>

#include "platform/files/file_descriptor.h"
#include "platform/text/shown_text.h"
#include "register/message.h"
#include "register/registration.h"
#include "register/request.h"

namespace dunvey {
namespace {

constexpr const char* kHelp =
    "Makes a version of InDesign known to Dunvey.\n"
    "\n"
    "  dunvey-register --name NAME --version VERSION [--icon FILE] -- COMMAND [WORD...]\n"
    "  dunvey-register --list\n"
    "  dunvey-register --remove NAME\n"
    "\n"
    "NAME is \"Adobe InDesign\" and a version, such as \"Adobe InDesign CS6\"; VERSION is digits\n"
    "and dots, such as 8.0.1; FILE is a PNG or an .icns file. COMMAND gets the documents behind "
    "its\n"
    "words, as absolute paths. It counts as running for as long as it stays. For example:\n"
    "\n"
    "  dunvey-register --name \"Adobe InDesign CS6\" --version 8.0.1 -- wine .../InDesign.exe\n";

void Print(const std::string& text) {
    if (WriteFully(STDOUT_FILENO, text) != 0) throw Refusal{"standard output can't be written."};
}

std::string ListText() {
    std::string text;
    for (const Registered& each : RegisteredApplications()) {
        text +=
            OneLine(each.name) + "\t" + OneLine(each.version) + "\t" + OneLine(each.command) + "\n";
    }
    return text;
}

void RemoveAndTell(const std::string& name) {
    const std::string kept = Remove(name);
    if (kept.empty()) return;
    std::string text = Quoted(kept) + " holds files that dunvey-register didn't make, so it stays.";
    if (kept.ends_with(".app")) text += " Dunvey shows it until you move it away.";
    Complain(text);
}

void Carry(const Request& request) {
    switch (request.action) {
        case Request::Action::Help:
            Print(kHelp);
            break;
        case Request::Action::List:
            Print(ListText());
            break;
        case Request::Action::Remove:
            RemoveAndTell(request.name);
            break;
        case Request::Action::Register:
            Print("Made " + Quoted(Register(request)) + ".\n");
            break;
    }
}

}  // namespace
}  // namespace dunvey

int main(int argumentCount, char** arguments) {
    using namespace dunvey;
    try {
        Carry(ReadRequest({arguments + 1, arguments + argumentCount}));
        return 0;
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
