// A scripted platform whose files are the real ones.
#pragma once

#include "host/files/HostFiles.h"
#include "support/ScriptedPlatform.h"

namespace velorin::disk {

struct RealFiles {
    scripted::ScriptedPlatform host;
    host::HostFiles files;
    platform::Platform platform{.clock = host.time,
                                .loop = host.time,
                                .midi = host.midi,
                                .mci = host.mci,
                                .dialogs = host.dialogs,
                                .boxes = host.boxes,
                                .files = files,
                                .settings = host.settings,
                                .desktop = host.desktop,
                                .menus = host.menus,
                                .timers = host.time,
                                .systemFiles = host.systemFiles,
                                .encoder = host.encoder,
                                .programFolder = host.folder.path().string(),
                                .notices = &host.notices};
};

} // namespace velorin::disk
