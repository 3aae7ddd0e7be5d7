// Operations of the skinned frame.
#include "ControlNames.h"
#include "Operations.h"
#include "Session.h"
#include "program/Form1.h"
#include "shell/ToolFrame.h"

namespace transcript {

using namespace velorin;

namespace {

SkinnedFrame& frameOf(Session& session, const std::string& name) {
    QWidget& window = windowOf(session, name);
    if (&window == &session.form1())
        return session.form1().frame;
    if (auto* tool = qobject_cast<ToolFrame*>(&window))
        return tool->frame;
    throw CommandError("no frame: " + name);
}

/// The rest of the argument list may hold a window's name first; the main window without.
std::string windowArgument(Arguments& arguments) {
    return arguments.isAtEnd() ? "Form1" : arguments.text();
}

Lines setTopMost(Session& session, Arguments& arguments) {
    QWidget& window = windowOf(session, arguments.text());
    const int flag = arguments.next<int>();
    arguments.expectEnd();
    SetTopMost(window, flag != 0);
    return {};
}

Lines skinMainWindow(Session& session, Arguments& arguments) {
    SkinnedFrame& frame = frameOf(session, arguments.text());
    const int flag = arguments.next<int>();
    arguments.expectEnd();
    frame.SkinMainWindow(flag != 0 ? flagSet : flagClear);
    return {};
}

Lines skinToolWindow(Session& session, Arguments& arguments) {
    SkinnedFrame& frame = frameOf(session, arguments.text());
    arguments.expectEnd();
    frame.SkinToolWindow();
    return {};
}

Lines applyWindowRegion(Session& session, Arguments& arguments) {
    SkinnedFrame& frame = frameOf(session, windowArgument(arguments));
    arguments.expectEnd();
    frame.ApplyWindowRegion();
    return {};
}

/// The stored place of the pointer, then the handle; the pointer stands where `cursor` put it.
Lines resizeByHandle(Session& session, Arguments& arguments) {
    if (arguments.text() != "Form1")
        throw CommandError("no handles");
    const int left = arguments.next<int>();
    const int top = arguments.next<int>();
    const int handle = numberBetween(arguments.text(), 0, 7);
    arguments.expectEnd();
    const platform::PointPx end = session.host.desktop.cursor;
    session.form1().frame.ResizeByHandle(session.form1().place, QPoint(end.x - left, end.y - top),
                                         handle);
    return {};
}

/// The window system moves the window from here on; a test has none.
Lines dragWindow(Session& session, Arguments& arguments) {
    (void)windowOf(session, windowArgument(arguments));
    arguments.expectEnd();
    return {};
}

Lines toggleMaximize(Session& session, Arguments& arguments) {
    if (windowArgument(arguments) != "Form1")
        throw CommandError("no such window");
    session.form1().ToggleMaximize();
    return {};
}

} // namespace

Operations frameOperations() {
    const auto window = [](Session& session) -> Form1& { return session.form1(); };
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
