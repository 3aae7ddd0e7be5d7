// The words of the main window's sheet that belong to no control: the greeting, the name of the
// percussion strip beside it, and hints.
#pragma once

namespace velorin {

constexpr char drumsName[] = "Drums";

/// A hint when all notes have gone and chord marks have not.
constexpr char marksLeft[] =
    "Chord marks of the song before are left. Ctrl+N clears those that you see.";

constexpr char greetingNote[] = "Click here to place a note";
constexpr char greetingLonger[] = "Hold and pull to the right: it lasts longer";
constexpr char greetingBeat[] = "Click the green strip for a beat";
constexpr char greetingChords[] = "Mark chords here";
constexpr char greetingOpen[] = "Open a song";
constexpr char greetingOpenTip[] = "Open a song (Ctrl+O)";
constexpr char greetingOpenHint[] =
    "Opens one of the songs that come with Velorin, or a score that you have saved. Keys: Ctrl+O";

} // namespace velorin
