// Prints what Dunvey's own code finds out about documents, and where they were opened.
//
// report plan DOCUMENT...          a line for each document: the version that opens it, "ask" if no
//                                  matching version is installed, or "ignore"
// report awaited LOG DOCUMENT...   the number of documents with a matching version that no window
//                                  shows yet
// report table LOG DOCUMENT...     a table of all documents; ends with 1 if one was not opened
//                                  although its version is installed
#include <algorithm>
#include <clocale>
#include <cstdio>
#include <cwchar>
#include <string>
#include <vector>

#include "hand_over_log.h"
#include "platform/loop/launch_documents.h"
#include "platform/text/shown_text.h"
#include "version/application_version.h"
#include "version/file_class.h"
#include "version/installed_apps.h"

namespace dunvey::demo {
namespace {

using Log = std::vector<LogRecord>;
using Words = std::vector<std::string>;

/// The number of terminal columns that a UTF-8 text takes.
size_t Width(const std::string& text) {
    std::wstring wide(text.size(), L'\0');
    const size_t length = std::mbstowcs(wide.data(), text.c_str(), wide.size());
    if (length == static_cast<size_t>(-1)) return text.size();
    return static_cast<size_t>(std::max(0, wcswidth(wide.data(), length)));
}

/// Prints rows of cells in columns; the first row is the heading.
void PrintTable(std::vector<Words> rows) {
    std::vector<size_t> widths(rows[0].size());
    for (const Words& row : rows) {
        for (size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], Width(row[i]));
    }
    Words rule;
    for (const size_t width : widths)
        rule.emplace_back(width, '-');
    rows.insert(rows.begin() + 1, rule);
    for (const Words& row : rows) {
        for (size_t i = 0; i + 1 < row.size(); ++i)
            std::printf("%s%*s", row[i].c_str(), static_cast<int>(widths[i] - Width(row[i]) + 2),
                        "");
        std::printf("%s\n", row.back().c_str());
    }
}

bool IsOpening(const LogRecord& record) {
    return record.event == "opened" || record.event == "received";
}

Ref<FolderItem> ItemOf(const std::string& word) {
    return New<FolderItem>(PathOfArgument(word));
}

std::string NameOf(const std::string& bundle) {
    const std::string name = bundle.substr(bundle.rfind('/') + 1);
    return name.ends_with(".app") ? name.substr(0, name.size() - 4) : name;
}

/// The last time that a document was opened; the end of the log if it wasn't.
Log::const_reverse_iterator OpeningOf(const Log& log, const FolderItem& document) {
    return std::find_if(log.rbegin(), log.rend(), [&](const LogRecord& record) {
        return IsOpening(record) && record.document == document.NativePath();
    });
}

/// Whether the window has been painted since the document was opened in it.
bool IsShown(const Log& log, Log::const_reverse_iterator opening) {
    return std::any_of(log.rbegin(), opening, [&](const LogRecord& later) {
        return later.event == "shown" && later.process == opening->process;
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
        const auto opening = OpeningOf(log, *record->File);
        return opening == log.rend() || !IsShown(log, opening);
    };
    std::printf("%td\n", std::count_if(words.begin(), words.end(), isAwaited));
    return 0;
}

std::string WhyNot(const Ref<FolderItem>& item, const Ref<FileClass>& record) {
    if (!item->Exists()) return "no: it doesn't exist";
    if (!record) return "no: not one of the four kinds of document";
    if (record->App) return "NO, though its version is installed";
    return record->Ver == "0" ? "no: its header has no version"
                              : "no: no matching version is installed";
}

std::string ApplicationOf(const Ref<FileClass>& record) {
    if (!record) return "-";
    if (!record->App) return record->Ver == "0" ? "-" : NameOf(record->AppName);
    return NameOf(record->App->NativePath()) + " (" + InDesign::AppVersion(record->App) + ")";
}

std::string Outcome(const LogRecord& opening, const Ref<FileClass>& record) {
    const bool isOwn = record && record->App && record->App->NativePath() == opening.application;
    const std::string place = isOwn ? "" : ", to " + NameOf(opening.application);
    const bool wasRunning = opening.event == "received";
    return "yes" + place + (wasRunning ? ", was running" : ", started") + " as process " +
           opening.process;
}

int Table(const Log& log, const Words& words) {
    std::vector<Words> rows = {{"Document", "Version read", "Application", "Opened"}};
    bool isRight = true;
    for (const std::string& word : words) {
        const Ref<FolderItem> item = ItemOf(word);
        const Ref<FileClass> record = InDesign::MakeNewFileClass(item);
        const auto opening = OpeningOf(log, *item);
        const bool isOpened = opening != log.rend();
        isRight = isRight && (isOpened || !record || !record->App);
        rows.push_back({OneLine(item->Name()),
                        !record              ? "-"
                        : record->Ver == "0" ? "none"
                                             : record->Ver,
                        ApplicationOf(record),
                        isOpened ? Outcome(*opening, record) : WhyNot(item, record)});
    }
    PrintTable(rows);
    return isRight ? 0 : 1;
}

int Run(const Words& words) {
    std::setlocale(LC_CTYPE, "C.UTF-8");
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
