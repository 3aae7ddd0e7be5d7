// Operations of the main toolbar, the handles, the exit and the sample files.
#include "ControlNames.h"
#include "Operations.h"
#include "Runner.h"
#include "program/Program.h"
#include "session/Session.h"
#include "windows/main/Form1.h"
#include "windows/texts/ControlTable.h"

namespace transcript {

using namespace velorin;

namespace {

Form1& mainWindow(Runner& runner) {
    return runner.form1();
}

/// A handler of a control array that uses only the index.
Operation indexed(std::string name, void (Form1::*handler)(int)) {
    return {std::move(name), [handler](Runner& runner, Arguments& arguments) {
                const int index = arguments.next<int>();
                arguments.ignoreRest();
                (runner.form1().*handler)(index);
                return Lines{};
            }};
}

/// A move over a control that is not an array. Only the held button matters; the default is 0.
Operation moved(std::string name, void (Form1::*handler)(int)) {
    return {std::move(name), [handler](Runner& runner, Arguments& arguments) {
                const int button = arguments.isAtEnd() ? 0 : arguments.next<int>();
                arguments.ignoreRest();
                (runner.form1().*handler)(button);
                return Lines{};
            }};
}

/// The control, the index of an element, and the place beside it. The text is that of the control.
Lines getinfo(Runner& runner, Arguments& arguments) {
    const std::string name = arguments.text();
    const int index = arguments.next<int>();
    const int x = arguments.next<int>();
    const int y = arguments.next<int>();
    arguments.expectEnd();
    const bool isButton = name == "Cmd2";
    QWidget& control = controlOf(runner, isButton ? "Cmd2(" + std::to_string(index) + ")" : name);
    const bool isNames = name == "PicX";
    const char* text = controlHint(isButton  ? control.objectName().toStdString()
                                   : isNames ? name
                                             : "TopBarOverlay");
    runner.form1().Getinfo(control, QString::fromLatin1(text), x, y);
    return {};
}

Operations toolbarOperations() {
    const auto windows = [](Runner& runner) -> ToolWindows& { return runner.program().windows; };
    const auto session = [](Runner& runner) -> Session& { return runner.session(); };
    return {
        indexed("Form1.Cmd2_Click", &Form1::Cmd2_Click),
        indexed("Form1.Cmd2_MouseDown", &Form1::Cmd2_MouseDown),
        indexed("Form1.Resizer_MouseDown", &Form1::Resizer_MouseDown),
        indexed("Form1.Resizer_MouseUp", &Form1::Resizer_MouseUp),
        operation("Form1.Form_Load", mainWindow, &Form1::Form_Load),
        operation("Form1.Form_Unload", mainWindow, &Form1::Form_Unload),
        operation(
            "Form1.IsProgramRunning", [](Runner& runner) -> Program& { return runner.program(); },
            &Program::IsProgramRunning),
        indexed("Form1.Cmd2_MouseUp", &Form1::Cmd2_MouseUp),
        {"Form1.Getinfo", getinfo},
        {"Form1.PitchToKey",
         [](Runner&, Arguments& arguments) {
             const int pitch = arguments.next<int>();
             arguments.expectEnd();
             return answer(PitchToKey(pitch));
         }},
        {"Form1.Cmd2_MouseMove",
         [](Runner& runner, Arguments& arguments) {
             const int index = arguments.next<int>();
             const int button = arguments.isAtEnd() ? 0 : arguments.next<int>();
             arguments.ignoreRest();
             runner.form1().Cmd2_MouseMove(index, button);
             return Lines{};
         }},
        moved("Form1.PicX_MouseMove", &Form1::PicX_MouseMove),
        moved("Form1.TopBar_MouseMove", &Form1::TopBar_MouseMove),
        operation("Form1.Check3_Click", mainWindow, &Form1::Check3_Click),
        operation("Form1.Cmdhelp_Click", mainWindow, &Form1::Cmdhelp_Click),
        operation("Form1.HideToolbars", windows, &ToolWindows::HideToolbars),
        operation("Form1.ShowToolbars", windows, &ToolWindows::ShowToolbars),
        operation("Form1.cmdStop_Click", mainWindow, &Form1::cmdStop_Click),
        operation("Form1.TrackSel_Click", session, &Session::TrackSel_Click),
        operation(
            "Form1.Command3_Click", [](Runner& runner) -> Program& { return runner.program(); },
            &Program::Command3_Click),
    };
}

} // namespace

Operations shellOperations() {
    const auto samples = [](Runner& runner) -> SampleFiles& {
        return runner.program().tutorial.tutorial.samples;
    };
    Operations all = toolbarOperations();
    all.push_back(operation("Form1.FileExists", samples, &SampleFiles::FileExists));
    all.push_back(operation("Form1.p_DestroyFile", samples, &SampleFiles::p_DestroyFile));
    all.push_back(operation("Form1.RemoveSamples", samples, &SampleFiles::RemoveSamples));
    return all;
}

} // namespace transcript
