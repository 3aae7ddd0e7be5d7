// The state of the program in one object, which is passed by reference.
#pragma once

#include "model/Score.h"
#include "platform/OwnerThread.h"
#include "platform/Platform.h"
#include "studio/NoDesk.h"
#include "studio/Run.h"
#include "studio/SavedState.h"
#include "studio/Setup.h"
#include "studio/View.h"

namespace velorin {

/// Owned by `Session`. The platform outlives it.
struct Studio {
    explicit Studio(platform::Platform& platformGiven) : platform(platformGiven) {}
    Studio(const Studio&) = delete;
    Studio& operator=(const Studio&) = delete;

    platform::OwnerThread owner; ///< the user-interface thread; the converter has one as well
    platform::Platform& platform;
    Setup setup; ///< the values of the Setup Toolbar, which include the row options
    /// Set by the main window when it is created. Never null: without a window it is an object that
    /// does nothing.
    MainDesk* desk = &noDesk;
    Score score;
    SavedState saved; ///< whether a file holds `score` as it is
    View view;
    Drag drag;
    Run run;

private:
    NoDesk noDesk;
};

} // namespace velorin
