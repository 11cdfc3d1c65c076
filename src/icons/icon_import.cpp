#include "icons/icon_import.h"

namespace dunvey::InDesign {

void GetIconFile() {}

}  // namespace dunvey::InDesign
