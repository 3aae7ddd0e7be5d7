// `frminfo`, the hint window: a long hint beside a control for three seconds, or a step of a lesson
// until the user closes it.
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
struct FrameState;

/// One for the run. The window is loaded by its first use, and a hint shows a second later, so that
/// only a pointer that stays sees it. A timer counts that second: a song that plays is not held up.
///
///     showHint --- a second of a timer ---> shown --- three seconds ---> unloaded
///     load, showLesson --- a second of a wait that serves events --->
class frminfo {
public:
    frminfo(platform::Platform& platform, FrameState& frames);
    ~frminfo();
    frminfo(const frminfo&) = delete;
    frminfo& operator=(const frminfo&) = delete;

    /// Loads the window, with a wait of a second; it is not shown. Nothing if it is loaded.
    void load();

    /// Shows `text` at `place` on the screen (pixels), a second later if the window is not loaded.
    /// Returns at once. Lines end in "\r\n". `control` tells a second move over the same control
    /// from a move to another one; of several controls within the second the last one counts, and
    /// has a second of its own.
    void showHint(const QWidget* control, const std::string& text, QPoint place);

    /// The second of a hint is over: shows it. Nothing if none waits.
    void endLoad();

    /// The clock's counter at which the last load's second ends; 0 before the first.
    [[nodiscard]] std::int64_t loadedFrom() const { return loadedFrom_; }

    /// Shows a lesson's text with its title at a place in twips, and returns when the user has
    /// closed it, or when the program ends. While a lesson is open, a second one only changes its
    /// text, and returns true. False if the user has declined the step with the Escape key.
    [[nodiscard]] bool showLesson(const std::string& text, float left, float top);

    /// Takes a hint off the screen, also one that is still waiting. A lesson stays.
    void unload();

    /// What a click on the text, a double click or the title's button do: ends a hint or a lesson.
    void imgTitleClose_Click();
    void Timer1_Timer(); ///< empties the text and takes the hint off the screen

    [[nodiscard]] bool isLoaded() const { return loaded_; }
    [[nodiscard]] bool isLessonOpen() const { return lessonOpen_; }
    [[nodiscard]] QWidget* window(); ///< with the controls "Label1" and "imgTitleClose"

private:
    HintPanel& panel();
    [[nodiscard]] bool isLoading() const;
    void beginLoad();
    void waitForLoad();
    void waitBeforeLesson();
    void bringButtonIntoReach();
    void stopLoadTimer();
    void showWaiting();
    void startTimer1();
    void stopTimer1();

    platform::Platform& platform_;
    FrameState& frames_;
    std::unique_ptr<HintPanel> panel_; ///< made once and kept; loading it is a matter of state
    bool loaded_ = false;
    bool lessonOpen_ = false;
    bool declined_ = false;  ///< the Escape key has closed the lesson
    int lessonsWaiting_ = 0; ///< `waitBeforeLesson` on the stack
    int loadTimer_ = 0;      ///< of the hint that waits for its second, 0 for none
    int timer1_ = 0;         ///< the running timer's number, 0 for none
    std::int64_t loadedFrom_ = 0;
    const QWidget* control_ = nullptr;
    std::string text_;
    QPoint place_;
};

} // namespace velorin
