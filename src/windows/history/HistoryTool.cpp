// Loads and unloads the History window.
#include "windows/history/HistoryTool.h"

#include "windows/frame/ToolWindows.h"
#include "windows/history/HistoryWindow.h"

namespace velorin {

HistoryTool::HistoryTool(Session& session, ToolWindows& windows, History& history)
    : session_(session), windows_(windows), history_(history) {}

HistoryTool::~HistoryTool() = default;

void HistoryTool::open() {
    windows_.show(Tool::history);
    if (!form_ || !form_->isVisible())
        return;
    form_->activateWindow();
    windows_.focus.give(form_->states);
}

HistoryWindow& HistoryTool::form() {
    if (!form_) {
        form_ = std::make_unique<HistoryWindow>(*this, session_, windows_, history_);
        form_->placeWindow();
    }
    return *form_;
}

void HistoryTool::historyChanged() {
    if (form_)
        form_->historyChanged();
}

void HistoryTool::lockChanged() {
    if (form_)
        form_->lockChanged();
}

QWidget* HistoryTool::window() {
    return form_.get();
}

QWidget& HistoryTool::load() {
    return form();
}

void HistoryTool::unload() {
    if (!form_)
        return;
    form_->storePlace();
    windows_.closed.destroyLater(std::move(form_));
}

} // namespace velorin
