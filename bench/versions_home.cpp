#include "versions_home.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include "support/headers.h"
#include "version/version_name.h"

namespace dunvey::bench {
namespace {

std::string Entry(const std::string& key, const std::string& text) {
    return "\t<key>" + key + "</key>\n\t<string>" + text + "</string>\n";
}

/// The entries that are read are among many others.
std::string ListText(const std::string& version) {
    std::string others;
    for (int i = 0; i < 25; ++i)
        others += Entry("Entry" + std::to_string(i), "A text as long as those in real lists are");
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">\n<dict>\n" +
           others + Entry("CFBundleIconFile", "Icon") +
           Entry("CFBundleShortVersionString", version) + others + "</dict>\n</plist>\n";
}

[[noreturn]] void Fail(const std::string& what) {
    std::perror(what.c_str());
    std::exit(1);
}

void Link(const char* target, const std::string& path) {
    if (symlink(target, path.c_str()) != 0) Fail(path);
}

}  // namespace

VersionsHome::VersionsHome(int versions) {
    for (int i = 0; i < versions; ++i) {
        const std::string contents = Application(i).substr(Path().size() + 1) + "/Contents";
        folder_.MakeFolder(contents + "/MacOS");
        folder_.MakeFolder(contents + "/Resources");
        folder_.Write(contents + "/Info.plist", ListText(std::to_string(kOldest + i) + ".0.1"));
        Link("/bin/true", folder_ / (contents + "/MacOS/" + Name(i)));
        Link(DUNVEY_ICON, folder_ / (contents + "/Resources/Icon.icns"));
    }
}

std::string VersionsHome::Name(int index) const {
    return "Adobe InDesign " + InDesign::GetAppName(std::to_string(kOldest + index));
}

std::string VersionsHome::Application(int index) const {
    return folder_ / ("Applications/" + Name(index) + "/" + Name(index) + ".app");
}

void VersionsHome::AddOthers(int count) const {
    for (int i = 0; i < count; ++i)
        folder_.MakeFolder("Applications/Other " + std::to_string(i));
}

std::vector<std::string> VersionsHome::AddDocuments(int count, int version) const {
    folder_.MakeFolder("documents");
    std::vector<std::string> documents;
    for (int i = 0; i < count; ++i) {
        documents.push_back(folder_.Write("documents/document " + std::to_string(i) + ".indd",
                                          test::Header("DOCUMENT", version, 0)));
    }
    return documents;
}

std::vector<std::string> VersionsHome::Variables() const {
    return {"HOME=" + Path(), "XDG_CONFIG_HOME=" + Path() + "/config",
            "XDG_CACHE_HOME=" + Path() + "/cache", "XDG_RUNTIME_DIR=" + Path(),
            "PATH=/usr/bin:/bin"};
}

Crowd::Crowd(int count) {
    char program[] = "/bin/sleep";
    char duration[] = "3600";
    char* arguments[] = {program, duration, nullptr};
    for (int i = 0; i < count; ++i) {
        pid_t process = 0;
        if (posix_spawn(&process, program, nullptr, nullptr, arguments, environ) != 0)
            Fail(program);
        processes_.push_back(process);
    }
}

Crowd::~Crowd() {
    for (const pid_t process : processes_)
        kill(process, SIGKILL);
    for (const pid_t process : processes_)
        waitpid(process, nullptr, 0);
}

}  // namespace dunvey::bench
