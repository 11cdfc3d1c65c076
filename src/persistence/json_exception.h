#pragma once

#include <cstdint>
#include <string>

#include "platform/values/exceptions.h"

namespace dunvey {

/// A JSON document that can't be read, written or used as asked.
class JSONException : public RuntimeException {
 public:
    JSONException() = default;
    /// Appends " at position " and the position if that is above 0. The position is a byte offset
    /// from the start of the text, from 0, taken behind the token that failed.
    JSONException(const std::string& message, int errorNumber, int64_t position);
    /// Appends ": " and the detail if that holds anything but white space.
    JSONException(const std::string& message, int errorNumber, const std::string& detail);

    const char* Name() const noexcept override { return "JSONException"; }
};

}  // namespace dunvey
