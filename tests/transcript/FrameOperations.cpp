// Operations of the skinned frame.
#include "ControlNames.h"
#include "Operations.h"
#include "Runner.h"
#include "windows/frame/ToolFrame.h"
#include "windows/main/Form1.h"

namespace transcript {

using namespace velorin;

namespace {

SkinnedFrame& frameOf(Runner& runner, const std::string& name) {
    QWidget& window = windowOf(runner, name);
    if (&window == &runner.form1())
        return runner.form1().frame;
    if (auto* tool = qobject_cast<ToolFrame*>(&window))
        return tool->frame;
    throw CommandError("no frame: " + name);
}

/// The other arguments may begin with the name of a window; the default is the main window.
std::string windowArgument(Arguments& arguments) {
    return arguments.isAtEnd() ? "Form1" : arguments.text();
}

Lines setTopMost(Runner& runner, Arguments& arguments) {
    QWidget& window = windowOf(runner, arguments.text());
    const int flag = arguments.next<int>();
    arguments.expectEnd();
    SetTopMost(window, flag != 0);
    return {};
}

Lines skinMainWindow(Runner& runner, Arguments& arguments) {
    SkinnedFrame& frame = frameOf(runner, arguments.text());
    const int flag = arguments.next<int>();
    arguments.expectEnd();
    frame.SkinMainWindow(flag != 0 ? flagSet : flagClear);
    return {};
}

Lines skinToolWindow(Runner& runner, Arguments& arguments) {
    SkinnedFrame& frame = frameOf(runner, arguments.text());
    arguments.expectEnd();
    frame.SkinToolWindow();
    return {};
}

Lines applyWindowRegion(Runner& runner, Arguments& arguments) {
    SkinnedFrame& frame = frameOf(runner, windowArgument(arguments));
    arguments.expectEnd();
    frame.ApplyWindowRegion();
    return {};
}

/// The stored place of the pointer, then the handle. The pointer is where `cursor` put it.
Lines resizeByHandle(Runner& runner, Arguments& arguments) {
    if (arguments.text() != "Form1")
        throw CommandError("no handles");
    const int left = arguments.next<int>();
    const int top = arguments.next<int>();
    const int handle = numberBetween(arguments.text(), 0, 7);
    arguments.expectEnd();
    const platform::PointPx end = runner.host.desktop.cursor;
    runner.form1().frame.ResizeByHandle(runner.form1().place, QPoint(end.x - left, end.y - top),
                                        handle);
    return {};
}

/// Here the window system would move the window; a test has none.
Lines dragWindow(Runner& runner, Arguments& arguments) {
    (void)windowOf(runner, windowArgument(arguments));
    arguments.expectEnd();
    return {};
}

Lines toggleMaximize(Runner& runner, Arguments& arguments) {
    if (windowArgument(arguments) != "Form1")
        throw CommandError("no such window");
    runner.form1().ToggleMaximize();
    return {};
}

} // namespace

Operations frameOperations() {
    const auto window = [](Runner& runner) -> Form1& { return runner.form1(); };
    return {
        {"Form1.SetTopMost", setTopMost},
        {"Form1.SkinMainWindow", skinMainWindow},
        {"Form1.SkinToolWindow", skinToolWindow},
        {"Form1.ApplyWindowRegion", applyWindowRegion},
        {"Form1.ResizeByHandle", resizeByHandle},
        {"Form1.DragWindow", dragWindow},
        {"Form1.ToggleMaximize", toggleMaximize},
        operation("Form1.imgTitleClose_Click", window, &Form1::imgTitleClose_Click),
        operation("Form1.imgTitleMinimize_Click", window, &Form1::imgTitleMinimize_Click),
        operation("Form1.imgTitleMaxRestore_Click", window, &Form1::imgTitleMaxRestore_Click),
        operation("Form1.imgTitleRestore_Click", window, &Form1::imgTitleRestore_Click),
        operation("Form1.imgTitleHelp_Click", window, &Form1::imgTitleHelp_Click),
    };
}

} // namespace transcript
