// The pen: draws in the tableaux by keyboard.
#include "windows/pen/Pen.h"

#include "windows/pen/PenRing.h"

#include <QScrollBar>
#include <QWidget>

#include <algorithm>
#include <utility>

namespace velorin {

namespace {

constexpr std::array penTableaux{Tableau::music, Tableau::strip, Tableau::lanes};

/// How far `value` is outside [first, end).
int beyond(int value, int first, int end) {
    return value < first ? value - first : std::max(0, value - (end - 1));
}

// The amount is known before the bar moves: its handler processes pending events, and a key among
// them may move the bar as well.
int scrollBar(QScrollBar& bar, int steps) {
    if (!bar.isEnabled())
        return 0;
    const int to = std::clamp(bar.value() + steps, bar.minimum(), bar.maximum());
    const int moved = to - bar.value();
    bar.setValue(to);
    return moved;
}

} // namespace

Pen::Pen(const PenSheet& sheet)
    : sheet_(sheet), strokes_(sheet), ring_(new PenRing(sheet.music.parentWidget())) {
    for (const Tableau tableau : penTableaux)
        strokes_.box(tableau)->installEventFilter(this);
    sheet_.music.window()->installEventFilter(this);
}

Pen::~Pen() = default;

std::optional<Tableau> Pen::tableauOf(const QObject* box) const {
    for (const Tableau tableau : penTableaux)
        if (strokes_.box(tableau) == box)
            return tableau;
    return std::nullopt;
}

/// In the strip a held mouse may go on below, down to the end of the music tableau.
Reach Pen::reachHeld(Tableau tableau) const {
    Reach reach = strokes_.reach(tableau);
    if (isHeld() && tableau == Tableau::strip) {
        const Reach music = strokes_.reach(Tableau::music);
        reach.endLine = std::max(reach.endLine, music.endLine);
    }
    return reach;
}

/// The last place there, or else the first column in the middle; always within reach.
Place Pen::placeIn(Tableau tableau) const {
    const Reach reach = reachHeld(tableau);
    const Place start{tableau, 0,
                      tableau == Tableau::music ? (reach.firstLine + reach.endLine) / 2 : 0};
    Place place = last_[static_cast<std::size_t>(tableau)].value_or(start);
    if (reach.isEmpty())
        return place;
    place.column = std::clamp(place.column, 0, reach.columns - 1);
    place.line = std::clamp(place.line, reach.firstLine, reach.endLine - 1);
    return place;
}

/// Only the music tableau scrolls by lines: the strip shows every beat on the lines that it has,
/// and there are eight lanes.
void Pen::scrollTo(Place& target, const Reach& reach) {
    const int columns = beyond(target.column, 0, reach.columns);
    const int lines = beyond(target.line, reach.firstLine, reach.endLine);
    if (columns != 0)
        target.column -= scrollBar(sheet_.across, columns);
    if (lines != 0 && target.tableau == Tableau::music)
        target.line -= scrollBar(sheet_.down, lines);
}

bool Pen::moveTo(Place target) {
    QWidget* const box = strokes_.box(target.tableau);
    if (box == nullptr || (isHeld() && target.tableau != place_.tableau))
        return false;
    if (!box->isEnabled()) {
        if (onRefused)
            onRefused();
        return false;
    }
    const Reach reach = reachHeld(target.tableau);
    if (reach.isEmpty())
        return false;
    if (box->window()->focusWidget() != box && onFocusNeeded)
        onFocusNeeded(*box);
    if (!isHeld())
        scrollTo(target, reach);
    const Place asked = target;
    target.column = std::clamp(target.column, 0, reach.columns - 1);
    target.line = std::clamp(target.line, reach.firstLine, reach.endLine - 1);
    const bool wasThere = shown_ == target.tableau;
    const Place from = wasThere ? place_ : target;
    if (!wasThere)
        show(target.tableau);
    place_ = target;
    last_[static_cast<std::size_t>(target.tableau)] = target;
    paint();
    if (isHeld() && from != target)
        strokes_.move(target);
    if (onMoved)
        onMoved(from, target);
    return asked == target;
}

void Pen::show(Tableau tableau) {
    shown_ = tableau;
    left_.reset();
    place_ = placeIn(tableau);
    watchMouse(true);
    paint();
}

void Pen::paint() {
    if (shown_) {
        QRect cells = Strokes::cell(place_);
        if (isHeld())
            cells |= Strokes::cell(pressed_);
        ring_->showRound(*strokes_.box(*shown_), cells, isHeld());
    }
    if (onChanged)
        onChanged();
}

// A menu of the press has taken the release of the key, so the press ends with the menu.
void Pen::press(int button) {
    if (!isShown() || isHeld())
        return;
    pressed_ = place_;
    isPressing_ = true;
    endsAfterPress_ = false;
    strokes_.press(place_, button);
    isPressing_ = false;
    if (endsAfterPress_)
        release();
    else
        paint();
}

void Pen::release() {
    if (!isHeld())
        return;
    const int button = strokes_.heldButton();
    const Place pressed = pressed_;
    const Place released = place_;
    strokes_.release(released);
    fit();
    if (onReleased)
        onReleased(button, pressed, released);
}

void Pen::putAway() {
    left_.reset();
    if (!isShown())
        return;
    release();
    hide();
}

void Pen::hide() {
    shown_.reset();
    watchMouse(false);
    ring_->hide();
    paint();
}

/// After a change of size: the cell may not be within reach any more.
void Pen::fit() {
    if (!isShown())
        return;
    const Place before = place_;
    place_ = placeIn(*shown_);
    last_[static_cast<std::size_t>(*shown_)] = place_;
    paint();
    if (place_ != before && isHeld())
        strokes_.move(place_);
    if (place_ != before && onMoved)
        onMoved(before, place_);
}

void Pen::lostFocus(Tableau tableau, bool isMenu) {
    if (shown_ != tableau)
        return;
    if (isMenu && isPressing_) {
        endsAfterPress_ = true;
        return;
    }
    release();
    left_ = shown_;
    hide();
}

void Pen::gotFocus(Tableau tableau, bool comesBack) {
    if (comesBack && left_ == tableau)
        show(tableau);
    left_.reset();
}

} // namespace velorin
