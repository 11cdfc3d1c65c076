#include "hand_over_log.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>

namespace dunvey::demo {
namespace {

constexpr size_t kFields = 4;

std::string ReadAll(const std::string& path) {
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0) return {};
    std::string bytes;
    std::array<char, 65536> buffer;
    for (ssize_t count; (count = read(file, buffer.data(), buffer.size())) > 0;)
        bytes.append(buffer.data(), static_cast<size_t>(count));
    close(file);
    return bytes;
}

}  // namespace

// Each field ends with a zero byte, the one byte that no path holds.
bool Append(const std::string& log, const std::vector<LogRecord>& records) {
    std::string bytes;
    for (const LogRecord& record : records) {
        for (const std::string& field :
             {record.event, record.process, record.application, record.document}) {
            bytes.append(field).push_back('\0');
        }
    }
    const int file = open(log.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    if (file < 0) return false;
    const ssize_t written = write(file, bytes.data(), bytes.size());
    return close(file) == 0 && written == static_cast<ssize_t>(bytes.size());
}

std::vector<LogRecord> ReadLog(const std::string& log) {
    std::vector<LogRecord> records;
    std::vector<std::string> fields;
    const std::string bytes = ReadAll(log);
    for (size_t begin = 0, end; (end = bytes.find('\0', begin)) != std::string::npos;
         begin = end + 1) {
        fields.push_back(bytes.substr(begin, end - begin));
        if (fields.size() < kFields) continue;
        records.push_back({fields[0], fields[1], fields[2], fields[3]});
        fields.clear();
    }
    return records;
}

}  // namespace dunvey::demo
