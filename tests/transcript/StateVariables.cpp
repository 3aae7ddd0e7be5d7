// The variables of the score, the view and the run.
#include "Variables.h"

#include "model/NoteTables.h"
#include "studio/Studio.h"

namespace transcript {

using namespace velorin;

namespace {

template <class Owner, class Value>
auto inScore(Value Owner::*member) {
    return [member](Runner& runner) -> Value& { return runner.studio().score.*member; };
}
template <class Value>
auto inView(Value View::*member) {
    return [member](Runner& runner) -> Value& { return runner.studio().view.*member; };
}
template <class Value>
auto inDrag(Value Drag::*member) {
    return [member](Runner& runner) -> Value& { return runner.studio().drag.*member; };
}
template <class Value>
auto inRun(Value Run::*member) {
    return [member](Runner& runner) -> Value& { return runner.studio().run.*member; };
}

Variables dragVariables() {
    return {
        variable("MouseColumn", inDrag(&Drag::MouseColumn)),
        variable("MouseLine", inDrag(&Drag::MouseLine)),
        variable("DragStart", inDrag(&Drag::DragStart)),
        variable("PressColumn", inDrag(&Drag::PressColumn)),
        variable("DragColumn", inDrag(&Drag::DragColumn)),
        variable("PriorDragColumn", inDrag(&Drag::PriorDragColumn)),
        variable("MouseHeld", inDrag(&Drag::MouseHeld)),
        variable("PriorLine", inDrag(&Drag::PriorLine)),
        variable("PriorLineBeat", inDrag(&Drag::PriorLineBeat)),
        variable("PolyDrag", inDrag(&Drag::PolyDrag)),
    };
}

} // namespace

Variables scoreVariables() {
    return {
        gridVariable("NoteArray", NoteGrid::rows, NoteGrid::columns, inScore(&Score::NoteArray)),
        gridVariable("InstrumentArray", NoteGrid::rows, NoteGrid::columns,
                     inScore(&Score::InstrumentArray)),
        gridVariable("PolyArray", PolyGrid::rows, PolyGrid::columns, inScore(&Score::PolyArray)),
        arrayVariable("RowInstrument", scoreRows, inScore(&Score::RowInstrument)),
        variable("Tempo", inScore(&Score::Tempo)),
        variable("CurrentRow", inScore(&Score::CurrentRow)),
        variable("CurrentFileName", inScore(&Score::CurrentFileName)),
        variable("SelectStart", inScore(&Score::SelectStart)),
        variable("SelectEnd", inScore(&Score::SelectEnd)),
        variable("StartColumn", inScore(&Score::StartColumn)),
        variable("LastColumn", inScore(&Score::LastColumn)),
    };
}

Variables viewVariables() {
    Variables all{
        variable("FirstColumn", inView(&View::FirstColumn)),
        variable("VisibleColumns", inView(&View::VisibleColumns)),
        variable("LastVisibleColumn", inView(&View::LastVisibleColumn)),
        variable("TopPitch", inView(&View::TopPitch)),
        variable("VisibleRows", inView(&View::VisibleRows)),
        variable("BottomPitch", inView(&View::BottomPitch)),
        variable("ColumnScrollBias", inView(&View::ColumnScrollBias)),
        variable("RowScrollBias", inView(&View::RowScrollBias)),
        variable("PolyOpen", inView(&View::PolyOpen)),
        variable("PlayerScroll", inView(&View::PlayerScroll)),
        variable("ViewChanged", inView(&View::ViewChanged)),
        variable("ResizeInProgress", inView(&View::ResizeInProgress)),
        arrayVariable("RowOpen", 9, inView(&View::RowOpen)),
        arrayVariable("SharpRow", 101, inView(&View::SharpRow)),
        arrayVariable("ChannelColor", scoreRows, inView(&View::ChannelColor)),
        arrayVariable("PaleColor", scoreRows, inView(&View::PaleColor)),
        variable("DrawColor", inView(&View::DrawColor)),
        variable("HoverRow", inView(&View::HoverRow)),
        variable("LastNoteLabel", inView(&View::LastNoteLabel)),
    };
    const Variables drag = dragVariables();
    all.insert(all.end(), drag.begin(), drag.end());
    return all;
}

Variables runVariables() {
    return {
        variable("IsPlaying", inRun(&Run::IsPlaying)),
        variable("PauseFlag", inRun(&Run::PauseFlag)),
        variable("LoopSong", inRun(&Run::LoopSong)),
        variable("ShowNotePosition", inRun(&Run::ShowNotePosition)),
        variable("PlayingSelection", inRun(&Run::PlayingSelection)),
        variable("MarkerSaved", inRun(&Run::MarkerSaved)),
        variable("MarkerOffset", inRun(&Run::MarkerOffset)),
        variable("PlayColumn", inRun(&Run::PlayColumn)),
        variable("PlayBlockStart", inRun(&Run::PlayBlockStart)),
        variable("PlayBlockEnd", inRun(&Run::PlayBlockEnd)),
        variable("ProgressCount", inRun(&Run::ProgressCount)),
        variable("RecordingFlag", inRun(&Run::RecordingFlag)),
        variable("SoundFinished", inRun(&Run::SoundFinished)),
        variable("PlayerPaused", inRun(&Run::PlayerPaused)),
        variable("EncodeCancelled", inRun(&Run::EncodeCancelled)),
        variable("Form2Open", inRun(&Run::Form2Open)),
        variable("Form3Open", inRun(&Run::Form3Open)),
        variable("RecordToolbarOpen", inRun(&Run::RecordToolbarOpen)),
        variable("WizOpen", inRun(&Run::WizOpen)),
        variable("LoadingMain", inRun(&Run::LoadingMain)),
        variable("EditMode", inRun(&Run::EditMode)),
        variable("RightClickMode", inRun(&Run::RightClickMode)),
        variable("SongsFolder", inRun(&Run::SongsFolder)),
    };
}

Variables tableVariables() {
    return {
        {"NoteName",
         {128},
         [](Runner&, const Indices& at) { return answer(NoteName(at[0]).value_or("")); },
         {}},
        {"BlendSpec", {}, [](Runner&, const Indices&) { return Lines{"6553600"}; }, {}},
    };
}

} // namespace transcript
