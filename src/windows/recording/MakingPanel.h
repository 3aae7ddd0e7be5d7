// What the Recording Toolbar makes: the recording that runs, the encoding that runs, and the file
// that was made. It is in the place of `Picture5`, which is shown while an MP3 plays.
#pragma once

#include "windows/frame/PictureButton.h"
#include "windows/frame/PicturedPush.h"
#include "windows/making/TimeLeft.h"

#include <QElapsedTimer>
#include <QFrame>
#include <QLabel>
#include <QTimer>

#include <filesystem>
#include <string>

namespace velorin {

class ProgressBar;
class ProgressTrack;

/// What the panel says of an MP3 that was made.
struct ShownMp3 {
    std::filesystem::path file;
    std::string flaw;        ///< in a few words; empty if it sounds like its WAV
    bool isStopped = false;  ///< the user has stopped the encoding
    bool isOfScore = false;  ///< recorded from the score, so Export can make a better one
    const char* advice = ""; ///< for a flawed MP3 that is not of the score
};

///     hidden ---> recording ---> made ---> encoding ---> made
///
/// Times are those of the machine, not of the scripted host: nothing else depends on them.
class MakingPanel : public QFrame {
    Q_OBJECT

public:
    explicit MakingPanel(QWidget* page);

    void showNothing();
    /// Counts the time from now on; the size follows from it.
    void showRecording(const std::string& name, int bytesPerSecond);
    void showRecorded(const std::filesystem::path& wav);
    void showEncoding(const std::string& name);
    void showShare(double share); ///< of the encoding, [0, 1]; painted ten times a second at most
    void showMade(const ShownMp3& mp3);

    /// Hides it while something else is shown in its place.
    void giveWay(bool gives);

    [[nodiscard]] bool isRecording() const { return state_ == State::recording; }
    /// The file that was made last; empty while there is none.
    [[nodiscard]] const std::filesystem::path& file() const { return file_; }

    PicturedPush* showInFolder;
    PicturedPush* exports;
    PictureButton*
        folder; ///< the same as `showInFolder`, where "Export" leaves no room for its words

private:
    enum class State { nothing, recording, encoding, made };

    void show(State state);
    void place(QLabel* label, QRect rect, const std::string& text);
    void showElapsed();
    void showButtons(bool isExport, bool isFolder);
    void announce(const std::string& sentence);

    QLabel* mark_;
    QLabel* elapsed_;
    QLabel* heading_;
    QLabel* note_;
    QLabel* left_;
    ProgressTrack* track_;
    ProgressBar* bar_;
    QTimer ticks_;
    QElapsedTimer since_;    ///< the recording or the encoding began
    QElapsedTimer sinceBar_; ///< the bar was painted
    TimeLeft timeLeft_;
    State state_ = State::nothing;
    int bytesPerSecond_ = 0;
    std::filesystem::path file_;
    bool givesWay_ = false;
};

} // namespace velorin
