#include "platform/loop/early_loading.h"

namespace dunvey::EarlyLoading {

void Begin() {}
void BeginWithoutLibraries() {}
void Await() {}

}  // namespace dunvey::EarlyLoading
