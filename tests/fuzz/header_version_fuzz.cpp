#include "fuzz/fuzz.h"
#include "support/headers.h"
#include "support/temporary_folder.h"
#include "version/header_version.h"

/// The input is a file; its first two bytes are also the version in a valid header.
void dunvey::fuzz::TryInput(std::string_view input) {
    static const test::TemporaryFolder folder;
    const auto read = [](const std::string& bytes, const char* extension) {
        return InDesign::ReadHeader(New<FolderItem>(folder.Write("document", bytes)), extension);
    };
    const std::string bytes(input);
    for (const char* extension : {"indd", "indt", "InDB", "indl"}) {
        const InDesign::HeaderReading reading = read(bytes, extension);
        Check(reading.version.size() == 2, "a version has two numbers", extension);
        for (const int64_t number : reading.version) {
            Check(number >= 0 && number <= 255, "each number is one byte", extension);
            Check(number == 0 || reading.state == InDesign::HeaderReading::kFound,
                  "without a header there is no version", extension);
        }
        Check(bytes.size() < 48 ||
                  read(bytes.substr(0, 48) + "DOCUMENT", extension).version == reading.version,
              "only the first 48 bytes count", extension);
    }
    if (bytes.size() < 2) return;
    const int major = static_cast<unsigned char>(bytes[0]);
    const int minor = static_cast<unsigned char>(bytes[1]);
    for (const bool littleEndian : {true, false}) {
        const auto reading = read(test::Header("DOCUMENT", major, minor, littleEndian), "indd");
        Check(reading.version == std::vector<int64_t>{major, minor}, "a valid header is read");
    }
}
