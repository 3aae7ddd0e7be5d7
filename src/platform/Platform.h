// Everything that the host provides: references to the interfaces, and the program's folder.
#pragma once

#include <string>

namespace platform {

class Clock;
class MessageLoop;
class MidiIn;
class MidiOut;
class Mci;
class FileDialogs;
class MessageBoxes;
class Files;
class Settings;
class Desktop;
class PopupMenus;
class Timers;
class HistoryStore;
class Notices;
class SystemFiles;
class Encoder;

/// Owns nothing. The host outlives every user of this.
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
    /// The folder that "Songs" and "media" are in, without a separator at its end.
    std::string programFolder;
    /// Null if the history ends with the run.
    HistoryStore* history = nullptr;
    /// Null if no user reads notices; see `notify` in Notices.h.
    Notices* notices = nullptr;
    /// Null if nothing listens to MIDI keyboards.
    MidiIn* midiIn = nullptr;
};

} // namespace platform
