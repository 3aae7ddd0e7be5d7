// Writes keys into the score step by step, at the position marker.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace velorin {

class NoteSounding;
struct Studio;

/// The cells of the music tableau that the user sees whole. Lines count from the top of the
/// tableau.
struct SeenCells {
    int columns = 0;
    int firstLine = 0; ///< below the percussion strip
    int lastLine = 0;  ///< included
};

/// The hand that writes. It does what the mouse does: the main window implements it with the mouse
/// handlers of the tableaux.
class StepPen {
public:
    virtual ~StepPen() = default;

    /// False while a press on a tableau would not arrive: they are locked, a mouse button is held,
    /// or a dialog or a menu is open.
    [[nodiscard]] virtual bool isReady() const = 0;
    [[nodiscard]] virtual bool isStripShown() const = 0; ///< the percussion strip
    [[nodiscard]] virtual SeenCells seen() const = 0;

    // Press the left button in a cell, move to the last column, and release. Columns and lines
    // count from the edge of the view.
    virtual void drawNote(int line, int column, int lastColumn) = 0;
    virtual void drawBeat(int line, int column) = 0; ///< on the strip, one column
};

/// What came of a step.
enum class StepResult {
    done,
    incomplete, ///< written, but not all keys of the chord
    playing,    ///< the song plays, so nothing can be drawn
    notDrawing, ///< `EditMode` selects
    busy,       ///< `StepPen::isReady` is false
    atEnd,      ///< the step would end after the last column
    atStart,    ///< there is no column before the marker
    tooNarrow,  ///< the window shows fewer columns than the step has
    noDrum,     ///< no percussion sound was chosen yet
    noStrip,    ///< the strip is hidden
};

/// A chord goes to several rows, since a row holds one note in a column: the highest key to the
/// current row, the others to the next music rows that are free there, all with the instrument of
/// the current row. On a percussion row, a chord is one beat of one column.
///
/// `StartColumn` is where the next step is written. Nothing sounds: the keys were heard when they
/// were pressed. A step that cannot be written changes nothing. User-interface thread only.
class StepEntry {
public:
    static constexpr int longestStep = 8;

    /// All outlive this.
    StepEntry(Studio& studio, NoteSounding& sounding, StepPen& pen)
        : studio_(studio), sounding_(sounding), pen_(pen) {}

    /// Columns of a step, [1, 8]; any other number is ignored.
    void setLength(int columns);
    [[nodiscard]] int length() const { return length_; }

    /// Writes MIDI keys [0, 127], the highest first, and steps on. May yield, for scrolling: do not
    /// call it again before it returns.
    [[nodiscard]] StepResult write(const std::vector<int>& keys);
    [[nodiscard]] StepResult rest();     ///< steps on and writes nothing. May yield too.
    [[nodiscard]] StepResult stepBack(); ///< moves the marker back. May yield too.
    /// Sets the marker as a press in marker mode does, and brings the column into view. May yield.
    void setMarker(int column);

    /// Keys of the last chord that were not written: no row was free.
    [[nodiscard]] int unwritten() const { return unwritten_; }

private:
    [[nodiscard]] StepResult check() const;
    [[nodiscard]] StepResult checkRow(int columns) const;
    [[nodiscard]] bool isInView(int column, int last) const;
    void bringIntoView(int column, int last);
    void bringPitchesIntoView(int top, int bottom);
    [[nodiscard]] std::vector<int> freeRows(int column, int last);
    [[nodiscard]] bool isFree(int row, int column, int last);
    void writeChord(const std::vector<int>& keys, int column, int last);
    void writeOn(int row, int pitch, int column, int last);
    void drawNote(int pitch, int column, int last);

    Studio& studio_;
    NoteSounding& sounding_;
    StepPen& pen_;
    int length_ = 1;
    int unwritten_ = 0;
};

} // namespace velorin
