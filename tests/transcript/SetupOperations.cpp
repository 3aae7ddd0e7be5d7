// Operations of the Setup Toolbar, `Form3`. They load its window.
#include "Operations.h"
#include "Runner.h"
#include "program/Program.h"
#include "windows/setup/Form3.h"
#include "windows/setup/SetupToolbar.h"

namespace transcript {

using namespace velorin;

Operations setupOperations() {
    const auto form = [](Runner& runner) -> Form3& { return runner.program().setup.form(); };
    Operations all{
        operation("Form3.Combo1_Click", form, &Form3::Combo1_Click),
        operation("Form3.Combo2_Click", form, &Form3::Combo2_Click),
        operation("Form3.Combo3_Click", form, &Form3::Combo3_Click),
        operation("Form3.Combo5_Click", form, &Form3::Combo5_Click),
        operation("Form3.Chkpoly_Click", form, &Form3::Chkpoly_Click),
        operation("Form3.HScroll1_Change", form, &Form3::HScroll1_Change),
        operation("Form3.HScroll2_Change", form, &Form3::HScroll2_Change),
        operation("Form3.TempoLabel_Change", form, &Form3::TempoLabel_Change),
        operation("Form3.imgTitleClose_Click", form, &Form3::imgTitleClose_Click),
        operation("Form3.Form_Load", form, &Form3::Form_Load),
        operation("Form3.Form_Unload", form, &Form3::Form_Unload),
        operation("Form3.Form_Activate", form, &Form3::Form_Activate),
    };
    struct RowHandler {
        const char* name;
        void (Form3::*run)(int);
    };
    for (const RowHandler& handler : {RowHandler{"Form3.TrackSel_Click", &Form3::TrackSel_Click},
                                      {"Form3.TrackSel_MouseDown", &Form3::TrackSel_MouseDown},
                                      {"Form3.TrackSel_MouseMove", &Form3::TrackSel_MouseMove},
                                      {"Form3.TrackHide_Click", &Form3::TrackHide_Click}}) {
        all.push_back({handler.name, [form, handler](Runner& runner, Arguments& arguments) {
                           const int row = numberBetween(arguments.text(), 0, 12);
                           arguments.ignoreRest();
                           (form(runner).*handler.run)(row);
                           return Lines{};
                       }});
    }
    return all;
}

} // namespace transcript
