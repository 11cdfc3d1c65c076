#include "platform/early_loading.h"

namespace dunvey::EarlyLoading {

void Begin() {}
void BeginWithoutLibraries() {}
void Await() {}

}  // namespace dunvey::EarlyLoading
