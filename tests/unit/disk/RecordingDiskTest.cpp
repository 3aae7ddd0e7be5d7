// A power cut while a recording is saved, while a start completes one that a crash has left, and
// while one is encoded to MP3.
#include "../host/mci/CaptureStage.h"
#include "../recording/RecordingStage.h"
#include "DiskStage.h"
#include "RealFiles.h"
#include "host/capture/RecordingFiles.h"

#include <gtest/gtest.h>

namespace velorin::disk {
namespace {

constexpr char stopped[] = "stopped";

class ARecordingOnTheDisk : public host::test::CaptureStage {
protected:
    void begin() {
        CaptureStage::begin(formatOf(22050, 8, 1));
        pull(4416);
    }
    void recordAs(const std::string& name, DiskRecorder& recorder) {
        begin();
        EXPECT_EQ(send("stop capture"), 0U);
        recorder.mark(stopped);
        EXPECT_EQ(send("save capture " + at(name)), 0U);
        recorder.mark(saved);
        EXPECT_EQ(send("close capture"), 0U);
    }

    /// Once the recording was stopped, the hidden file or the one with the name has all of it.
    static std::string lost(const DiskState& state, const std::string& recording) {
        if (!state.said.contains(stopped))
            return {};
        for (const auto& [name, content] : state.files)
            if (content == recording)
                return {};
        return "what was recorded is lost";
    }

    /// The recording, and an earlier file of its name, are never lost.
    void expectPromiseKept(const std::string& writer, const std::optional<std::string>& older) {
        if (older)
            writeBytes("a.wav", *older);
        const auto log =
            recorded(folder_, [this](DiskRecorder& recorder) { recordAs("a.wav", recorder); });
        const Promise promise{"a.wav", older, readBytes("a.wav")};
        EXPECT_EQ(promise.after.size(), 44U + 2208);
        expectNoBadState(writer, log, [&promise](const DiskState& state) {
            return firstOf({broken(state, promise), lost(state, promise.after),
                            strangers(state, {promise.name})});
        });
    }

    /// The recordings that the next start finds or completes, in a folder with the files of
    /// `state`.
    static std::vector<std::string> recordingsAfter(const DiskState& state) {
        const DiskStage after;
        for (const auto& [name, content] : state.files)
            after.put(name, content);
        scripted::ScriptedNotices notices;
        host::finishAbandonedRecordings({after.path(), {}, &notices});
        std::vector<std::string> found;
        for (const std::string& name : recordings(after.path()))
            found.push_back(after.content(name));
        return found;
    }
};

TEST_F(ARecordingOnTheDisk, IsThereWholeOrNotAtAll) {
    expectPromiseKept("a recording", {});
}

TEST_F(ARecordingOnTheDisk, OverAnOlderOneIsTheOlderOrTheNewerOne) {
    expectPromiseKept("a recording over an older one", std::string(3000, 'o'));
}

TEST_F(ARecordingOnTheDisk, ThatNobodySavedIsKeptUnderItsOwnName) {
    const auto log = recorded(folder_, [&](DiskRecorder& recorder) {
        begin();
        EXPECT_EQ(send("stop capture"), 0U);
        recorder.mark(stopped);
        EXPECT_EQ(send("close capture"), 0U);
        recorder.mark(saved);
    });
    ASSERT_EQ(recordings().size(), 1U);
    const Promise promise{recordings().front(), {}, readBytes(recordings().front())};
    expectNoBadState("a recording that is not saved", log, [&promise](const DiskState& state) {
        return firstOf(
            {broken(state, promise), lost(state, promise.after), strangers(state, {promise.name})});
    });
}

// The next start completes the header of the hidden file and names it. After a power cut meanwhile,
// the start after that has the same sound.
TEST_F(ARecordingOnTheDisk, ThatACrashHasLeftIsFinishedWhole) {
    begin();
    EXPECT_EQ(send("stop capture"), 0U);
    EXPECT_EQ(send("save capture " + at("whole.wav")), 0U);
    EXPECT_EQ(send("close capture"), 0U);
    const std::string whole = readBytes("whole.wav");
    const DiskStage songs;
    std::string cut = whole; // as during the recording: no length in its header
    for (const std::size_t length : {std::size_t{4}, std::size_t{40}})
        cut.replace(length, 4, std::string(length == 4 ? "\x24\0\0\0" : "\0\0\0\0", 4));
    songs.put(".recording-1-2.part", cut);
    const auto log = recorded(songs.path(), [&](DiskRecorder& recorder) {
        host::finishAbandonedRecordings({songs.path(), {}, &notices_});
        recorder.mark(saved);
    });
    EXPECT_EQ(recordings(songs.path()).size(), 1U);
    expectNoBadState("a recording that a crash has left", log, [&](const DiskState& state) {
        if (recordingsAfter(state) != std::vector<std::string>{whole})
            return std::string("the next start does not find it whole");
        for (const auto& [name, content] : state.files)
            if (name.starts_with("recording ") && content != whole)
                return name + " is not whole";
        return std::string();
    });
}

class AnMp3OnTheDisk : public testing::Test {
protected:
    AnMp3OnTheDisk() {
        real.host.encoder.absent = false;
        real.host.encoder.samples = 16;
        real.host.encoder.outputSize = 64;
        stage.put("a.wav", wav);
        studio.run.WavFileName = stage.at("a.wav");
    }

