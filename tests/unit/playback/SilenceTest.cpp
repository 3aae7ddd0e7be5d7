// Every way in which a song stops, and the notes that it leaves without a note off. A song that
// ends, is stopped or loops leaves only percussion. All other cases are listed here, each with what
// ends its notes.
#include "PlaybackStage.h"
#include "support/NoteLedger.h"

#include <gtest/gtest.h>

#include <random>

namespace velorin {
namespace {

// Pitch index 60 is key 67. Column c is played at (c + 1) * 0.12 s.
struct Silence : testing::Test, PlaybackStage {
    Lines left() {
        ledger.read(host.midi.log);
        return ledger.left();
    }

    void play() { sequencer.PlayAndStop_Click(0); }
    void stop() { sequencer.PlayAndStop_Click(1); }
    void loop() { studio.run.LoopSong = flagSet; }
    void pauseAt(double seconds) {
        at(seconds, [this] { studio.run.PauseFlag = flagSet; });
    }

    scripted::NoteLedger ledger;
};

const Lines none;

TEST_F(Silence, ASongThatEndsLeavesNoNote) {
    write(0, "60 = = 64 64 =");
    write(3, "50 = . 50");
    write(7, ". 30 = = = = =");
    play();
    EXPECT_EQ(left(), none);
    EXPECT_EQ(ledger.begun(), 6);
}

TEST_F(Silence, ARowThatEndsAColumnAfterTheOthersIsEndedWithTheSong) {
    write(0, "60 = =");   // the song's last column is 3
    write(1, ". . . 62"); // starts in it and does not lengthen the song
    play();
    EXPECT_EQ(left(), none);
    EXPECT_EQ(ledger.begun(), 2);
}

TEST_F(Silence, ASongThatIsStoppedWithinItsNotesLeavesNone) {
    write(0, "60 = = = = = =");
    write(5, ". . . 62 = = =");
    at(0.40, [this] { stop(); }); // the next column is still played, and ended after it
    play();
    EXPECT_EQ(left(), none);
    EXPECT_EQ(ledger.begun(), 2);
}

TEST_F(Silence, StrokesOfPercussionAreLeftToEndByThemselves) {
    write(8, "60 . 60", 131);
    write(3, ". 61", 128);
    play();
    EXPECT_EQ(left(), (Lines{"9:35", "9:38 x2"}));
    EXPECT_EQ(ledger.leftMelodic(), none);
}

TEST_F(Silence, ANoteOfVolumeZeroSoundsNothing) {
    setup.options.rows[0].volume = "0";
    write(0, "60 = =");
    pauseAt(0.30);
    play();
    EXPECT_EQ(left(), none);
}

TEST_F(Silence, APauseLeavesWhatSounds) {
    write(0, "60 = = = =");
    write(1, ". 62 = = =");
    write(2, "64 . . . .");
    pauseAt(0.30);
    play();
    EXPECT_EQ(left(), (Lines{"0:67", "1:65"}));
    stop(); // a paused song does not play, so nothing ends them
    EXPECT_EQ(left(), (Lines{"0:67", "1:65"}));
}

TEST_F(Silence, ANoteThatGoesOnAfterAPauseIsEndedWithItsHeldCells) {
    write(0, "60 = = = =");
    pauseAt(0.30);
    play();
    play();
    EXPECT_EQ(left(), none);
}

TEST_F(Silence, ANoteWhoseLastCellWasPlayedBeforeAPauseIsNeverEndedByTheSong) {
    write(0, "60 = . . 64");
    pauseAt(0.30); // the song goes on at column 2, the rest that would end it
    play();
    play();
    EXPECT_EQ(left(), (Lines{"0:67"}));
}

TEST_F(Silence, ARowHiddenWithinANoteLeavesIt) {
    write(0, "60 = = =");
    write(1, "62 = = =");
    at(0.30, [this] { setup.options.rows[0].hidden = true; });
    play();
    EXPECT_EQ(left(), (Lines{"0:67"}));
}

TEST_F(Silence, ARowShownAgainEndsWhatItHadBegun) {
    write(0, "60 = . . . .");
    write(1, "62 = = = = =");
    at(0.30, [this] { setup.options.rows[0].hidden = true; });  // the rest in column 2 is skipped
    at(0.40, [this] { setup.options.rows[0].hidden = false; }); // and column 3 ends the note
    at(0.50, [this] {
        ledger.read(host.midi.log);
        EXPECT_EQ(ledger.left(), (Lines{"1:65"}));
    });
    play();
    EXPECT_EQ(left(), none);
}

TEST_F(Silence, ALoopWithTheMarkerLeavesANoteOfItsLastColumn) {
    write(0, "60 = = =");
    write(1, ". . . . 62"); // the last column: the inner pass does not know this note
    loop();
    at(0.80, [this] { stop(); }); // in the second pass
    play();
    EXPECT_EQ(left(), (Lines{"1:65"}));
}

TEST_F(Silence, ALoopWithTheMarkerEndsWhatItBeginsAgain) {
    write(0, "60 = = =");
    write(1, ". . . . 62");
    loop();
    at(0.80, [this] { studio.run.LoopSong = flagClear; });
    play();
    EXPECT_EQ(left(), none);
    EXPECT_EQ(ledger.begun(), 4);
}

TEST_F(Silence, ALoopWithoutTheMarkerLeavesNone) {
    write(0, "60 = = =");
    write(1, ". . . . 62");
    studio.run.ShowNotePosition = flagClear;
    loop();
    at(0.80, [this] { stop(); });
    play();
    EXPECT_EQ(left(), none);
    EXPECT_EQ(ledger.begun(), 3);
}

struct SilenceOfABlock : Silence {};

TEST_F(SilenceOfABlock, IsCompleteThoughItsNotesGoOnAfterIt) {
    write(0, ". 60 = = = = =");
    playBlock(1, 3);
    EXPECT_EQ(left(), none);
    EXPECT_EQ(ledger.begun(), 1);
}

TEST_F(SilenceOfABlock, LacksANoteThatGoesOnAfterALoop) {
    write(0, ". . 60 = =");
    loop();
    at(0.40, [this] { stop(); }); // in the second pass, before its note
    playBlock(1, 3);
    EXPECT_EQ(left(), (Lines{"0:67"}));
}

TEST_F(Silence, AChordIsEndedAsAWhole) {
    setup.options.rows[0].chord = true;
    write(0, "60 = =");
    at(0.20, [this] { setup.options.rows[0].chord = false; }); // note offs do not depend on the box
    play();
    EXPECT_EQ(left(), none);
    EXPECT_EQ(ledger.begun(), 4);
}

TEST_F(Silence, AChordThatIsChosenWithinAChordLeavesTheNotesThatItDoesNotHave) {
    setup.options.rows[0].chord = true; // 67, 70, 74, 79
    write(0, "60 = =");
    at(0.20, [this] {
        sounding.ChordInterval1 = 4; // 71
        sounding.ChordInterval2 = 7;
        sounding.ChordInterval3 = 11; // 78
    });
    play();
    EXPECT_EQ(left(), (Lines{"0:70", "0:79"}));
}

TEST_F(Silence, AChordCutOffAtTheHighestKeyIsEndedAsFarAsItSounded) {
    setup.options.rows[0].chord = true;
    sounding.ChordInterval1 = -12;
    sounding.ChordInterval2 = 12;
    sounding.ChordInterval3 = 0;
    write(0, "1 ="); // key 126, then 114; 138 cannot be sent
    play();
    EXPECT_EQ(left(), none);
    EXPECT_EQ(ledger.begun(), 2);
}

// The instrument changes before the note off is sent, so it goes to the channel on which percussion
// ends.
TEST_F(Silence, ANoteFollowedAtOnceByAStrokeOnItsRowIsLeft) {
    write(0, "60 =");
    write(0, "62", 130, 2);
    play();
    EXPECT_EQ(left(), (Lines{"0:67", "9:37"}));
}

TEST_F(Silence, AStrokeFollowedAtOnceByANoteOnItsRowLeavesTheStroke) {
    write(0, "60 =", 130);
    write(0, "62", 0, 2);
    play();
    EXPECT_EQ(left(), (Lines{"9:37"}));
}

TEST_F(Silence, ARowThatTheUserMakesPercussionLeavesItsNote) {
    write(0, "60 = = =");
    at(0.30, [this] { sounding.ChangeInstrument(130, 0); });
    play();
    EXPECT_EQ(left(), (Lines{"0:67"}));
}

TEST_F(Silence, HeldCellsOfAnotherPitchEndThatOne) {
    write(0, "60");
    studio.score.NoteArray.write(0, 1, heldCell(61));
    play();
    EXPECT_EQ(left(), (Lines{"0:67"}));
}

TEST_F(Silence, AScoreClearedWhileItPlaysLeavesNone) {
    write(0, "60 = = = =");
    at(0.30, [this] {
        for (int column = 0; column < 5; ++column)
            studio.score.NoteArray.write(0, column, emptyCell);
    });
    play();
    EXPECT_EQ(left(), none);
}

TEST_F(Silence, StopAllEndsWhatPlaysAndWhatTheLastColumnStillBegins) {
    write(0, "60 = = = = =");
    write(1, ". . 62 = = =");
    write(8, ". . 60 . . .", 131);
    at(0.30, [this] {
        sounding.Command32_Click();
        EXPECT_EQ(left(), none);
    });
    play(); // column 2 is still played, and ended
    EXPECT_EQ(left(), (Lines{"9:38"}));
    EXPECT_EQ(ledger.begun(), 3);
}

TEST_F(Silence, StopAllEndsEverythingThatIsLeft) {
    write(0, "60 = = = =");
    write(8, "60 = = = =", 131);
    pauseAt(0.30);
    play();
    EXPECT_EQ(left(), (Lines{"0:67", "9:38"}));
    sounding.Command32_Click();
    EXPECT_EQ(left(), none);
}

TEST_F(Silence, EachOfTheOthersThatReopensTheDeviceEndsEverythingToo) {
    for (const auto& end :
         {&NoteSounding::StopSound, &NoteSounding::Device_Click, &NoteSounding::stopitall}) {
        sounding.Device_Click();
        sounding.StartNote(60, 0);
        EXPECT_EQ(left(), (Lines{"0:67"}));
        (sounding.*end)();
        EXPECT_EQ(left(), none);
    }
}

TEST_F(Silence, ADeviceChosenWhileASongPlaysLeavesNothingOnEither) {
    write(0, "60 = = = 64 =");
    at(0.30, [this] {
        setup.device = 2;
        sounding.Device_Click();
        EXPECT_EQ(left(), none);
    });
    play();
    EXPECT_EQ(left(), none);
    EXPECT_EQ(ledger.begun(), 2);
}

TEST_F(Silence, ADeviceThatDoesNotOpenLeavesNothingOnTheOneBefore) {
    write(0, "60 = = =");
    at(0.30, [this] {
        host.midi.setDevices({"!Synth A", "!Synth B"});
        sounding.Device_Click();
    });
    play();
    EXPECT_EQ(left(), none);
}

// The loop ends without its end steps; the exit closes the device first.
TEST_F(Silence, AProgramThatEndsWhileItPlaysClosesTheDevice) {
    write(0, "60 = = = =");
    at(0.30, [this] {
        sounding.stopitall();
        host.time.end();
    });
    play();
    EXPECT_EQ(left(), none);
    EXPECT_EQ(ledger.begun(), 1);
}

/// Random scores: rows 0 to 7 with notes of every length, some with chords, strummed or not, and
/// rows 8 to 12 with percussion.
struct SilenceOfAnyScore : Silence {
    void fillByChance() {
        for (int row = 0; row < scoreRows; ++row) {
            const bool stroke = !isMusicRow(row);
            auto& options = setup.options.rows[row];
            options.chord = below(3) == 0;
            options.strummed = below(4) == 0;
            options.hidden = below(6) == 0;
            for (int column = 0; column < 32; ++column)
                studio.score.NoteArray.write(row, column, emptyCell);
            for (int column = below(4); column < 24;) {
                const int length = 1 + below(5);
                const int pitch = below(128);
                std::string cells = std::to_string(pitch);
                for (int held = 1; held < length; ++held)
                    cells += " =";
                write(row, cells, static_cast<std::int16_t>(below(40) + (stroke ? 128 : 0)),
                      column);
                column += length + below(3);
            }
        }
    }
    int below(int end) { return static_cast<int>(random() % static_cast<unsigned>(end)); }

