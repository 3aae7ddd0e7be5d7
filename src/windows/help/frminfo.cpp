// `frminfo`, the hint window.
#include "windows/help/frminfo.h"

#include "platform/Clock.h"
#include "platform/Desktop.h"
#include "platform/MessageLoop.h"
#include "platform/Platform.h"
#include "platform/Timers.h"
#include "studio/FileHelpers.h"
#include "windows/frame/ScreenReach.h"
#include "windows/help/HintPanel.h"
#include "windows/help/Veil.h"

#include <algorithm>

namespace velorin {

namespace {

constexpr int loadWaitSeconds = 1;
constexpr int hintStandsMs = 3000;
constexpr int daySeconds = 24 * 3600;

} // namespace

frminfo::frminfo(platform::Platform& platform, FrameState& frames)
    : platform_(platform), frames_(frames) {}

frminfo::~frminfo() {
    platform_.timers.cancel(loadTimer_);
    platform_.timers.cancel(timer1_);
}

HintPanel& frminfo::panel() {
    if (!panel_) {
        panel_ = std::make_unique<HintPanel>("frminfo", frames_);
        panel_->onClose = [this](HintEnd end) {
            declined_ = end == HintEnd::escape;
            imgTitleClose_Click();
        };
    }
    return *panel_;
}

QWidget* frminfo::window() {
    return &panel();
}

void frminfo::showHint(const QWidget* control, const std::string& text, QPoint place) {
    if (lessonOpen_ || lessonsWaiting_ > 0 || (isLoading() && control == control_))
        return;
    control_ = control;
    text_ = text;
    place_ = place;
    stopLoadTimer();
    if (loaded_ && !isLoading()) {
        showWaiting();
        return;
    }
    beginLoad();
    loadTimer_ = platform_.timers.after(1000 * loadWaitSeconds, [this] { endLoad(); });
}

void frminfo::endLoad() {
    if (loadTimer_ == 0)
        return;
    stopLoadTimer();
    loadedFrom_ = std::min(loadedFrom_, platform_.clock.QueryPerformanceCounter());
    showWaiting();
}

void frminfo::showWaiting() {
    if (platform_.loop.isEnding())
        return;
    panel().setText(QString::fromStdString(text_), false);
    panel().move(place_);
    moveButtonIntoReach();
    startTimer1();
    panel().show();
}

void frminfo::load() {
    if (loaded_ || lessonOpen_)
        return;
    control_ = nullptr;
    beginLoad();
    waitForLoad();
}

bool frminfo::isLoading() const {
    return loaded_ && platform_.clock.QueryPerformanceCounter() < loadedFrom_;
}

/// The label is empty until the second is over.
void frminfo::beginLoad() {
    if (!loaded_)
        panel().clear();
    loaded_ = true;
    loadedFrom_ = platform_.clock.QueryPerformanceCounter() +
                  loadWaitSeconds * platform_.clock.QueryPerformanceFrequency();
}

bool frminfo::showLesson(const std::string& text, float left, float top) {
    HintPanel& face = panel();
    if (lessonOpen_) {
        // A second modal window cannot be shown, so the open one gets the text.
        face.setText(QString::fromStdString(text), true);
        return true;
    }
    if (loaded_) {
        // A loaded window waits no second. The three seconds of a hint do not end a lesson.
        stopLoadTimer();
        stopTimer1();
        face.hide();
    } else {
        waitBeforeLesson();
    }
    if (platform_.loop.isEnding()) {
        return false;
    }
    face.setText(QString::fromStdString(text), true);
    face.place.moveTo(left, top);
    moveButtonIntoReach();
    face.setWindowModality(Qt::ApplicationModal);
    face.setAttribute(Qt::WA_ShowWithoutActivating, false);
    loaded_ = true;
    lessonOpen_ = true;
    declined_ = false;
    face.show();
    face.activateWindow();
    face.setFocus();
    veil_ = std::make_unique<Veil>(face);
    while (lessonOpen_ && !platform_.loop.isEnding()) {
        platform_.loop.waitUntil(platform_.clock.QueryPerformanceCounter() +
                                 daySeconds * platform_.clock.QueryPerformanceFrequency());
    }
    lessonOpen_ = false;
    loaded_ = false;
    veil_.reset();
    face.hide();
    face.setWindowModality(Qt::NonModal);
    face.setAttribute(Qt::WA_ShowWithoutActivating);
    return !declined_;
}

void frminfo::waitForLoad() {
    while (platform_.clock.QueryPerformanceCounter() < loadedFrom_ && !platform_.loop.isEnding()) {
        platform_.loop.waitUntil(loadedFrom_);
    }
}

// A lesson blocks all other windows, so the user must be able to reach its close button.
void frminfo::moveButtonIntoReach() {
    HintPanel& face = panel();
    const Screens screens = platform_.desktop.screens();
    const QRect button = face.imgTitleClose->geometry().translated(face.pos());
    if (!isInReach(button, button.size(), screens))
        face.move(placeInNearest(QRect(face.pos(), face.size()), screens));
}

// Waits on its own, so hints of controls under the pointer do not make it longer.
//
// Rule: the window counts as loaded from the beginning of its second, with an empty text. Held by
// tutorial/hint_loaded_before.
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
    stopLoadTimer();
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

void frminfo::stopLoadTimer() {
    platform_.timers.cancel(loadTimer_);
    loadTimer_ = 0;
}

void frminfo::startTimer1() {
    // Rule: a running timer is not restarted, so a second move over the control does not make the
    // three seconds longer. Held by shell/hint_window.
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
