// Putting the host together.
#include "RealHost.h"

#include "resources/HelpPages.h"
#include "score/Studio.h"
#include "windows/ToolWindows.h"

#include <QApplication>

namespace randomly {

using namespace velorin;

RealHost::RealHost(const std::filesystem::path& folder, Chance& chance)
    : sound_(folder, {folder / "Songs"}),
      loop_(sound_.clock()),
      dialogs_(loop_, QString::fromStdString((folder / "Songs").string())),
      settings_(QString::fromStdString((folder / "settings.ini").string())),
      menus_(loop_),
      kept_(folder / "state"),
      systemFiles_(folder / "config"),
      encoder_(folder.string()),
      desktop(chance),
      platform_{sound_.clock(), loop_,        sound_.midi(), sound_.mci(),    dialogs_,
                boxes_,         files_,       settings_,     desktop,         menus_,
                timers_,        systemFiles_, encoder_,      folder.string(), &kept_},
      program(platform_) {
    desktop.setHelp([this] {
        if (!help_)
            help_ = std::make_unique<HelpWindow>(helpPages());
        help_->openFirstPage();
        return help_->hasPages();
    });
    addToolWindows(program);
}

RealHost::~RealHost() = default;

void RealHost::run() {
    const host::StreamRest rest(sound_,
                                [this] { return program.studio().run.IsPlaying != flagClear; });
    sound_.begin();
    if (program.start() && !program.hasEnded())
        QApplication::exec();
    program.Command3_Click();
}

} // namespace randomly
