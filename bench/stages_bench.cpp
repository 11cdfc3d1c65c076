// The stages of a run inside the process: reading a header, intake, scan, sort, the chooser's list.
#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>
#include <memory>
#include <random>

#include "chooser/window1.h"
#include "desktop/scripted_desktop.h"
#include "measure.h"
#include "platform/loop/event_loop.h"
#include "report.h"
#include "version/file_class.h"
#include "version/file_order.h"
#include "version/header_version.h"
#include "version/installed_apps.h"
#include "versions_home.h"

namespace dunvey {
namespace {

using namespace bench;

void UseHome(const VersionsHome& home) {
    setenv("HOME", home.Path().c_str(), 1);
    InDesign::GetInstalledApps();
}

void MeasureHeader() {
    const VersionsHome home(0);
    const std::string path = home.AddDocuments(1)[0];
    const auto item = New<FolderItem>(path);
    const auto readOnly = [&] {
        char block[48];
        const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
        Keep(read(file, block, sizeof block));
        close(file);
    };
    const auto times = InTurns({[&] { Keep(InDesign::GetVerHexToDec(item, "indd")); }, readOnly});
    Report({"header of a document, read and decoded", "µs", times[0] * 1e6, times[1] * 1e6,
            "open, read 48 bytes, close", RatioAtMost(3)});
}

void MeasureIntake() {
    constexpr size_t kFew = 200;
    constexpr size_t kMany = 5'000;
    const VersionsHome home(5);
    const std::vector<std::string> paths = home.AddDocuments(kMany);
    UseHome(home);
    const auto takeIn = [&](size_t count) {
        std::vector<Ref<FileClass>> files;
        for (size_t i = 0; i < count; ++i)
            files.push_back(InDesign::MakeNewFileClass(New<FolderItem>(paths[i])));
        if (!files.back()->App) std::abort();
    };
    const auto times = InTurns({[&] { takeIn(kFew); }, [&] { takeIn(kMany); }}, 7);
    Report({"intake of one document, 5 versions installed", "µs", times[1] / kMany * 1e6});
    ReportExponent("intake of 200 and 5,000 documents", kFew, times[0], kMany, times[1]);
}

void MeasureScan() {
    const VersionsHome small(30);
    small.AddOthers(2'000);
    const VersionsHome large(30);
    large.AddOthers(20'000);
    const auto times = InTurns({[&] { UseHome(small); }, [&] { UseHome(large); }}, 7);
    ReportExponent("scan among 2,000 and 20,000 entries", 2'030, times[0], 20'030, times[1]);
}

std::vector<Ref<FileClass>> Records(size_t count) {
    std::mt19937 random(1);
    const std::vector<std::string> versions = {"7", "7.5", "8", "8.1", "9", "14", "16.4"};
    std::vector<Ref<FileClass>> records(count);
    for (Ref<FileClass>& record : records) {
        record = New<FileClass>();
        record->WillUseVer = versions[random() % versions.size()];
    }
    return records;
}

void MeasureSort() {
    const auto few = Records(1'000);
    const auto many = Records(100'000);
    const auto sort = [](std::vector<Ref<FileClass>> copy) { InDesign::SortFilesByVer(copy); };
    const auto times = InTurns({[&] { sort(few); }, [&] { sort(many); }}, 7);
    ReportExponent("sort of 1,000 and 100,000 documents", 1e3, times[0], 1e5, times[1]);
}

void MeasureList() {
    EventLoop loop;
    Desktop::Install(std::make_unique<headless::ScriptedDesktop>());
    const VersionsHome small(30);
    const VersionsHome large(300);
    const Ref<Window1> window = New<Window1>();
    const auto fill = [&](const VersionsHome& home) {
        UseHome(home);
        window->SetAppList();
    };
    const auto times = InTurns({[&] { fill(small); }, [&] { fill(large); }}, 7);
    ReportExponent("scan and list of 30 and 300 versions", 30, times[0], 300, times[1]);
    window->Close();
    Desktop::Install(nullptr);
}

}  // namespace
}  // namespace dunvey

int main() {
    dunvey::MeasureHeader();
    dunvey::MeasureIntake();
    dunvey::MeasureScan();
    dunvey::MeasureSort();
    dunvey::MeasureList();
}
