// Shows notices: one sentence about what happened, until the user closes it.
#pragma once

#include "platform/Notices.h"
#include "windows/frame/SkinnedFrame.h"

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

/// Shows the notices of the host one after the other. A notice looks like a hint. It is in the
/// lower right corner of a part of the main window, or in the upper right corner if it would cover
/// a tool window, and always wholly on a screen. It gets the focus only if the user clicks it. It
/// does not move with the main window. It is hidden while the main window is minimised or a dialog
/// is open.
///
///     posted ---> shown ---- click on the text, Enter ----> its score is opened ---> the next one
///                   |------- close button, Escape -------------------------------------^
///
/// User-interface thread only.
class NoticeWindow : public QObject {
    Q_OBJECT

public:
    explicit NoticeWindow(platform::Desktop& desktop);
    ~NoticeWindow() override;

    /// Opens the score of a notice that the user clicked.
    std::function<void(const std::string& path)> openScore;

    /// Shows notices inside `corner` from now on, a visible control of the main window. Both must
    /// outlive this object or the call of `stop`.
    void start(platform::Notices& notices, QWidget& corner);

    /// Hides the notice and shows no other. A second call does nothing.
    void stop();

    /// Null before the first notice. Has the controls "Label1" and "imgTitleClose".
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
    FrameState frames_;      ///< its own: notices do not count as regions of the program
    std::unique_ptr<HintPanel> panel_;
};

} // namespace velorin
