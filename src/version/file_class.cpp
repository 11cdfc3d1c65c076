#include "version/file_class.h"

#include "platform/text/text.h"
#include "version/application_match.h"
#include "version/header_version.h"

namespace dunvey::InDesign {

const std::vector<std::string>& DocumentExtensions() {
    static const std::vector<std::string> kExtensions = {"indd", "indb", "indl", "indt"};
    return kExtensions;
}

std::string VersionText(const std::vector<int64_t>& version) {
    const bool isHalfVersion = version[0] == 7 && version[1] == 5;
    return isHalfVersion ? "7.5" : Str(version[0]);
}

Ref<FileClass> MakeNewFileClass(const Ref<FolderItem>& item) {
    if (!item || !item->Exists()) return nullptr;
    const std::string extension = FileExtension(item->Name());
    if (!IsExtensionIn(DocumentExtensions(), extension)) return nullptr;
    Ref<FileClass> record = New<FileClass>();
    record->File = item;
    record->FileExt = extension;
    record->Vers = GetVerHexToDec(item, extension);
    record->Ver = VersionText(record->Vers);
    record->WillUseVer = record->Ver;
    MatchApplication(*record);
    record->WillOpen = true;
    return record;
}

}  // namespace dunvey::InDesign
