#pragma once

#include <string>
#include <vector>

namespace dunvey::demo {

/// An event that a stand-in writes to the log.
struct LogRecord {
    /// "started"; "opened", a document from the process's arguments; "received", a document that
    /// another process passed to it; "shown", its window has painted all documents so far.
    std::string event;
    /// The process id in decimal.
    std::string process;
    /// The path of its bundle.
    std::string application;
    /// The path of the document; empty for events without one.
    std::string document;
};

/// Appends the records in one write, so that records of several processes don't mix. Returns false
/// if they can't be written.
bool Append(const std::string& log, const std::vector<LogRecord>& records);

/// The records in the order of writing; none if there is no log.
std::vector<LogRecord> ReadLog(const std::string& log);

}  // namespace dunvey::demo
