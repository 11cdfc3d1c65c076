#pragma once

#include <vector>

#include "platform/values/reference.h"
#include "version/file_class.h"

namespace dunvey::InDesign {

/// Sorts the records in place, ascending by the numeric value of WillUseVer, and returns the same
/// array. Equal records keep their order; text that isn't a number counts as 0.
std::vector<Ref<FileClass>>& SortFilesByVer(std::vector<Ref<FileClass>>& files);

}  // namespace dunvey::InDesign
