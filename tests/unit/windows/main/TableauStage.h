// The tableaux on a scripted host, with a setup and a window that log their calls.
#pragma once

#include "../../playback/PlaybackStage.h"
#include "support/GridText.h"
#include "support/PlainSetupView.h"
#include "windows/main/MusicMouse.h"
#include "windows/main/MusicTableau.h"
#include "windows/main/PercussionTableau.h"
#include "windows/main/Picmain.h"
#include "windows/main/PolyTableau.h"
#include "windows/main/TableauDesk.h"

#include <string>

namespace velorin {

/// Logs what is set: "TrackSel(8) on".
struct RecordingSetup final : scripted::PlainSetupView {
    using PlainSetupView::PlainSetupView;
    Lines log;

    void setTrackSel(int r, bool selected) override {
        note("TrackSel", r, selected ? " on" : " off");
        PlainSetupView::setTrackSel(r, selected);
    }
    void TrackSel_MouseDown(int r) override { note("TrackSel_MouseDown", r, ""); }
    void setTrackHidePicture(int r, bool active) override {
        note("picture", r, active ? " on" : " off");
    }

private:
    void note(const char* what, int r, const char* state) {
        std::string line = what;
        line.append("(").append(std::to_string(r)).append(")").append(state);
        log.push_back(line);
    }
};

struct RecordingTableauDesk final : TableauDesk {
    Lines popups;

    bool isMinimised() override { return false; }
    int innerWidth() override { return 640; }
    int innerHeight() override { return 480; }
    void placeToolbMenu(int, int, int) override {}
    int toolbMenuHeight() override { return 46; }
    void setPicture2Left(int) override {}
    int picture2Width() override { return 100; }
    void popupCommand1() override { popups.emplace_back("Command1"); }
    void popupCommand2() override { popups.emplace_back("Command2"); }
};

/// A view of 47 columns from column 0 and 20 lines from pitch 55; the strip is 60 high. The device
/// is open, and its log is empty. `Beatbox` has a percussion sound chosen.
struct TableauStage {
    static constexpr int widthPx = 564;
    static constexpr int heightPx = 240;

    TableauStage() {
        studio.view.VisibleColumns = 46;
        studio.view.LastVisibleColumn = 46;
        area.MusicBox->place(32, 25, widthPx, heightPx);
        area.Beatbox->place(32, 25, widthPx, 60);
        area.Pic1->place(32, 270, widthPx, 58);
        for (Picture* picture : {&area.SwapScreen, &area.BlueBox})
            picture->resize(widthPx, heightPx);
        area.RedBox.resize(12, heightPx);
        studio.setup.values.device = 1;
        studio.desk = &playback;
        sounding.PercussionChoice = 128;
        sounding.Device_Click();
        host.midi.log.clear();
        music.DrawNoteArray();
        percussion.DrawBeatArray();
        poly.DrawPolyTableau();
    }

    void note(int row, int column, int pitch, int length = 1, std::int16_t instrument = 0) {
        scripted::putNote(score, row, column, pitch, length, instrument);
    }

    void scrollTo(int column) {
        studio.view.FirstColumn = static_cast<std::int16_t>(column);
        studio.view.LastVisibleColumn = static_cast<std::int16_t>(column + 46);
    }

    void choosePercussion(int row) {
        score.CurrentRow = static_cast<std::int16_t>(row);
        sounding.SoundRow = score.CurrentRow;
        studio.view.DrawColor = channelColors[row];
    }

    /// The cells of a row from column a to column b: "60 1060 . ." with '.' for an empty one.
    [[nodiscard]] std::string notes(int row, int a, int b) const {
        return scripted::gridText(score.NoteArray, row, a, b);
    }
    [[nodiscard]] std::string instruments(int row, int a, int b) const {
        return scripted::gridText(score.InstrumentArray, row, a, b);
    }
    /// Entries of `PolyArray`, lane [0, 9), index [0, 1001).
    [[nodiscard]] std::string marks(int lane, int a, int b) const {
        return scripted::gridText(score.PolyArray, lane, a, b);
    }

    // The mouse in the middle of a cell of the screen.
    static double at(int cell) { return cell * 12 + 5; }
    void press(int button, int column, int line) {
        mouse.MusicBox_MouseDown(button, 0, at(column), at(line));
    }
    void move(int button, int column, int line) {
        mouse.MusicBox_MouseMove(button, 0, at(column), at(line));
    }
    void release(int button, int column, int line) {
        mouse.MusicBox_MouseUp(button, 0, at(column), at(line));
    }
    void pressBeat(int button, int column, int line) {
        percussion.Beatbox_MouseDown(button, 0, at(column), at(line));
    }
    void moveBeat(int button, int column, int line) {
        percussion.Beatbox_MouseMove(button, 0, at(column), at(line));
    }
    void releaseBeat(int button, int column, int line) {
        percussion.Beatbox_MouseUp(button, 0, at(column), at(line));
    }

    Lines midi() { return std::exchange(host.midi.log, {}); }
    Lines asked() { return std::exchange(setupView.log, {}); }
    [[nodiscard]] Colour musicPixel(int x, int y) const {
        return area.MusicBox->picture.pixel(x, y);
    }
    [[nodiscard]] Colour beatPixel(int x, int y) const { return area.Beatbox->picture.pixel(x, y); }
    [[nodiscard]] Colour polyPixel(int x, int y) const { return area.Pic1->picture.pixel(x, y); }

    scripted::ScriptedPlatform host;
    Session session{host.platform};
    Studio& studio = session.studio;
    Setup& setup = studio.setup;
    RecordingSetup setupView{setup};
    Score& score = studio.score;
    Drag& drag = studio.drag;
    RecordingDesk playback{host.time};
    RecordingTableauDesk desk;
    NoteSounding& sounding = session.sounding;
    Picmain area{nullptr};
    MusicTableau music{studio, area};
    PolyTableau poly{studio, area, music};
    PercussionTableau percussion{studio, area, music, sounding, desk};
    MusicMouse mouse{studio, area, music, poly, sounding, desk};
};

} // namespace velorin
