// The fixture of every tool window: a session on a scripted host, with no main window.
#pragma once

#include "session/Session.h"
#include "support/ScriptedPlatform.h"
#include "windows/frame/HoldingLoop.h"
#include "windows/frame/ToolWindows.h"

namespace scripted {

/// Needs an application object. Windows made on it must be destroyed before it.
struct ToolStage {
    ScriptedPlatform host;
    velorin::HoldingLoop loop{host.time};
    platform::Platform platform = velorin::withLoop(host.platform, loop);
    velorin::Session session{platform};
    velorin::Studio& studio = session.studio;
    velorin::ToolWindows windows{platform, studio.run, loop};
};

} // namespace scripted
