// Step entry in the whole program: keys, tableaux, history, marker, and what is said.
#include "program/StepKeyboard.h"

#include "program/Program.h"
#include "support/GridText.h"
#include "support/ScriptedMidiIn.h"
#include "support/ScriptedPlatform.h"
#include "windows/main/Form1.h"
#include "windows/strip/StateLine.h"
#include "windows/strip/StateWatch.h"
#include "windows/strip/StripTools.h"
#include "windows/texts/ButtonNumbers.h"

#include <gtest/gtest.h>

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QMenu>
#include <QMouseEvent>
#include <QShortcut>
#include <QTest>

#include <memory>

using namespace velorin;

namespace {

struct StepKeyboardTest : testing::Test {
    StepKeyboardTest() {
        host.platform.midiIn = &input;
        program = std::make_unique<Program>(host.platform);
        program->start();
        form = &program->form1();
        form->resize(1280, 700);
        form->show();
    }
    ~StepKeyboardTest() override { program->Command3_Click(); }
    StepKeyboardTest(const StepKeyboardTest&) = delete;
    StepKeyboardTest& operator=(const StepKeyboardTest&) = delete;

    void type(const char* keys) const {
        for (QShortcut* shortcut : form->findChildren<QShortcut*>())
            if (shortcut->key() == QKeySequence(QLatin1String(keys)))
                shortcut->activated();
    }
    void switchOn() const {
        type("Ctrl+K");
        type("Ctrl+Shift+K");
    }
    void down(int key) const { input.onMessage({0, 0x90, static_cast<std::uint8_t>(key), 100}); }
    void up(int key) const { input.onMessage({0, 0x80, static_cast<std::uint8_t>(key), 0}); }
    void play(int key) const {
        down(key);
        up(key);
    }
    void pedal() const {
        input.onMessage({0, 0xB0, 64, 127});
        input.onMessage({0, 0xB0, 64, 0});
    }
    void click(int column, int line, Qt::MouseButton button = Qt::LeftButton) const {
        QWidget& box = *form->area->MusicBox;
        const QPointF place(column * 12 + 6, line * 12 + 6);
        for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QMouseEvent event(type, place, box.mapToGlobal(place), button,
                              type == QEvent::MouseButtonPress ? button : Qt::NoButton,
                              Qt::NoModifier);
            QCoreApplication::sendEvent(&box, &event);
        }
    }
    static void sleep() { Q_EMIT QAbstractEventDispatcher::instance()->aboutToBlock(); }

    [[nodiscard]] Score& score() const { return program->studio().score; }
    [[nodiscard]] std::string notes(int row, int a, int b) const {
        return scripted::gridText(score().NoteArray, row, a, b);
    }
    [[nodiscard]] std::string hint() const { return program->shortHint.text(); }

    scripted::ScriptedPlatform host;
    scripted::ScriptedMidiIn input;
    std::unique_ptr<Program> program;
    Form1* form = nullptr;
};

TEST_F(StepKeyboardTest, NeedsAKeyboardThatIsOn) {
    type("Ctrl+Shift+K");
    EXPECT_EQ(hint(), "Step entry needs a MIDI keyboard. Press Ctrl+K to switch it on.");
    type("Alt+Left");
    EXPECT_EQ(hint(), "Step entry is off. Press Ctrl+Shift+K to switch it on.");
    switchOn();
    EXPECT_EQ(hint(), "Step entry is on: a key or a chord writes 1 column from column 1 on. The "
                      "sustain pedal makes a rest. Ctrl+1 to Ctrl+8 choose the length.");
    play(67);
    type("Ctrl+K");
    type("Ctrl+K");
    play(67);
    EXPECT_EQ(notes(0, 0, 2), "60 . .") << "a keyboard that is switched on again writes nothing";
}

TEST_F(StepKeyboardTest, KeysWithoutStepEntryWriteNothing) {
    type("Ctrl+K");
    play(67);
    pedal();
    EXPECT_EQ(notes(0, 0, 1), ". .");
    type("Ctrl+Shift+K");
    down(67);
    type("Ctrl+Shift+K");
    up(67);
    EXPECT_EQ(notes(0, 0, 1), ". .");
    EXPECT_EQ(hint(), "Step entry is off. The keys sound and write nothing.");
}

