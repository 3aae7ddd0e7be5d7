// `Form2`, the Editing Toolbar: its load, its end, its modes and its handlers.
#include "editing/Form2.h"

#include "controls/DescribedControls.h"
#include "controls/ScreenReader.h"
#include "editing/EditCommands.h"
#include "editing/EditingToolbar.h"
#include "platform/Settings.h"
#include "platform/Text.h"
#include "score/Studio.h"
#include "shell/SettingValues.h"
#include "shell/ToolDesk.h"

namespace velorin {

namespace {

constexpr ToolFrame::Face face{"Form2", "Editing Toolbar", "main-10-editing.svg", QSize(692, 122)};
constexpr int firstSelectButton = 12; ///< this button and those behind it are dead in draw mode

std::string textOf(const QLineEdit& box) {
    return box.text().toStdString();
}

} // namespace

Form2::Form2(EditingToolbar& owner, Studio& studio, EditCommands& commands, ToolDesk& desk)
    : ToolFrame(face, desk.frames()),
      owner_(owner),
      studio_(studio),
      commands_(commands),
      desk_(desk) {
    makeButtons();
    makeLowerHalf();
    describeControls(*this, face.name);
    connectHandlers();
}

void Form2::connectHandlers() {
    onClose = [this] { imgTitleClose_Click(); };
    onActivate = [this] { Form_Activate(); };
    for (int index = 1; index <= editButtons; ++index) {
        connectButton(index);
    }
    desk_.addKeys(*this);
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
    PictureButton* const button = Cmd2[static_cast<std::size_t>(index)];
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
        studio_.run.ShowNotePosition = *position ? flagSet : flagClear;
    }
    showPosition();
    showLoop();
    // Repeat comes before Beats, which it limits: so a pair that was saved comes back.
    const auto load = [&settings](QLineEdit& box, const char* key, const char* fallback) {
        box.setText(QString::fromStdString(settings.GetSetting(settingsSection, key, fallback)));
    };
    load(*Text4, "Repeat", "12");
    load(*Text5, "Beats", "12");
    load(*Text3, "Notes", "60");
    load(*Text1, "Spaces", "1");
    // A box whose text did not change has its copy written all the same.
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

void Form2::Form_QueryUnload() {
    commands_.FunctionBut_Click(editMode::draw);
}

void Form2::Form_Unload() {
    platform::Settings& settings = studio_.platform.settings;
    const auto save = [&settings](const char* key, const std::string& value) {
        settings.SaveSetting(settingsSection, key, value);
    };
    studio_.run.Form2Open = flagClear;
    savePlace(settings, "form2");
    save("Playing position", settingText(studio_.run.ShowNotePosition != flagClear));
    save("Beats", textOf(*Text5));
    save("Repeat", textOf(*Text4));
    save("Notes", textOf(*Text3));
    save("Spaces", textOf(*Text1));
}

void Form2::Form_Activate() {
    desk_.noteActiveToolbar("Form2");
}

void Form2::Cmd2_Click(int index) {
    Run& run = studio_.run;
    switch (index) {
    case 1:
        return commands_.mNew_Click();
    case 2:
        commands_.HideToolbars();
        commands_.Command33_Click();
        return commands_.ShowToolbars();
    case 3:
        commands_.HideToolbars();
        commands_.mSaveAs_Click();
        return commands_.ShowToolbars();
    case 4:
        return commands_.PlayAndStop_Click(0);
    case 5:
        run.IsPlaying = flagSet;
        commands_.PlaySelection();
        run.IsPlaying = flagClear;
        return;
    case 6:
        run.PauseFlag = flagSet;
        return;
    case 7:
        return commands_.PlayAndStop_Click(1);
    case 8:
        return commands_.RewindBut_Click();
    case 9:
        run.ShowNotePosition = run.ShowNotePosition == flagClear ? flagSet : flagClear;
        return showPosition();
    case 10:
        run.LoopSong = run.LoopSong == flagClear ? flagSet : flagClear;
        return showLoop();
    case 11:
        return toggleMode();
    case 12:
        return commands_.copyIt();
    case 13:
        return commands_.CutBut_Click();
    case 14:
        return commands_.PasteBut_Click();
    case 15:
        return commands_.PasteIntoBut_Click();
    case 16:
        return commands_.InsertColumnBut_Click();
    case 17:
        return duplicate();
    default:
        return;
    }
}

void Form2::duplicate() {
    commands_.CopyNotes(Check2->isChecked() ? 0 : 8, Check1->isChecked() ? 12 : 7);
}

void Form2::toggleMode() {
    EditToolbarMode = EditToolbarMode == 1 ? 0 : 1;
    showMode();
    commands_.FunctionBut_Click(EditToolbarMode == 1 ? editMode::draw : editMode::select);
}

void Form2::showMode() {
    const bool selecting = EditToolbarMode == 0;
    Cmd2[11]->setPicture(selecting ? "edit-11-mode-select" : "edit-11-mode-draw");
    tellReadersChecked(*Cmd2[11], selecting);
    for (int index = firstSelectButton; index <= editButtons; ++index) {
        Cmd2[static_cast<std::size_t>(index)]->setEnabled(selecting);
    }
    Text1->setEnabled(selecting);
    Picture2->setEnabled(selecting);
}

void Form2::showPosition() {
    Cmd2[9]->setPicture(studio_.run.ShowNotePosition != flagClear ? "edit-09-position-on"
                                                                  : "edit-09-position-off");
    tellReadersChecked(*Cmd2[9], studio_.run.ShowNotePosition != flagClear);
}

void Form2::showLoop() {
    Cmd2[10]->setPicture(studio_.run.LoopSong != flagClear ? "edit-10-loop-on"
                                                           : "edit-10-loop-off");
    tellReadersChecked(*Cmd2[10], studio_.run.LoopSong != flagClear);
}

void Form2::Text3_Change() {
    commands_.setText3(textOf(*Text3));
}

void Form2::Text4_Change() {
    commands_.setText4(textOf(*Text4));
    keepBeatsWithinRepeat();
}

void Form2::Text5_Change() {
    commands_.setText5(textOf(*Text5));
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

void Form2::chkgraphics_Click() {
    studio_.run.ShowNotePosition = chkgraphics->isChecked() ? flagSet : flagClear;
}

void Form2::loopcheck_Click() {
    studio_.run.LoopSong = loopcheck->isChecked() ? flagSet : flagClear;
}

void Form2::imgTitleClose_Click() {
    owner_.unload();
}

} // namespace velorin
