// The lower end of the Export window: what it shows while the user chooses, while it works, and
// after that.
#pragma once

#include "windows/frame/PicturedPush.h"
#include "windows/frame/ProgressBar.h"

#include <QFrame>
#include <QLabel>
#include <QPushButton>

#include <optional>
#include <string>

namespace velorin {

/// The controls are children of the window, which owns them. This places and shows them.
class ExportFoot {
public:
    explicit ExportFoot(QWidget* window);

    void showChoosing(const std::string& sentence);
    void showWorking(const std::string& work); ///< "Encoding paper-boat.mp3"
    /// `of` seconds is the length of the song; 0 for a file without sound.
    void showProgress(double share, double of, std::optional<int> secondsLeft);
    /// `isPlayed`: the file has sound, so the button says "Play" and not "Open".
    void showDone(const std::string& heading, const std::string& note, bool isPlayed);
    void showFailed(const std::string& sentence);

    PicturedPush* play;
    PicturedPush* showInFolder;
    QPushButton* close;
    QPushButton* exports; ///< "Export", "Replace", "Export again"
    QPushButton* cancel;

private:
    enum class Part { choosing, working, done, failed };

    void makeNotes(QWidget* window);
    void makeProgress(QWidget* window);
    void makeResult(QWidget* window);
    void makeButtons(QWidget* window);
    void show(Part part);
    void announce(const std::string& text);

    QLabel* sentence_;
    QLabel* meanwhile_;
    QLabel* work_;
    QLabel* left_;
    ProgressTrack* track_;
    ProgressBar* bar_;
    QLabel* percent_;
    QLabel* played_;
    QFrame* plate_;
    QLabel* mark_;
    QLabel* heading_;
    QLabel* note_;
};

} // namespace velorin
