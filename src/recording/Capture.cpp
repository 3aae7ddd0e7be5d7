// The steps of a recording, in the order in which the device gets them.
#include "recording/Capture.h"

#include "platform/Desktop.h"
#include "platform/Dialogs.h"
#include "platform/Mci.h"
#include "platform/MessageLoop.h"
#include "platform/PathLookup.h"
#include "platform/Text.h"
#include "recording/FilePlayer.h"
#include "recording/Mp3Encoding.h"
#include "recording/RecordDesk.h"
#include "recording/RecordingFormats.h"
#include "session/Session.h"
#include "studio/FileHelpers.h"

#include <algorithm>
#include <cmath>

namespace velorin {

namespace {

using platform::BoxIcon;

constexpr char startCaption[] = "Start Recording";
constexpr char stopRecordingCaption[] = "Stop Recording";
constexpr int millisecondsToEncoding = 1000;

void enablePanels(RecordDesk& desk, bool enabled) {
    desk.enablePanel(RecordPanel::Picture2, enabled);
    desk.enablePanel(RecordPanel::Picture7, enabled);
}

} // namespace

Capture::Capture(Session& session, FilePlayer& player, Mp3Encoding& encoding, RecordDesk& desk)
    : session_(session),
      studio_(session.studio),
      player_(player),
      encoding_(encoding),
      desk_(desk) {}

void Capture::Cmdrecord_Click() {
    const std::string caption = desk_.caption(RecordCaption::Label1);
    if (caption == stopRecordingCaption)
        return stopByHand();
    if (caption != startCaption)
        return;
    studio_.run.RecordingFlag = flagSet;
    desk_.setCaption(RecordCaption::Label1, stopRecordingCaption);
    desk_.showRec(RecordPicture::RecNT);
    desk_.setCaption(RecordCaption::Label8, "Recording");
    desk_.setCaption(RecordCaption::Status, "");
    enablePanels(desk_, false);
    studio_.run.SoundFinished = flagClear;
    StartTrackRecording();
}

// Rule: "Stop all" runs a second time after the device has begun to record, so the file has every
// sound after it. Held by recording/a_recording.
void Capture::StartTrackRecording() {
    if (!studio_.desk->changeToProgramFolder())
        return studio_.platform.boxes.MsgBox(BoxIcon::none, messageTitle, "Recording error");
    studio_.run.SoundFinished = flagClear;
    nameFiles();
    session_.sounding.Command32_Click();
    takeFormat();
    if (!openCapture())
        return;
    send("record capture");
    desk_.recordingBegun(studio_.run.WavFileName, bits_ * channels_ / 8 * samplesPerSecond_,
                         desk_.Optsourcesng());
    studio_.run.RecordingFlag = flagSet;
    const bool showsPosition = desk_.isChecked(RecordCheck::Check4);
    studio_.run.ShowNotePosition = toFlag(showsPosition);
    studio_.desk->setChkgraphics(showsPosition);
    enablePanels(desk_, false);
    session_.sounding.Command32_Click();
    startSource();
}

// The name is a random number. If it was used before, its file is replaced.
void Capture::nameFiles() {
    const double drawn = std::floor(studio_.platform.desktop.Rnd() * 99999.0 + 1.0);
    const std::string name = studio_.run.SongsFolder + platform::shownPath("\\") +
                             std::to_string(static_cast<int>(drawn)) + "tmp";
    studio_.run.WavFileName = name + ".wav";
    desk_.setText(RecordText::InputPath, studio_.run.WavFileName);
    desk_.setText(RecordText::OutPutPath, name + ".mp3");
}

// A text that is not in the table leaves the rate at 0, which the device refuses.
void Capture::takeFormat() {
    const std::string row = desk_.listText(RecordList::cbxFormat);
    samplesPerSecond_ = 0;
    const auto format = std::find_if(wavFormats.begin(), wavFormats.end(),
                                     [&row](const WavFormat& each) { return each.row == row; });
    if (format == wavFormats.end())
        return;
    samplesPerSecond_ = format->samplesPerSecond;
    bits_ = format->bits;
    channels_ = format->channels;
}

// Rule: if the device cannot be opened, the format is sent all the same, and its failure is
// reported too. Held by recording/formats.
bool Capture::openCapture() {
    platform::Mci& mci = studio_.platform.mci;
    if (mci.mciSendStringA("open new type waveaudio alias capture") != 0)
        showErrorBox("Error opening waveaudio");
    const int alignment = bits_ * channels_ / 8;
    const std::string format = "set capture samplespersec " + std::to_string(samplesPerSecond_) +
                               " channels " + std::to_string(channels_) + " bitspersample " +
                               std::to_string(bits_) + " alignment " + std::to_string(alignment) +
                               " bytespersec " + std::to_string(alignment * samplesPerSecond_);
    if (mci.mciSendStringA(format) == 0)
        return true;
    // Rule: the last word is misspelled in the message. Held by recording/formats.
    showErrorBox("Error setting recording paramaters");
    send("close capture");
    return false;
}

void Capture::startSource() {
    if (desk_.Optsourcesng()) {
        session_.sequencer.PlayAndStop_Click(0);
    } else if (desk_.Optsourcemid()) {
        studio_.run.SoundFinished = flagSet;
        studio_.run.RecordingFlag = flagSet;
        player_.RunMidiFile();
    }
}

// Rule: unless the file is a MID, `RecordingFlag` stays set, so the play loop below ends the
// recording a second time. Held by recording/stopped_by_hand.
void Capture::stopByHand() {
    Run& run = studio_.run;
    std::string ending = run.WavFileName.substr(run.WavFileName.size() -
                                                std::min<std::size_t>(run.WavFileName.size(), 3));
    if (platform::lowerCase(ending) == "mid")
        run.RecordingFlag = flagClear;
    run.IsPlaying = flagClear;
    run.SoundFinished = flagSet;
    Recordcontrol();
    if (studio_.platform.loop.isEnding())
        return;
    desk_.setCaption(RecordCaption::Label1, startCaption);
    desk_.setCaption(RecordCaption::Label8, "Stopped");
    desk_.enableTimer10();
    enablePanels(desk_, true);
    desk_.showRec(RecordPicture::RecUP);
}

void Capture::Recordcontrol() {
    platform::MessageLoop& loop = studio_.platform.loop;
    send("stop capture");
    send("save capture " + studio_.run.WavFileName);
    desk_.recordingEnded(studio_.run.WavFileName);
    loop.Yield();
    if (loop.isEnding())
        return;
    send("close capture");
    send("stop midi");
    send("close midi");
    desk_.setCaption(RecordCaption::Label1, startCaption);
    desk_.setCaption(RecordCaption::Label8, "Stopped");
    desk_.enableTimer10();
    desk_.setText(RecordText::Text6, studio_.run.WavFileName);
    loop.Yield();
    if (loop.isEnding())
        return;
    studio_.run.SoundFinished = flagSet;
    enablePanels(desk_, true);
    desk_.showRec(RecordPicture::RecUP);
    loop.Yield();
    // If an encoding runs already, it goes on, and this recording stays a WAV.
    if (loop.isEnding() || !desk_.isChecked(RecordCheck::Check2) ||
        desk_.caption(RecordCaption::Command20) != "Encode File")
        return;
    yieldFor(studio_.platform, millisecondsToEncoding);
    if (loop.isEnding())
        return;
    desk_.setCaption(RecordCaption::Label8, "Encoding");
    loop.Yield();
    if (!loop.isEnding())
        encoding_.Command20_Click();
}

void Capture::CmdStart_Click() {
    Run& run = studio_.run;
    if (run.RecordingFlag.isMinusOne())
        return StartTrackRecording();
    run.RecordingFlag = flagClear;
    run.IsPlaying = flagClear;
    run.SoundFinished = flagSet;
    send("stop capture");
    send("save capture " + run.WavFileName);
    desk_.recordingEnded(run.WavFileName);
    send("close capture");
    session_.sounding.StopallSound();
    studio_.platform.loop.Yield();
    if (!studio_.platform.loop.isEnding())
        encoding_.Command20_Click();
}

void Capture::Timer10_Timer() {
    if (desk_.caption(RecordCaption::Label8) == "Stopped")
        desk_.setCaption(RecordCaption::Label8, "");
    desk_.disableTimer10();
}

void Capture::Command1_Click() {
    if (studio_.platform.desktop.startProgram(studio_.run.MixerPath))
        return;
    studio_.platform.boxes.MsgBox(BoxIcon::exclamation, "Velorin - Error",
                                  "Unable to load SndVol32.exe");
    desk_.explain("Velorin found no sound mixer on this desktop. Install one, for example "
                  "pavucontrol. Recording works without it.");
}

void Capture::Check2_Click() {
    studio_.desk->setCheck1(desk_.isChecked(RecordCheck::Check2));
}

void Capture::send(const std::string& command) {
    studio_.platform.mci.mciSendStringA(command);
}

void Capture::showErrorBox(const char* text) {
    studio_.platform.boxes.MsgBox(BoxIcon::critical, messageTitle, text);
}

} // namespace velorin
