#pragma once

#include <cstdint>
#include <string>

#include "platform/text/text.h"
#include "platform/values/exceptions.h"

namespace dunvey {

/// A JSON document that can't be read, written or used as requested.
class JSONException : public RuntimeException {
 public:
    /// Appends " at position " and the position if that is greater than 0. The position is a byte
    /// offset from the start of the text, counted from 0, after the token that failed.
    JSONException(const std::string& message, int errorNumber, int64_t position,
                  SourcePlace place = SourcePlace::Here())
        : RuntimeException(position > 0 ? message + " at position " + Str(position) : message,
                           errorNumber, place) {}
    /// Appends ": " and the detail if that holds anything but white space.
    JSONException(const std::string& message, int errorNumber, const std::string& detail,
                  SourcePlace place = SourcePlace::Here())
        : RuntimeException(Trim(detail).empty() ? message : message + ": " + detail, errorNumber,
                           place) {}
    JSONException() = default;

    const char* Name() const noexcept override { return "JSONException"; }
};

}  // namespace dunvey
