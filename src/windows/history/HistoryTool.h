// Loads and unloads the History window.
#pragma once

#include "windows/frame/ToolWindow.h"

#include <memory>

namespace velorin {

class History;
class HistoryWindow;
class Session;
class ToolWindows;

class HistoryTool final : public ToolWindow {
public:
    /// All outlive this.
    HistoryTool(Session& session, ToolWindows& windows, History& history);
    ~HistoryTool() override;

    /// Shows the window with the keyboard in its list.
    void open();
    /// The window, loaded if it was not; it stays hidden.
    HistoryWindow& form();

    // These do nothing while the window is not loaded.
    void historyChanged(); ///< for `History::onChanged`
    void lockChanged();    ///< the tableaux were locked or released

    QWidget* window() override;
    QWidget& load() override;
    void unload() override;

private:
    Session& session_;
    ToolWindows& windows_;
    History& history_;
    std::unique_ptr<HistoryWindow> form_;
};

} // namespace velorin
