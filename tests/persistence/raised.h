#pragma once

#include <gtest/gtest.h>

#include <string>

#include "persistence/json_exception.h"

namespace dunvey::tests {

/// The number and the message of the JSONException that the call raises: "6 Missing , or }".
template <typename Call>
std::string Raised(Call&& call) {
    try {
        call();
    } catch (const JSONException& exception) {
        return std::to_string(exception.ErrorNumber) + " " + exception.Message;
    }
    return "nothing";
}

}  // namespace dunvey::tests
