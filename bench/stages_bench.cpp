#define PCRE2_CODE_UNIT_WIDTH 8
#include <fcntl.h>
#include <pcre2.h>
#include <sys/stat.h>
#include <unistd.h>

#include <random>

#include "platform/reg_ex_xojo.h"
#include "platform/text.h"
#include "ratio.h"
#include "support/headers.h"
#include "support/temporary_folder.h"
#include "version/application_version.h"
#include "version/file_order.h"
#include "version/header_version.h"
#include "version/installed_apps.h"

namespace dunvey {
namespace {

const test::TemporaryFolder& Folder() {
    static const test::TemporaryFolder folder;
    return folder;
}

const std::string& DocumentPath() {
    static const std::string path = Folder().Write("a.indd", test::Header("DOCUMENT", 8, 1));
    return path;
}

void HeaderBare(benchmark::State& state) {
    const std::string path = DocumentPath();
    for (auto _ : state) {
        char block[48];
        const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
        benchmark::DoNotOptimize(read(file, block, sizeof block));
        close(file);
    }
}
BENCHMARK(HeaderBare);

void HeaderRead(benchmark::State& state) {
    const auto item = New<FolderItem>(DocumentPath());
    for (auto _ : state) {
        benchmark::DoNotOptimize(InDesign::GetVerHexToDec(item, "indd"));
    }
}
BENCHMARK(HeaderRead);

constexpr const char* kExpression = ".+444f43554d454e5401700f0000(..)000000(..).*";

std::string HeaderHex() {
    return Lowercase(EncodeHex(test::Header("DOCUMENT", 8, 1)));
}

void ReplaceBare(benchmark::State& state) {
    int error = 0;
    size_t position = 0;
    pcre2_code* code = pcre2_compile(reinterpret_cast<PCRE2_SPTR>(kExpression),
                                     PCRE2_ZERO_TERMINATED, 0, &error, &position, nullptr);
    pcre2_jit_compile(code, PCRE2_JIT_COMPLETE);
    pcre2_match_data* match = pcre2_match_data_create_from_pattern(code, nullptr);
    const std::string text = HeaderHex();
    PCRE2_UCHAR result[256];
    for (auto _ : state) {
        size_t length = sizeof result;
        benchmark::DoNotOptimize(pcre2_substitute(
            code, reinterpret_cast<PCRE2_SPTR>(text.data()), text.size(), 0, 0, match, nullptr,
            reinterpret_cast<PCRE2_SPTR>("$1.$2"), PCRE2_ZERO_TERMINATED, result, &length));
    }
    pcre2_match_data_free(match);
    pcre2_code_free(code);
}
BENCHMARK(ReplaceBare);

void ReplaceXojo(benchmark::State& state) {
    const std::string text = HeaderHex();
    for (auto _ : state) {
        benchmark::DoNotOptimize(RegExXojo::Replace(text, kExpression, "\\1.\\2", 0, true));
    }
}
BENCHMARK(ReplaceXojo);

constexpr const char* kProcessPath =
    "/Applications/Adobe InDesign .+?/Adobe InDesign .+?.app/Contents/MacOS/Adobe InDesign [^/]+$";

std::string HostileLine(size_t size) {
    std::string line;
    while (line.size() < size)
        line += "/Applications/Adobe InDesign ";
    return line;
}

void HostileProcessLine(benchmark::State& state) {
    const std::string line = HostileLine(static_cast<size_t>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(RegExXojo::Mach(line, kProcessPath, 0, true));
}
BENCHMARK(HostileProcessLine)->Arg(16'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

/// A home whose applications folder holds 30 versions among so many other entries.
std::string HomeWith(int64_t others) {
    const std::string home = "home" + std::to_string(others);
    const std::string applications = Folder().MakeFolder(home) + "/Applications";
    if (access(applications.c_str(), F_OK) == 0) return Folder() / home;
    Folder().MakeFolder(home + "/Applications");
    for (int i = 0; i < 30; ++i) {
        const std::string name = "Adobe InDesign " + std::to_string(i);
        const std::string contents = home + "/Applications/" + name + "/" + name + ".app/Contents";
        Folder().MakeFolder(contents);
        Folder().Write(
            contents + "/Info.plist",
            "<plist version=\"1.0\"><dict><key>CFBundleShortVersionString</key><string>" +
                std::to_string(i) + ".1.0</string></dict></plist>");
    }
    for (int64_t i = 0; i < others; ++i) {
        Folder().MakeFolder(home + "/Applications/Other " + std::to_string(i));
    }
    // A folder that was changed a moment ago is read anew at each look; this one is older.
    const timespec old[2] = {{1'000'000'000, 0}, {1'000'000'000, 0}};
    utimensat(AT_FDCWD, applications.c_str(), old, 0);
    usleep(50'000);
    return Folder() / home;
}

void Scan(benchmark::State& state) {
    const std::string home = HomeWith(state.range(0));
    setenv("HOME", home.c_str(), 1);
    for (auto _ : state)
        InDesign::GetInstalledApps();
    if (InDesign::InstalledApps.size() != 30) state.SkipWithError("the scan is wrong");
}
BENCHMARK(Scan)->Arg(2'000)->Arg(20'000)->Unit(benchmark::kMillisecond);

/// What any scan must do: read the folder, look at each entry, read the 30 lists.
void ScanBare(benchmark::State& state) {
    const std::string folder = HomeWith(state.range(0)) + "/Applications";
    for (auto _ : state) {
        const FolderItem applications(folder);
        for (int64_t i = 1, count = applications.Count(); i <= count; ++i) {
            struct stat status;
            lstat((folder + "/Other " + std::to_string(i)).c_str(), &status);
        }
        for (int i = 0; i < 30; ++i) {
            const std::string name = "/Adobe InDesign " + std::to_string(i);
            benchmark::DoNotOptimize(
                InDesign::AppVersion(New<FolderItem>(folder + name + name + ".app")));
        }
    }
}
BENCHMARK(ScanBare)->Arg(2'000)->Unit(benchmark::kMillisecond);

void Sort(benchmark::State& state) {
    std::mt19937 random(1);
    const std::vector<std::string> versions = {"7", "7.5", "8", "8.1", "9", "14", "16.4"};
    std::vector<Ref<FileClass>> records;
    for (int64_t i = 0; i < state.range(0); ++i) {
        records.push_back(New<FileClass>());
        records.back()->WillUseVer = versions[random() % versions.size()];
    }
    for (auto _ : state) {
        state.PauseTiming();
        std::vector<Ref<FileClass>> copy = records;
        state.ResumeTiming();
        InDesign::SortFilesByVer(copy);
    }
}
BENCHMARK(Sort)->RangeMultiplier(10)->Range(10, 100'000);

}  // namespace
}  // namespace dunvey

int main(int argc, char** argv) {
    using namespace dunvey::bench;
    return RunAndCompare(
        argc, argv,
        {Ratio("header of a document, read and decoded", "HeaderRead", "HeaderBare", 3),
         Ratio("RegExXojo.Replace on a header", "ReplaceXojo", "ReplaceBare", 0),
         {"hostile process line of 16,000 bytes",
          [](const Times& times) { return 1000 * times.Seconds("HostileProcessLine/16000"); }, 5,
          "ms"},
         {"hostile process line of 1,000,000 bytes",
          [](const Times& times) { return 1000 * times.Seconds("HostileProcessLine/1000000"); }, 50,
          "ms"},
         Ratio("scan, 30 versions among 2,000 entries", "Scan/2000", "ScanBare/2000", 0),
         Growth("scan, growth from 2,000 to 20,000 entries", "Scan/2000", 2030, "Scan/20000", 20030,
                1.2),
         Growth("sort, growth from 1,000 to 100,000 records", "Sort/1000", 1e3, "Sort/100000", 1e5,
                1.2)});
}
