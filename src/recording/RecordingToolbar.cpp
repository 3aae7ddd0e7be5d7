// The Recording Toolbar as a service: loading its window, and reading and setting its controls.
#include "recording/RecordingToolbar.h"

#include "platform/Mci.h"
#include "platform/MessageLoop.h"
#include "platform/Text.h"
#include "platform/Timers.h"
#include "recording/Record.h"
#include "score/Studio.h"
#include "shell/ToolDesk.h"

#include <algorithm>

namespace velorin {

namespace {

constexpr int timer10Milliseconds = 5000;
constexpr double widestBar = 30000.0; ///< pixels; far outside the track, which cuts it off

} // namespace

RecordingToolbar::RecordingToolbar(Studio& studio, StopWatch& watch, RecordCommands& commands,
                                   ToolDesk& desk)
    : studio_(studio),
      desk_(desk),
      media(studio.platform, *this),
      mp3(studio, media, watch, *this),
      player(studio, mp3, watch, *this, commands),
      encoding(studio, *this, commands),
      capture(studio, player, encoding, *this, commands) {
    player.Recordcontrol = [this] { capture.Recordcontrol(); };
}

RecordingToolbar::~RecordingToolbar() {
    if (timer_ != 0)
        studio_.platform.timers.cancel(timer_);
}

Record& RecordingToolbar::form() {
    if (!form_) {
        form_ = std::make_unique<Record>(*this, studio_, desk_);
        // A program that ends has the controls with their defaults, and nothing is set up.
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
    form_->hide();
    desk_.destroyLater(std::move(form_));
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
}

void RecordingToolbar::setL2Share(double share) {
    const double width = platform::roundHalfEven(share * form().P2->width());
    if (width >= 0.0)
        form().L2->setBarWidth(static_cast<int>(std::min(width, widestBar)));
}

void RecordingToolbar::emptyL2() {
    form().L2->setBarWidth(1);
}

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

// The player needs a number that stands for the control, and no window of the host's behind it.
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
