#pragma once

#include <string>

#include "platform/values/exceptions.h"

namespace dunvey::Preferences {

/// The document has no preference of the requested name.
class PreferenceNotFoundException : public RuntimeException {
 public:
    explicit PreferenceNotFoundException(const std::string& name,
                                         SourcePlace place = SourcePlace::Here())
        : RuntimeException("Preference value '" + name + "' does not exist.", 0, place) {}

    const char* Name() const noexcept override { return "PreferenceNotFoundException"; }
};

}  // namespace dunvey::Preferences
