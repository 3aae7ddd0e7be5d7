// Opens files that the user brings from outside: dropped on the main window, or from the desktop.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace velorin {

class History;
class RecordingToolbar;
class Session;
class ToolWindows;

/// User-interface thread only. What is on the tableaux is in the history before it is replaced.
class FileOpening {
public:
    /// All outlive this.
    struct Parts {
        Session& session;
        History& history;
        ToolWindows& windows;
        RecordingToolbar& recording;
    };

    /// `say` shows the user one or more lines, parted by "\n", in a hint.
    FileOpening(const Parts& parts, std::function<void(const std::string&)> say);

    /// True if the name has an ending that `open` knows: sng, mid, midi, wav, mp3.
    [[nodiscard]] static bool canOpen(const std::string& path);

    /// Opens the first file that it can, and says what became of the others. A score opens as by
    /// the open command. A MIDI file becomes a score of its own that has no file yet; the volumes
    /// of its rows are set. A WAV or MP3 file comes into the Recording Toolbar. A notice reports a
    /// file that is not there. Call it while no mouse button is held and no dialog is open.
    void open(const std::vector<std::string>& paths);

private:
    using Lines = std::vector<std::string>;

    // Each returns false if the file cannot be opened, and adds what the hint should say.
    [[nodiscard]] bool openOne(const std::string& path, Lines& lines);
    [[nodiscard]] bool openScore(const std::string& path);
    [[nodiscard]] bool openMidi(const std::string& path, Lines& lines);
    [[nodiscard]] bool openSound(const std::string& path, Lines& lines);
    void reportMissing(const std::string& path);

    Parts parts_;
    std::function<void(const std::string&)> say_;
};

} // namespace velorin
