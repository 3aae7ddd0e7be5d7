// The variables of the sounding, of the sequencer and of the frame.
#include "Variables.h"

#include "shell/Form1.h"
#include "shell/Program.h"

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
