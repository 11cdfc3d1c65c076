#include "platform/bundles/system.h"

#include <CoreFoundation/CoreFoundation.h>

#include <memory>

namespace dunvey {
namespace {

/// The first of the bundle's languages in the user's order of preference; nullptr for none.
CFStringRef FirstLanguage(CFArrayRef preferred) {
    if (preferred == nullptr || CFArrayGetCount(preferred) == 0) return nullptr;
    return static_cast<CFStringRef>(CFArrayGetValueAtIndex(preferred, 0));
}

struct Release {
    void operator()(CFArrayRef array) const { CFRelease(array); }
};
using OwnedArray = std::unique_ptr<std::remove_pointer_t<CFArrayRef>, Release>;

}  // namespace

std::string UserLanguage() {
    const OwnedArray offered(CFBundleCopyBundleLocalizations(CFBundleGetMainBundle()));
    if (!offered) return {};
    const OwnedArray preferred(CFBundleCopyPreferredLocalizationsFromArray(offered.get()));
    const CFStringRef language = FirstLanguage(preferred.get());
    char name[64];
    const bool isText = language != nullptr &&
                        CFStringGetCString(language, name, sizeof name, kCFStringEncodingUTF8) != 0;
    return isText ? name : std::string();
}

}  // namespace dunvey
