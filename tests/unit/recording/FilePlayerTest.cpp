// The player's buttons for the four kinds of files, and the loops that they start.
#include "model/ScoreWriter.h"

#include "RecordingStage.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace velorin {
namespace {

class Player : public testing::Test, protected RecordingStage {
protected:
    void chooseFile(const std::string& name) {
        host.dialogs.answers.push_back(platform::FileDialogAnswer{name, 1});
        player.C4_Click();
    }
};

TEST_F(Player, OpensAFileBetweenHidingAndShowingTheToolbars) {
    player.Cmd2_Click(0);
    EXPECT_EQ(mainDesk.log, (Lines{"HideToolbars", "ShowToolbars"}));
    EXPECT_EQ(host.dialogs.log, Lines{"open;Open File;Midi, score, wav, mp3(*.sng;*.mid;*.wav;*mp3)"
                                      "|*.sng;*.mid;*.wav;*mp3;0"});
}

TEST_F(Player, DoesNothingWithoutAnAnswer) {
    desk.texts[RecordText::Text6] = "old.wav";
    chooseFile("");
    EXPECT_EQ(desk.texts[RecordText::Text6], "old.wav");
    EXPECT_EQ(studio.run.WavFileName, "");
}

TEST_F(Player, LoadsAChosenScoreAndRecordsFromIt) {
    Score song;
    song.NoteArray.write(2, 7, 60);
    song.PolyArray.write(3, 8, 1);
    song.Tempo = 144;
    const std::string name = write("Song.SNG", scoreText(song));
    desk.sourceIsMid = true;
    chooseFile(" " + name + " ");
    EXPECT_EQ(studio.score.NoteArray.read(2, 7), 60);
    EXPECT_EQ(studio.score.Tempo, 144);
    EXPECT_EQ(studio.score.PolyArray, Score().PolyArray) << "its chord marks stay in the file";
    EXPECT_EQ(studio.score.CurrentFileName, "") << "only the open command names the score";
    EXPECT_FALSE(desk.sourceIsMid);
    EXPECT_EQ(studio.run.WavFileName, name);
    EXPECT_EQ(desk.texts[RecordText::Text6], name);
}

TEST_F(Player, RecordsFromAChosenMidAndLeavesTheSourceForTheRest) {
    studio.score.NoteArray.write(2, 7, 60);
    chooseFile("a.mid");
    EXPECT_TRUE(desk.sourceIsMid);
    chooseFile("a.wav");
    EXPECT_TRUE(desk.sourceIsMid);
    chooseFile("b.mp3");
    EXPECT_TRUE(desk.sourceIsMid);
    EXPECT_TRUE(mainDesk.log.empty());
    EXPECT_EQ(studio.score.NoteArray.read(2, 7), 60) << "no score is opened";
}

TEST_F(Player, PlaysAWavToItsEnd) {
    desk.texts[RecordText::Text6] = " Wave.WAV ";
    host.mci.reply("status sound length", 0, "800");
    host.mci.reply("status sound position", 0, "100");
    in(0.15, [this] { host.mci.reply("status sound position", 0, "800"); });
    player.Cmd2_Click(1);
    EXPECT_EQ(sent(), (Lines{"0.000 stop sound", "0.000 close sound",
                             "0.000 open waveaudio!wave.wav alias sound", "0.000 play sound",
                             "0.100 status sound length", "0.100 status sound position",
                             "0.200 status sound length", "0.200 status sound position",
                             "0.200 stop sound", "0.200 close sound"}));
    EXPECT_EQ(desk.statuses, (Lines{"12 %", "100 %", ""})); // 12.5 goes to the even number
    EXPECT_EQ(desk.barWidth, 1.0);
    EXPECT_EQ(studio.run.SoundFinished, flagSet);
}

TEST_F(Player, TellsTheDevicesHowTheChosenFileIsSpelled) {
    desk.texts[RecordText::Text6] = inFolder("Tune.wav") + " ";
    in(0.05, [this] { host.time.end(); });
    player.Cmd2_Click(1);
    EXPECT_EQ(host.mci.spelling, inFolder("Tune.wav"));
}

TEST_F(Player, TellsTheSpellingOfAMidFileToo) {
    desk.texts[RecordText::Text6] = write("Tune.mid", "MThd");
    in(0.05, [this] { host.time.end(); });
    player.Cmd2_Click(1);
    EXPECT_EQ(host.mci.spelling, inFolder("Tune.mid"));
}

TEST_F(Player, MovesTheBarWithTheSound) {
    host.mci.reply("status sound length", 0, "800");
    host.mci.reply("status sound position", 0, "200");
    player.Soundstatus();
    EXPECT_EQ(desk.barWidth, 75.0);
    EXPECT_EQ(studio.run.SoundFinished, flagClear);
}

TEST_F(Player, ClearsTheCaptionAtAPositionBeforeTheBeginning) {
    host.mci.reply("status sound length", 0, "800");
    host.mci.reply("status sound position", 0, "-8");
    player.Soundstatus();
    EXPECT_EQ(desk.captions[RecordCaption::Status], "");
}

TEST_F(Player, PollsAClosedSoundUntilTheProgramEnds) {
    desk.texts[RecordText::Text6] = "a.wav";
    in(1.05, [this] { host.time.end(); });
    player.Cmd2_Click(3);
    const Lines all = sent();
    EXPECT_EQ(all.front(), "0.000 stop sound");
    EXPECT_EQ(all.back(), "1.000 status sound length");
    EXPECT_EQ(all.size(), 12U); // two commands and ten questions
}

TEST_F(Player, NestsALoopForEveryClickAndEndsOnlyTheInnermost) {
    desk.texts[RecordText::Text6] = "a.wav";
    host.mci.reply("status sound length", 0, "100");
    host.mci.reply("status sound position", 0, "10");
    in(0.25, [this] { player.Cmd2_Click(2); });
    in(0.5, [this] { host.mci.reply("status sound position", 0, "100"); });
    player.Cmd2_Click(1); // the second end of the sound ends the outer loop
    const Lines all = sent();
    EXPECT_EQ(std::count(all.begin(), all.end(), "0.250 pause sound"), 1);
    EXPECT_EQ(std::count_if(all.begin(), all.end(),
                            [](const std::string& line) { return line.ends_with("stop sound"); }),
              3); // at the start, and at the end of each loop
}

// Ten thousand presses of Stop, each in the wait of the loop before. The last handler is no deeper
// on the stack than the first, and the device is polled as often as by one loop.
TEST_F(Player, TakesNoStackAndNoTimeForTheLoopsOfManyClicks) {
    constexpr int presses = 10'000;
    desk.texts[RecordText::Text6] = "a.wav";
    std::vector<const char*> depths;
    std::function<void()> press = [&] {
        const char here = 0;
        depths.push_back(&here);
        if (depths.size() < presses)
            in(0.25, press);
        else
            in(10.05, [this] { host.time.end(); });
        player.Cmd2_Click(3);
    };
    in(0.25, press);
    player.Cmd2_Click(3);
    ASSERT_EQ(depths.size(), std::size_t{presses});
    EXPECT_EQ(depths.back(), depths.front());
    const Lines all = sent();
    const auto count = [&all](const std::string& from, const std::string& ending) {
        return std::count_if(all.begin(), all.end(), [&](const std::string& line) {
            return line >= from && line.size() == from.size() + ending.size() + 1 &&
                   line.ends_with(ending);
        });
    };
    EXPECT_EQ(count("2500.000", "status sound length"), 100) << "in the last ten seconds";
    EXPECT_EQ(std::count_if(all.begin(), all.end(),
                            [](const std::string& line) { return line.ends_with("close sound"); }),
              presses + 1);
}

// All loops share a stopwatch, and each click restarts it. A waiting loop goes on when the reading
// at which it stopped comes again. Only a click on Play clears the pause when its loop ends.
TEST_F(Player, EndsTheLoopsOfManyClicksOneByOne) {
    desk.texts[RecordText::Text6] = "a.wav";
    host.mci.reply("status sound length", 0, "100");
    host.mci.reply("status sound position", 0, "10");
    std::vector<Flag> flags;
    in(0.15, [this] { player.Cmd2_Click(2); }); // at 0.15 of the first
    in(0.40, [&] {
        player.Cmd2_Click(1); // at 0.25 of the second
        EXPECT_EQ(studio.run.PlayerPaused, flagSet);
        host.mci.reply("status sound position", 0, "100");
    });
    in(0.55, [&] { flags.push_back(studio.run.PlayerPaused); });
    player.Cmd2_Click(1);
    Lines polls;
    for (const std::string& line : sent()) {
        if (line.ends_with("status sound length"))
            polls.push_back(line.substr(0, 5));
    }
    EXPECT_EQ(polls, (Lines{"0.100", "0.250", "0.350", "0.500", "0.700", "0.700"}));
    EXPECT_EQ(flags, (std::vector<Flag>{flagClear})) << "the third click was a Play";
    EXPECT_EQ(studio.run.PlayerPaused, flagClear);
}

// A handler that is not a loop waits for the loop that a click in its wait has started.
TEST_F(Player, NestsALoopThatIsBegunInTheWaitOfSomethingElse) {
    desk.texts[RecordText::Text6] = "a.wav";
    bool isOver = false;
    in(0.05, [&] {
        in(0.1, [this] { player.Cmd2_Click(2); });
        const std::int64_t end = host.time.now() + scripted::nanosecondsPerSecond;
        while (host.time.now() < end && !host.time.isEnding())
            host.time.waitUntil(end);
        isOver = true;
    });
    in(5.0, [&] {
        EXPECT_FALSE(isOver);
        host.time.end();
    });
    player.Cmd2_Click(1);
}

TEST_F(Player, PausesAndResumesAWavByTheFlag) {
    desk.texts[RecordText::Text6] = "a.wav";
    host.mci.reply("status sound length", 0, "1");
    host.mci.reply("status sound position", 0, "1");
    player.Cmd2_Click(2);
    EXPECT_EQ(sent().front(), "0.000 pause sound");
    studio.run.PlayerPaused = flagClear;
    player.Command4_Click(2);
    EXPECT_EQ(sent().front(), "0.100 resume sound");
}

TEST_F(Player, PlaysAndStopsAScoreByTheSequencer) {
    session.sequencer.PlayTimer = session.watch.StopWatchNew();
    studio.score.NoteArray.write(0, 500, 60);
    desk.texts[RecordText::Text6] = "a.SNG";
    desk.captions[RecordCaption::Status] = "5 %";
    const auto playedFrom = [this](int button) {
        in(1.0, [this] {
            EXPECT_EQ(studio.run.IsPlaying, flagSet);
            player.Cmd2_Click(3);
            EXPECT_EQ(studio.run.IsPlaying, flagClear);
        });
        player.Cmd2_Click(button);
        return std::exchange(mainDesk.log, {});
    };
    // It is locked at the start, and unlocked by the click that stops it and at its end.
    const Lines started{"tableaux 0", "tableaux 1", "tableaux 1"};
    EXPECT_EQ(playedFrom(1), started);
    EXPECT_EQ(playedFrom(2), started) << "a pause of a score that stands still starts it";
    in(0.5, [this] { player.Cmd2_Click(2); });
    EXPECT_EQ(playedFrom(1), started) << "one that plays goes on";
    EXPECT_EQ(desk.captions[RecordCaption::Status], "5 %");
}

TEST_F(Player, HasNoEffectWithoutAFileButTheClearingByStop) {
    studio.run.SoundFinished = flagSet;
    desk.captions[RecordCaption::Status] = "5 %";
    desk.barWidth = 15.0;
    player.Cmd2_Click(1);
    player.Cmd2_Click(2);
    EXPECT_EQ(desk.captions[RecordCaption::Status], "5 %");
    player.Cmd2_Click(3);
    EXPECT_EQ(desk.captions[RecordCaption::Status], "");
    EXPECT_EQ(desk.barWidth, 1.0);
    EXPECT_EQ(studio.run.SoundFinished, flagClear);
    EXPECT_TRUE(sent().empty());
}

} // namespace
} // namespace velorin
