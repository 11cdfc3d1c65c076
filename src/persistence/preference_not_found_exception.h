#pragma once

#include <string>

#include "platform/values/exceptions.h"

namespace dunvey::Preferences {

/// A preference was asked for that the document doesn't hold.
class PreferenceNotFoundException : public RuntimeException {
 public:
    explicit PreferenceNotFoundException(const std::string& name,
                                         SourcePlace place = SourcePlace::Here())
        : RuntimeException("Preference value '" + name + "' does not exist.", 0, place) {}

    const char* Name() const noexcept override { return "PreferenceNotFoundException"; }
};

}  // namespace dunvey::Preferences
