// The whole program on a scripted host, with every window loaded.
#pragma once

#include "program/Form1.h"
#include "program/Program.h"
#include "resources/HelpPages.h"
#include "resources/Look.h"
#include "shell/HelpWindow.h"
#include "support/ScriptedPlatform.h"
#include "windows/ToolWindows.h"

#include <QApplication>

#include <vector>

namespace velorin {

struct WholeProgram {
    WholeProgram() {
        applyLook(*qApp);
        addToolWindows(program);
        isStarted = program.start();
    }
    ~WholeProgram() { program.Command3_Click(); }
    WholeProgram(const WholeProgram&) = delete;
    WholeProgram& operator=(const WholeProgram&) = delete;

    /// All that the table of controls knows, each on the screen.
    std::vector<QWidget*> windows() {
        std::vector<QWidget*> all;
        for (const char* const name : {"Form1", "Form2", "Form3", "Record", "Wiz", "frminfo"})
            all.push_back(program.window(QString::fromLatin1(name), true));
        host.notices.post({"A notice.", {}});
        host.notices.callback();
        all.push_back(program.notices.window());
        all.push_back(&help);
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
