#include "platform/early_loading.h"

namespace dunvey::EarlyLoading {

void Begin() {}
void Await() {}

}  // namespace dunvey::EarlyLoading
