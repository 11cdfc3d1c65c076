#include "fuzz/fuzz.h"
#include "support/headers.h"
#include "support/temporary_folder.h"
#include "version/header_version.h"

namespace dunvey::fuzz {
namespace {

using InDesign::HeaderReading;

HeaderReading Read(const std::string& bytes, const char* extension) {
    static const test::TemporaryFolder folder;
    return InDesign::ReadHeader(New<FolderItem>(folder.Write("document", bytes)), extension);
}

}  // namespace

/// The input is a file; its first two bytes are also the version in a valid header.
void TryInput(std::string_view input) {
    const std::string bytes(input);
    for (const char* extension : {"indd", "indt", "InDB", "indl"}) {
        const HeaderReading reading = Read(bytes, extension);
        Check(reading.version.size() == 2, "a version has two numbers", extension);
        for (const int64_t number : reading.version) {
            Check(number >= 0 && number <= 255, "each number is one byte", extension);
            Check(number == 0 || reading.state == HeaderReading::kFound,
                  "without a header there is no version", extension);
        }
        const HeaderReading again = Read(bytes.substr(0, 48) + "DOCUMENT", extension);
        Check(bytes.size() < 48 || again.version == reading.version,
              "only the first 48 bytes count", extension);
    }
    if (bytes.size() < 2) return;
    const int major = static_cast<unsigned char>(bytes[0]);
    const int minor = static_cast<unsigned char>(bytes[1]);
    for (const bool littleEndian : {true, false}) {
        const auto reading = Read(test::Header("DOCUMENT", major, minor, littleEndian), "indd");
        Check(reading.version == std::vector<int64_t>{major, minor}, "a valid header is read");
    }
}

}  // namespace dunvey::fuzz
