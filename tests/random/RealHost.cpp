// Puts the host together.
#include "RealHost.h"

#include "studio/Studio.h"
#include "windows/frame/ToolWindows.h"
#include "windows/help/HelpPages.h"

#include <QApplication>

namespace randomly {

using namespace velorin;

RealHost::RealHost(const std::filesystem::path& folder, Chance& chance)
    : sound_(folder, {folder / "Songs"}),
      loop_(sound_.clock()),
      settings_(QString::fromStdString((folder / "settings.ini").string())),
      dialogs_(loop_, settings_, QString::fromStdString((folder / "Songs").string())),
      menus_(loop_),
      history_(folder / "state" / "history"),
      systemFiles_(folder / "config"),
      encoder_(folder.string()),
      desktop(chance),
      platform_{sound_.clock(), loop_,        sound_.midi(), sound_.mci(),    dialogs_,
                boxes_,         files_,       settings_,     desktop,         menus_,
                timers_,        systemFiles_, encoder_,      folder.string(), &history_},
      program(platform_) {
    desktop.setHelp([this] {
        if (!help_)
            help_ = std::make_unique<HelpWindow>(helpPages());
        help_->openFirstPage();
        return help_->hasPages();
    });
}

RealHost::~RealHost() = default;

void RealHost::run(const std::function<void()>& started) {
    const host::IdleStream rest(sound_, [this] { return program.studio().run.IsPlaying.isSet(); });
    sound_.begin();
    if (program.start() && !program.hasEnded()) {
        started();
        QApplication::exec();
    }
    program.Command3_Click();
}

} // namespace randomly
