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

/// A small machine of a test's own: a home with applications and documents, a process list, and a
/// record of what was started. Commands go through the real shell to the recorders in Helpers.
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

    /// A scripted desktop in the place of whatever there is.
    void InstallDesktop() {
        auto desktop = std::make_unique<headless::ScriptedDesktop>();
        user_ = desktop.get();
        Desktop::Install(std::move(desktop));
    }

    static std::string AppName(const std::string& suffix) {
        return "Adobe InDesign " + suffix + ".app";
    }
    std::string AppPath(const std::string& suffix) const {
        return folder_ / ("Applications/Adobe InDesign " + suffix + "/" + AppName(suffix));
    }

    /// An installed version; without a version text it has no property list.
    Ref<FolderItem> Installed(const std::string& suffix, const std::string& version = {}) {
        const std::string bundle = "Applications/Adobe InDesign " + suffix + "/" + AppName(suffix);
        folder_.MakeFolder(bundle + "/Contents");
        if (!version.empty()) {
            folder_.Write(
                bundle + "/Contents/Info.plist",
                "<plist version=\"1.0\"><dict><key>CFBundleShortVersionString</key><string>" +
                    version + "</string></dict></plist>");
        }
        return New<FolderItem>(folder_ / bundle);
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

    /// The words of each start through `open`, in order.
    std::vector<std::vector<std::string>> OpenCalls() const { return CallsIn("open-calls"); }
    /// The words of each quit request.
    std::vector<std::vector<std::string>> QuitCalls() const { return CallsIn("osascript-calls"); }

    std::vector<std::vector<std::string>> CallsIn(const std::string& name) const {
        std::vector<std::vector<std::string>> calls(1);
        std::string word;
        for (const char c : folder_.Read(name)) {
            if (c != '\0') {
                word += c;
            } else if (word.empty()) {
                calls.emplace_back();
            } else {
                calls.back().push_back(std::move(word));
                word.clear();
            }
        }
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
