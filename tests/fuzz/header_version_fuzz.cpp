#include "fuzz/fuzz.h"
#include "fuzz/memory_file.h"
#include "support/headers.h"
#include "version/header_version.h"

namespace dunvey::fuzz {
namespace {

using InDesign::HeaderReading;

HeaderReading Read(std::string_view bytes, const char* extension) {
    static MemoryFile file;
    static const Ref<FolderItem> document = New<FolderItem>(file.Path());
    file.Write(bytes);
    return InDesign::ReadHeader(document, extension);
}

void CheckReading(std::string_view bytes, const char* extension) {
    const HeaderReading reading = Read(bytes, extension);
    Check(reading.version.size() == 2, "a version has two numbers", extension);
    for (const int64_t number : reading.version) {
        Check(number >= 0 && number <= 255, "each number is one byte", extension);
        Check(number == 0 || reading.state == HeaderReading::kFound,
              "without a header there is no version", extension);
    }
    Check(reading.state != HeaderReading::kUnreadable, "the file can be read", extension);
    const HeaderReading again = Read(std::string(bytes.substr(0, 48)) + "DOCUMENT", extension);
    Check(bytes.size() < 48 || again.version == reading.version, "only the first 48 bytes count",
          extension);
}

}  // namespace

/// The input is a file; its first two bytes are also planted as the version of a sound header.
void TryInput(std::string_view bytes) {
    for (const char* extension : {"indd", "indt", "indb", "indl"})
        CheckReading(bytes, extension);
    Check(Read(bytes, "indb").version == Read(bytes, "InDB").version,
          "the extension's letter case doesn't count");
    for (const char* extension : {"", "ind", "idml"})
        Check(Read(bytes, extension).state == HeaderReading::kNoMarker, "not of the four kinds");
    if (bytes.size() < 2) return;
    const int major = static_cast<unsigned char>(bytes[0]);
    const int minor = static_cast<unsigned char>(bytes[1]);
    for (const bool littleEndian : {true, false}) {
        const std::string header = test::Header("DOCUMENT", major, minor, littleEndian);
        const HeaderReading reading = Read(header, "indd");
        Check(reading.version == std::vector<int64_t>{major, minor}, "a sound header is read");
        Check(reading.littleEndian == littleEndian, "its byte order is told");
    }
}

}  // namespace dunvey::fuzz
