// A main window for the tool windows that asks nothing back: it keeps what they leave behind.
#pragma once

#include "shell/ToolDesk.h"

#include <QWidget>

#include <memory>
#include <utility>
#include <vector>

namespace scripted {

struct QuietToolDesk final : velorin::ToolDesk {
    velorin::FrameState state;
    std::vector<std::unique_ptr<QWidget>> gone;

    void addKeys(velorin::ToolFrame&) override {}
    void noteActiveToolbar(const char*) override {}
    velorin::FrameState& frames() override { return state; }
    void destroyLater(std::unique_ptr<QWidget> window) override {
        gone.push_back(std::move(window));
    }
    void runHandler(const QWidget&, const std::function<void()>& handler) override { handler(); }
};

} // namespace scripted
