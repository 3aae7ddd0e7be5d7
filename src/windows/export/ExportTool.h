// Loads and unloads the Export window, and owns its threads.
#pragma once

#include "windows/frame/ToolWindow.h"
#include "windows/making/ConversionJobs.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace velorin {

class ExportWindow;
class Session;
class ToolWindows;

/// A file that is being made when the window closes is given up; its thread ends on its own.
class ExportTool final : public ToolWindow {
public:
    /// All outlive this. SoundFonts are looked for beside the program, in `programFolder`.
    ExportTool(Session& session, ToolWindows& windows, std::filesystem::path programFolder);
    ~ExportTool() override;

    void open();
    void openForMp3(); ///< the same, with MP3 chosen, unless a file is being made
    /// The window, loaded if it was not; it stays hidden.
    ExportWindow& form();

    void songChanged(); ///< the score has changed; does nothing while the window is not loaded

    QWidget* window() override;
    QWidget& load() override;
    void unload() override;

    /// Plays a sound or a MIDI file that was made.
    std::function<void(const std::string& path)> onPlay;

    ConversionJobs jobs;
    const std::filesystem::path programFolder;

private:
    Session& session_;
    ToolWindows& windows_;
    std::unique_ptr<ExportWindow> form_;
};

} // namespace velorin
