// Why a click on a tableau did not do what the user expected, in one sentence.
#pragma once

#include "drawing/Tableau.h"

#include <string>

namespace velorin {

/// A press and what it met. Rows [0, 13), columns of the score from 0.
struct Press {
    Tableau where = Tableau::music;
    int button = 0;      ///< 1 left, 2 right, 4 middle
    int editMode = 0;    ///< one of `editMode`
    int rightClick = 0;  ///< one of `rightClick`
    int rowBefore = 0;   ///< the current row before the press
    int rowNow = 0;      ///< the current row after it
    std::string got;     ///< the instrument that the press gave to the row it chose; empty for none
    bool hasDrum = true; ///< a percussion sound was chosen once
    bool isHidden = false;      ///< the current row is hidden
    bool isBelowLowest = false; ///< the line is below the lowest pitch
    bool hasNote = false;       ///< the current row has a note in the column
    int otherRow = -1;          ///< a visible row whose note is under the pointer; -1 for none
    int column = 0;             ///< the column that was pressed
    int markedColumn = 0;       ///< the column that got the mark
    int lane = -1;              ///< the row of the lane; -1 for none
    bool wasMarked = false;     ///< the lane had the mark already
    bool isNoteStart = false;   ///< a note of the lane's row starts in the column
};

/// Empty if the press did what it looks like.
[[nodiscard]] std::string pressSentence(const Press& press);

/// A click on a tableau or a scroll bar while the song plays.
[[nodiscard]] std::string lockedSentence();

/// After a release in select mode in the column of the press.
[[nodiscard]] std::string selectSentence();

/// A row was chosen in the Setup Toolbar and got the instrument that its list shows.
[[nodiscard]] std::string instrumentSentence(int row, const std::string& instrument);

/// The Setup Toolbar was closed while its values were not the defaults.
[[nodiscard]] std::string setupLostSentence();

} // namespace velorin
