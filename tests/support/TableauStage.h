// The work area of the main window on a scripted host, without a window around it.
#pragma once

#include "session/Session.h"
#include "support/ScriptedPlatform.h"
#include "windows/main/MainLayout.h"
#include "windows/main/MusicTableau.h"
#include "windows/main/PercussionTableau.h"
#include "windows/main/Picmain.h"
#include "windows/main/PolyTableau.h"
#include "windows/main/TableauDesk.h"

#include <string>
#include <vector>

namespace scripted {

/// A main window whose size the test sets; the toolbar is 46 high.
class PlainTableauDesk final : public velorin::TableauDesk {
public:
    int width = 640;
    int height = 480;
    bool minimised = false;
    int toolbMenuWidth = 0;
    int picture2Left = 0;
    std::vector<std::string> popups;

    bool isMinimised() override { return minimised; }
    int innerWidth() override { return width; }
    int innerHeight() override { return height; }
    void placeToolbMenu(int, int, int widthPx) override { toolbMenuWidth = widthPx; }
    int toolbMenuHeight() override { return 46; }
    void setPicture2Left(int left) override { picture2Left = left; }
    int picture2Width() override { return 104; }
    void popupCommand1() override { popups.emplace_back("Command1"); }
    void popupCommand2() override { popups.emplace_back("Command2"); }
};

/// Everything that draws and lays out. Needs an application object; nothing is shown.
struct TableauStage {
    ScriptedPlatform host;
    velorin::Session session{host.platform};
    velorin::Studio& studio = session.studio;
    velorin::Setup& setup = studio.setup;
    velorin::NoteSounding& sounding = session.sounding;
    PlainTableauDesk desk;
    velorin::Picmain area{nullptr};
    velorin::MusicTableau music{studio, area};
    velorin::PercussionTableau percussion{studio, area, music, sounding, desk};
    velorin::PolyTableau poly{studio, area, music};
    velorin::MainLayout layout{studio, area, music, percussion, poly, desk};

    /// Sets the inner size of the window.
    void resize(int widthPx, int heightPx) {
        desk.width = widthPx;
        desk.height = heightPx;
        layout.Form_Resize();
    }

    /// A note with its held cells.
    void note(int row, int column, int pitch, int length) {
        studio.score.NoteArray.write(row, column, static_cast<std::int16_t>(pitch));
        for (int c = column + 1; c < column + length; ++c)
            studio.score.NoteArray.write(row, c, velorin::heldCell(pitch));
    }

    [[nodiscard]] velorin::Colour pixel(int x, int y) const {
        return area.MusicBox->picture.pixel(x, y);
    }
};

} // namespace scripted
