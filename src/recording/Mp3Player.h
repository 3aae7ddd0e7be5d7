// Playing an MP3 file: the device, its captions and the loop that follows it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace velorin {

class RecordDesk;
class StopWatch;
class modMultimedia;
struct Studio;

class Mp3Player {
public:
    Mp3Player(Studio& studio, modMultimedia& media, StopWatch& watch, RecordDesk& desk)
        : studio_(studio), media_(media), watch_(watch), desk_(desk) {}

    /// Plays the file in `Text6` from its beginning, or resumes a paused one.
    void CmdPlayMP3_Click();
    void OpenMP3(const std::string& path); ///< failures to open are not reported
    void PlayMP3();                        ///< returns when the device reports no position
    void PauseMP3();
    void ResumeMP3();
    void StopMP3();
    void CloseMP3();
    void PlayNext(); ///< stops and closes the file; nothing plays next
    void UpdateMp3Position();

    std::int32_t timer = 0; ///< number of the stopwatch that MP3 and MID share

private:
    void showPosition();
    void showTime();

    Studio& studio_;
    modMultimedia& media_;
    StopWatch& watch_;
    RecordDesk& desk_;

    std::int32_t position_ = 0;  ///< frames
    double secondsPlayed_ = 0.0; ///< as last computed
    std::int32_t length_ = 0;    ///< frames
    double lengthSeconds_ = 0.0;
    std::optional<std::int32_t> framesPerSecond_; ///< no value until one is known
    std::string path_;                            ///< the file opened last
};

} // namespace velorin
