// Operations and variables of the Editing Toolbar, `Form2`. They load its window.
#include "ControlNames.h"
#include "Operations.h"
#include "Runner.h"
#include "Variables.h"

#include "windows/editing/Form2.h"

namespace transcript {

using namespace velorin;

namespace {

Form2& editingToolbar(Runner& runner) {
    auto* form = qobject_cast<Form2*>(&windowOf(runner, "Form2"));
    if (form == nullptr)
        throw CommandError("no such window: Form2");
    return *form;
}

/// A handler of a control array that uses only the index.
Operation indexed(std::string name, void (Form2::*handler)(int)) {
    return {std::move(name), [handler](Runner& runner, Arguments& arguments) {
                const int index = numberBetween(arguments.text(), 1, velorin::editButton::last);
                arguments.ignoreRest();
                (editingToolbar(runner).*handler)(index);
                return Lines{};
            }};
}

/// A handler that ignores its arguments.
Operation plain(std::string name, void (Form2::*handler)()) {
    return {std::move(name), [handler](Runner& runner, Arguments& arguments) {
                arguments.ignoreRest();
                (editingToolbar(runner).*handler)();
                return Lines{};
            }};
}

} // namespace

Operations editingToolbarOperations() {
    return {
        indexed("Form2.Cmd2_Click", &Form2::Cmd2_Click),
        indexed("Form2.Cmd2_MouseUp", &Form2::Cmd2_MouseUp),
        indexed("Form2.ImgPic_MouseDown", &Form2::ImgPic_MouseDown),
        indexed("Form2.ImgPic_MouseMove", &Form2::ImgPic_MouseMove),
        indexed("Form2.ImgPic_MouseUp", &Form2::ImgPic_MouseUp),
        plain("Form2.Form_MouseMove", &Form2::Form_MouseMove),
        plain("Form2.Picture2_MouseMove", &Form2::Form_MouseMove),
        plain("Form2.Label6_MouseMove", &Form2::Form_MouseMove),
        plain("Form2.toolbEdit_MouseMove", &Form2::Form_MouseMove),
        plain("Form2.ToolbCompose_MouseMove", &Form2::Form_MouseMove),
        plain("Form2.Text3_Change", &Form2::Text3_Change),
        plain("Form2.Text4_Change", &Form2::Text4_Change),
        plain("Form2.Text5_Change", &Form2::Text5_Change),
        plain("Form2.VScroll2_Change", &Form2::VScroll2_Change),
        plain("Form2.VScroll3_Change", &Form2::VScroll3_Change),
        plain("Form2.VScroll4_Change", &Form2::VScroll4_Change),
        plain("Form2.chkgraphics_Click", &Form2::chkgraphics_Click),
        plain("Form2.loopcheck_Click", &Form2::loopcheck_Click),
        plain("Form2.imgTitleClose_Click", &Form2::imgTitleClose_Click),
        plain("Form2.Form_Load", &Form2::Form_Load),
        plain("Form2.Form_QueryUnload", &Form2::Form_QueryUnload),
        plain("Form2.Form_Unload", &Form2::Form_Unload),
        plain("Form2.Form_Activate", &Form2::Form_Activate),
    };
}

Variables editingToolbarVariables() {
    const auto mode = [](Runner& runner) -> std::int16_t& {
        return editingToolbar(runner).EditToolbarMode;
    };
    return {variable("Form2.EditToolbarMode", mode)};
}

} // namespace transcript
