// Operations of the shell: the main toolbar, the handles, the exit, the sample files.
#include "ControlNames.h"
#include "Operations.h"
#include "Session.h"
#include "controls/ControlTable.h"
#include "program/Form1.h"
#include "program/Program.h"

namespace transcript {

using namespace velorin;

namespace {

Form1& mainWindow(Session& session) {
    return session.form1();
}

/// A handler of a control array that looks at nothing but the index.
Operation indexed(std::string name, void (Form1::*handler)(int)) {
    return {std::move(name), [handler](Session& session, Arguments& arguments) {
                const int index = arguments.next<int>();
                arguments.ignoreRest();
                (session.form1().*handler)(index);
                return Lines{};
            }};
}

/// A move over a control that is no array: the button held is what counts, 0 if none is told.
Operation moved(std::string name, void (Form1::*handler)(int)) {
    return {std::move(name), [handler](Session& session, Arguments& arguments) {
                const int button = arguments.isAtEnd() ? 0 : arguments.next<int>();
                arguments.ignoreRest();
                (session.form1().*handler)(button);
                return Lines{};
            }};
}

/// The control, the index of an element, and the place beside it; the text is that of the control.
Lines getinfo(Session& session, Arguments& arguments) {
    const std::string name = arguments.text();
    const int index = arguments.next<int>();
    const int x = arguments.next<int>();
    const int y = arguments.next<int>();
    arguments.expectEnd();
    const bool isButton = name == "Cmd2";
    QWidget& control = controlOf(session, isButton ? "Cmd2(" + std::to_string(index) + ")" : name);
    const bool isNames = name == "PicX";
    const char* text = controlHint(isButton  ? control.objectName().toStdString()
                                   : isNames ? name
                                             : "TopBarOverlay");
    session.form1().Getinfo(control, QString::fromLatin1(text), x, y);
    return {};
}

Operations toolbarOperations() {
    return {
        indexed("Form1.Cmd2_Click", &Form1::Cmd2_Click),
        indexed("Form1.Cmd2_MouseDown", &Form1::Cmd2_MouseDown),
        indexed("Form1.Resizer_MouseDown", &Form1::Resizer_MouseDown),
        indexed("Form1.Resizer_MouseUp", &Form1::Resizer_MouseUp),
        operation("Form1.Form_Load", mainWindow, &Form1::Form_Load),
        operation("Form1.Form_Unload", mainWindow, &Form1::Form_Unload),
        operation(
            "Form1.IsProgramRunning",
            [](Session& session) -> Program& { return session.program(); },
            &Program::IsProgramRunning),
        indexed("Form1.Cmd2_MouseUp", &Form1::Cmd2_MouseUp),
        {"Form1.Getinfo", getinfo},
        {"Form1.PitchToKey",
         [](Session&, Arguments& arguments) {
             const int pitch = arguments.next<int>();
             arguments.expectEnd();
             return answer(PitchToKey(pitch));
         }},
        {"Form1.Cmd2_MouseMove",
         [](Session& session, Arguments& arguments) {
             const int index = arguments.next<int>();
             const int button = arguments.isAtEnd() ? 0 : arguments.next<int>();
             arguments.ignoreRest();
             session.form1().Cmd2_MouseMove(index, button);
             return Lines{};
         }},
        moved("Form1.PicX_MouseMove", &Form1::PicX_MouseMove),
        moved("Form1.TopBar_MouseMove", &Form1::TopBar_MouseMove),
        operation("Form1.Check3_Click", mainWindow, &Form1::Check3_Click),
        operation("Form1.Cmdhelp_Click", mainWindow, &Form1::Cmdhelp_Click),
        operation("Form1.HideToolbars", mainWindow, &Form1::HideToolbars),
        operation("Form1.ShowToolbars", mainWindow, &Form1::ShowToolbars),
        operation("Form1.cmdStop_Click", mainWindow, &Form1::cmdStop_Click),
        operation("Form1.TrackSel_Click", mainWindow, &Form1::TrackSel_Click),
        operation(
            "Form1.Command3_Click", [](Session& session) -> Program& { return session.program(); },
            &Program::Command3_Click),
    };
}

} // namespace

Operations shellOperations() {
    const auto samples = [](Session& session) -> SampleFiles& { return session.form1().samples; };
    Operations all = toolbarOperations();
    all.push_back(operation("Form1.FileExists", samples, &SampleFiles::FileExists));
    all.push_back(operation("Form1.p_DestroyFile", samples, &SampleFiles::p_DestroyFile));
    all.push_back(operation("Form1.RemoveSamples", samples, &SampleFiles::RemoveSamples));
    return all;
}

} // namespace transcript
