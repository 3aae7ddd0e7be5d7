// The percussion strip: drawing, focus, and showing or hiding it.
#include "windows/main/PercussionTableau.h"

#include "drawing/CellGrid.h"
#include "studio/Setup.h"
#include "studio/Studio.h"
#include "windows/main/Picmain.h"

#include <algorithm>
#include <array>

namespace velorin {

namespace {

constexpr Colour blue = rgb(0, 0, 255);

/// Rule: row 12 can be edited and sounds, but is never drawn. Held by tableaux/drawing_pixels.
constexpr int lastDrawnRow = 11;

/// How far `Check2_Click` moves the strip to the left of `MusicBox`: over the note names and a
/// little further.
constexpr int namesWidthPx = 47;

/// The last column of the note at `column`. A held cell there counts as a head.
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

// Rule: a beat below the strip is drawn on its last line; one above it is not visible. Held by
// tableaux/drawing_pixels.
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

// The strip shows neither the selection nor the position marker. They only set the fill state,
// which the head of the next press uses.
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
        colour = view.ChannelColor[row];
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
    Setup& setup = studio_.setup;
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

// Rule: the strip then covers the note names, and the next resize corrects its width only. Held by
// tableaux/percussion_not_chosen.
void PercussionTableau::Check2_Click() {
    PictureBox& strip = *area_.Beatbox;
    strip.setVisible(strip.isHidden());
    strip.picture.Cls();
    const QRect music = area_.MusicBox->geometry();
    strip.place(music.x() - namesWidthPx, strip.y(), music.width() + namesWidthPx, strip.height());
}

} // namespace velorin