    std::mt19937 random{20261120};
};

TEST_F(SilenceOfAnyScore, IsBrokenOnlyByPercussionHoweverItStops) {
    for (int round = 0; round < 200; ++round) {
        fillByChance();
        studio.run.ShowNotePosition = below(2) == 0 ? flagSet : flagClear;
        const double seconds = 0.001 * below(4000);
        at(seconds, [this] { stop(); });
        play();
        left();
        ASSERT_EQ(ledger.leftMelodic(), none) << "round " << round << ", stopped at " << seconds;
        host.time.pass(5 * scripted::nanosecondsPerSecond);
    }
    EXPECT_GT(ledger.begun(), 5000);
}

TEST_F(SilenceOfAnyScore, IsCompleteAfterStopAllWhateverHappenedBefore) {
    for (int round = 0; round < 200; ++round) {
        fillByChance();
        if (below(2) == 0)
            pauseAt(0.001 * below(3000));
        at(0.001 * below(3000), [this] { sounding.ChangeInstrument(below(175), below(13)); });
        at(0.001 * below(3000), [this] { setup.options.rows[below(13)].hidden ^= true; });
        at(0.001 * below(3000),
           [this] { sounding.ChordInterval1 = static_cast<std::int16_t>(below(25) - 12); });
        at(0.001 * below(4000), [this] { stop(); });
        play();
        host.time.pass(5 * scripted::nanosecondsPerSecond);
        sounding.Command32_Click();
        studio.run.PauseFlag = flagClear;
        ASSERT_EQ(left(), none) << "round " << round;
    }
}

} // namespace
} // namespace velorin
