// The MP3 device under its alias, polled four times a second.
#include "recording/Mp3Player.h"

#include "platform/MessageLoop.h"
#include "platform/Text.h"
#include "playback/Progress.h"
#include "playback/StopWatch.h"
#include "recording/RecordDesk.h"
#include "recording/modMultimedia.h"
#include "studio/Studio.h"

namespace velorin {

namespace {

constexpr char alias[] = "audiomp3";
constexpr float pollSeconds = 0.25F;

} // namespace

// The loop that began with a paused file still runs below, so a resume needs none.
//
// Rule: after a pause the next Play resumes, even if no file ever played; only the one after it
// starts the file. Held by recording/playing_an_mp3.
void Mp3Player::CmdPlayMP3_Click() {
    if (studio_.run.PlayerPaused.isMinusOne()) {
        ResumeMP3();
        studio_.run.PlayerPaused = flagClear;
        desk_.showPicture5(true);
        return;
    }
    StopMP3();
    CloseMP3();
    desk_.showPicture5(true);
    OpenMP3(desk_.text(RecordText::Text6));
    studio_.platform.loop.Yield();
    if (!studio_.platform.loop.isEnding())
        PlayMP3();
}

void Mp3Player::OpenMP3(const std::string& path) {
    if (media_.mmOpen(desk_.picMP3Handle(), alias, path, "MPEGVideo") != "Success")
        return;
    media_.mmReadMp3Header(path);
    if (const auto frames = media_.mmGetFramesPerSecond(alias))
        framesPerSecond_ = frames;
    length_ = media_.mmGetLength(alias);
    lengthSeconds_ = media_.mmGetLengthMs(alias) / 1000.0;
    path_ = path;
}

void Mp3Player::PlayMP3() {
    desk_.emptyL2();
    desk_.setCaption(RecordCaption::Status, "");
    media_.mmPlay(alias, "0", "0");
    desk_.showPicture5(true);
    watch_.StopWatchStart(timer);
    while (media_.mmGetPosition(alias) >= 0) {
        watch_.WaitSeconds(timer, pollSeconds);
        if (studio_.platform.loop.isEnding())
            return;
        UpdateMp3Position();
    }
}

void Mp3Player::PauseMP3() {
    media_.mmPause(alias);
}

void Mp3Player::ResumeMP3() {
    media_.mmResume(alias);
}

void Mp3Player::StopMP3() {
    desk_.emptyL2();
    for (const RecordCaption label : {RecordCaption::Status, RecordCaption::lblbitrate,
                                      RecordCaption::lblKhz, RecordCaption::lblmode})
        desk_.setCaption(label, "");
    desk_.setCaption(RecordCaption::lblTime, ":");
    media_.mmStop(alias);
}

void Mp3Player::CloseMP3() {
    if (media_.mmClose(alias) == "Success")
        position_ = 0;
}

void Mp3Player::PlayNext() {
    StopMP3();
    CloseMP3();
    desk_.showPicture5(false);
}

// Rule: the last step finds the device closed and shows what position -1 makes. Held by
// recording/playing_an_mp3.
void Mp3Player::UpdateMp3Position() {
    position_ = media_.mmGetPosition(alias);
    showPosition();
    showTime();
    if (media_.mmIsAtEnd(alias, length_).isMinusOne())
        PlayNext();
    if (secondsPlayed_ < 0.0)
        desk_.setCaption(RecordCaption::Status, "");
}

// A value that would need a division by 0 stays as it is.
void Mp3Player::showPosition() {
    const double share = length_ == 0 ? 0.0 : static_cast<double>(position_) / length_;
    if (length_ != 0)
        desk_.setCaption(RecordCaption::Status, percentCaption(share));
    if (framesPerSecond_.value_or(0) != 0)
        secondsPlayed_ = static_cast<double>(position_) / *framesPerSecond_;
    if (length_ != 0)
        desk_.setL2Share(share);
}

// The minutes are computed from the rounded seconds, so 59.6 seconds show as "01:00".
void Mp3Player::showTime() {
    const auto whole = static_cast<std::int64_t>(platform::roundHalfEven(secondsPlayed_));
    const std::int64_t minutes = whole / 60;
    auto seconds = static_cast<std::int64_t>(
        platform::roundHalfEven(secondsPlayed_ - static_cast<double>(minutes) * 60.0));
    if (seconds == -1)
        seconds = 0;
    desk_.setCaption(RecordCaption::lblTime, twoDigits(minutes) + ":" + twoDigits(seconds));
}

} // namespace velorin
