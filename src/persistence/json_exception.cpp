#include "persistence/json_exception.h"

#include "platform/text/text.h"
#include "platform/text/white_space.h"

namespace dunvey {

JSONException::JSONException(const std::string& message, int errorNumber, int64_t position)
    : RuntimeException(position > 0 ? message + " at position " + Str(position) : message,
                       errorNumber) {}

JSONException::JSONException(const std::string& message, int errorNumber, const std::string& detail)
    : RuntimeException(Trim(detail).empty() ? message : message + ": " + detail, errorNumber) {}

}  // namespace dunvey
