// Tells screen readers what the pen meets and does in the tableaux.
#include "windows/reader/TableauReader.h"

#include "session/Session.h"
#include "windows/main/Form1.h"
#include "windows/pen/Pen.h"
#include "windows/reader/StrokeWords.h"
#include "windows/strip/StateLine.h"
#include "windows/strip/StripTools.h"
#include "windows/texts/LengthText.h"
#include "windows/texts/ScreenReader.h"

#include <QAccessible>

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace velorin {

namespace {

constexpr std::array readTableaux{Tableau::music, Tableau::strip, Tableau::lanes};

std::uint64_t changesOf(const Score& score) {
    return score.NoteArray.changes() + score.InstrumentArray.changes() + score.PolyArray.changes();
}

} // namespace

TableauReader::TableauReader(Session& session, Form1& form, Pen& pen)
    : QObject(&form),
      session_(session),
      form_(form),
      pen_(pen),
      sound_(session.studio, session.sounding) {
    const std::array boxes{form.area->MusicBox, form.area->Beatbox, form.area->Pic1};
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        const Tableau tableau = readTableaux[i];
        cells_[i] = new TableauCells(*boxes[i], tableau, session.studio, pen.strokes());
        cells_[i]->cursor = [this, tableau] { return cursorIn(tableau); };
        cells_[i]->cursorWords = [this] { return cursorWords(); };
        cells_[i]->onPress = [this, i](ScreenCell cell) { remember(cells_[i]->spotOf(cell)); };
        cells_[i]->onReleased = [this] { otherReleased(); };
        cells_[i]->onAction = [this, tableau](ScreenCell cell, CellAction action) {
            act(tableau, cell, action);
        };
    }
    pen.onMoved = [this](const Place&, const Place& to) { penMoved(to); };
    pen.onReleased = [this](int, const Place&, const Place& released) { penReleased(released); };
}

TableauReader::~TableauReader() = default;

TableauCells& TableauReader::cellsOf(Tableau tableau) {
    const auto at = std::ranges::find(readTableaux, tableau);
    return *cells_[static_cast<std::size_t>(at - readTableaux.begin()) % cells_.size()];
}

Spot TableauReader::spotOf(const Place& place) {
    return cellsOf(place.tableau).spotOf({place.line, place.column});
}

SpotContent TableauReader::contentAt(const Spot& spot) {
    return contentOf(session_.studio, spot, cellsOf(spot.tableau).rows());
}

QString TableauReader::fullWords(const Spot& spot) {
    return QString::fromStdString(placeWords(spot, contentAt(spot)));
}

std::optional<ScreenCell> TableauReader::cursorIn(Tableau tableau) const {
    const Place place = pen_.place();
    if (!pen_.isShown() || place.tableau != tableau)
        return std::nullopt;
    return ScreenCell{place.line, place.column};
}

/// The words are old when the view has scrolled below the pen, or the score has changed.
QString TableauReader::cursorWords() {
    const bool isCurrent =
        spot_ == spotOf(pen_.place()) && changes_ == changesOf(session_.studio.score);
    return isCurrent ? said_ : QString();
}

void TableauReader::penMoved(const Place& to) {
    const Spot spot = spotOf(to);
    const SpotContent content = contentAt(spot);
    const std::string words = spot_ ? movedWords(*spot_, spot, content) : placeWords(spot, content);
    spot_ = spot;
    say(QString::fromStdString(words), true);
    if (!pen_.isHeld())
        sound_.meet(spot, content);
}

/// The notes of a chord from a MIDI keyboard are several presses; they are told together.
void TableauReader::remember(const Spot& pressed) {
    sound_.stop();
    if (before_ || !isHeard())
        return;
    before_ = std::make_unique<Score>(session_.studio.score);
    pressed_ = pressed;
}

/// A press that did nothing has its reason in the line of state, which was read out already.
QString TableauReader::strokeDone() {
    const std::unique_ptr<Score> before = std::exchange(before_, nullptr);
    if (!before)
        return {};
    const QString did =
        QString::fromStdString(strokeWords(*before, session_.studio.score, pressed_));
    const QString& hint = form_.strip->line->state().sentence;
    if (did.isEmpty())
        return hint.isEmpty() ? QStringLiteral("Nothing has changed.") : QString();
    return hint.isEmpty() ? did : did + QLatin1Char(' ') + hint;
}

void TableauReader::penReleased(const Place& released) {
    const QString did = strokeDone();
    spot_ = spotOf(released);
    if (did.isEmpty())
        return;
    say(did, false);
    announce(did);
}

/// Of the mouse or of a MIDI keyboard.
void TableauReader::otherReleased() {
    if (before_ && !pen_.strokes().isHeld())
        announce(strokeDone());
}

void TableauReader::say(const QString& words, bool hasMoved) {
    said_ = words;
    changes_ = changesOf(session_.studio.score);
    cellsOf(pen_.place().tableau).reportCursor(hasMoved);
}

void TableauReader::announce(const QString& words) {
    if (words.isEmpty())
        return;
    announceStatus(*form_.strip->line, words);
}

void TableauReader::act(Tableau tableau, ScreenCell cell, CellAction action) {
    constexpr int left = 1;
    constexpr int right = 2;
    if (action != CellAction::release && pen_.isHeld())
        pen_.release();
    if (!moveTo({tableau, cell.column, cell.row}))
        return;
    switch (action) {
    case CellAction::go:
        break;
    case CellAction::press:
    case CellAction::hold:
        press(left, action == CellAction::press);
        break;
    case CellAction::pressRight:
    case CellAction::holdRight:
        press(right, action == CellAction::pressRight);
        break;
    case CellAction::release:
        pen_.release();
        break;
    }
}

/// False if the pen is not there then: the tableau is locked, or another one has the held pen. A
/// held pen goes through all columns on the way, as a mouse does: in the lanes each of them counts.
bool TableauReader::moveTo(const Place& target) {
    while (pen_.isHeld() && pen_.place().tableau == target.tableau &&
           std::abs(target.column - pen_.place().column) > 1) {
        Place next = pen_.place();
        next.column += target.column > next.column ? 1 : -1;
        if (!pen_.moveTo(next))
            return false;
    }
    return pen_.moveTo(target);
}

void TableauReader::press(int button, bool thenReleases) {
    pen_.press(button);
    if (thenReleases)
        pen_.release();
}

void TableauReader::toggleSound() {
    sound_.toggle();
    if (onLine)
        onLine(sound_.isOn() ? "The pen sounds the notes that it meets. Ctrl+L makes it silent."
                             : "The pen is silent.");
}

QString TableauReader::playingWords() const {
    const Run& run = session_.studio.run;
    const StripState& state = form_.strip->line->state();
    return QStringLiteral("The song plays: %1. %2 of %3.")
        .arg(QString::fromStdString(columnWords(run.PlayColumn)), lengthText(state.playedSeconds),
             lengthText(state.lengthSeconds));
}

void TableauReader::sayWhere() {
    if (session_.studio.run.IsPlaying.isSet())
        return announce(playingWords());
    if (!pen_.isShown())
        return announce(readerWords(form_.strip->line->state()));
    spot_ = spotOf(pen_.place());
    say(fullWords(*spot_), true);
    announce(said_);
}

} // namespace velorin
