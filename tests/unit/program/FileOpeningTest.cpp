// Files that come from outside: scores, MIDI files, sound, and others.
#include "WholeProgram.h"
#include "convert/MidiWriter.h"
#include "platform/Text.h"
#include "support/ScriptedFiles.h"
#include "windows/recording/Record.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

using namespace velorin;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

class FileOpeningTest : public testing::Test {
protected:
    std::string put(const std::string& name, const std::string& bytes) const {
        const auto file = folder.path() / name;
        std::ofstream(file, std::ios::binary) << bytes;
        return file.string();
    }

    [[nodiscard]] std::string score(const std::string& name, int pitch) const {
        std::string text = std::to_string(pitch) + "\r\n24\r\n";
        for (int row = 1; row < 13; ++row)
            text += "-1\r\n0\r\n";
        return put(name, text + " 70 \r\n0,0,0,0,0,0,0,0,0,0,0,0,0\r\n");
    }

    /// Two notes of channel 1, key 67, at the given velocity.
    [[nodiscard]] std::string midi(const std::string& name, int velocity) const {
        convert::MidiTrack track;
        const auto loud = static_cast<char>(velocity);
        for (const int tick : {0, 480}) {
            track.add(tick, std::string("\x90\x43") + loud);
            track.add(tick + 480, std::string("\x80\x43\0", 3));
        }
        return put(name, convert::midiFile(480, {track}, 960));
    }

    [[nodiscard]] int firstCell() { return whole.program.studio().score.NoteArray.at(0, 0); }
    [[nodiscard]] std::string hint() const { return whole.program.shortHint.text(); }
    void open(const std::vector<std::string>& paths) { whole.program.fileOpening.open(paths); }

    scripted::TemporaryFolder folder;
    WholeProgram whole;
};

} // namespace

TEST_F(FileOpeningTest, AScoreOpensAsByItsCommand) {
    const std::string path = score("My Song.sng", 60);
    open({path});
    EXPECT_EQ(firstCell(), 60);
    EXPECT_EQ(whole.program.studio().score.CurrentFileName, platform::lowerCase(path));
    EXPECT_EQ(hint(), "");
}

TEST_F(FileOpeningTest, TheScoreBeforeIsInTheHistory) {
    whole.program.studio().score.NoteArray.write(0, 0, 64);
    open({score("a.sng", 60)});
    whole.program.history.changeFinished();
    EXPECT_EQ(whole.program.history.undo(), HistoryStep::done);
    EXPECT_EQ(firstCell(), 64);
}

TEST_F(FileOpeningTest, AMidiFileBecomesAScoreWithoutAFile) {
    open({score("a.sng", 60)});
    open({midi("dance.mid", 80)});
    Studio& studio = whole.program.studio();
    EXPECT_EQ(firstCell(), 127 - 0x43);
    EXPECT_EQ(studio.score.CurrentFileName, "");
    EXPECT_FALSE(studio.saved.isSaved(studio.score));
    EXPECT_THAT(hint(), StartsWith("\"dance.mid\" keeps 2 of 2 notes"));
    EXPECT_FALSE(whole.program.session.files.saveAgain()) << "the MIDI file must not be replaced";
}

TEST_F(FileOpeningTest, TheVolumesOfAMidiFileAreSet) {
    open({midi("soft.mid", 40)});
    const int volume = std::stoi(std::string(*whole.program.studio().setup.vol(0)));
    EXPECT_NEAR(volume, 40, 2);
    EXPECT_EQ(*whole.program.studio().setup.vol(1), "127");
}

TEST_F(FileOpeningTest, WhatIsNoMidiFileChangesNothing) {
    open({score("a.sng", 60)});
    open({put("text.mid", "hello")});
    EXPECT_EQ(hint(), "\"text.mid\" is not a MIDI file.");
    open({put("empty.mid", convert::midiFile(480, {convert::MidiTrack()}, 960))});
    EXPECT_EQ(hint(), "\"empty.mid\" has no notes.");
    EXPECT_EQ(firstCell(), 60);
}

TEST_F(FileOpeningTest, AMissingFileIsSaid) {
    open({score("a.sng", 60)});
    for (const char* name : {"gone.sng", "gone.mid", "gone.wav"}) {
        open({(folder.path() / name).string()});
        EXPECT_EQ(whole.host.notices.posted.back().text,
                  '"' + std::string(name) + "\" is not there any more, or not on this computer.");
    }
    EXPECT_EQ(firstCell(), 60);
}

TEST_F(FileOpeningTest, SoundComesIntoTheRecordingToolbar) {
    const std::string wav = put("Tune.wav", "RIFF");
    open({wav});
    EXPECT_TRUE(whole.program.studio().run.RecordToolbarOpen.isSet());
    EXPECT_EQ(whole.program.recording.form().Text6->text().toStdString(), wav);
    EXPECT_EQ(whole.program.studio().run.WavFileName, wav);
    whole.program.studio().run.RecordingFlag = flagSet;
    open({put("other.mp3", "x")});
    EXPECT_THAT(hint(), HasSubstr("Stop the recording first"));
    EXPECT_EQ(whole.program.studio().run.WavFileName, wav);
    whole.program.studio().run.RecordingFlag = flagClear;
}

TEST_F(FileOpeningTest, TheNextOneOpensIfTheFirstCannot) {
    open({put("text.mid", "hello"), score("a.sng", 60), score("b.sng", 61)});
    EXPECT_EQ(firstCell(), 60);
    EXPECT_EQ(hint(), "\"text.mid\" is not a MIDI file.\n\"b.sng\" was not opened: only one file "
                      "can be open.");
}

TEST_F(FileOpeningTest, OtherFilesAreNotOpened) {
    EXPECT_TRUE(FileOpening::canOpen("/a/B.SNG"));
    EXPECT_TRUE(FileOpening::canOpen("b.midi"));
    EXPECT_FALSE(FileOpening::canOpen("b.txt"));
    EXPECT_FALSE(FileOpening::canOpen("sng"));
    open({put("notes.txt", "hello")});
    EXPECT_THAT(hint(), StartsWith("\"notes.txt\" cannot be opened."));
    whole.program.shortHint.hide();
    open({});
    EXPECT_EQ(hint(), "");
}
