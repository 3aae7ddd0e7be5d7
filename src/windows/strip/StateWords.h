// The words of the line of state.
#pragma once

#include <QString>
#include <QStringList>

#include <functional>

namespace velorin {

/// What the line reports.
struct StripState {
    QString instrument;         ///< of the current row, without its number
    int row = 0;                ///< the current row, [0, 13)
    int column = 0;             ///< score column of the pointer, else of the marker; from 0
    double lengthSeconds = 0.0; ///< of the song
    double playedSeconds = 0.0; ///< since the start of the song, or of the recording
    int editMode = 0;           ///< one of `editMode`
    int stepColumns = 0;        ///< the length of a step while step entry is on; else 0
    bool isPlaying = false;
    bool isRecording = false;
    QString sentence; ///< why a click did nothing; empty for none
    bool operator==(const StripState&) const = default;
};

struct StateWords {
    QString first;      ///< the instrument
    QStringList second; ///< the parts of the second line; the first is shown always
    bool isLive = false;
    bool isLocked = false; ///< a lock is drawn before the second line
    QString sentence;      ///< takes both lines, unless empty
    bool operator==(const StateWords&) const = default;
};

[[nodiscard]] StateWords stateWords(const StripState& state);

/// The parts with their separators. Parts that do not fit into `widthPx` are left out, from the
/// end; the first always stays. `widthOf` measures a text in pixels.
[[nodiscard]] QString fittingParts(const QStringList& parts, int widthPx,
                                   const std::function<int(const QString&)>& widthOf);

/// All of it as one sentence for a screen reader.
[[nodiscard]] QString readerWords(const StripState& state);

/// The short name of an instrument [0, 175), "Music Box"; empty for any other number.
[[nodiscard]] QString instrumentName(int instrument);

} // namespace velorin
