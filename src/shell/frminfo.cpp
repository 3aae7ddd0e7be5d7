// `frminfo`, the hint window.
#include "shell/frminfo.h"

#include "platform/Clock.h"
#include "platform/MessageLoop.h"
#include "platform/Platform.h"
#include "platform/Timers.h"
#include "score/FileHelpers.h"
#include "shell/HintPanel.h"

namespace velorin {

namespace {

constexpr int loadWaitSeconds = 1;
constexpr int hintStandsMs = 3000;
constexpr int daySeconds = 24 * 3600;

} // namespace

frminfo::frminfo(platform::Platform& platform, FrameState& frames)
    : platform_(platform), frames_(frames) {}

frminfo::~frminfo() {
    platform_.timers.cancel(timer1_);
}

HintPanel& frminfo::panel() {
    if (!panel_) {
        panel_ = std::make_unique<HintPanel>("frminfo", frames_);
        panel_->onClose = [this](HintEnd) { imgTitleClose_Click(); };
    }
    return *panel_;
}

QWidget* frminfo::window() {
    return &panel();
}

void frminfo::showHint(const QWidget* control, const std::string& text, QPoint place) {
    if (lessonOpen_ || lessonsWaiting_ > 0 || (waiting_ && loaded_ && control == control_)) {
        return;
    }
    control_ = control;
    text_ = text;
    place_ = place;
    if (!loaded_ || waiting_) {
        beginLoad();
        if (waiting_) {
            return; // the wait below on the stack goes on to this hint's moment, and shows it
        }
        waitForLoad();
    }
    if (!loaded_ || platform_.loop.isEnding()) {
        return;
    }
    panel().setText(QString::fromStdString(text_), false);
    panel().move(place_);
    startTimer1();
    panel().show();
}

void frminfo::load() {
    if (loaded_ || lessonOpen_ || waiting_) {
        return;
    }
    control_ = nullptr;
    beginLoad();
    waitForLoad();
}

/// The window stands with an empty label until its wait is over.
void frminfo::beginLoad() {
    if (!loaded_) {
        panel().clear();
    }
    loaded_ = true;
    loadedFrom_ = platform_.clock.QueryPerformanceCounter() +
                  loadWaitSeconds * platform_.clock.QueryPerformanceFrequency();
}

void frminfo::showLesson(const std::string& text, float left, float top) {
    HintPanel& face = panel();
    if (lessonOpen_) {
        // A second modal window cannot be shown; the open one takes on the text.
        face.setText(QString::fromStdString(text), true);
        return;
    }
    if (loaded_) {
        // A window that is loaded has its second behind it; a hint's time does not end a lesson.
        stopTimer1();
        face.hide();
    } else {
        waitBeforeLesson();
    }
    if (platform_.loop.isEnding()) {
        return;
    }
    face.setText(QString::fromStdString(text), true);
    face.place.moveTo(left, top);
    face.setWindowModality(Qt::ApplicationModal);
    face.setAttribute(Qt::WA_ShowWithoutActivating, false);
    loaded_ = true;
    lessonOpen_ = true;
    face.show();
    face.activateWindow();
    face.setFocus();
    while (lessonOpen_ && !platform_.loop.isEnding()) {
        platform_.loop.waitUntil(platform_.clock.QueryPerformanceCounter() +
                                 daySeconds * platform_.clock.QueryPerformanceFrequency());
    }
    lessonOpen_ = false;
    loaded_ = false;
    face.hide();
    face.setWindowModality(Qt::NonModal);
    face.setAttribute(Qt::WA_ShowWithoutActivating);
}

void frminfo::waitForLoad() {
    const bool nested = waiting_;
    waiting_ = true;
    while (platform_.clock.QueryPerformanceCounter() < loadedFrom_ && !platform_.loop.isEnding()) {
        platform_.loop.waitUntil(loadedFrom_);
    }
    waiting_ = nested;
}

// A load of its own: the hints of what the pointer passes meanwhile do not prolong it. As with a
// hint, the window is loaded from the beginning of the wait on.
void frminfo::waitBeforeLesson() {
    panel().clear();
    loaded_ = true;
    ++lessonsWaiting_;
    yieldFor(platform_, 1000 * loadWaitSeconds);
    --lessonsWaiting_;
}

void frminfo::unload() {
    if (lessonOpen_) {
        return;
    }
    stopTimer1();
    loaded_ = false;
    if (panel_) {
        panel_->hide();
    }
}

void frminfo::imgTitleClose_Click() {
    lessonOpen_ = false;
    unload();
}

void frminfo::startTimer1() {
    // A timer that runs already goes on as it is.
    if (timer1_ == 0) {
        timer1_ = platform_.timers.after(hintStandsMs, [this] { Timer1_Timer(); });
        panel().Timer1->setEnabled(true);
    }
}

void frminfo::stopTimer1() {
    platform_.timers.cancel(timer1_);
    timer1_ = 0;
    if (panel_) {
        panel_->Timer1->setEnabled(false);
    }
}

void frminfo::Timer1_Timer() {
    panel().setText({}, false);
    unload();
}

} // namespace velorin
