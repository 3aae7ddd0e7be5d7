// The whole program on a scripted host, with every window loaded.
#pragma once

#include "program/Program.h"
#include "support/ScriptedPlatform.h"
#include "windows/export/ExportWindow.h"
#include "windows/frame/Look.h"
#include "windows/help/HelpPages.h"
#include "windows/help/HelpWindow.h"
#include "windows/history/HistoryWindow.h"
#include "windows/lists/InstrumentList.h"
#include "windows/lists/InstrumentPopup.h"
#include "windows/main/Form1.h"
#include "windows/setup/Form3.h"

#include <QApplication>

#include <vector>

namespace velorin {

struct WholeProgram {
    WholeProgram() {
        applyLook(*qApp);
        isStarted = program.start();
    }
    ~WholeProgram() { program.Command3_Click(); }
    WholeProgram(const WholeProgram&) = delete;
    WholeProgram& operator=(const WholeProgram&) = delete;

    /// All controls of the table, each shown.
    std::vector<QWidget*> windows() {
        std::vector<QWidget*> all;
        for (const char* const name : {"Form1", "Form2", "Form3"})
            all.push_back(program.window(QString::fromLatin1(name), true));
        all.push_back(&program.setup.form().findChild<InstrumentList*>("Combo1")->popup());
        for (const char* const name : {"Record", "Wiz", "frminfo"})
            all.push_back(program.window(QString::fromLatin1(name), true));
        host.notices.post({"A notice.", {}});
        host.notices.callback();
        all.push_back(program.notices.window());
        program.shortHint.show(program.form1(), "A hint.");
        all.push_back(program.shortHint.window());
        all.push_back(&help);
        all.push_back(&program.historyTool.form());
        all.push_back(&program.exportTool.form());
        for (QWidget* window : all)
            window->show();
        return all;
    }

    scripted::ScriptedPlatform host;
    Program program{host.platform};
    HelpWindow help{helpPages()};
    bool isStarted = false;
};

} // namespace velorin
