#include "hand_over_log.h"

#include <fstream>

namespace dunvey::demo {

// Each field ends with a zero byte, which no path contains.
bool Append(const std::string& log, const std::vector<LogRecord>& records) {
    std::string bytes;
    for (const LogRecord& record : records) {
        for (const std::string& field :
             {record.event, record.process, record.application, record.document}) {
            bytes.append(field).push_back('\0');
        }
    }
    std::ofstream file(log, std::ios::binary | std::ios::app);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return static_cast<bool>(file.flush());
}

std::vector<LogRecord> ReadLog(const std::string& log) {
    std::ifstream file(log, std::ios::binary);
    std::vector<LogRecord> records;
    LogRecord record;
    while (std::getline(file, record.event, '\0') && std::getline(file, record.process, '\0') &&
           std::getline(file, record.application, '\0') &&
           std::getline(file, record.document, '\0')) {
        records.push_back(record);
    }
    return records;
}

}  // namespace dunvey::demo