TEST_F(StepKeyboardTest, ATuneWithAChordAndARest) {
    switchOn();
    type("Ctrl+2");
    EXPECT_EQ(hint(), "Step entry writes 2 columns for each key or chord.");
    play(67);
    pedal();
    down(60);
    down(67);
    down(64);
    up(60);
    up(64);
    up(67);
    type("Ctrl+1");
    play(65);
    EXPECT_EQ(notes(0, 0, 7), "60 1060 . . 60 1060 62 .");
    EXPECT_EQ(notes(1, 0, 7), ". . . . 63 1063 . .");
    EXPECT_EQ(notes(2, 0, 7), ". . . . 67 1067 . .");
    EXPECT_EQ(score().StartColumn, 7);
}

TEST_F(StepKeyboardTest, WhatIsHeardIsWhatTheKeysPlay) {
    switchOn();
    type("Ctrl+4");
    host.midi.log.clear();
    down(60);
    down(64);
    up(60);
    up(64);
    const std::vector<std::string> program_{"0.000 B0 00 00", "0.000 B0 20 00", "0.000 C0 18"};
    std::vector<std::string> expected = program_;
    expected.emplace_back("0.000 90 3C 7F");
    expected.insert(expected.end(), program_.begin(), program_.end());
    for (const char* const message : {"0.000 90 40 7F", "0.000 80 3C 00", "0.000 80 40 00"})
        expected.emplace_back(message);
    for (std::string& line : expected)
        line.replace(0, 5, host.time.stamp());
    EXPECT_EQ(host.midi.log, expected) << "the notes are not heard again when they are written";
}

TEST_F(StepKeyboardTest, TwoHundredNotesAreAllWrittenInTwoHundredSteps) {
    switchOn();
    type("Ctrl+4");
    for (int i = 0; i < 200; ++i)
        play(40 + i * 7 % 60); // without a rest of the message loop
    for (int i = 0; i < 200; ++i)
        ASSERT_EQ(score().NoteArray.at(0, 4 * i), 127 - (40 + i * 7 % 60)) << i;
    EXPECT_EQ(score().StartColumn, 800);
    for (int i = 199; i >= 0; --i) {
        type("Ctrl+Z");
        ASSERT_EQ(score().StartColumn, 4 * i);
        ASSERT_EQ(score().NoteArray.at(0, 4 * i), -1);
    }
    EXPECT_EQ(notes(0, 0, 3), ". . . .");
}

TEST_F(StepKeyboardTest, AChordIsOneChangeAndTheMarkerGoesBackAndForthWithIt) {
    switchOn();
    down(60);
    sleep();
    down(64);
    sleep();
    up(60);
    up(64);
    pedal();
    EXPECT_EQ(score().StartColumn, 2);
    type("Ctrl+Z");
    EXPECT_EQ(notes(0, 0, 0) + notes(1, 0, 0), "..");
    EXPECT_EQ(score().StartColumn, 0);
    type("Ctrl+Y");
    EXPECT_EQ(notes(0, 0, 0) + " " + notes(1, 0, 0), "63 67");
    EXPECT_EQ(score().StartColumn, 2) << "where the rest had left it";
}

TEST_F(StepKeyboardTest, TheMouseMayCorrectANoteAndTheNextStepGoesOn) {
    switchOn();
    for (int i = 0; i < 6; ++i)
        play(60);
    click(2, 8);
    EXPECT_EQ(notes(0, 1, 3), "67 " + std::to_string(program->studio().view.TopPitch + 8) + " 67");
    EXPECT_EQ(score().StartColumn, 6);
    click(3, 8, Qt::RightButton);
    EXPECT_EQ(score().StartColumn, 6);
    play(72);
    EXPECT_EQ(notes(0, 5, 7), "67 55 .");
    form->Cmd2_Click(mainButton::rewind);
    play(72);
    EXPECT_EQ(notes(0, 0, 0), "55") << "Return to Start is the user's choice";
    type("Ctrl+Shift+K");
    click(9, 8);
    EXPECT_EQ(score().StartColumn, 0);
}

TEST_F(StepKeyboardTest, TheMarkerComesBackAfterTheSong) {
    switchOn();
    for (int i = 0; i < 4; ++i)
        play(60);
    host.time.plan(300'000'000, [this] {
        sleep();
        play(60);
        EXPECT_EQ(hint(), "While the song plays, the keys sound and write nothing.");
        program->shortHint.hide();
        play(60);
        EXPECT_EQ(hint(), "") << "once is enough";
    });
    form->Cmd2_Click(mainButton::play);
    EXPECT_EQ(score().StartColumn, 0);
    sleep();
    EXPECT_EQ(score().StartColumn, 4);
    play(64);
    EXPECT_EQ(notes(0, 3, 5), "67 63 .");
}

