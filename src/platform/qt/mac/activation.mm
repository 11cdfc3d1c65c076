#include <Cocoa/Cocoa.h>

#include "platform/qt/dock.h"

namespace dunvey {

void ActivateApplication() {
    [NSApp activateIgnoringOtherApps:YES];
}

}  // namespace dunvey
