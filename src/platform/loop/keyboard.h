#pragma once

/// The keys held down at this instant, from the hardware state, not from the event queue. False
/// where the state can't be read. On Linux Command is the Control key and Option is Shift.
namespace dunvey::Keyboard {

bool AsyncCommandKey();
bool AsyncOptionKey();

/// What users call the Command key here, such as "Control".
const char* CommandKeyName();

}  // namespace dunvey::Keyboard
