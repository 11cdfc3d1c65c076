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

/// The records of the file in the order of the runs; none if there is no file. An incomplete record
/// ends the list.
inline std::vector<Record> ReadRecords(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::vector<Record> records;
    std::string process, count;
    while (std::getline(file, process, '\0') && std::getline(file, count, '\0')) {
        std::vector<std::string> texts(std::stoul(count));
        for (std::string& text : texts)
            std::getline(file, text, '\0');
        if (file.eof()) break;
        records.push_back({std::stoi(process), texts.front(), {texts.begin() + 1, texts.end()}});
    }
    return records;
}

}  // namespace dunvey