    /// Encodes. The WAV or the MP3 must be whole in every state, and the MP3 in the end. The WAV
    /// stays unless its box is checked.
    void expectSoundKept(const std::string& writer, const std::optional<std::string>& older) {
        if (older)
            stage.put("a.mp3", *older);
        const auto log = recorded(stage.path(), [this](DiskRecorder& recorder) {
            encoding.Command20_Click();
            recorder.mark(saved);
        });
        const std::string mp3 = stage.content("a.mp3");
        EXPECT_GE(mp3.size(), 4U * 4 + 2);
        const bool wavStays = !desk.checks[RecordCheck::Check3];
        expectNoBadState(writer, log, [&](const DiskState& state) -> std::string {
            const bool isWav = holds(state, "a.wav", wav);
            const bool isMp3 = holds(state, "a.mp3", mp3);
            if (!isWav && (wavStays || !isMp3))
                return "the sound is lost";
            if (!isMp3 && state.said.contains(saved))
                return "the MP3 is not whole, which the program said it was";
            return strangers(state, {"a.wav", "a.mp3"});
        });
    }
    static bool holds(const DiskState& state, const std::string& name, const std::string& content) {
        const auto found = state.files.find(name);
        return found != state.files.end() && found->second == content;
    }

    /// Four chunks of 32 bytes.
    const std::string wav = std::string(44, 'h') + std::string(84, 's');
    DiskStage stage;
    RealFiles real;
    Studio studio{real.platform};
    PlainRecordDesk desk;
    Mp3Encoding encoding{studio, desk};
};

// An MP3 is written under its final name, since a stop keeps the part that is done. Its WAV stays
// until the MP3 is whole and on the disk.
TEST_F(AnMp3OnTheDisk, IsWholeOnceItIsEncodedAndLeavesTheWavAlone) {
    expectSoundKept("an MP3", {});
}

TEST_F(AnMp3OnTheDisk, OverALongerOneIsWholeOnceItIsEncodedAndLeavesTheWavAlone) {
    expectSoundKept("an MP3 over a longer one", std::string(40, 'o'));
    EXPECT_EQ(stage.content("a.mp3").size(), 40U) << "it stays as long as it was";
}

TEST_F(AnMp3OnTheDisk, TakesThePlaceOfTheWavOnlyWhenItIsWhole) {
    desk.checks[RecordCheck::Check3] = true; // "Delete WAV file"
    expectSoundKept("an MP3 in place of its WAV", {});
    EXPECT_EQ(stage.names(), std::vector<std::string>{"a.mp3"});
}

TEST_F(AnMp3OnTheDisk, OverALongerOneTakesThePlaceOfTheWavOnlyWhenItIsWhole) {
    desk.checks[RecordCheck::Check3] = true;
    expectSoundKept("an MP3 over a longer one in place of its WAV", std::string(40, 'o'));
    EXPECT_EQ(stage.names(), std::vector<std::string>{"a.mp3"});
}

} // namespace
} // namespace velorin::disk
