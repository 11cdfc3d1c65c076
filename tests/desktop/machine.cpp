#include "desktop/machine.h"

#include <cstdlib>

#include "platform/files/special_folder.h"
#include "platform/loop/application.h"
#include "platform/loop/keyboard.h"
#include "platform/processes/shell_environment.h"
#include "platform/processes/system_information.h"

namespace dunvey {

headless::Machine& headless::TheMachine() {
    static Machine machine;
    return machine;
}

bool Keyboard::AsyncCommandKey() {
    const headless::Machine& machine = headless::TheMachine();
    return machine.readCommandKey ? machine.readCommandKey() : machine.commandKey;
}

bool Keyboard::AsyncOptionKey() {
    return headless::TheMachine().optionKey;
}

const char* Keyboard::CommandKeyName() {
    return "Control";
}

int64_t SystemInformationMBS::MacMajorVersion() {
    return headless::TheMachine().systemMajor;
}

int64_t SystemInformationMBS::MacMinorVersion() {
    return headless::TheMachine().systemMinor;
}

Ref<FolderItem> SpecialFolder::Applications() {
    return New<FolderItem>(std::string(std::getenv("HOME")) + "/Applications");
}

Ref<FolderItem> SpecialFolder::ApplicationData() {
    Ref<FolderItem> folder = New<FolderItem>(std::getenv("XDG_CONFIG_HOME"));
    if (!folder->Exists()) folder->CreateAsFolder();
    return folder;
}

std::vector<std::string> ShellEnvironment() {
    const Ref<FolderItem> contents = Application::ExecutableFile()->Parent()->Parent();
    return EnvironmentWithPath(contents->Child("Helpers")->NativePath() + ":" +
                               std::getenv("PATH"));
}

}  // namespace dunvey
