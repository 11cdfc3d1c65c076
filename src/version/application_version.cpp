#include "version/application_version.h"

#include "platform/bundles/bundle_properties.h"
#include "platform/text/text.h"

namespace dunvey::InDesign {
namespace {

constexpr const char* kUnknown = "0.0.0";

}  // namespace

std::string AppVersion(const Ref<FolderItem>& application) {
    if (!application || !application->Exists()) return kUnknown;
    if (InStr(0, application->Name(), "2.0") != 0) return "2.0.?";
    const std::string version = ReadBundleProperties(*application->Child("Contents")).shortVersion;
    if (version.empty()) return kUnknown;
    return Left(version, 4) == "CS 3" ? Replace(version, "CS 3 ", "") : version;
}

}  // namespace dunvey::InDesign
