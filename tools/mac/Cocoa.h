// The declarations of the framework that the program uses, for tools/check-mac only.
#pragma once

#include <objc/NSObject.h>

@interface NSApplication : NSObject
- (void)activateIgnoringOtherApps:(BOOL)ignore;
@end

extern "C" NSApplication* NSApp;
