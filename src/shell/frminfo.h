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

/// One for the run. The window is loaded by its first use; its load waits for one second, and
/// serves events meanwhile, so that a hint shows only if the pointer stays.
class frminfo {
public:
    frminfo(platform::Platform& platform, FrameState& frames);
    ~frminfo();
    frminfo(const frminfo&) = delete;
    frminfo& operator=(const frminfo&) = delete;

    /// Loads the window, with its wait; it is not shown. Nothing if it is loaded.
    void load();

    /// Shows `text` at `place` on the screen (pixels), after the wait if the window is not loaded.
    /// Lines end in "\r\n". `control` tells a second move over the same control from a move to
    /// another one; during the wait the last control counts. A call during another's wait returns
    /// at once.
    void showHint(const QWidget* control, const std::string& text, QPoint place);

    /// Shows a lesson's text with its title at a place in twips, and returns when the user has
    /// closed it, or when the program ends. While a lesson is open, a second one only changes its
    /// text.
    void showLesson(const std::string& text, float left, float top);

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
    void beginLoad();
    void waitForLoad();
    void waitBeforeLesson();
    void startTimer1();
    void stopTimer1();

    platform::Platform& platform_;
    FrameState& frames_;
    std::unique_ptr<HintPanel> panel_; ///< made once and kept; loading it is a matter of state
    bool loaded_ = false;
    bool waiting_ = false; ///< `waitForLoad` is on the stack
    bool lessonOpen_ = false;
    int lessonsWaiting_ = 0;      ///< `waitBeforeLesson` on the stack
    int timer1_ = 0;              ///< the running timer's number, 0 for none
    std::int64_t loadedFrom_ = 0; ///< counter at which the present wait ends
    const QWidget* control_ = nullptr;
    std::string text_;
    QPoint place_;
};

} // namespace velorin
