#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "desktop/machine.h"
#include "desktop/scripted_desktop.h"
#include "platform/files/folder_item.h"
#include "platform/loop/event_loop.h"
#include "support/headers.h"
#include "support/temporary_folder.h"

namespace dunvey::test {

/// A home with applications and documents, a process list, and a record of what was started.
/// Commands go through the real shell to the recorders in Helpers.
class World : public ::testing::Test {
 protected:
    World() {
        headless::TheMachine() = {};
        InstallDesktop();
        setenv("HOME", folder_.Path().c_str(), 1);
        setenv("XDG_CONFIG_HOME", (folder_ / "config").c_str(), 1);
        setenv("LC_ALL", "C", 1);
        setenv("DUNVEY_TEST_FOLDER", folder_.Path().c_str(), 1);
        folder_.MakeFolder("Applications");
        folder_.MakeFolder("config");
        folder_.Write("ps-output", "COMM\n");
    }
    ~World() override { Desktop::Install(nullptr); }

    void TearDown() override { user_->Finish(); }

    /// Replaces the desktop, if there is one.
    void InstallDesktop() {
        auto desktop = std::make_unique<headless::ScriptedDesktop>();
        user_ = desktop.get();
        Desktop::Install(std::move(desktop));
    }

    static std::string AppName(const std::string& suffix) {
        return "Adobe InDesign " + suffix + ".app";
    }
    static std::string Bundle(const std::string& suffix) {
        return "Applications/Adobe InDesign " + suffix + "/" + AppName(suffix);
    }
    std::string AppPath(const std::string& suffix) const { return folder_ / Bundle(suffix); }

    /// An installed version; without a version text it has no property list.
    Ref<FolderItem> Installed(const std::string& suffix, const std::string& version = {}) {
        folder_.MakeFolder(Bundle(suffix) + "/Contents");
        if (!version.empty()) {
            folder_.Write(
                Bundle(suffix) + "/Contents/Info.plist",
                "<plist version=\"1.0\"><dict><key>CFBundleShortVersionString</key><string>" +
                    version + "</string></dict></plist>");
        }
        return New<FolderItem>(AppPath(suffix));
    }

    /// What runs once a quit request has been sent.
    void AfterQuit(const std::vector<std::string>& suffixes) {
        folder_.Write("after-quit", ProcessList(suffixes));
    }

    std::string ProcessLine(const std::string& suffix) const {
        return AppPath(suffix) + "/Contents/MacOS/Adobe InDesign " + suffix + "\n";
    }

    /// What `ps` prints from now on: a heading and one process for each suffix.
    void Running(const std::vector<std::string>& suffixes) {
        folder_.Write("ps-output", ProcessList(suffixes));
    }
    std::string ProcessList(const std::vector<std::string>& suffixes) const {
        std::string output = "COMM\n/sbin/init\n";
        for (const std::string& suffix : suffixes)
            output += ProcessLine(suffix);
        return output;
    }

    /// A document of the given version.
    Ref<FolderItem> Document(const std::string& name, int major, int minor = 0) {
        return New<FolderItem>(folder_.Write(name, Header("DOCUMENT", major, minor)));
    }

    /// The arguments of each call of `open`.
    std::vector<std::vector<std::string>> OpenCalls() const { return CallsIn("open-calls"); }
    /// The arguments of each quit request.
    std::vector<std::vector<std::string>> QuitCalls() const { return CallsIn("osascript-calls"); }

    std::vector<std::vector<std::string>> CallsIn(const std::string& name) const {
        std::vector<std::vector<std::string>> calls(1);
        std::istringstream file(folder_.Read(name));
        for (std::string argument; std::getline(file, argument, '\0');)
            argument.empty() ? calls.push_back({}) : calls.back().push_back(argument);
        calls.pop_back();
        return calls;
    }

    size_t PsRuns() const {
        const std::string runs = folder_.Read("ps-runs");
        return static_cast<size_t>(std::count(runs.begin(), runs.end(), '\n'));
    }

    TemporaryFolder folder_;
    EventLoop loop_;
    headless::ScriptedDesktop* user_ = nullptr;
};

}  // namespace dunvey::test
