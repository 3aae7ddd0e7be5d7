// `frminfo`, the hint window: a long hint beside a control for three seconds, or the text of a
// lesson's step until the user closes it.
//
//   Label1         the text
//   imgTitleClose  closes the window
//   Timer1         enabled during the three seconds of a hint; not a visible control
#pragma once

#include <QPoint>

#include <cstdint>
#include <memory>
#include <string>

class QWidget;

namespace platform {
struct Platform;
} // namespace platform

namespace velorin {

class HintPanel;
class Veil;
struct FrameState;

/// One for the run. The window is loaded by its first use, and a hint shows a second later, so it
/// shows only if the pointer stays. A timer counts that second, so a playing song does not wait.
///
///     showHint --- a second of a timer ---> shown --- three seconds ---> unloaded
///     load, showLesson --- a second of a wait that serves events --->
class frminfo {
public:
    frminfo(platform::Platform& platform, FrameState& frames);
    ~frminfo();
    frminfo(const frminfo&) = delete;
    frminfo& operator=(const frminfo&) = delete;

    /// Loads the window without showing it. Does nothing if it is loaded.
    ///
    /// Rule: the load waits a second. Held by shell/hint_window.
    void load();

    /// Shows `text` at `place` on the screen (pixels), a second later if the window is not loaded.
    /// Returns at once. Lines end in "\r\n". A second move over the same `control` within the
    /// second does nothing. A move to another control starts a new second for that control.
    void showHint(const QWidget* control, const std::string& text, QPoint place);

    /// The second of a hint is over: shows it. Does nothing if no hint waits.
    void endLoad();

    /// The counter of the clock at which the second of the last load ends; 0 before the first load.
    [[nodiscard]] std::int64_t loadedFrom() const { return loadedFrom_; }

    /// Shows a lesson's text with its title at a place in twips. Blocks until the user closes it or
    /// the program ends; the other windows take no clicks meanwhile and are dimmed. False if the
    /// user pressed Escape to leave the step out, or if the program ends while the text is not
    /// shown yet.
    ///
    /// Rule: while a lesson is open, a second call changes its text and returns true at once, so
    /// the second step is performed first. Held by tutorial/hints_of_lessons.
    [[nodiscard]] bool showLesson(const std::string& text, float left, float top);

    /// Hides a hint, also one that is still waiting. A lesson stays.
    void unload();

    /// Ends a hint or a lesson. Run by a click or double click on the text and by the close button.
    void imgTitleClose_Click();
    void Timer1_Timer(); ///< empties the text and hides the hint

    [[nodiscard]] bool isLoaded() const { return loaded_; }
    [[nodiscard]] bool isLessonOpen() const { return lessonOpen_; }
    [[nodiscard]] QWidget* window(); ///< has the controls "Label1" and "imgTitleClose"

private:
    HintPanel& panel();
    [[nodiscard]] bool isLoading() const;
    void beginLoad();
    void waitForLoad();
    void waitBeforeLesson();
    void moveButtonIntoReach();
    void stopLoadTimer();
    void showWaiting();
    void startTimer1();
    void stopTimer1();

    platform::Platform& platform_;
    FrameState& frames_;
    std::unique_ptr<HintPanel> panel_; ///< made once and kept; `loaded_` is only a state
    std::unique_ptr<Veil> veil_;       ///< null while no lesson is open
    bool loaded_ = false;
    bool lessonOpen_ = false;
    bool declined_ = false;  ///< the Escape key closed the lesson
    int lessonsWaiting_ = 0; ///< calls of `waitBeforeLesson` on the stack
    int loadTimer_ = 0;      ///< the timer of a waiting hint, 0 for none
    int timer1_ = 0;         ///< the number of the running timer, 0 for none
    std::int64_t loadedFrom_ = 0;
    const QWidget* control_ = nullptr;
    std::string text_;
    QPoint place_;
};

} // namespace velorin
