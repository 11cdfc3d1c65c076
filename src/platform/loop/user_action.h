#pragma once

namespace dunvey {

class Desktop;

/// Proof that the user acts, a parameter of operations such as a button's Press. Only a desktop can
/// make one, so logic can't press a button by accident.
class UserAction {
 private:
    friend class Desktop;
    UserAction() = default;
};

}  // namespace dunvey
