// The variables of the sounding, the sequencer, the clipboard, the frame and the Setup Toolbar.
#include "Variables.h"

#include "program/Form1.h"
#include "program/Program.h"
#include "shell/Form3.h"
#include "shell/SetupToolbar.h"

namespace transcript {

using namespace velorin;

namespace {

template <class Value>
auto inSounding(Value NoteSounding::*member) {
    return [member](Session& session) -> Value& { return session.form1().sounding.*member; };
}
template <class Value>
auto inSong(Value Sequencer::*member) {
    return [member](Session& session) -> Value& { return session.form1().sequencer.*member; };
}
template <class Value>
auto inFrames(Value FrameState::*member) {
    return [member](Session& session) -> Value& { return session.program().frames.*member; };
}

/// A handle is a number that means nothing outside its run.
Variable handle() {
    return {"MidiHandle",
            {},
            [](Session& session, const Indices&) {
                return Lines{session.form1().sounding.MidiHandle == 0 ? "0" : "H"};
            },
            {}};
}

} // namespace

Variables editingVariables() {
    const auto clip = [](Session& session) -> Clipboard& { return session.form1().edits.clip; };
    return {
        gridVariable("ClipNotes", NoteGrid::rows, NoteGrid::columns,
                     [clip](Session& session) -> NoteGrid& { return clip(session).ClipNotes; }),
        gridVariable(
            "ClipInstruments", NoteGrid::rows, NoteGrid::columns,
            [clip](Session& session) -> NoteGrid& { return clip(session).ClipInstruments; }),
        gridVariable("ClipPoly", PolyGrid::rows, PolyGrid::columns,
                     [clip](Session& session) -> PolyGrid& { return clip(session).ClipPoly; }),
        variable("ClipLength",
                 [clip](Session& session) -> std::int16_t& { return clip(session).ClipLength; }),
    };
}

Variables setupVariables() {
    const auto form = [](Session& session) -> Form3& { return session.program().setup().form(); };
    return {
        variable("Form3.Form3Loading",
                 [form](Session& session) -> Flag& { return form(session).Form3Loading; }),
        variable("Form3.MidiDeviceCount",
                 [form](Session& session) -> int& { return form(session).MidiDeviceCount; }),
        variable("Form3.SavedDevice",
                 [form](Session& session) -> std::int16_t& { return form(session).SavedDevice; }),
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
