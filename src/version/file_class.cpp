#include "version/file_class.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "platform/text/text.h"
#include "version/application_match.h"
#include "version/header_version.h"

namespace dunvey::InDesign {
namespace {

constexpr std::array<std::string_view, 4> kExtensions = {"indd", "indb", "indl", "indt"};

bool IsAccepted(const std::string& extension) {
    const std::string lowered = Lowercase(extension);
    return std::find(kExtensions.begin(), kExtensions.end(), lowered) != kExtensions.end();
}

}  // namespace

std::vector<std::string> DocumentExtensions() {
    return {kExtensions.begin(), kExtensions.end()};
}

Ref<FileClass> MakeNewFileClass(const Ref<FolderItem>& item) {
    if (!item || !item->Exists()) return nullptr;
    const std::string extension = SplitB(item->Name(), ".").back();
    if (!IsAccepted(extension)) return nullptr;
    Ref<FileClass> record = New<FileClass>();
    record->File = item;
    record->FileExt = extension;
    record->Vers = GetVerHexToDec(item, extension);
    const bool halfVersion = record->Vers[0] == 7 && record->Vers[1] == 5;
    record->Ver = halfVersion ? "7.5" : Str(record->Vers[0]);
    record->WillUseVer = record->Ver;
    MatchApplication(*record);
    record->WillOpen = true;
    return record;
}

}  // namespace dunvey::InDesign
