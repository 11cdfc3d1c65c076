// What Dunvey's own code says of documents, beside what became of them.
//
// report plan DOCUMENT...          one line each: the version that it will be opened in, "ask"
// where
//                                  none that matches is installed, or "ignore"
// report awaited LOG DOCUMENT...   how many documents with a matching application it hasn't shown
// yet report table LOG DOCUMENT...     a table of all documents; 1 if one isn't where it belongs
#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "hand_over_log.h"
#include "platform/loop/launch_documents.h"
#include "text_table.h"
#include "version/application_version.h"
#include "version/file_class.h"
#include "version/installed_apps.h"

namespace dunvey::demo {
namespace {

using Log = std::vector<LogRecord>;
using Words = std::vector<std::string>;

bool IsHandOver(const LogRecord& record) {
    return record.event == "opened" || record.event == "received";
}

Ref<FolderItem> ItemOf(const std::string& word) {
    return New<FolderItem>(PathOfWord(word));
}

std::string NameOf(const std::string& bundle) {
    const std::string name = bundle.substr(bundle.rfind('/') + 1);
    return name.ends_with(".app") ? name.substr(0, name.size() - 4) : name;
}

/// The last hand-over of a document; the end of the log if there was none.
Log::const_reverse_iterator HandOverOf(const Log& log, const FolderItem& document) {
    return std::find_if(log.rbegin(), log.rend(), [&](const LogRecord& record) {
        return IsHandOver(record) && record.document == document.NativePath();
    });
}

/// Whether the window that a hand-over went to has been painted since.
bool IsShown(const Log& log, Log::const_reverse_iterator handOver) {
    return std::any_of(log.rbegin(), handOver, [&](const LogRecord& later) {
        return later.event == "shown" && later.process == handOver->process;
    });
}

int Plan(const Words& words) {
    for (const std::string& word : words) {
        const Ref<FileClass> record = InDesign::MakeNewFileClass(ItemOf(word));
        const char* answer = !record ? "ignore" : record->App ? record->WillUseVer.c_str() : "ask";
        std::printf("%s\n", answer);
    }
    return 0;
}

int Awaited(const Log& log, const Words& words) {
    const auto isAwaited = [&](const std::string& word) {
        const Ref<FileClass> record = InDesign::MakeNewFileClass(ItemOf(word));
        if (!record || !record->App) return false;
        const auto handOver = HandOverOf(log, *record->File);
        return handOver == log.rend() || !IsShown(log, handOver);
    };
    std::printf("%td\n", std::count_if(words.begin(), words.end(), isAwaited));
    return 0;
}

std::string WhyNot(const Ref<FolderItem>& item, const Ref<FileClass>& record) {
    if (!item->Exists()) return "no: it doesn't exist";
    if (!record) return "no: not one of the four kinds of document";
    if (record->App) return "NO, though its version is installed";
    return record->Ver == "0" ? "no: its header tells no version"
                              : "no: no matching version is installed";
}

std::string ApplicationOf(const Ref<FileClass>& record) {
    if (!record) return "-";
    if (!record->App) return record->Ver == "0" ? "-" : NameOf(record->AppName);
    return NameOf(record->App->NativePath()) + " (" + InDesign::AppVersion(record->App) + ")";
}

std::string Outcome(const LogRecord& handOver, const Ref<FileClass>& record) {
    const bool isOwn = record && record->App && record->App->NativePath() == handOver.application;
    const std::string place = isOwn ? "" : ", to " + NameOf(handOver.application);
    const bool wasRunning = handOver.event == "received";
    return "yes" + place + (wasRunning ? ", was running" : ", started") + " as process " +
           handOver.process;
}

int Table(const Log& log, const Words& words) {
    std::vector<std::vector<std::string>> rows = {
        {"Document", "Version read", "Application", "Handed over"}};
    bool isRight = true;
    for (const std::string& word : words) {
        const Ref<FolderItem> item = ItemOf(word);
        const Ref<FileClass> record = InDesign::MakeNewFileClass(item);
        const auto handOver = HandOverOf(log, *item);
        const bool isHandedOver = handOver != log.rend();
        isRight = isRight && (isHandedOver || !record || !record->App);
        rows.push_back({OneLine(item->Name()),
                        !record              ? "-"
                        : record->Ver == "0" ? "none"
                                             : record->Ver,
                        ApplicationOf(record),
                        isHandedOver ? Outcome(*handOver, record) : WhyNot(item, record)});
    }
    PrintTable(rows);
    return isRight ? 0 : 1;
}

int Run(const Words& words) {
    const std::string command = words.empty() ? "" : words[0];
    InDesign::GetInstalledApps();
    if (command == "plan") return Plan({words.begin() + 1, words.end()});
    if (words.size() >= 2 && (command == "awaited" || command == "table")) {
        const Words documents(words.begin() + 2, words.end());
        const Log log = ReadLog(words[1]);
        return command == "table" ? Table(log, documents) : Awaited(log, documents);
    }
    std::fprintf(stderr, "usage: report plan DOCUMENT... | awaited|table LOG DOCUMENT...\n");
    return 2;
}

}  // namespace
}  // namespace dunvey::demo

int main(int argumentCount, char** arguments) {
    return dunvey::demo::Run({arguments + 1, arguments + argumentCount});
}
