// Finding windows and controls by the names that transcripts use.
#pragma once

#include "Words.h"

#include <QWidget>

#include <string>

namespace transcript {

class Session;

/// "Form3.TrackHide(3).enabled" taken apart. The window is Form1 where none is named.
struct Address {
    std::string window;
    std::string control;  ///< "TrackHide(3)"; empty for the window itself
    std::string property; ///< empty for the value
    std::string whole;    ///< as it stood in the transcript
};

[[nodiscard]] Address parseAddress(const std::string& word);
[[nodiscard]] bool isWindowName(const std::string& word);

/// The window, loaded if it is not. Throws if there is none.
[[nodiscard]] QWidget& windowOf(Session& session, const std::string& name);

/// The window, or null if it is not loaded or the program has ended.
[[nodiscard]] QWidget* loadedWindow(Session& session, const std::string& name);

/// The control (or the window itself), its window loaded if it is not. Throws if there is none.
[[nodiscard]] QWidget& controlOf(Session& session, const Address& address);
[[nodiscard]] QWidget& controlOf(Session& session, const std::string& word);

/// "MusicBox", "Form3.Combo1".
[[nodiscard]] std::string nameOf(const QWidget& control);

} // namespace transcript
