// The work area of the main window on a scripted host, with no window around it.
#pragma once

#include "playback/NoDesk.h"
#include "playback/NoteSounding.h"
#include "score/PlainSetup.h"
#include "score/Studio.h"
#include "support/ScriptedPlatform.h"
#include "tableaux/MainLayout.h"
#include "tableaux/MusicTableau.h"
#include "tableaux/PercussionTableau.h"
#include "tableaux/Picmain.h"
#include "tableaux/PolyTableau.h"
#include "tableaux/TableauDesk.h"

#include <string>
#include <vector>

namespace scripted {

/// A main window of a size that the test sets; the tool strip is 46 high.
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
    std::string Combo1Entry(int index) override { return std::to_string(index) + " Melody"; }
    std::string Combo5Entry(int index) override { return std::to_string(index) + " Drum"; }
};

/// Everything that draws and lays out. Needs an application object; nothing is shown.
struct TableauStage {
    ScriptedPlatform host;
    velorin::PlainSetup setup;
    velorin::Studio studio{host.platform, setup};
    velorin::NoDesk playback;
    PlainTableauDesk desk;
    velorin::NoteSounding sounding{studio, playback};
    velorin::Picmain area{nullptr};
    velorin::MusicTableau music{studio, area};
    velorin::PercussionTableau percussion{studio, area, music, sounding, desk};
    velorin::PolyTableau poly{studio, area, music};
    velorin::MainLayout layout{studio, area, music, percussion, poly, desk};

    /// The window gets an inner size.
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
