// The declarations of the framework that the program uses, for tools/check-mac only.
#pragma once

typedef long CFIndex;
typedef unsigned char Boolean;
typedef unsigned int CFStringEncoding;
typedef const void* CFTypeRef;
typedef const struct __CFArray* CFArrayRef;
typedef const struct __CFString* CFStringRef;
typedef struct __CFBundle* CFBundleRef;

enum { kCFStringEncodingUTF8 = 0x08000100 };

extern "C" {
CFArrayRef CFBundleCopyBundleLocalizations(CFBundleRef bundle);
CFArrayRef CFBundleCopyPreferredLocalizationsFromArray(CFArrayRef localizations);
CFBundleRef CFBundleGetMainBundle(void);
CFIndex CFArrayGetCount(CFArrayRef array);
const void* CFArrayGetValueAtIndex(CFArrayRef array, CFIndex index);
Boolean CFStringGetCString(CFStringRef string, char* buffer, CFIndex size, CFStringEncoding encoding);
void CFRelease(CFTypeRef object);
}
