// All that the host gives, in one hand: references to the interfaces, and the folders.
#pragma once

#include <string>

namespace platform {

class Clock;
class MessageLoop;
class MidiOut;
class Mci;
class FileDialogs;
class MessageBoxes;
class Files;
class Settings;
class Desktop;
class PopupMenus;
class Timers;
class KeptState;
class Notices;
class SystemFiles;
class Encoder;

/// Owns nothing; the host outlives every user of it.
struct Platform {
    Clock& clock;
    MessageLoop& loop;
    MidiOut& midi;
    Mci& mci;
    FileDialogs& dialogs;
    MessageBoxes& boxes;
    Files& files;
    Settings& settings;
    Desktop& desktop;
    PopupMenus& menus;
    Timers& timers;
    SystemFiles& systemFiles;
    Encoder& encoder;
    /// The folder under which "Songs" and "media" lie, without a separator at its end.
    std::string programFolder;
    /// Null where nothing is to outlive the run.
    KeptState* kept = nullptr;
    /// Null where no user reads notices; see `notify` in Notices.h.
    Notices* notices = nullptr;
};

} // namespace platform
