#include "platform/loop/keyboard.h"

#include <ApplicationServices/ApplicationServices.h>

namespace dunvey::Keyboard {
namespace {

bool IsDown(CGEventFlags key) {
    return (CGEventSourceFlagsState(kCGEventSourceStateHIDSystemState) & key) != 0;
}

}  // namespace

bool AsyncCommandKey() {
    return IsDown(kCGEventFlagMaskCommand);
}

bool AsyncOptionKey() {
    return IsDown(kCGEventFlagMaskAlternate);
}

const char* CommandKeyName() {
    return "Command";
}

}  // namespace dunvey::Keyboard
