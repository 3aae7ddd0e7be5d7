// One session of the program without its windows.
#include "session/Session.h"

#include <cassert>

namespace velorin {

Session::Session(platform::Platform& platform)
    : studio(platform),
      watch(platform.clock, platform.loop),
      sounding(studio),
      sequencer(studio, sounding, watch),
      commands(studio),
      files(studio),
      edits(studio),
      duplicate(studio, edits, commands) {}

void Session::TrackSel_Click(int row) {
    assert(studio.owner.isCaller());
    if (!RowOptions::isRow(row))
        return;
    studio.score.CurrentRow = static_cast<std::int16_t>(row);
    sounding.SoundRow = studio.score.CurrentRow;
    studio.view.HoverRow = static_cast<std::int16_t>(row + 1);
    studio.view.DrawColor = studio.view.ChannelColor[row];
    if (isMusicRow(row))
        studio.desk->DrawNoteArray();
    else
        studio.desk->DrawBeatArray();
    sounding.Command9_Click();
}

} // namespace velorin
