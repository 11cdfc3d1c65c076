#include "version/file_order.h"

#include "platform/text/text.h"
#include "version/stable_sort_by.h"

namespace dunvey::InDesign {

std::vector<Ref<FileClass>>& SortFilesByVer(std::vector<Ref<FileClass>>& files) {
    StableSortBy(files, [](const Ref<FileClass>& record) { return Val(record->WillUseVer); });
    return files;
}

}  // namespace dunvey::InDesign
