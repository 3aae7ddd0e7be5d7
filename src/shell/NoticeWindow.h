// The window of notices: one sentence of what happened, until the user closes it.
#pragma once

#include "platform/Notices.h"
#include "shell/SkinnedFrame.h"

#include <QObject>

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace platform {
class Desktop;
} // namespace platform

namespace velorin {

class HintPanel;

/// Shows the notices of the host one after the other, with the face of a hint, in the lower right
/// corner of a part of the main window, or in the upper one if a tool window is below, and always
/// wholly on a screen. It takes the keyboard only
/// if the user goes there, does not follow the main window, and goes away while that is minimised
/// or a dialog is open.
///
///     posted ---> shown ---- click on the text, Enter ----> its score is opened ---> the next one
///                   |------- close button, Escape -------------------------------------^
///
/// All calls come from the user-interface thread.
class NoticeWindow : public QObject {
    Q_OBJECT

public:
    explicit NoticeWindow(platform::Desktop& desktop);
    ~NoticeWindow() override;

    /// Opens the score of a notice that the user has clicked.
    std::function<void(const std::string& path)> openScore;

    /// From now on notices are shown inside `corner`, a visible control of the main window. Both
    /// outlive this, or the call of `stop`.
    void start(platform::Notices& notices, QWidget& corner);

    /// Hides the notice and shows no other. A second call does nothing.
    void stop();

    /// Null before the first notice. With the controls "Label1" and "imgTitleClose".
    [[nodiscard]] QWidget* window() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    HintPanel& panel();
    void showNext();
    void place();
    void showOrHide();
    void closed(bool withText);

    platform::Desktop& desktop_;
    platform::Notices* notices_ = nullptr; ///< null while stopped
    QWidget* corner_ = nullptr;
    std::optional<platform::Notice> current_;
    bool isBlocked_ = false; ///< a dialog is open
    FrameState frames_;      ///< its own: the count of the program's regions leaves notices out
    std::unique_ptr<HintPanel> panel_;
};

} // namespace velorin