TEST_F(StepKeyboardTest, WhatCannotBeWrittenIsSaid) {
    switchOn();
    program->studio().run.EditMode = editMode::select;
    play(60);
    EXPECT_EQ(hint(), "Not written: press F2 to draw.");
    program->studio().run.EditMode = editMode::draw;
    score().StartColumn = 1000;
    play(60);
    EXPECT_EQ(hint(), "Not written: the tableau ends with column 1000. The key only sounds.");
    score().StartColumn = 10;
    QMenu menu;
    menu.addAction("An entry");
    menu.popup(QPoint(0, 0));
    play(60);
    EXPECT_EQ(hint(),
              "Not written: close the open dialog or menu first, and release the mouse button.");
    menu.close();
    EXPECT_EQ(notes(0, 9, 11), ". . .");
    EXPECT_EQ(score().StartColumn, 10);
    for (int row = 1; row < 8; ++row)
        score().NoteArray.write(row, 10, 60);
    down(60);
    down(64);
    down(67);
    up(60);
    EXPECT_EQ(hint(), "2 notes of the chord are not written: no other channel is free here.");
    EXPECT_EQ(notes(0, 10, 10), "60");
}

TEST_F(StepKeyboardTest, TheMarkerMovesByKeysToo) {
    switchOn();
    type("Ctrl+3");
    type("Alt+Right");
    EXPECT_EQ(score().StartColumn, 3);
    type("Alt+Left");
    EXPECT_EQ(score().StartColumn, 0);
    type("Alt+Left");
    EXPECT_EQ(hint(), "The marker is in column 1 already.");
}

// Scrolling yields, so a key may be released while the marker moves.
TEST_F(StepKeyboardTest, AKeyThatComesWhileTheViewScrollsIsWrittenAfterwards) {
    switchOn();
    score().StartColumn = 500;
    down(60);
    host.time.plan(0, [this] { up(60); });
    type("Alt+Left");
    EXPECT_EQ(score().StartColumn, 500);
    EXPECT_EQ(notes(0, 498, 501), ". 67 . .");
}

TEST_F(StepKeyboardTest, OnAHiddenChannelTheLineOfStateSaysSo) {
    switchOn();
    program->studio().setup.setTrackHide(0, true);
    play(60);
    EXPECT_EQ(notes(0, 0, 1), "67 .") << "as by the mouse";
    EXPECT_EQ(form->strip->line->state().sentence,
              "Channel 1 is hidden, so what you draw is not shown. Show it in the Setup Toolbar.");
}

TEST_F(StepKeyboardTest, TheLineOfStateNamesTheStepsAndTheLengthIsRemembered) {
    const auto words = [this] { return stateWords(form->strip->line->state()).second; };
    sleep();
    EXPECT_EQ(words().last(), "Draw");
    switchOn();
    EXPECT_TRUE(QTest::qWaitFor([&words] { return words().last() == "Steps of 1 column"; }));
    type("Ctrl+6");
    EXPECT_TRUE(QTest::qWaitFor([&words] { return words().last() == "Steps of 6 columns"; }));
    type("Ctrl+Shift+K");
    EXPECT_EQ(host.settings.find("Settings", "Step entry columns"), "6");
    type("Ctrl+8");
    EXPECT_EQ(hint(), "Step entry writes 8 columns for each key or chord. It is off: Ctrl+Shift+K "
                      "switches it on.");
}

TEST_F(StepKeyboardTest, AKeyboardThatIsUnpluggedLeavesNoChord) {
    switchOn();
    down(60);
    input.names.clear();
    program->keyboard.check();
    input.names = {"Keys"};
    program->keyboard.check();
    play(64);
    EXPECT_EQ(notes(0, 0, 1) + notes(1, 0, 0), "63 ..") << "step entry is still on";
}

TEST_F(StepKeyboardTest, TheFocusStaysWhereItIs) {
    QWidget& setup = *program->window("Form3", true);
    setup.show();
    setup.activateWindow();
    QWidget& box = *setup.findChild<QWidget*>("vol(0)");
    box.setFocus();
    switchOn();
    play(60);
    EXPECT_TRUE(setup.focusWidget() == &box);
    EXPECT_NE(form->focusWidget(), form->area->MusicBox);
    EXPECT_EQ(notes(0, 0, 0), "67");
}

} // namespace
