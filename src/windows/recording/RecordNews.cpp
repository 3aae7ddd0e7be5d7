// Shows what is recorded, encoded and made. Hides nothing and loads nothing else.
#include "platform/PathLookup.h"
#include "recording/Mp3Sound.h"
#include "windows/recording/MakingPanel.h"
#include "windows/recording/Record.h"
#include "windows/recording/RecordingToolbar.h"

namespace velorin {

namespace {

constexpr char advice[] = "Record as 22.050Hz, 16bit Stereo instead.";

std::string fileNameOf(const std::string& name) {
    return platform::resolveForWriting(name).filename().string();
}

} // namespace

void RecordingToolbar::recordingBegun(const std::string& wav, int bytesPerSecond, bool fromScore) {
    ofScore_ = fromScore ? wav : std::string();
    if (form_)
        form_->making->showRecording(fileNameOf(wav), bytesPerSecond);
}

// A recording that is stopped by hand ends twice. The second time its WAV may have been encoded and
// deleted already: the MP3 stays shown.
void RecordingToolbar::recordingEnded(const std::string& wav) {
    if (!form_ || wav.empty())
        return;
    const std::filesystem::path file = platform::resolve(wav);
    std::error_code failed;
    if (std::filesystem::is_regular_file(file, failed))
        form_->making->showRecorded(file);
    else if (form_->making->isRecording())
        form_->making->showNothing();
}

void RecordingToolbar::encodingBegun(const std::string& mp3) {
    if (form_)
        form_->making->showEncoding(fileNameOf(mp3));
}

void RecordingToolbar::encodingAt(double share) {
    if (form_)
        form_->making->showShare(share);
}

void RecordingToolbar::encodingEnded(const MadeMp3& made) {
    if (!form_)
        return;
    if (!made.isWhole)
        return form_->making->showNothing(); // a notice says why
    form_->making->showMade(
        {platform::resolve(made.mp3), made.flaw, made.isStopped, made.wav == ofScore_, advice});
}

void RecordingToolbar::explain(const std::string& lines) {
    if (onHint)
        onHint(lines);
}

} // namespace velorin
