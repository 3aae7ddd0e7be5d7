// Loads and unloads the Export window.
#include "windows/export/ExportTool.h"

#include "windows/export/ExportWindow.h"
#include "windows/frame/ToolWindows.h"

#include <utility>

namespace velorin {

ExportTool::ExportTool(Session& session, ToolWindows& windows, std::filesystem::path folder)
    : programFolder(std::move(folder)), session_(session), windows_(windows) {}

ExportTool::~ExportTool() = default;

void ExportTool::open() {
    windows_.show(Tool::exporting);
    if (form_ && form_->isVisible())
        form_->activateWindow();
}

void ExportTool::openForMp3() {
    open();
    if (form_)
        form_->chooseKind(convert::Kind::mp3);
}

ExportWindow& ExportTool::form() {
    if (!form_) {
        form_ = std::make_unique<ExportWindow>(*this, session_, windows_);
        form_->placeWindow();
    }
    return *form_;
}

void ExportTool::songChanged() {
    if (form_)
        form_->songChanged();
}

QWidget* ExportTool::window() {
    return form_.get();
}

QWidget& ExportTool::load() {
    return form();
}

void ExportTool::unload() {
    if (!form_)
        return;
    form_->storeChoices();
    form_->giveUp();
    windows_.closed.destroyLater(std::move(form_));
}

} // namespace velorin
