#include "register/registration.h"

#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>

#include "platform/bundles/property_list.h"
#include "platform/files/special_folder.h"
#include "platform/files/streams.h"
#include "platform/values/exceptions.h"
#include "register/application_files.h"
#include "register/application_text.h"
#include "register/command_path.h"
#include "register/icon_file.h"
#include "register/message.h"

namespace dunvey {
namespace {

using namespace CoreFoundationGlobalsMBS;

std::string TextOf(const CFDictionaryMBS& list, const char* key) {
    const Ref<CFStringMBS> text = list.Lookup(*NewCFStringMBS(key));
    return text ? text->Text() : std::string();
}

Ref<CFDictionaryMBS> ReadList(const std::string& path) {
    try {
        const Ref<BinaryStream> stream = BinaryStream::Open(New<FolderItem>(path));
        const int64_t limit = kPropertyListLimit + 1;
        return NewCFObjectMBSFromXML(NewCFBinaryDataMBSStr(stream->Read(limit)));
    } catch (const IOException&) {
        return nullptr;
    }
}

/// What is said of the application; none if it wasn't made by this program, or is reached by a link
/// and so belongs to another place.
std::optional<Registered> ReadRegistered(const std::string& folder, const std::string& name) {
    const ApplicationFiles files(folder, name);
    if (!IsFolder(folder) || !IsFolder(files.bundle) || !IsFolder(files.contents)) return {};
    const Ref<CFDictionaryMBS> list = ReadList(files.propertyList);
    if (!list || !list->Lookup(*NewCFStringMBS(kMadeByKey))) return {};
    return Registered{name, TextOf(*list, "CFBundleShortVersionString"), TextOf(*list, kMadeByKey)};
}

std::string FolderOf(const std::string& name) {
    return SpecialFolder::Applications()->Child(name)->NativePath();
}

/// Holds back the keyboard's request to end and its like, which would leave half an application.
class Undisturbed {
 public:
    Undisturbed() {
        sigset_t signals;
        sigemptyset(&signals);
        for (const int signal : {SIGHUP, SIGINT, SIGTERM})
            sigaddset(&signals, signal);
        sigprocmask(SIG_BLOCK, &signals, &before_);
    }
    ~Undisturbed() { sigprocmask(SIG_SETMASK, &before_, nullptr); }
    Undisturbed(const Undisturbed&) = delete;
    Undisturbed& operator=(const Undisturbed&) = delete;

 private:
    sigset_t before_;
};

/// A folder beside the one in which the application is to stand, on the same file system. What was
/// written there and not taken away goes with it.
class Workshop {
 public:
    Workshop(const std::string& applications, std::string name) : name_(std::move(name)) {
        std::string pattern = applications + "/.dunvey-register-XXXXXX";
        if (mkdtemp(pattern.data()) == nullptr) {
            throw Refusal{"no application can be made in " + Quoted(applications) + ": " +
                          std::strerror(errno) + ". Have it done by somebody who may write there."};
        }
        folder_ = pattern;
    }
    ~Workshop() {
        try {
            RemoveApplication(Files());
            RemoveEmptyFolder(folder_);
        } catch (const Refusal&) {  // the failure that led here is told already
        }
    }
    Workshop(const Workshop&) = delete;
    Workshop& operator=(const Workshop&) = delete;

    ApplicationFiles Files() const { return {folder_, name_}; }

 private:
    std::string name_;
    std::string folder_;
};

void Make(const std::string& folder, const ApplicationContents& contents) {
    const std::string applications = SpecialFolder::Applications()->NativePath();
    MakeFolder(applications);
    const Workshop workshop(applications, contents.name);
    WriteApplication(workshop.Files(), contents);
    const std::string bundle = ApplicationFiles(folder, contents.name).bundle;
    MakeFolder(folder);
    // A folder that isn't empty is never replaced by this.
    if (rename(workshop.Files().bundle.c_str(), bundle.c_str()) == 0) return;
    const int error = errno;
    RemoveEmptyFolder(folder);
    throw Refusal{Quoted(bundle) + " can't be made: " + std::strerror(error) + "."};
}

}  // namespace

std::string Register(const Request& request) {
    ApplicationContents contents{request.name, request.version, request.command, {}};
    contents.command.front() = CommandPath(request.command.front());
    if (!request.icon.empty()) contents.icon = ReadIcon(request.icon);
    const std::string folder = FolderOf(request.name);
    const ApplicationFiles files(folder, request.name);
    const Undisturbed undisturbed;
    if (ReadRegistered(folder, request.name)) {
        WriteApplication(files, contents);
    } else if (IsThere(files.bundle) || (IsThere(folder) && !IsFolder(folder))) {
        throw Refusal{Quoted(IsFolder(folder) ? files.bundle : folder) +
                      " is there already, and dunvey-register didn't make it. Choose another name "
                      "or move it away."};
    } else {
        Make(folder, contents);
    }
    return files.bundle;
}

std::vector<Registered> RegisteredApplications() {
    std::vector<Registered> all;
    const Ref<FolderItem> applications = SpecialFolder::Applications();
    for (int64_t i = 1; i <= applications->Count(); ++i) {
        const Ref<FolderItem> folder = applications->TrueItem(i);
        if (!folder) continue;
        if (auto registered = ReadRegistered(folder->NativePath(), folder->Name()))
            all.push_back(std::move(*registered));
    }
    return all;
}

std::string Remove(const std::string& name) {
    const std::string folder = FolderOf(name);
    const ApplicationFiles files(folder, name);
    if (!ReadRegistered(folder, name)) {
        throw Refusal{Quoted(IsThere(files.bundle) ? files.bundle : folder) +
                      (IsThere(folder) ? " wasn't made by dunvey-register, so it stays."
                                       : " isn't there. --list shows what was registered.")};
    }
    const Undisturbed undisturbed;
    if (!RemoveApplication(files)) return files.bundle;
    return RemoveEmptyFolder(folder) ? std::string() : folder;
}

}  // namespace dunvey
