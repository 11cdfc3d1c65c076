#include "platform/array.h"

#include "platform/exceptions.h"
#include "platform/text.h"

namespace dunvey {

void RaiseOutOfBounds(int64_t position) {
    throw OutOfBoundsException("There is no element at position " + Str(position) + ".");
}

}  // namespace dunvey
