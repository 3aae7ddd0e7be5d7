// What the Recording Toolbar shows of a recording and an encoding while they go on.
#pragma once

#include <string>

namespace velorin {

/// A WAV that was encoded.
struct MadeMp3 {
    std::string wav; ///< as the program names it
    std::string mp3;
    std::string flaw;       ///< what is wrong with its sound, in a few words; empty if nothing is
    bool isWhole = false;   ///< it is on the disk, to its end or up to where the user stopped
    bool isStopped = false; ///< by the user
};

/// News for the user. Nothing of recording and encoding depends on them: each may be ignored, runs
/// no handler and loads no window.
class MakingNews {
public:
    virtual ~MakingNews() = default;

    /// The device records now. `fromScore` is false if a MIDI file is the source.
    virtual void recordingBegun(const std::string& /*wav*/, int /*bytesPerSecond*/,
                                bool /*fromScore*/) {}
    /// The device was asked to save the WAV; there is none if that failed.
    virtual void recordingEnded(const std::string& /*wav*/) {}

    virtual void encodingBegun(const std::string& /*mp3*/) {}
    virtual void encodingAt(double /*share*/) {} ///< [0, 1]; thousands of times a second
    virtual void encodingEnded(const MadeMp3& /*made*/) {}

    /// Explains a message box that the user has just closed.
    virtual void explain(const std::string& /*lines*/) {}
};

} // namespace velorin
