// Finds windows and controls by the names of transcripts.
#pragma once

#include "Words.h"

#include <QWidget>

#include <string>

namespace transcript {

class Runner;

/// The parts of "Form3.TrackHide(3).enabled". The window is Form1 if none is named.
struct Address {
    std::string window;
    std::string control;  ///< "TrackHide(3)"; empty for the window itself
    std::string property; ///< empty for the value
    std::string whole;    ///< as it is in the transcript
};

[[nodiscard]] Address parseAddress(const std::string& word);
[[nodiscard]] bool isWindowName(const std::string& word);

/// Loads the window if necessary. Throws if there is none.
[[nodiscard]] QWidget& windowOf(Runner& runner, const std::string& name);

/// The window, or null if it is not loaded or the program has ended.
[[nodiscard]] QWidget* loadedWindow(Runner& runner, const std::string& name);

/// The control or the window itself. Loads the window if necessary. Throws if there is none.
[[nodiscard]] QWidget& controlOf(Runner& runner, const Address& address);
[[nodiscard]] QWidget& controlOf(Runner& runner, const std::string& word);

/// "MusicBox", "Form3.Combo1".
[[nodiscard]] std::string nameOf(const QWidget& control);

} // namespace transcript
