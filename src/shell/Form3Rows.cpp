// The rows of the Setup Toolbar: which is selected, which are hidden.
#include "controls/ControlTable.h"
#include "score/Studio.h"
#include "shell/Form3.h"
#include "shell/PlacedControls.h"
#include "shell/RowButton.h"
#include "shell/SetupDesk.h"

namespace velorin {

namespace {

std::size_t at(int row) {
    return static_cast<std::size_t>(row);
}

} // namespace

void Form3::TrackSel_Click(int row) {
    desk_.TrackSel_Click(row);
    // The row takes on what its list shows now; the lists do not move to the row's instrument.
    if (isMusicRow(row)) {
        Combo1_Click();
    } else {
        Combo5_Click();
    }
    for (QCheckBox* box : TrackHide) {
        box->setEnabled(true);
    }
    TrackHide[at(row)]->setEnabled(false);
    if (at(row) < studio_.view.RowOpen.size()) {
        studio_.view.RowOpen[at(row)] = TrackSel[at(row)]->isChecked() ? flagSet : flagClear;
    }
}

void Form3::TrackSel_MouseDown(int row) {
    for (int other = 0; other < scoreRows; ++other) {
        if (other != row) {
            TrackSel[at(other)]->setChecked(false);
        }
        setTrackHidePicture(other, false);
    }
    setTrackHidePicture(row, TrackSel[at(row)]->isChecked());
}

void Form3::TrackSel_MouseMove(int row) {
    QString tip = row < musicRows
                      ? QString::fromLatin1(channelTip).arg(row + 1)
                      : QString::fromLatin1(percussionChannelTip).arg(row - firstPercussionRow + 1);
    if (TrackSel[at(row)]->isChecked()) {
        tip += QLatin1String(activeTip);
    }
    TrackSel[at(row)]->setToolTip(tip);
}

void Form3::TrackHide_Click(int row) {
    const bool hidden = TrackHide[at(row)]->isChecked();
    TrackSel[at(row)]->setEnabled(!hidden);
    TrackHide[at(row)]->setProperty("backColor", QColor(hidden ? Qt::black : Qt::white));
    if (hidden) {
        setTrackHidePicture(row, false);
    }
    desk_.DrawNoteArray();
}

void Form3::checkInGroup(int row) {
    for (int other = 0; other < scoreRows; ++other) {
        if (isMusicRow(other) == isMusicRow(row)) {
            TrackSel[at(other)]->setChecked(other == row);
        }
    }
}

void Form3::pressTrackSel(int row) {
    const bool wasSet = TrackSel[at(row)]->isChecked();
    checkInGroup(row);
    TrackSel_MouseDown(row);
    if (!wasSet) {
        TrackSel_Click(row);
    }
}

void Form3::setTrackSel(int row, bool selected) {
    if (TrackSel[at(row)]->isChecked() == selected) {
        return;
    }
    if (!selected) {
        TrackSel[at(row)]->setChecked(false);
        return;
    }
    checkInGroup(row);
    TrackSel_Click(row);
}

void Form3::setTrackHidePicture(int row, bool active) {
    setStyled(*TrackHide[at(row)], "active", active);
}

bool Form3::hasTrackHidePicture(int row) const {
    return TrackHide[at(row)]->property("active").toBool();
}

} // namespace velorin
