#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "app/open_decision.h"
#include "platform/loop/launch_documents.h"
#include "version/header_version.h"

namespace dunvey {

/// What holds for all documents of one version.
struct VersionAnswer {
    /// The product's name, such as "CS6".
    std::string product;
    /// The path and the version of the application that matches; empty if none is installed.
    std::string application;
    std::string applicationVersion;
    OpenDecision decision;
};

/// What dunvey-inspect reports about one file.
struct Finding {
    std::string path;
    /// Why the file is no document; for a document kNone.
    Refusal refusal = Refusal::kNone;
    InDesign::HeaderReading header;
    /// nullptr for a file that is no document.
    const VersionAnswer* answer = nullptr;

    /// Whether it is a document whose header could be read.
    bool IsRead() const {
        return answer != nullptr && header.state != InDesign::HeaderReading::kUnreadable;
    }
};

/// Examines files as the main program would, without opening any document.
class Inspector {
 public:
    /// `readsProcesses`: whether to list the running applications, once, for the first document.
    /// `progress` is called after each file with the number of files so far.
    Inspector(bool readsProcesses, std::function<void(size_t)> progress);

    /// Examines the file at a path. With `recursive`, a folder's documents at any depth are
    /// examined, in name order; links to folders aren't followed.
    void Examine(const std::string& path, bool recursive);
    const std::vector<Finding>& Findings() const { return findings_; }

 private:
    void Add(const std::string& path);
    void AddFolder(const FolderItem& folder);
    const VersionAnswer& AnswerFor(const std::string& version);

    bool readsProcesses_;
    std::function<void(size_t)> progress_;
    std::map<std::string, VersionAnswer> answers_;
    std::vector<Finding> findings_;
};

}  // namespace dunvey
