#include "platform/font_settings.h"

namespace dunvey::FontSettings {

void ReadAhead() {}
void Await() {}

}  // namespace dunvey::FontSettings
