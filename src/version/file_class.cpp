#include "version/file_class.h"

#include "platform/text/file_extension.h"
#include "version/application_match.h"
#include "version/header_version.h"

namespace dunvey::InDesign {
namespace {

const std::vector<std::string> kExtensions = {"indd", "indb", "indl", "indt"};

}  // namespace

const std::vector<std::string>& DocumentExtensions() {
    return kExtensions;
}

Ref<FileClass> MakeNewFileClass(const Ref<FolderItem>& item) {
    if (!item || !item->Exists()) return nullptr;
    const std::string extension = FileExtension(item->Name());
    if (!IsExtensionIn(kExtensions, extension)) return nullptr;
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
