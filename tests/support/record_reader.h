#pragma once

#include <sys/types.h>

#include <fstream>
#include <string>
#include <vector>

namespace dunvey {

/// One run of the recorder program.
struct Record {
    pid_t process = 0;
    /// The path of the recorder's executable.
    std::string executable;
    /// Its arguments, byte for byte.
    std::vector<std::string> arguments;
};

/// The records of the file in the order of the runs; none if there is no file. A damaged or
/// incomplete record ends the list.
inline std::vector<Record> ReadRecords(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::vector<Record> records;
    Record record;
    for (size_t count; file >> record.process >> count;) {
        std::vector<size_t> lengths(count);
        for (size_t& length : lengths)
            file >> length;
        if (!file || count == 0 || file.get() != '\n') break;
        record.arguments.clear();
        for (const size_t length : lengths) {
            std::string text(length, '\0');
            file.read(text.data(), static_cast<std::streamsize>(length));
            record.arguments.push_back(std::move(text));
        }
        if (file.get() != '\n') break;
        record.executable = record.arguments.front();
        record.arguments.erase(record.arguments.begin());
        records.push_back(record);
    }
    return records;
}

}  // namespace dunvey
