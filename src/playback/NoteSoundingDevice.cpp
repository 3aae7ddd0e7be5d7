// The sounding of notes, its second half: instruments, the device, and the commands that end all
// sound.
#include "platform/Mci.h"
#include "platform/Text.h"
#include "playback/NoteSounding.h"
#include "playback/PlaybackDesk.h"
#include "score/SetupControls.h"
#include "score/Studio.h"

#include <algorithm>
#include <string>

namespace velorin {

namespace {

constexpr int controlChange = 0xB0;
constexpr int programChange = 0xC0;
constexpr int bankHigh = 0x00;
constexpr int bankLow = 0x20;

// A status without data, sent once behind every opening through a handle that is never assigned: no
// device takes it.
constexpr std::uint32_t openingMessage = 201;
constexpr platform::MidiOutHandle unassignedHandle = 0;

} // namespace

// A percussion sound is no program on the device: it is a key on the percussion channel, kept until
// the row's next note. The row number is the channel of everything else, also of rows 8 to 12.
void NoteSounding::ChangeInstrument(int instrument, int row) {
    const bool known = row >= 0 && row < scoreRows;
    const auto index = static_cast<std::size_t>(row);
    if (isPercussion(instrument)) {
        const auto key = platform::toInt16(percussionKey(instrument));
        if (known)
            PercussionRow[index] = flagSet;
        if (known && key)
            PercussionKey[index] = *key;
        return;
    }
    sendShort(controlChange + row, bankHigh, 0);
    sendShort(controlChange + row, bankLow, 0);
    sendShort(programChange + row, instrument, 0);
    if (known)
        PercussionRow[index] = flagClear;
}

// A device that cannot be opened is followed by the next one, once and without a word. If that one
// fails too, the closed handle stays, and what is sent to it goes nowhere.
void NoteSounding::Device_Click() {
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
    closeDevice();
    MidiResult = studio_.platform.midi.midiOutOpen(MidiHandle, index);
}

void NoteSounding::Combo1_Click() {
    const int index = std::max(studio_.setup.Combo1(), 0);
    const std::string entry = studio_.setup.Combo1Entry(index);
    desk_.setInstxt(entry.substr(0, entry.find(' ')));
    applyInstrument(static_cast<std::int16_t>(index));
}

void NoteSounding::Combo5_Click() {
    const int index = std::max(studio_.setup.Combo5(), 0);
    PercussionChoice = static_cast<std::int16_t>(firstPercussion + index);
    desk_.setInstxt(std::to_string(PercussionChoice));
    applyInstrument(PercussionChoice);
}

// A number outside 16 bits is no instrument: every store of it is skipped.
void NoteSounding::Command9_Click() {
    const auto number = platform::readInt16(desk_.Instxt());
    if (number)
        applyInstrument(*number);
    else
        SoundRow = studio_.score.CurrentRow;
}

// A selection gives its notes on the current row the new sound; its rests stay what they are.
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
        score.RowInstrument[static_cast<std::size_t>(row)] = instrument;
    SoundRow = score.CurrentRow;
    ChangeInstrument(instrument, row);
}

// Reopening the device is how it is silenced: no message of the program ends all notes. The
// instrument of the current row is then sent again; other rows get theirs with their next note.
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
    studio_.platform.mci.mciSendStringA(command);
}

// Packed as a note is, so a negative number borrows; what the 16-bit product cannot hold is not
// sent.
void NoteSounding::sendShort(int status, int data1, int data2) {
    if (!platform::toInt16(data1 * 256.0))
        return;
    const int message = status + data1 * 256 + data2 * 65536;
    studio_.platform.midi.midiOutShortMsg(MidiHandle, static_cast<std::uint32_t>(message));
}

} // namespace velorin
