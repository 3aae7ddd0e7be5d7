// Operations of the Tutorial Wizard, `Wiz`. They load its window where the program would.
#include "Operations.h"
#include "Runner.h"
#include "program/Program.h"
#include "tutorial/Lesson.h"
#include "windows/main/Form1.h"
#include "windows/tutorial/TutorialWizard.h"
#include "windows/tutorial/Wiz.h"

namespace transcript {

using namespace velorin;

namespace {

TutorialWizard& wizard(Runner& runner) {
    return runner.program().tutorial;
}

Operations stepOperations() {
    const auto tutorial = [](Runner& runner) -> Tutorial& { return wizard(runner).tutorial; };
    return {
        operation("Wiz.L1_Click", tutorial, &Tutorial::L1_Click),
        operation("Wiz.L2_Click", tutorial, &Tutorial::L2_Click),
        operation("Wiz.Lp1_Click", tutorial, &Tutorial::Lp1_Click),
        operation("Wiz.LP1_Click", tutorial, &Tutorial::Lp1_Click),
        operation("Wiz.L1E_Click", tutorial, &Tutorial::L1E_Click),
        operation("Wiz.L1R_Click", tutorial, &Tutorial::L1R_Click),
        operation("Wiz.L1M_Click", tutorial, &Tutorial::L1M_Click),
        operation("Wiz.L1S_Click", tutorial, &Tutorial::L1S_Click),
        operation("Wiz.pause1", tutorial, &Tutorial::pause1),
        operation("Form1.pause1", tutorial, &Tutorial::pause1),
    };
}

/// The handlers of the mouse over the step labels, the titles and the panels.
Operations hoverOperations() {
    Operations all;
    const std::vector<Lesson>& tables = lessons();
    for (int lesson = 0; lesson < lessonCount; ++lesson) {
        const std::string labels = tables[static_cast<std::size_t>(lesson)].labels;
        const auto count = static_cast<int>(tables[static_cast<std::size_t>(lesson)].steps.size());
        all.push_back(
            {"Wiz." + labels + "_MouseMove", [lesson, count](Runner& runner, Arguments& arguments) {
                 const int step = numberBetween(arguments.text(), 0, count - 1);
                 arguments.ignoreRest();
                 wizard(runner).form().stepMouseMove(lesson, step);
                 return Lines{};
             }});
        const std::string title = "Ltit" + std::to_string(lesson + 1);
        const std::string panel = lesson < 2 ? "Picbac" + std::to_string(lesson + 1)
                                             : "Picture" + std::to_string(lesson - 1);
        for (const std::string& quiet : {title, panel})
            all.push_back(
                {"Wiz." + quiet + "_MouseMove", [lesson](Runner& runner, Arguments& arguments) {
                     arguments.ignoreRest();
                     wizard(runner).form().lessonMouseMove(lesson);
                     return Lines{};
                 }});
    }
    return all;
}

} // namespace

Operations tutorialOperations() {
    const auto form = [](Runner& runner) -> Wiz& { return wizard(runner).form(); };
    const auto samples = [](Runner& runner) -> SampleFiles& {
        return runner.program().tutorial.tutorial.samples;
    };
    Operations all = stepOperations();
    for (const Operation& each : hoverOperations())
        all.push_back(each);
    all.push_back(operation("Wiz.Form_Load", form, &Wiz::Form_Load));
    all.push_back(operation("Wiz.Form_Unload", form, &Wiz::Form_Unload));
    all.push_back(operation("Wiz.Form_Activate", form, &Wiz::Form_Activate));
    all.push_back(operation("Wiz.Check1_Click", form, &Wiz::Check1_Click));
    all.push_back(operation("Wiz.imgTitleClose_Click", form, &Wiz::imgTitleClose_Click));
    all.push_back(operation("Form1.ExtractSamples", samples, &SampleFiles::ExtractSamples));
    return all;
}

} // namespace transcript
