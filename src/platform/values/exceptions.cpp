#include "platform/values/exceptions.h"

#include "platform/values/reference.h"

namespace dunvey {

void RaiseNilObject() {
    throw NilObjectException("A nil reference was used.");
}

}  // namespace dunvey
