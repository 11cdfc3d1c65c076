#pragma once

#include "platform/loop/desktop.h"

namespace dunvey::test {

/// Gives the key that only a desktop can make: `User::ByUser()`.
class User : public Desktop {
 public:
    using Desktop::ByUser;
};

}  // namespace dunvey::test
