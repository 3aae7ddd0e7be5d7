// The words of the line of state.
#include "windows/strip/StateWords.h"

#include "model/Cell.h"
#include "model/InstrumentNames.h"
#include "studio/Run.h"
#include "windows/texts/ControlTable.h"
#include "windows/texts/LengthText.h"

#include <string>

namespace velorin {

namespace {

constexpr int columnsOfABar = 4;

QString partSeparator() {
    return QStringLiteral("  \u00b7  ");
}

QString placeWords(int column) {
    return QStringLiteral("Bar %1, column %2").arg(column / columnsOfABar + 1).arg(column + 1);
}

QString modeWord(int mode, int stepColumns) {
    if (mode == editMode::select)
        return QStringLiteral("Select");
    if (mode == editMode::draw && stepColumns > 0)
        return QStringLiteral("Steps of %1 %2")
            .arg(stepColumns)
            .arg(QLatin1String(stepColumns == 1 ? "column" : "columns"));
    return mode == editMode::marker ? QStringLiteral("Marker") : QStringLiteral("Draw");
}

} // namespace

StateWords stateWords(const StripState& state) {
    StateWords words;
    words.first = state.instrument;
    words.sentence = state.sentence;
    words.isLive = words.isLocked = state.isPlaying || state.isRecording;
    if (state.isRecording)
        words.second = {QStringLiteral("Recording"), lengthText(state.playedSeconds)};
    else if (state.isPlaying)
        words.second = {QStringLiteral("Locked while playing"),
                        QStringLiteral("%1 of %2")
                            .arg(lengthText(state.playedSeconds), lengthText(state.lengthSeconds))};
    else
        words.second = {placeWords(state.column), lengthText(state.lengthSeconds),
                        modeWord(state.editMode, state.stepColumns)};
    return words;
}

QString fittingParts(const QStringList& parts, int widthPx,
                     const std::function<int(const QString&)>& widthOf) {
    QStringList shown = parts;
    while (shown.size() > 1 && widthOf(shown.join(partSeparator())) > widthPx)
        shown.removeLast();
    return shown.join(partSeparator());
}

QString readerWords(const StripState& state) {
    if (!state.sentence.isEmpty())
        return state.sentence;
    const StateWords words = stateWords(state);
    return QStringLiteral("%1, %2. %3.")
        .arg(QLatin1String(rowName(state.row)), words.first,
             words.second.join(QStringLiteral(". ")));
}

QString instrumentName(int instrument) {
    const std::string entry = isPercussion(instrument)
                                  ? percussionEntry(instrument - firstPercussion)
                                  : instrumentEntry(instrument);
    const std::size_t blank = entry.find(' ');
    return blank == std::string::npos ? QString() : QString::fromStdString(entry.substr(blank + 1));
}

} // namespace velorin
