#include "platform/exceptions.h"

#include "platform/reference.h"

namespace dunvey {

void RaiseNilObject() {
    throw NilObjectException("A nil reference was used.");
}

}  // namespace dunvey
