// The part of `NoteSounding` for instruments, the device, and the commands that end all sound.
#include "model/InstrumentNames.h"
#include "platform/Mci.h"
#include "platform/MidiStatus.h"
#include "platform/Text.h"
#include "playback/NoteSounding.h"
#include "studio/MainDesk.h"
#include "studio/Setup.h"
#include "studio/Studio.h"

#include <algorithm>
#include <cassert>
#include <string>

namespace velorin {

namespace {

using platform::controlChange, platform::noteOff, platform::noteOn, platform::programChange;

constexpr int bankHigh = 0x00;
constexpr int bankLow = 0x20;

constexpr int sampleChannel = 15; ///< rows use 0 to 12

// A status without data, sent once after every opening. The handle is never assigned, so no device
// receives it.
constexpr std::uint32_t openingMessage = 201;
constexpr platform::MidiOutHandle unassignedHandle = 0;

} // namespace

// A percussion sound is not a program of the device but a key on channel 9. It is stored until the
// row's next note. For a melodic sound the row number is the channel, also in rows 8 to 12.
void NoteSounding::ChangeInstrument(int instrument, int row) {
    const bool known = row >= 0 && row < scoreRows;
    if (isPercussion(instrument)) {
        const auto key = platform::toInt16(percussionKey(instrument));
        if (known)
            PercussionRow[row] = flagSet;
        if (known && key)
            PercussionKey[row] = *key;
        return;
    }
    sendShort(controlChange + row, bankHigh, 0);
    sendShort(controlChange + row, bankLow, 0);
    sendShort(programChange + row, instrument, 0);
    if (known)
        PercussionRow[row] = flagClear;
}

void NoteSounding::startSample(int instrument, int velocity, int key) {
    if (isPercussion(instrument))
        return sendShort(noteOn + percussionChannel, percussionKey(instrument), velocity);
    sendShort(controlChange + sampleChannel, bankHigh, 0);
    sendShort(controlChange + sampleChannel, bankLow, 0);
    sendShort(programChange + sampleChannel, instrument, 0);
    sendShort(noteOn + sampleChannel, key, velocity);
}

// A drum is ended on its own channel, unlike the drums of a score: here no other stroke follows
// that it could cut off.
void NoteSounding::stopSample(int instrument, int key) {
    if (isPercussion(instrument))
        return sendShort(noteOff + percussionChannel, percussionKey(instrument), 0);
    sendShort(noteOff + sampleChannel, key, 0);
}

// Rule: if a device cannot be opened, the next one is tried, once and silently. If that fails too,
// the closed handle stays, and messages to it are lost. Held by playback/device.
void NoteSounding::Device_Click() {
    if (isMuted)
        return;
    platform::MidiOut& midi = studio_.platform.midi;
    MidiDeviceIndex = studio_.setup.Combo2() - 1;
    closeDevice();
    MidiResult = midi.midiOutOpen(MidiHandle, MidiDeviceIndex);
    if (MidiResult != 0) {
        closeDevice();
        MidiResult = midi.midiOutOpen(MidiHandle, MidiDeviceIndex + 1);
        return;
    }
    studio_.setup.setCombo2(MidiDeviceIndex + 1);
    midi.midiOutShortMsg(unassignedHandle, openingMessage);
}

void NoteSounding::openDevice(int index) {
    assert(studio_.owner.isCaller());
    closeDevice();
    MidiResult = studio_.platform.midi.midiOutOpen(MidiHandle, index);
}

void NoteSounding::Combo1_Click() {
    const int index = std::max(studio_.setup.Combo1(), 0);
    const std::string entry = instrumentEntry(index);
    studio_.desk->setText(MainText::Instxt, entry.substr(0, entry.find(' ')));
    applyInstrument(static_cast<std::int16_t>(index));
}

void NoteSounding::Combo5_Click() {
    const int index = std::max(studio_.setup.Combo5(), 0);
    PercussionChoice = static_cast<std::int16_t>(firstPercussion + index);
    studio_.desk->setText(MainText::Instxt, std::to_string(PercussionChoice));
    applyInstrument(PercussionChoice);
}

// A number outside 16 bits is not an instrument and is stored nowhere.
void NoteSounding::Command9_Click() {
    const auto number = platform::readInt16(studio_.desk->text(MainText::Instxt));
    if (number)
        applyInstrument(*number);
    else
        SoundRow = studio_.score.CurrentRow;
}

// With a selection, the selected notes of the current row get the new instrument; rests stay.
void NoteSounding::applyInstrument(std::int16_t instrument) {
    Score& score = studio_.score;
    const int row = score.CurrentRow;
    if (score.SelectStart > -1) {
        const int last = std::min<int>(score.SelectEnd, lastGridColumn);
        for (int column = score.SelectStart; column <= last; ++column) {
            if (!isEmpty(score.NoteArray.read(row, column).value_or(emptyCell)))
                score.InstrumentArray.write(row, column, instrument);
        }
    }
    if (row >= 0 && row < scoreRows)
        score.RowInstrument[row] = instrument;
    SoundRow = score.CurrentRow;
    ChangeInstrument(instrument, row);
}

// Rule: the device is silenced by reopening it; no message ends all notes. Then only the current
// row's instrument is sent again. Held by playback/stopping_sound.
void NoteSounding::StopSound() {
    studio_.run.IsPlaying = flagClear;
    Device_Click();
    Combo1_Click();
}

void NoteSounding::Command32_Click() {
    studio_.run.IsPlaying = flagClear;
    Device_Click();
    closeFiles();
    Combo1_Click();
}

void NoteSounding::StopallSound() {
    closeFiles();
    sendMci("close all");
}

void NoteSounding::stopitall() {
    closeDevice();
    sendMci("close all");
}

void NoteSounding::closeFiles() {
    sendMci("stop sound");
    sendMci("close sound");
    sendMci("stop midi");
    sendMci("close midi");
}

void NoteSounding::closeDevice() {
    MidiResult = studio_.platform.midi.midiOutClose(MidiHandle);
}

void NoteSounding::sendMci(const char* command) {
    assert(studio_.owner.isCaller());
    studio_.platform.mci.mciSendStringA(command);
}

// Packed like a note: a negative number borrows, and nothing is sent if 256 times the number does
// not fit 16 bits.
void NoteSounding::sendShort(int status, int data1, int data2) {
    assert(studio_.owner.isCaller());
    if (isMuted || !platform::toInt16(data1 * 256.0))
        return;
    const int message = status + data1 * 256 + data2 * 65536;
    studio_.platform.midi.midiOutShortMsg(MidiHandle, static_cast<std::uint32_t>(message));
}

} // namespace velorin
