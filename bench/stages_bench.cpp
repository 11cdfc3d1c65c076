// What a run does with documents and versions inside the process: reading, taking in, scanning,
// sorting.
#include <fcntl.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <random>

#include "chooser/window1.h"
#include "desktop/scripted_desktop.h"
#include "measure.h"
#include "platform/loop/event_loop.h"
#include "platform/text/text.h"
#include "report.h"
#include "version/application_version.h"
#include "version/file_class.h"
#include "version/file_order.h"
#include "version/header_version.h"
#include "version/installed_apps.h"
#include "versions_home.h"

namespace dunvey {
namespace {

using namespace bench;

constexpr double kMicroseconds = 1e6;
constexpr double kMilliseconds = 1e3;

/// Opens, reads up to so many bytes in one piece, closes.
void BareRead(const std::string& path, size_t size) {
    static char block[65536];
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    Keep(read(file, block, std::min(size, sizeof block)));
    close(file);
}

void MeasureHeader() {
    const VersionsHome home(0);
    const std::string path = home.AddDocuments(1)[0];
    const auto item = New<FolderItem>(path);
    const auto times = InTurns(
        {[&] { Keep(InDesign::GetVerHexToDec(item, "indd")); }, [&] { BareRead(path, 48); }}, 51);
    Report({"header of a document, read and decoded", "µs", times[0] * kMicroseconds,
            times[1] * kMicroseconds, "open, read 48 bytes, close", RatioAtMost(3)});
}

/// The time that a document may take is twice what reading it (3.7 µs) and the property list of
/// each of five versions (14.9 µs) took when the goal was set.
constexpr double kIntakeGoal = 2 * (3.7 + 5 * 14.9);

void MeasureIntake() {
    constexpr int kDocuments = 10'000;
    constexpr int kVersions = 5;
    const VersionsHome home(kVersions);
    const std::vector<std::string> paths = home.AddDocuments(kDocuments);
    setenv("HOME", home.Path().c_str(), 1);
    InDesign::GetInstalledApps();
    const auto takeIn = [&] {
        std::vector<Ref<FileClass>> files;
        for (const std::string& path : paths)
            files.push_back(InDesign::MakeNewFileClass(New<FolderItem>(path)));
        if (!files.back()->App) std::abort();
    };
    const auto readOnly = [&] {
        for (const std::string& path : paths) {
            BareRead(path, 48);
            for (int i = 0; i < kVersions; ++i)
                BareRead(home.PropertyList(i), 65536);
        }
    };
    const auto times = InTurns({takeIn, readOnly}, 7);
    Report({"taking in one of 10,000 documents, 5 versions installed", "µs",
            times[0] / kDocuments * kMicroseconds, times[1] / kDocuments * kMicroseconds,
            "the same bytes read: the header, 5 property lists", OursAtMost(kIntakeGoal)});
}

/// A home for scans. A folder that was changed a moment ago is read anew at each look; this one's
/// is older.
class ScannedHome : public VersionsHome {
 public:
    explicit ScannedHome(int others) : VersionsHome(kVersions) {
        AddOthers(others);
        const timespec old[2] = {{1'000'000'000, 0}, {1'000'000'000, 0}};
        utimensat(AT_FDCWD, (Path() + "/Applications").c_str(), old, 0);
        usleep(50'000);
    }
    void Scan() const {
        setenv("HOME", Path().c_str(), 1);
        InDesign::GetInstalledApps();
        if (InDesign::InstalledApps.size() != kVersions) std::abort();
    }
    /// What any scan must do: read the folder, look at each entry, read the lists.
    void ScanBare(int others) const {
        const FolderItem applications(Path() + "/Applications");
        Keep(applications.Count());
        for (int i = 0; i < others; ++i) {
            struct stat status;
            lstat((Path() + "/Applications/Other " + std::to_string(i)).c_str(), &status);
        }
        for (int i = 0; i < kVersions; ++i)
            Keep(InDesign::AppVersion(New<FolderItem>(Application(i))));
    }

 private:
    static constexpr int kVersions = 30;
};

void MeasureScan() {
    const ScannedHome small(2'000);
    const ScannedHome large(20'000);
    const auto times =
        InTurns({[&] { small.Scan(); }, [&] { small.ScanBare(2'000); }, [&] { large.Scan(); }}, 11);
    Report({"scan of 30 versions among 2,000 entries", "ms", times[0] * kMilliseconds,
            times[1] * kMilliseconds, "read the folder, look at each entry, read 30 lists"});
    Report({"scan, exponent of growth from 2,000 to 20,000 entries", "",
            Exponent(2'030, times[0], 20'030, times[2]), 0, "", OursAtMost(1.2)});
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

/// The numbers read once, then sorted by the library.
void SortBare(const std::vector<Ref<FileClass>>& records) {
    std::vector<std::pair<double, size_t>> keys;
    keys.reserve(records.size());
    for (const Ref<FileClass>& record : records)
        keys.emplace_back(Val(record->WillUseVer), keys.size());
    std::stable_sort(keys.begin(), keys.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<Ref<FileClass>> sorted;
    sorted.reserve(records.size());
    for (const auto& [key, index] : keys)
        sorted.push_back(records[index]);
    Keep(sorted.data());
}

void MeasureSort() {
    const auto records = Records(1'000);
    const auto many = Records(100'000);
    const auto sort = [](std::vector<Ref<FileClass>> copy) { InDesign::SortFilesByVer(copy); };
    const auto times =
        InTurns({[&] { sort(records); }, [&] { SortBare(records); }, [&] { sort(many); }}, 15);
    Report({"sort of 1,000 records", "ms", times[0] * kMilliseconds, times[1] * kMilliseconds,
            "keys read once, std::stable_sort"});
    Report({"sort, exponent of growth from 1,000 to 100,000 records", "",
            Exponent(1e3, times[0], 1e5, times[2]), 0, "", OursAtMost(1.2)});
}

/// Counts how often the property lists of a home are opened.
class Openings {
 public:
    Openings(const VersionsHome& home, int versions) : watch_(inotify_init1(IN_NONBLOCK)) {
        for (int i = 0; i < versions; ++i) {
            if (inotify_add_watch(watch_, home.PropertyList(i).c_str(), kEvents) < 0) std::abort();
        }
    }
    ~Openings() { close(watch_); }
    Openings(const Openings&) = delete;
    Openings& operator=(const Openings&) = delete;

    /// How many there have been since the last time.
    int Take() const {
        int count = 0;
        // Events of a file carry no name, so all are of one size.
        inotify_event events[64];
        for (ssize_t got; (got = read(watch_, events, sizeof events)) > 0;) {
            for (size_t i = 0; i < static_cast<size_t>(got) / sizeof(inotify_event); ++i)
                count += (events[i].mask & IN_OPEN) != 0;
        }
        return count;
    }

 private:
    /// Two openings in a row would count as one without a closing between them.
    static constexpr uint32_t kEvents = IN_OPEN | IN_CLOSE_NOWRITE;
    int watch_;
};

/// On the desktop of the tests, which doesn't look for icons: a version text alone opens the list.
void CountReadings() {
    constexpr int kVersions = 300;
    const VersionsHome home(kVersions);
    setenv("HOME", home.Path().c_str(), 1);
    EventLoop loop;
    Desktop::Install(std::make_unique<headless::ScriptedDesktop>());
    InDesign::GetInstalledApps();
    const Ref<Window1> window = New<Window1>();
    const Openings openings(home, kVersions);
    InDesign::SortAppsByVer();
    Report({"version texts read from disk in one sort of 300 versions, for each", "",
            openings.Take() / double{kVersions}, 0, "", OursAtMost(1)});
    window->SetAppList();
    Report({"version texts read from disk in one filling of the list, for each", "",
            openings.Take() / double{kVersions}, 0, "", OursAtMost(1)});
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
    dunvey::CountReadings();
}
