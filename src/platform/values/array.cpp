#include "platform/values/array.h"

#include "platform/text/text.h"
#include "platform/values/exceptions.h"

namespace dunvey {

void RaiseOutOfBounds(int64_t position) {
    throw OutOfBoundsException("There is no element at position " + Str(position) + ".");
}

}  // namespace dunvey
