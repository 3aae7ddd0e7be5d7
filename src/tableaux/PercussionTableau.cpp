// The percussion strip's picture, and what it does when it is shown, hidden or given the focus.
#include "tableaux/PercussionTableau.h"

#include "score/SetupControls.h"
#include "score/Studio.h"
#include "tableaux/CellGrid.h"
#include "tableaux/Picmain.h"

#include <algorithm>
#include <array>

namespace velorin {

namespace {

constexpr Colour blue = rgb(0, 0, 255);

constexpr int lastDrawnRow = 11; ///< row 12 can be edited and sounds, but never shows

/// How far the strip reaches to the left of `MusicBox` once it was shown or hidden by hand: over
/// the note names and a little beyond.
constexpr int namesWidthPx = 47;

/// The last column of the note that is met at `column`; a held cell met there counts as its head.
int lastColumnOfNote(const Studio& studio, int row, int column) {
    int last = column + 1;
    while (last <= studio.view.LastVisibleColumn) {
        const auto cell = studio.score.NoteArray.read(row, last);
        if (!cell || !isHeld(*cell))
            break;
        ++last;
    }
    return last - 1;
}

// A beat below the strip is squeezed onto its last line; one above it stays out of sight.
//
//   line 0   | o=== |
//   line 1   |   o  |      a beat on line 1, and one that belongs on line 7
//            '------'
void drawBeat(Picture& picture, const View& view, int column, int lastColumn, int pitch,
              Colour colour) {
    const int x = (column - view.FirstColumn) * cellPx;
    const int end = x + (lastColumn - column) * cellPx;
    const int y = std::min((pitch - view.TopPitch) * cellPx, picture.ScaleHeight() - cellPx);
    picture.fillBox(x + 2, y + 4, end + 11, y + 7, colour);
    picture.noteHead(x, y, colour);
}

void drawRow(Picture& picture, const Studio& studio, int row, Colour colour) {
    const View& view = studio.view;
    for (int column = view.FirstColumn; column <= view.LastVisibleColumn; ++column) {
        const auto cell = studio.score.NoteArray.read(row, column);
        if (!cell)
            return;
        if (isEmpty(*cell))
            continue;
        const int last = lastColumnOfNote(studio, row, column);
        drawBeat(picture, view, column, last, pitchOf(*cell), colour);
        column = last;
    }
}

} // namespace

// The strip shows neither the selection nor the position marker. What they leave is the fill state,
// in which the next press draws its head.
void PercussionTableau::DrawBeatArray() {
    const Score& score = studio_.score;
    const View& view = studio_.view;
    Picture& picture = area_.Beatbox->picture;
    picture.Cls();
    drawBarLines(picture, view.FirstColumn);
    Colour colour = 0;
    for (int row = firstPercussionRow; row <= lastDrawnRow; ++row) {
        if (studio_.setup.TrackHide(row))
            continue;
        colour = view.ChannelColor[static_cast<std::size_t>(row)];
        drawRow(picture, studio_, row, colour);
    }
    if (score.SelectStart >= 0 && score.SelectStart <= view.LastVisibleColumn &&
        score.SelectEnd >= view.FirstColumn) {
        picture.fillColor = blue;
        picture.fillStyle = FillStyle::transparent;
    }
    if (score.StartColumn >= view.FirstColumn &&
        score.StartColumn <= view.FirstColumn + view.VisibleColumns) {
        picture.fillStyle = FillStyle::diagonalCross;
        picture.fillColor = colour;
    }
}

// Around the mouse.

void PercussionTableau::Beatbox_GotFocus() {
    area_.Beatbox->setToolTip({});
    if (isRowChosen())
        return;
    SetupControls& setup = studio_.setup;
    setup.setTrackSel(firstPercussionRow, true);
    for (int row = 0; row < musicRows; ++row) {
        setup.setTrackSel(row, false);
        setup.setTrackHidePicture(row, false);
    }
    setup.setTrackHidePicture(firstPercussionRow, true);
}

bool PercussionTableau::isRowChosen() const {
    constexpr std::array rows{8, 10, 11, 12};
    return std::ranges::any_of(rows, [this](int row) { return studio_.setup.TrackSel(row); });
}

void PercussionTableau::Beatbox_LostFocus() {
    area_.Beatbox->setToolTip({});
}

// The strip then covers the column of the names too; the next resize takes back the width alone.
void PercussionTableau::Check2_Click() {
    PictureBox& strip = *area_.Beatbox;
    strip.setVisible(strip.isHidden());
    strip.picture.Cls();
    const QRect music = area_.MusicBox->geometry();
    strip.place(music.x() - namesWidthPx, strip.y(), music.width() + namesWidthPx, strip.height());
}

} // namespace velorin
