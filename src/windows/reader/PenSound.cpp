// Sounds the notes that the pen meets.
#include "windows/reader/PenSound.h"

#include "platform/Settings.h"
#include "studio/Studio.h"
#include "windows/frame/SettingValues.h"

namespace velorin {

namespace {

constexpr char penSoundsKey[] = "Pen sounds";

} // namespace

PenSound::PenSound(Studio& studio, NoteSounding& sounding)
    : studio_(studio),
      sample_(studio, sounding),
      isOn_(settingBoolean(studio.platform.settings.GetSetting(settingsSection, penSoundsKey, {}))
                .value_or(false)) {}

void PenSound::toggle() {
    isOn_ = !isOn_;
    sample_.stop();
    studio_.platform.settings.SaveSetting(settingsSection, penSoundsKey, settingText(isOn_));
}

void PenSound::meet(const Spot& spot, const SpotContent& content) {
    sample_.stop();
    if (!isOn_ || !content.isInScore)
        return;
    if (spot.tableau == Tableau::lanes)
        return meetLane(spot);
    const int instrument = instrumentOf(spot, content);
    if (spot.tableau == Tableau::music)
        sample_.startSoftly(instrument, spot.line);
    else if (isPercussion(instrument))
        sample_.startSoftly(instrument, 0);
}

/// A press on a tableau whose rows do not have the current one chooses the first of them.
int PenSound::instrumentOf(const Spot& spot, const SpotContent& content) const {
    if (!content.notes.empty())
        return content.notes.front().instrument;
    const int current = studio_.score.CurrentRow;
    const bool isMusic = spot.tableau == Tableau::music;
    const int first = isMusic ? 0 : firstPercussionRow;
    const bool isOfTableau = RowOptions::isRow(current) && isMusicRow(current) == isMusic;
    return studio_.score.RowInstrument[isOfTableau ? current : first];
}

void PenSound::meetLane(const Spot& spot) {
    const auto cell = studio_.score.NoteArray.read(spot.line, spot.column);
    const auto instrument = studio_.score.InstrumentArray.read(spot.line, spot.column);
    if (cell && instrument && !isEmpty(*cell))
        sample_.startSoftly(*instrument, pitchOf(*cell));
}

} // namespace velorin
