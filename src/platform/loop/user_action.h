#pragma once

namespace dunvey {

class Desktop;

/// The key to what only the user may do. Only a desktop can make one, so logic can't take the
/// user's road by accident.
class UserAction {
 private:
    friend class Desktop;
    UserAction() = default;
};

}  // namespace dunvey
