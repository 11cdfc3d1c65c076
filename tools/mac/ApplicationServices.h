// The declarations of the framework that the program uses, for tools/check-mac only.
#pragma once

#include <cstdint>

typedef uint64_t CGEventFlags;
typedef int32_t CGEventSourceStateID;

enum : CGEventSourceStateID { kCGEventSourceStateHIDSystemState = 1 };
enum : CGEventFlags { kCGEventFlagMaskAlternate = 0x00080000, kCGEventFlagMaskCommand = 0x00100000 };

extern "C" CGEventFlags CGEventSourceFlagsState(CGEventSourceStateID state);
