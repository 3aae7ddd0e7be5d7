// Watches the program for the line of state.
#include "windows/strip/StateWatch.h"

#include "session/Session.h"
#include "windows/strip/PressWords.h"
#include "windows/strip/StateLine.h"
#include "windows/texts/ScreenReader.h"

#include <QAbstractEventDispatcher>
#include <QMouseEvent>

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

namespace velorin {

namespace {

constexpr int paintMs = 100;     ///< at most ten times a second
constexpr int recordingMs = 250; ///< a second is never shown late by more
constexpr double columnPx = 12.0;
constexpr double secondsOfColumn = 12.0; ///< at tempo 1

/// Fifty columns of 0.12 s in single precision are a little less than six seconds.
double wholeSeconds(double seconds) {
    constexpr double tolerance = 0.001;
    return std::floor(seconds + tolerance);
}

} // namespace

StateWatch::StateWatch(Session& session, StateLine& line)
    : QObject(&line), session_(session), line_(line) {
    pace_.setSingleShot(true);
    sentenceEnds_.setSingleShot(true);
    connect(&pace_, &QTimer::timeout, this, &StateWatch::look);
    connect(&sentenceEnds_, &QTimer::timeout, this, &StateWatch::beginPress);
    connect(&seconds_, &QTimer::timeout, this, &StateWatch::look);
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
            &StateWatch::look);
}

void StateWatch::followPointer(QWidget* box) {
    box->installEventFilter(this);
}

bool StateWatch::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::MouseMove && !penColumn_) {
        const double x = static_cast<const QMouseEvent*>(event)->position().x();
        pointerColumn_ = std::max(0, static_cast<int>(std::floor(x / columnPx)));
    } else if (event->type() == QEvent::Leave) {
        pointerColumn_.reset();
    }
    return false;
}

void StateWatch::say(const std::string& sentence) {
    if (sentence.empty())
        return;
    sentence_ = sentence;
    sentenceEnds_.start(sentenceMs);
    show();
}

void StateWatch::beginPress() {
    sentenceEnds_.stop();
    if (!std::exchange(sentence_, {}).empty())
        show();
}

void StateWatch::showSteps(int columns) {
    stepColumns_ = columns;
    look();
}

void StateWatch::look() {
    noticePlaying();
    noticeRecording();
    noticeRow();
    if (pace_.isActive() || state() == line_.state())
        return;
    const qint64 since = sincePaint_.isValid() ? sincePaint_.elapsed() : qint64{paintMs};
    if (since >= paintMs)
        show();
    else
        pace_.start(static_cast<int>(paintMs - since));
}

void StateWatch::show() {
    sincePaint_.start();
    line_.showState(state());
}

StripState StateWatch::state() {
    const Studio& studio = session_.studio;
    const Run& run = studio.run;
    const Score& score = studio.score;
    StripState state;
    state.row = RowOptions::isRow(score.CurrentRow) ? score.CurrentRow : 0;
    state.instrument = instrumentName(score.RowInstrument[state.row]);
    const std::optional<int> shown = penColumn_ ? penColumn_ : pointerColumn_;
    state.column = shown ? studio.view.FirstColumn + *shown : score.StartColumn;
    if (stepColumns_ > 0)
        state.column = score.StartColumn;
    state.stepColumns = stepColumns_;
    state.editMode = run.EditMode;
    state.isPlaying = run.IsPlaying.isSet();
    state.isRecording = run.RecordingFlag.isSet();
    state.sentence = QString::fromStdString(sentence_);
    if (state.isPlaying) {
        const int first = run.PlayingSelection.isSet() ? run.PlayBlockStart : 0;
        const auto column = static_cast<double>(session_.sequencer.ColumnTime);
        state.column = 0; // not shown
        state.lengthSeconds = column * std::max(0, score.LastColumn - first);
        const double played = column * std::max(0, run.PlayColumn - first);
        state.playedSeconds = wholeSeconds(std::min(played, state.lengthSeconds));
    } else {
        state.lengthSeconds = songSeconds();
    }
    if (state.isRecording)
        state.playedSeconds = wholeSeconds(static_cast<double>(sinceRecording_.elapsed()) / 1000.0);
    return state;
}

StateWatch::Song StateWatch::song() const {
    const Score& score = session_.studio.score;
    Song song{score.NoteArray.changes(), score.Tempo, 0};
    for (int row = 0; row < scoreRows; ++row)
        if (session_.studio.setup.values.options.TrackHide(row))
            song.hidden |= 1U << static_cast<unsigned>(row);
    return song;
}

// A copy: `FindLastColumn` writes its result into the score, where playing reads it.
double StateWatch::songSeconds() {
    const Song now = song();
    if (now == measured_)
        return songSeconds_;
    measured_ = now;
    const auto copy = std::make_unique<Score>(session_.studio.score);
    copy->FindLastColumn(session_.studio.setup.values.options);
    songSeconds_ = now.tempo > 0 ? copy->LastColumn * secondsOfColumn / now.tempo : 0.0;
    return songSeconds_;
}

/// Choosing a row gives it the instrument that the list shows. An opened or cleared score brings
/// its own rows and instruments.
void StateWatch::noticeRow() {
    const Score& score = session_.studio.score;
    const int row = score.CurrentRow;
    const std::array content{score.NoteArray.changes(), session_.studio.saved.opens()};
    const bool isOther = RowOptions::isRow(row) && row != lastRow_ && content == lastContent_;
    const bool hasChanged = isOther && score.RowInstrument[row] != lastInstruments_[row];
    takeStock();
    if (hasChanged && !session_.studio.run.LoadingMain.isSet())
        say(instrumentSentence(row, instrumentName(score.RowInstrument[row]).toStdString()));
}

void StateWatch::takeStock() {
    const Score& score = session_.studio.score;
    lastRow_ = score.CurrentRow;
    lastInstruments_ = score.RowInstrument;
    lastContent_ = {score.NoteArray.changes(), session_.studio.saved.opens()};
}

QString StateWatch::endWords() const {
    const Run& run = session_.studio.run;
    if (run.PlayColumn > session_.studio.score.LastColumn)
        return QStringLiteral("The song has ended.");
    return run.PauseFlag.isSet() ? QStringLiteral("The song pauses.")
                                 : QStringLiteral("The song is stopped.");
}

void StateWatch::noticePlaying() {
    const Run& run = session_.studio.run;
    const bool isPlaying = run.IsPlaying.isSet();
    if (std::exchange(wasPlaying_, isPlaying) == isPlaying)
        return;
    announceStatus(line_, isPlaying ? QStringLiteral("The song plays.") : endWords());
    if (onPlayingChanged)
        onPlayingChanged();
}

void StateWatch::noticeRecording() {
    const bool isRecording = session_.studio.run.RecordingFlag.isSet();
    if (isRecording == seconds_.isActive())
        return;
    if (isRecording) {
        sinceRecording_.start();
        seconds_.start(recordingMs);
    } else {
        seconds_.stop();
    }
}

} // namespace velorin
