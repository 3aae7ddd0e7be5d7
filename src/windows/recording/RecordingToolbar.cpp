// Loads and unloads `Record`, the Recording Toolbar, and reads and sets its controls.
#include "windows/recording/RecordingToolbar.h"

#include "platform/Mci.h"
#include "platform/MessageLoop.h"
#include "platform/Text.h"
#include "platform/Timers.h"
#include "session/Session.h"
#include "windows/frame/ToolWindows.h"
#include "windows/recording/MakingPanel.h"
#include "windows/recording/Record.h"

#include <algorithm>

namespace velorin {

namespace {

constexpr int timer10Milliseconds = 5000;
constexpr double widestBar = 30000.0; ///< pixels; the track clips it

} // namespace

RecordingToolbar::RecordingToolbar(Session& session, ToolWindows& windows)
    : studio_(session.studio),
      windows_(windows),
      media(studio_.platform, *this),
      mp3(studio_, media, session.watch, *this),
      player(session, mp3, *this),
      encoding(studio_, *this),
      capture(session, player, encoding, *this) {
    player.Recordcontrol = [this] { capture.Recordcontrol(); };
}

RecordingToolbar::~RecordingToolbar() {
    if (timer_ != 0)
        studio_.platform.timers.cancel(timer_);
}

Record& RecordingToolbar::form() {
    if (!form_) {
        form_ = std::make_unique<Record>(*this, studio_, windows_);
        // While the program ends, the controls have their defaults and `Form_Load` does not run.
        ready_ = !studio_.platform.loop.isEnding();
        if (ready_)
            form_->Form_Load();
    }
    return *form_;
}

QWidget* RecordingToolbar::window() {
    return form_.get();
}

QWidget& RecordingToolbar::load() {
    return form();
}

void RecordingToolbar::unload() {
    if (!form_)
        return;
    if (ready_)
        form_->Form_Unload();
    disableTimer10();
    ready_ = false;
    windows_.closed.destroyLater(std::move(form_));
}

void RecordingToolbar::closeDevices() {
    for (const char* command :
         {"stop sound", "close sound", "stop capture", "close capture", "stop midi", "close midi"})
        studio_.platform.mci.mciSendStringA(command);
    mp3.StopMP3();
    mp3.CloseMP3();
}

std::string RecordingToolbar::caption(RecordCaption control) {
    if (control == RecordCaption::Status)
        return form().Status->caption().toStdString();
    const QLabel* label = form().label(control);
    return (label != nullptr ? label->text() : form().Command20->text()).toStdString();
}

void RecordingToolbar::setCaption(RecordCaption control, const std::string& text) {
    const QString caption = QString::fromStdString(text);
    if (control == RecordCaption::Status)
        form().Status->setCaption(caption);
    else if (QLabel* label = form().label(control))
        label->setText(caption);
    else
        form().Command20->setText(caption);
}

std::string RecordingToolbar::text(RecordText box) {
    return form().box(box).text().toStdString();
}

void RecordingToolbar::setText(RecordText box, const std::string& text) {
    form().box(box).setText(QString::fromStdString(text));
}

bool RecordingToolbar::isChecked(RecordCheck box) {
    return form().check(box).isChecked();
}

int RecordingToolbar::listIndex(RecordList list) {
    return form().list(list).currentIndex();
}

std::string RecordingToolbar::listText(RecordList list) {
    return form().list(list).currentText().toStdString();
}

bool RecordingToolbar::Optsourcesng() {
    return form().Optsourcesng->isChecked();
}

bool RecordingToolbar::Optsourcemid() {
    return form().Optsourcemid->isChecked();
}

void RecordingToolbar::selectOptsourcesng() {
    form().Optsourcesng->setChecked(true);
}

void RecordingToolbar::selectOptsourcemid() {
    form().Optsourcemid->setChecked(true);
}

void RecordingToolbar::enablePanel(RecordPanel panel, bool enabled) {
    (panel == RecordPanel::Picture2 ? form().Picture2 : form().Picture7)->setEnabled(enabled);
}

void RecordingToolbar::showRec(RecordPicture picture) {
    form().rec->show(picture);
}

void RecordingToolbar::showPicture5(bool shown) {
    form().Picture5->setVisible(shown);
    form().making->giveWay(shown);
}

void RecordingToolbar::setL2Share(double share) {
    const double width = platform::roundHalfEven(share * form().P2->width());
    if (width >= 0.0)
        form().L2->setBarWidth(static_cast<int>(std::min(width, widestBar)));
}

void RecordingToolbar::emptyL2() {
    form().L2->setBarWidth(1);
}

// Rule: a running timer is not restarted, so "Stopped" shows for five seconds from the first stop
// on. Held by recording/a_recording.
void RecordingToolbar::enableTimer10() {
    form().Timer10->setEnabled(true);
    if (timer_ != 0 || !ready_)
        return;
    timer_ = studio_.platform.timers.after(timer10Milliseconds, [this] {
        timer_ = 0;
        capture.Timer10_Timer();
    });
}

void RecordingToolbar::disableTimer10() {
    if (form_)
        form_->Timer10->setEnabled(false);
    if (timer_ != 0)
        studio_.platform.timers.cancel(timer_);
    timer_ = 0;
}

void RecordingToolbar::setTopMost(bool topMost) {
    SetTopMost(form(), topMost);
}

// The player only needs a number for the control; it need not be a window of the host.
std::int32_t RecordingToolbar::picMP3Handle() {
    return static_cast<std::int32_t>(reinterpret_cast<std::uintptr_t>(form().picMP3) & 0x7FFFFFFF);
}

void RecordingToolbar::showProgress(double share, const std::string* caption) {
    setL2Share(share);
    if (caption != nullptr)
        setCaption(RecordCaption::Status, *caption);
}

void RecordingToolbar::endProgress() {
    emptyL2();
    setCaption(RecordCaption::Status, "");
}

void RecordingToolbar::Recordcontrol() {
    capture.Recordcontrol();
}

} // namespace velorin
