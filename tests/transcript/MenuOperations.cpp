// Operations of the popup menus' owner, `Frmmenu`, and of the hint window.
#include "Operations.h"
#include "Runner.h"
#include "program/Program.h"
#include "windows/main/Form1.h"
#include "windows/texts/MenuTable.h"

namespace transcript {

using namespace velorin;

Operations menuOperations() {
    const auto menus = [](Runner& runner) -> Frmmenu& { return runner.form1().menus; };
    const auto hints = [](Runner& runner) -> frminfo& { return runner.program().hints; };
    Operations all{
        operation("Frmmenu.Command1_Click", menus, &Frmmenu::Command1_Click),
        operation("Frmmenu.Command2_Click", menus, &Frmmenu::Command2_Click),
        operation("Frmmenu.Command3_Click", menus, &Frmmenu::Command3_Click),
        operation("Frmmenu.Command4_Click", menus, &Frmmenu::Command4_Click),
        operation("Frmmenu.Command5_Click", menus, &Frmmenu::Command5_Click),
        operation("Frmmenu.Form_Click", menus, &Frmmenu::Form_Click),
        operation("frminfo.imgTitleClose_Click", hints, &frminfo::imgTitleClose_Click),
        operation("frminfo.Label1_Click", hints, &frminfo::imgTitleClose_Click),
        operation("frminfo.Label1_DblClick", hints, &frminfo::imgTitleClose_Click),
        operation("frminfo.Timer1_Timer", hints, &frminfo::Timer1_Timer),
    };
    for (int number = 1; number <= 5; ++number) {
        for (const MenuText& entry : menuTexts(number).entries) {
            if (entry.isSeparator())
                continue;
            const std::string name = entry.name;
            all.push_back(
                {"Frmmenu." + name + "_Click", [menus, name](Runner& runner, Arguments& arguments) {
                     arguments.expectEnd();
                     menus(runner).load(); // like any use of the window
                     menus(runner).click(name);
                     return Lines{};
                 }});
        }
    }
    return all;
}

} // namespace transcript
