#pragma once

#include <string>
#include <vector>

namespace dunvey::demo {

/// What a stand-in writes down of itself.
struct LogRecord {
    /// "started"; "opened", a document that came with the start; "received", one that a second
    /// start passed on to it; "shown", its window has painted all documents up to here.
    std::string event;
    /// The process id, in decimal.
    std::string process;
    /// The path of its bundle.
    std::string application;
    /// The path of the document; empty for the events without one.
    std::string document;
};

/// Appends the records in one write, so that those of several processes never mix and whoever reads
/// sees all or none. False if they can't be written.
bool Append(const std::string& log, const std::vector<LogRecord>& records);

/// The records in the order of writing; none if there is no log yet.
std::vector<LogRecord> ReadLog(const std::string& log);

}  // namespace dunvey::demo
