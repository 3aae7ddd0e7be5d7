// `Form2`, the Editing Toolbar: load, unload, modes and handlers.
#include "windows/editing/Form2.h"

#include "platform/Settings.h"
#include "platform/Text.h"
#include "session/Session.h"
#include "windows/editing/EditingToolbar.h"
#include "windows/frame/SettingValues.h"
#include "windows/frame/ToolWindows.h"
#include "windows/texts/ButtonNumbers.h"
#include "windows/texts/DescribedControls.h"
#include "windows/texts/ScreenReader.h"

namespace velorin {

namespace {

constexpr ToolFrame::Face face{"Form2", "Editing Toolbar", "main-10-editing.svg", QSize(692, 122)};

std::string textOf(const QLineEdit& box) {
    return box.text().toStdString();
}

} // namespace

Form2::Form2(EditingToolbar& owner, Session& session, ToolWindows& windows)
    : ToolFrame(face, windows.frames),
      owner_(owner),
      session_(session),
      studio_(session.studio),
      windows_(windows) {
    makeButtons();
    makeLowerHalf();
    describeControls(*this, face.name);
    connectHandlers();
}

void Form2::connectHandlers() {
    onClose = [this] { imgTitleClose_Click(); };
    onActivate = [this] { Form_Activate(); };
    for (int index = 1; index <= editButton::last; ++index) {
        connectButton(index);
    }
    windows_.noteMade(*this);
    connect(Text3, &QLineEdit::textChanged, this, &Form2::Text3_Change);
    connect(Text4, &QLineEdit::textChanged, this, &Form2::Text4_Change);
    connect(Text5, &QLineEdit::textChanged, this, &Form2::Text5_Change);
    connect(VScroll2, &QScrollBar::valueChanged, this, &Form2::VScroll2_Change);
    connect(VScroll3, &QScrollBar::valueChanged, this, &Form2::VScroll3_Change);
    connect(VScroll4, &QScrollBar::valueChanged, this, &Form2::VScroll4_Change);
    connect(chkgraphics, &QCheckBox::toggled, this, &Form2::chkgraphics_Click);
    connect(loopcheck, &QCheckBox::toggled, this, &Form2::loopcheck_Click);
}

void Form2::connectButton(int index) {
    PictureButton* const button = Cmd2[index];
    button->onMouseMove = [this, index](int) {
        if (!isCmd2Visible(index)) {
            ImgPic_MouseMove(index);
        }
    };
    connect(button, &PictureButton::clicked, this, [this, index] {
        Cmd2_Click(index);
        Cmd2_MouseUp(index);
    });
}

void Form2::Form_Load() {
    placeWindow();
    studio_.run.Form2Open = flagSet;
    EditToolbarMode = 1;
    platform::Settings& settings = studio_.platform.settings;
    const auto position =
        settingBoolean(settings.GetSetting(settingsSection, "Playing position", settingText(true)));
    if (position) {
        studio_.run.ShowNotePosition = toFlag(*position);
    }
    showPosition();
    showLoop();
    // Repeat comes first because it limits Beats; otherwise a saved pair would not come back.
    //
    // Rule: a saved Beats above Repeat becomes Repeat. Held by editing/toolbar_settings.
    const auto load = [&settings](QLineEdit& box, const char* key, const char* fallback) {
        box.setText(QString::fromStdString(settings.GetSetting(settingsSection, key, fallback)));
    };
    load(*Text4, "Repeat", "12");
    load(*Text5, "Beats", "12");
    load(*Text3, "Notes", "60");
    load(*Text1, "Spaces", "1");
    // Writes the copies also of boxes whose text did not change.
    Text3_Change();
    Text4_Change();
    Text5_Change();
    showMode();
    frame.SkinToolWindow();
    SetTopMost(*this, true);
}

void Form2::placeWindow() {
    const platform::SizePx screen = studio_.platform.desktop.screenSize();
    placeFrom(studio_.platform.settings, "form2", middleTwips(screen.width, width()) + 200.0F,
              endTwips(screen.height, height(), 700.0F), studio_.platform.desktop);
}

// Rule: closing the toolbar in select mode sets the tableaux back to draw mode. Held by
// editing/editing_toolbar.
void Form2::Form_QueryUnload() {
    studio_.desk->FunctionBut_Click(editMode::draw);
}

void Form2::Form_Unload() {
    platform::Settings& settings = studio_.platform.settings;
    const auto save = [&settings](const char* key, const std::string& value) {
        settings.SaveSetting(settingsSection, key, value);
    };
    studio_.run.Form2Open = flagClear;
    savePlace(settings, "form2");
    save("Playing position", settingText(studio_.run.ShowNotePosition.isSet()));
    save("Beats", textOf(*Text5));
    save("Repeat", textOf(*Text4));
    save("Notes", textOf(*Text3));
    save("Spaces", textOf(*Text1));
}

void Form2::Form_Activate() {
    windows_.noteActive(Tool::editing);
}

void Form2::Cmd2_Click(int index) {
    Run& run = studio_.run;
    switch (index) {
    case editButton::newScore:
        return session_.commands.mNew_Click();
    case editButton::open:
        windows_.HideToolbars();
        session_.files.Command33_Click();
        return windows_.ShowToolbars();
    case editButton::save:
        windows_.HideToolbars();
        session_.files.mSaveAs_Click();
        return windows_.ShowToolbars();
    case editButton::play:
        return session_.sequencer.PlayAndStop_Click(0);
    case editButton::playSelection:
        run.IsPlaying = flagSet;
        session_.sequencer.PlaySelection();
        run.IsPlaying = flagClear;
        return;
    case editButton::pause:
        run.PauseFlag = flagSet;
        return;
    case editButton::stop:
        return session_.sequencer.PlayAndStop_Click(1);
    case editButton::rewind:
        return session_.sequencer.RewindBut_Click();
    case editButton::position:
        run.ShowNotePosition = toFlag(!run.ShowNotePosition.isSet());
        return showPosition();
    case editButton::loop:
        run.LoopSong = toFlag(!run.LoopSong.isSet());
        return showLoop();
    case editButton::mode:
        return toggleMode();
    case editButton::copy:
        return session_.edits.copyIt();
    case editButton::cut:
        return session_.edits.CutBut_Click();
    case editButton::paste:
        return session_.edits.PasteBut_Click();
    case editButton::pasteInto:
        return session_.edits.PasteIntoBut_Click();
    case editButton::insert:
        return session_.edits.InsertColumnBut_Click();
    case editButton::duplicate:
        return duplicate();
    default:
        return;
    }
}

void Form2::duplicate() {
    session_.duplicate.CopyNotes(Check2->isChecked() ? 0 : 8, Check1->isChecked() ? 12 : 7);
}

void Form2::toggleMode() {
    EditToolbarMode = EditToolbarMode == 1 ? 0 : 1;
    showMode();
    studio_.desk->FunctionBut_Click(EditToolbarMode == 1 ? editMode::draw : editMode::select);
}

void Form2::showMode() {
    const bool selecting = EditToolbarMode == 0;
    Cmd2[editButton::mode]->setPicture(selecting ? "edit-11-mode-select" : "edit-11-mode-draw");
    announceChecked(*Cmd2[editButton::mode], selecting);
    for (int index = editButton::copy; index <= editButton::last; ++index) {
        Cmd2[index]->setEnabled(selecting);
    }
    Text1->setEnabled(selecting);
    Picture2->setEnabled(selecting);
}

void Form2::showPosition() {
    Cmd2[editButton::position]->setPicture(
        studio_.run.ShowNotePosition.isSet() ? "edit-09-position-on" : "edit-09-position-off");
    announceChecked(*Cmd2[editButton::position], studio_.run.ShowNotePosition.isSet());
}

void Form2::showLoop() {
    Cmd2[editButton::loop]->setPicture(studio_.run.LoopSong.isSet() ? "edit-10-loop-on"
                                                                    : "edit-10-loop-off");
    announceChecked(*Cmd2[editButton::loop], studio_.run.LoopSong.isSet());
}

void Form2::Text3_Change() {
    studio_.desk->setText(MainText::Text3, textOf(*Text3));
}

void Form2::Text4_Change() {
    studio_.desk->setText(MainText::Text4, textOf(*Text4));
    keepBeatsWithinRepeat();
}

void Form2::Text5_Change() {
    studio_.desk->setText(MainText::Text5, textOf(*Text5));
    keepBeatsWithinRepeat();
}

void Form2::keepBeatsWithinRepeat() {
    if (platform::Val(textOf(*Text4)) < platform::Val(textOf(*Text5))) {
        Text5->setText(Text4->text());
    }
}

void Form2::VScroll2_Change() {
    Text3->setText(QString::number(VScroll2->value()));
}

void Form2::VScroll3_Change() {
    Text5->setText(QString::number(VScroll3->value()));
}

void Form2::VScroll4_Change() {
    Text4->setText(QString::number(VScroll4->value()));
}

// Rule: these two boxes set the flags, but the buttons 9 and 10 do not change the boxes. Held by
// editing/buttons.
void Form2::chkgraphics_Click() {
    studio_.run.ShowNotePosition = toFlag(chkgraphics->isChecked());
}

void Form2::loopcheck_Click() {
    studio_.run.LoopSong = toFlag(loopcheck->isChecked());
}

void Form2::imgTitleClose_Click() {
    owner_.unload();
}

// A raised button shows while the pointer is on its picture.

void Form2::Cmd2_MouseUp(int index) {
    if (index >= 1 && index <= editButton::last) {
        raised_[index] = false;
    }
}

// Rule: a press on a picture hides all buttons and runs no command. Held by editing/button_faces.
void Form2::ImgPic_MouseDown(int) {
    raised_.fill(false);
}

// Rule: only the buttons beside it go; one further away stays. Held by editing/button_faces.
void Form2::ImgPic_MouseMove(int index) {
    if (index < 1 || index > editButton::last) {
        return;
    }
    raised_[index] = true;
    Cmd2_MouseUp(index - 1);
    Cmd2_MouseUp(index + 1);
}

void Form2::ImgPic_MouseUp(int) {
    raised_.fill(false);
}

void Form2::Form_MouseMove() {
    raised_.fill(false);
}

bool Form2::isCmd2Visible(int index) const {
    return index >= 1 && index <= editButton::last && raised_[index];
}

/// Gets also the moves over children that do not accept them.
void Form2::mouseMoveEvent(QMouseEvent* event) {
    ToolFrame::mouseMoveEvent(event);
    Form_MouseMove();
}

} // namespace velorin
