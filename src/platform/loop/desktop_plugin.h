#pragma once

#include <memory>
#include <string>

#include "platform/loop/desktop.h"

namespace dunvey {

/// The function that a desktop plug-in offers under the name "DunveyMakeDesktop": a new desktop,
/// which the caller owns. Raises DesktopUnavailableException where there is no screen.
using MakeDesktop = Desktop*();

/// The desktop out of the plug-in of that name in the bundle's PlugIns folder. `loaded` is called
/// once that is loaded, ahead of its first step. Raises DesktopUnavailableException if it can't be
/// loaded or there is no screen.
std::unique_ptr<Desktop> LoadDesktopPlugin(const std::string& name, void (*loaded)());

}  // namespace dunvey
