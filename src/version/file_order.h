#pragma once

#include <vector>

#include "platform/values/reference.h"
#include "version/file_class.h"

namespace dunvey::InDesign {

/// Sorts the records in place by the numeric value of WillUseVer, ascending, and returns the same
/// array. Records of equal value keep their order; text that is no number counts as 0.
std::vector<Ref<FileClass>>& SortFilesByVer(std::vector<Ref<FileClass>>& files);

}  // namespace dunvey::InDesign
