// Operations of the tableaux and of the main window's layout.
#include "Operations.h"
#include "Runner.h"
#include "windows/main/Form1.h"

namespace transcript {

using namespace velorin;

namespace {

Operations musicOperations() {
    const auto music = [](Runner& runner) -> MusicTableau& { return runner.form1().music; };
    const auto mouse = [](Runner& runner) -> MusicMouse& { return runner.form1().musicMouse; };
    return {
        operation("Form1.DrawNoteArray", music, &MusicTableau::DrawNoteArray),
        operation("Form1.DrawNoteNames", music, &MusicTableau::DrawNoteNames),
        operation("Form1.DrawBarNumbers", music, &MusicTableau::DrawBarNumbers),
        operation("Form1.GetRow", music, &MusicTableau::GetRow),
        operation("Form1.PutRow", music, &MusicTableau::PutRow),
        operation("Form1.GetBox", music, &MusicTableau::GetBox),
        operation("Form1.PutBox", music, &MusicTableau::PutBox),
        operation("Form1.TopBarOverlay_MouseDown", music, &MusicTableau::TopBarOverlay_MouseDown),
        operation("Form1.MusicBox_MouseDown", mouse, &MusicMouse::MusicBox_MouseDown),
        operation("Form1.MusicBox_MouseMove", mouse, &MusicMouse::MusicBox_MouseMove),
        operation("Form1.MusicBox_MouseUp", mouse, &MusicMouse::MusicBox_MouseUp),
        operation("Form1.MusicBox_GotFocus", mouse, &MusicMouse::MusicBox_GotFocus),
        operation("Form1.FunctionBut_Click", mouse, &MusicMouse::FunctionBut_Click),
        operation("Form1.NoteLabel", mouse, &MusicMouse::NoteLabel),
    };
}

Operations stripOperations() {
    const auto beats = [](Runner& runner) -> PercussionTableau& {
        return runner.form1().percussion;
    };
    const auto poly = [](Runner& runner) -> PolyTableau& { return runner.form1().poly; };
    return {
        operation("Form1.DrawBeatArray", beats, &PercussionTableau::DrawBeatArray),
        operation("Form1.Beatbox_MouseDown", beats, &PercussionTableau::Beatbox_MouseDown),
        operation("Form1.Beatbox_MouseMove", beats, &PercussionTableau::Beatbox_MouseMove),
        operation("Form1.Beatbox_MouseUp", beats, &PercussionTableau::Beatbox_MouseUp),
        operation("Form1.Beatbox_GotFocus", beats, &PercussionTableau::Beatbox_GotFocus),
        operation("Form1.Beatbox_LostFocus", beats, &PercussionTableau::Beatbox_LostFocus),
        operation("Form1.Check2_Click", beats, &PercussionTableau::Check2_Click),
        operation("Form1.DrawPolyTableau", poly, &PolyTableau::DrawPolyTableau),
        operation("Form1.Pic1_MouseDown", poly, &PolyTableau::Pic1_MouseDown),
        operation("Form1.Pic1_MouseMove", poly, &PolyTableau::Pic1_MouseMove),
        operation("Form1.Pic1_MouseUp", poly, &PolyTableau::Pic1_MouseUp),
    };
}

Operations layoutOperations() {
    const auto layout = [](Runner& runner) -> MainLayout& { return runner.form1().layout; };
    return {
        operation("Form1.Form_Resize", layout, &MainLayout::Form_Resize),
        operation("Form1.HScroll1_Change", layout, &MainLayout::HScroll1_Change),
        operation("Form1.HScroll1_Scroll", layout, &MainLayout::HScroll1_Scroll),
        operation("Form1.VScroll1_Change", layout, &MainLayout::VScroll1_Change),
        operation("Form1.VScroll1_Scroll", layout, &MainLayout::VScroll1_Scroll),
        operation("Form1.Comm10_Click", layout, &MainLayout::Comm10_Click),
    };
}

} // namespace

Operations tableauOperations() {
    Operations all = musicOperations();
    for (const Operations& some : {stripOperations(), layoutOperations()})
        all.insert(all.end(), some.begin(), some.end());
    return all;
}

} // namespace transcript
