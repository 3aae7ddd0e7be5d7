// The variables of note sounding, sequencer, clipboard, frame and Setup Toolbar.
#include "Variables.h"

#include "program/Program.h"
#include "session/Session.h"
#include "windows/main/Form1.h"
#include "windows/setup/Form3.h"
#include "windows/setup/SetupToolbar.h"

namespace transcript {

using namespace velorin;

namespace {

template <class Value>
auto inSounding(Value NoteSounding::*member) {
    return [member](Runner& runner) -> Value& { return runner.session().sounding.*member; };
}
template <class Value>
auto inSong(Value Sequencer::*member) {
    return [member](Runner& runner) -> Value& { return runner.session().sequencer.*member; };
}
template <class Value>
auto inFrames(Value FrameState::*member) {
    return [member](Runner& runner) -> Value& { return runner.program().windows.frames.*member; };
}

/// A handle differs from run to run.
Variable handle() {
    return {"MidiHandle",
            {},
            [](Runner& runner, const Indices&) {
                return Lines{runner.session().sounding.MidiHandle == 0 ? "0" : "H"};
            },
            {}};
}

} // namespace

Variables editingVariables() {
    const auto clip = [](Runner& runner) -> Clipboard& { return runner.session().edits.clip; };
    return {
        gridVariable("ClipNotes", NoteGrid::rows, NoteGrid::columns,
                     [clip](Runner& runner) -> NoteGrid& { return clip(runner).ClipNotes; }),
        gridVariable("ClipInstruments", NoteGrid::rows, NoteGrid::columns,
                     [clip](Runner& runner) -> NoteGrid& { return clip(runner).ClipInstruments; }),
        gridVariable("ClipPoly", PolyGrid::rows, PolyGrid::columns,
                     [clip](Runner& runner) -> PolyGrid& { return clip(runner).ClipPoly; }),
        variable("ClipLength",
                 [clip](Runner& runner) -> std::int16_t& { return clip(runner).ClipLength; }),
    };
}

Variables setupVariables() {
    const auto form = [](Runner& runner) -> Form3& { return runner.program().setup.form(); };
    return {
        variable("Form3.Form3Loading",
                 [form](Runner& runner) -> Flag& { return form(runner).Form3Loading; }),
        variable("Form3.MidiDeviceCount",
                 [form](Runner& runner) -> int& { return form(runner).MidiDeviceCount; }),
        variable("Form3.SavedDevice",
                 [form](Runner& runner) -> std::int16_t& { return form(runner).SavedDevice; }),
    };
}

Variables playbackVariables() {
    return {
        handle(),
        variable("MidiDeviceIndex", inSounding(&NoteSounding::MidiDeviceIndex)),
        variable("MidiResult", inSounding(&NoteSounding::MidiResult)),
        variable("SoundRow", inSounding(&NoteSounding::SoundRow)),
        variable("Velocity", inSounding(&NoteSounding::Velocity)),
        variable("NoteKey", inSounding(&NoteSounding::NoteKey)),
        variable("NoteChannel", inSounding(&NoteSounding::NoteChannel)),
        arrayVariable("LastMessages", 4, inSounding(&NoteSounding::LastMessages)),
        arrayVariable("PercussionRow", scoreRows, inSounding(&NoteSounding::PercussionRow)),
        arrayVariable("PercussionKey", scoreRows, inSounding(&NoteSounding::PercussionKey)),
        variable("PercussionChoice", inSounding(&NoteSounding::PercussionChoice)),
        variable("ChordInterval1", inSounding(&NoteSounding::ChordInterval1)),
        variable("ChordInterval2", inSounding(&NoteSounding::ChordInterval2)),
        variable("ChordInterval3", inSounding(&NoteSounding::ChordInterval3)),
        variable("ColumnTime", inSong(&Sequencer::ColumnTime)),
        variable("PlayTimer", inSong(&Sequencer::PlayTimer)),
        arrayVariable("LastCell", scoreRows, inSong(&Sequencer::LastCell)),
        arrayVariable("LastInstrument", scoreRows, inSong(&Sequencer::LastInstrument)),
        variable("WindowResizable", inFrames(&FrameState::WindowResizable)),
        variable("RegionCount", inFrames(&FrameState::RegionCount)),
    };
}

} // namespace transcript
