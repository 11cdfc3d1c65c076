// Rules that hold for any input of a reader. With libFuzzer, one of them is searched for inputs
// that break it; else each is tried with the files of its corpus. Usage then: fuzz FOLDER
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <string_view>

#include "persistence/json_exception.h"
#include "persistence/json_item.h"
#include "platform/bundles/property_list.h"
#include "platform/loop/launch_documents.h"
#include "platform/text/text.h"
#include "support/headers.h"
#include "support/temporary_folder.h"
#include "version/application_version.h"
#include "version/header_version.h"

namespace dunvey {
namespace {

/// Aborts if the rule doesn't hold, so that libFuzzer reports the input.
void Check(bool holds, const char* rule, const std::string& seen = "") {
    if (holds) return;
    std::fprintf(stderr, "Broken rule: %s\n%s\n", rule, seen.c_str());
    std::abort();
}

/// The input is a file; its first two bytes are also the version in a valid header.
void TryHeader(const std::string& bytes) {
    static const test::TemporaryFolder folder;
    const auto read = [](const std::string& file, const char* extension) {
        return InDesign::ReadHeader(New<FolderItem>(folder.Write("document", file)), extension);
    };
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

/// The input is a JSON text.
void TryJSON(const std::string& bytes) {
    JSONItem item("[\"before\"]");
    const std::string before = item.ToString();
    try {
        item.Load(bytes);
    } catch (const JSONException& refused) {
        Check(refused.ErrorNumber >= 1 && refused.ErrorNumber <= 10, "a text is refused by a rule");
        Check(item.ToString() == before, "a refused text changes nothing");
        return;
    }
    for (const bool compact : {true, false}) {
        item.Compact = item.EscapeSlashes = compact;
        const std::string text = item.ToString();
        JSONItem again(text);
        again.Compact = again.EscapeSlashes = compact;
        Check(again.ToString() == text, "what was written reads as the same", text);
        const bool isASCII = std::all_of(text.begin(), text.end(), [](char c) { return c >= 0; });
        Check(!isASCII || nlohmann::json::accept(text), "what was written is JSON", text);
    }
}

/// The input is the arguments of a launch, each ended by a zero byte.
void TryArguments(const std::string& bytes) {
    std::vector<std::string> arguments;
    std::istringstream stream(bytes);
    for (std::string argument; std::getline(stream, argument, '\0');) {
        const std::string path = PathOfArgument(argument);
        Check(path == argument || path.empty() || path.starts_with("/"),
              "a URI names an absolute path", argument);
        Check(path.find('\0') == path.npos, "no path holds a zero byte", argument);
        Check(path.size() <= argument.size(), "decoding never makes a text longer", argument);
        std::string uri = "file:///";
        for (const char c : argument)
            uri += c == '/' ? "/" : "%" + EncodeHex(std::string(1, c));
        Check(PathOfArgument(uri) == "/" + argument, "an escaped path reads as written", argument);
        arguments.push_back(argument);
    }
    const Intake intake = TakeIn(arguments, {"indd"});
    Check(intake.documents.size() + intake.refusals.size() == arguments.size(),
          "each argument is a document or refused with a line");
}

/// The input is a property list; without markup it is also the version in a valid one.
void TryPropertyList(const std::string& list) {
    static const test::TemporaryFolder folder;
    folder.MakeFolder("An.app/Contents");
    const auto versionIn = [](const std::string& bytes) {
        folder.Write("An.app/Contents/Info.plist", bytes);
        return InDesign::AppVersion(New<FolderItem>(folder / "An.app"));
    };
    const std::string version = versionIn(list);
    Check(!version.empty(), "there is always a version");
    // UTF-8 takes at most three bytes for two of UTF-16, and an entity is longer than its
    // character.
    Check(version == "0.0.0" || version.size() <= 2 * list.size(), "it is in the list", version);
    std::string text = "9";
    for (const char c : list)
        text += c > ' ' && c != '<' && c != '&' && c < 0x7F ? c : '-';
    const std::string valid =
        "<plist version=\"1.0\"><dict><key>CFBundleShortVersionString</key><string>" + text +
        "</string></dict></plist>";
    const bool fits = valid.size() <= kPropertyListLimit;
    Check(versionIn(valid) == (fits ? text : "0.0.0"), "a valid list has its version", text);
    Check(versionIn(list) == version, "another list in between changes nothing", version);
}

struct Target {
    std::string_view name;
    void (*tryInput)(const std::string& bytes);
};
constexpr Target kTargets[] = {{"header_version", TryHeader},
                               {"json_text", TryJSON},
                               {"launch_words", TryArguments},
                               {"property_list", TryPropertyList}};

}  // namespace
}  // namespace dunvey

#ifdef DUNVEY_FUZZ_TARGET
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    for (const dunvey::Target& target : dunvey::kTargets) {
        if (target.name == DUNVEY_FUZZ_TARGET)
            target.tryInput({reinterpret_cast<const char*>(data), size});
    }
    return 0;
}
#else
int main(int count, char** arguments) {
    if (count != 2) return 1;
    for (const dunvey::Target& target : dunvey::kTargets) {
        target.tryInput({});
        const auto corpus = std::filesystem::path(arguments[1]) / target.name;
        for (const auto& entry : std::filesystem::directory_iterator(corpus)) {
            std::fprintf(stderr, "%s\n", entry.path().c_str());
            std::ifstream file(entry.path(), std::ios::binary);
            target.tryInput({std::istreambuf_iterator<char>(file), {}});
        }
    }
}
#endif
