// The studio: the one object that holds the state of the program, handed to whoever needs it by
// reference.
#pragma once

#include "platform/Platform.h"
#include "score/Run.h"
#include "score/SavedState.h"
#include "score/Score.h"
#include "score/View.h"

namespace velorin {

class SetupControls;

/// Made by `main`, and by each test for itself. It owns the state; the platform and the setup
/// outlive it.
struct Studio {
    Studio(platform::Platform& platformGiven, SetupControls& setupGiven)
        : platform(platformGiven), setup(setupGiven) {}

    platform::Platform& platform;
    SetupControls& setup; ///< the Setup Toolbar's controls; the row options among them
    Score score;
    SavedState saved; ///< whether a file holds `score` as it is
    View view;
    Drag drag;
    Run run;
};

} // namespace velorin
