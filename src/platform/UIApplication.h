// The application's loop.
#pragma once

#include "platform/UIResponder.h"

#include <functional>
#include <memory>

class UIApplicationDelegate : public UIResponder
{
public:
    /// Builds the window. False ends the program at once with a failure status.
    virtual bool didFinishLaunchingWithOptions() = 0;
    virtual void applicationWillResignActive() {}
    virtual void applicationDidEnterBackground() {}
    virtual void applicationWillEnterForeground() {}
    virtual void applicationDidBecomeActive() {}
    virtual void applicationWillTerminate() {}
};

namespace UIApplication
{
/// Exit status when there is no display to open a window on: EX_UNAVAILABLE of BSD's sysexits.h.
inline constexpr int noDisplay = 69;
} // namespace UIApplication

/// Makes the delegate, runs the loop until the last window is closed, lets go of the delegate and
/// its windows, and returns the exit status. Without a display it puts `withoutDisplay`, a line in
/// the locale's encoding, on standard error and ends the process with UIApplication::noDisplay.
int UIApplicationMain(int &argc, char **argv,
                      const std::function<std::unique_ptr<UIApplicationDelegate>()> &makeDelegate,
                      const char *withoutDisplay);
