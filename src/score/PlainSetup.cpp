// Plain values with the bounds of the controls that they stand for.
#include "score/PlainSetup.h"

#include "resources/InstrumentNames.h"

namespace velorin {

namespace {

std::size_t index(int r) {
    return static_cast<std::size_t>(r);
}
bool isRow(int r) {
    return r >= 0 && r < scoreRows;
}
bool isChordRow(int r) {
    return r >= 0 && isMusicRow(r);
}
bool hasVolumeBox(int r) {
    return isRow(r) && r != rowWithoutVolume;
}

} // namespace

bool PlainSetup::TrackHide(int r) {
    return isRow(r) && row[index(r)].hidden;
}

std::optional<std::string_view> PlainSetup::vol(int r) {
    if (!hasVolumeBox(r))
        return std::nullopt;
    return row[index(r)].volume;
}

bool PlainSetup::Ch(int r) {
    return isChordRow(r) && row[index(r)].chord;
}

bool PlainSetup::Chkstrum(int r) {
    return isChordRow(r) && row[index(r)].strummed;
}

bool PlainSetup::TrackSel(int r) {
    return isRow(r) && row[index(r)].selected;
}

void PlainSetup::setTrackSel(int r, bool selected) {
    if (!isRow(r))
        return;
    for (int other = 0; selected && other < scoreRows; ++other) {
        if (isMusicRow(other) == isMusicRow(r))
            row[index(other)].selected = false;
    }
    row[index(r)].selected = selected;
}

void PlainSetup::setTrackHide(int r, bool hidden) {
    if (isRow(r))
        row[index(r)].hidden = hidden;
}

void PlainSetup::setVol(int r, const std::string& text) {
    if (hasVolumeBox(r))
        row[index(r)].volume = text;
}

void PlainSetup::setCh(int r, bool chord) {
    if (isChordRow(r))
        row[index(r)].chord = chord;
}

void PlainSetup::setChkstrum(int r, bool strummed) {
    if (isChordRow(r))
        row[index(r)].strummed = strummed;
}

void PlainSetup::setCombo1(int i) {
    if (i >= -1 && i < firstPercussion)
        instrument = i;
}

std::string PlainSetup::Combo1Entry(int i) {
    return instrumentEntry(i);
}

std::string PlainSetup::Combo5Entry(int i) {
    return percussionEntry(i);
}

void PlainSetup::setTempoBar(int value) {
    if (value >= 20 && value <= 300)
        tempo = value;
}

} // namespace velorin
