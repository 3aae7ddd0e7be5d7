// From a WAV to an MP3: refusals, the configuration record, the chunks, and how an encoding ends.
#include "recording/EncoderConfig.h"

#include "RecordingStage.h"

#include <gtest/gtest.h>

#include <array>

namespace velorin {
namespace {

std::string crcOf(const std::string& bytes) {
    char text[16];
    std::snprintf(text, sizeof text, "%08X", scripted::crc32Of(bytes.data(), bytes.size()));
    return text;
}

class Encoding : public testing::Test, protected RecordingStage {
protected:
    Encoding() {
        host.encoder.absent = false;
        host.encoder.samples = 4;
        host.encoder.outputSize = 16;
    }
    void takeWav(const std::string& content) { studio.run.WavFileName = write("a.wav", content); }
    /// The calls after the first.
    Lines callsAfterInit() {
        Lines calls = std::exchange(host.encoder.log, {});
        calls.erase(calls.begin());
        return calls;
    }
    static std::int32_t field(const platform::ConfigRecord& record, std::size_t at) {
        return static_cast<std::int32_t>(record[at] | record[at + 1] << 8 | record[at + 2] << 16 |
                                         static_cast<std::uint32_t>(record[at + 3]) << 24);
    }
};

TEST_F(Encoding, FillsTheRecordByteForByte) {
    const platform::ConfigRecord record = encoderConfig({44100, 3, 40, 9000});
    const std::map<std::size_t, std::int32_t> fields{{0, 256}, {4, 1},   {8, 331},   {12, 44100},
                                                     {20, 3},  {24, 40}, {32, 9000}, {36, 1},
                                                     {60, -1}, {80, -1}};
    for (std::size_t at = 0; at < record.size(); at += 4) {
        const auto found = fields.find(at);
        EXPECT_EQ(field(record, at), found == fields.end() ? 0 : found->second) << at;
    }
}

TEST_F(Encoding, HasATextForEachErrorOfTheLibrary) {
    EXPECT_EQ(encoderErrorText(0), "No Error");
    EXPECT_EQ(encoderErrorText(1), "Invalid format");
    EXPECT_EQ(encoderErrorText(2), "Invalid format parameters");
    EXPECT_EQ(encoderErrorText(3), "No more handles");
    EXPECT_EQ(encoderErrorText(4), "Invalid handle");
    EXPECT_EQ(encoderErrorText(5), "Buffer too small");
    EXPECT_EQ(encoderErrorText(6), "");
}

TEST_F(Encoding, ChangesTheExtensionAfterTheLastPoint) {
    EXPECT_EQ(ChangeExtension("a.b.wav", "mp3"), "a.b.mp3");
    EXPECT_EQ(ChangeExtension("a", "mp3"), "mp3");
}

TEST_F(Encoding, RefusesWithoutTheLibraryUnderTheOtherWindows) {
    host.encoder.absent = true;
    encoding.Command20_Click();
    EXPECT_EQ(boxes(), Lines{"critical;Critical Error;Encoding library not found...can't encode."});
    EXPECT_EQ(desk.topMost, (std::vector<bool>{false, true}));
    EXPECT_TRUE(encoding.LamePath.ends_with("\\System32\\lame_enc.dll"));
}

TEST_F(Encoding, RefusesWithoutAFile) {
    encoding.Command20_Click();
    EXPECT_EQ(boxes(), Lines{"none;Velorin;Enter a valid Wave file."});
    EXPECT_TRUE(encoding.LamePath.ends_with("\\lame_enc.dll"));
}

TEST_F(Encoding, RefusesAnotherExtension) {
    studio.run.WavFileName = write("a.mid", "MThd");
    encoding.Command20_Click();
    EXPECT_EQ(boxes(), Lines{"none;Velorin;Not a valid Wave file."});
    EXPECT_EQ(desk.texts[RecordText::Text6], inFolder("a.mid"));
}

TEST_F(Encoding, LeavesAFileThatIsGoneByThen) {
    takeWav(std::string(60, 'x'));
    in(0.0, [this] { host.files.remove(inFolder("a.wav")); });
    encoding.Command20_Click();
    EXPECT_TRUE(boxes().empty());
    EXPECT_TRUE(host.encoder.log.empty());
    EXPECT_EQ(desk.captions[RecordCaption::Command20], "Encode File");
}

TEST_F(Encoding, MovesTheFileInChunksWithATailOfRepeatedSound) {
    // 44 bytes of header and 12 of sound. 56 bytes are 7 chunks of 8. The sound fills one and a
    // half of them; the others keep what the buffer held.
    takeWav(std::string(44, 'h') + "abcdefghijkl");
    encoding.Command20_Click();
    const std::string first = crcOf("abcdefgh");
    const std::string tail = crcOf("ijklefgh");
    EXPECT_EQ(callsAfterInit(),
              (Lines{"chunk 4 " + first, "chunk 4 " + tail, "chunk 4 " + tail, "chunk 4 " + tail,
                     "chunk 4 " + tail, "chunk 4 " + tail, "chunk 4 " + tail, "flush", "close"}));
    EXPECT_EQ(read("a.mp3").size(), 7U * 4 + 2);
    EXPECT_EQ(desk.statuses,
              (Lines{"14.29%", "28.57%", "42.86%", "57.14%", "71.43%", "85.71%", "100.00%", ""}));
    EXPECT_EQ(desk.texts[RecordText::Text6], inFolder("a.mp3"));
    EXPECT_EQ(desk.captions[RecordCaption::Command20], "Encode File");
}

TEST_F(Encoding, RoundsTheSamplesOfAnOddChunkToEven) {
    takeWav(std::string(44, 'h') + "abcde"); // 49 bytes: 6 chunks and a byte
    encoding.Command20_Click();
    EXPECT_TRUE(callsAfterInit()[6].starts_with("chunk 0 "));
    takeWav(std::string(44, 'h') + "abcdefg"); // 51: 6 chunks and 3 bytes
    encoding.Command20_Click();
    EXPECT_TRUE(callsAfterInit()[6].starts_with("chunk 2 "));
}

TEST_F(Encoding, OfAnEmptyFileIsTheFlushAlone) {
    takeWav("");
    encoding.Command20_Click();
    EXPECT_EQ(callsAfterInit(), (Lines{"flush", "close"}));
    EXPECT_EQ(read("a.mp3"), "\xFF\xFE");
}

TEST_F(Encoding, OverwritesAnMp3AndLeavesItsLength) {
    write("a.mp3", "0123456789");
    takeWav("");
    encoding.Command20_Click();
    EXPECT_EQ(read("a.mp3"), "\xFF\xFE"
                             "23456789");
}

TEST_F(Encoding, StoppedLeavesAShortMp3) {
    takeWav(std::string(44, 'h') + std::string(400, 's'));
    in(0.0, [this] {
        EXPECT_EQ(desk.captions[RecordCaption::Command20], "Encode File");
        in(0.0, [this] {
            EXPECT_EQ(desk.captions[RecordCaption::Command20], "Stop Encoding");
            encoding.Command20_Click();
        });
    });
    encoding.Command20_Click();
    EXPECT_EQ(studio.run.EncodeCancelled, flagSet);
    EXPECT_EQ(callsAfterInit().size(), 4U); // two chunks: the click comes after the first
    EXPECT_EQ(read("a.mp3").size(), 2U * 4 + 2);
}

TEST_F(Encoding, DeletesTheWavIfItsBoxSaysSo) {
    desk.checks[RecordCheck::Check3] = true;
    takeWav(std::string(60, 'x'));
    encoding.Command20_Click();
    EXPECT_FALSE(host.files.canRead(inFolder("a.wav")));
    EXPECT_EQ(host.time.now(), scripted::nanosecondsPerSecond / 5);
}

TEST_F(Encoding, KeepsTheWavUntilItsMp3IsWholeOnTheDisk) {
    desk.checks[RecordCheck::Check3] = true;
    takeWav(std::string(60, 'x'));
    host.files.makeReadOnly(inFolder("a.mp3"));
    encoding.Command20_Click();
    EXPECT_TRUE(host.files.canRead(inFolder("a.wav")));
    EXPECT_EQ(notices(), Lines{"\"a.mp3\" is not whole: it could not be written; the disk may be "
                               "full. The WAV is kept: make room and encode it again."});
    EXPECT_EQ(desk.captions[RecordCaption::Command20], "Encode File");
}

TEST_F(Encoding, KeepsAWavWhoseMp3TheDiskRefusesInTheEnd) {
    desk.checks[RecordCheck::Check3] = true;
    takeWav(std::string(60, 'x'));
    host.files.syncFails = true;
    encoding.Command20_Click();
    EXPECT_TRUE(host.files.canRead(inFolder("a.wav")));
    EXPECT_EQ(notices().size(), 1U);
}

TEST_F(Encoding, KeepsAWavThatCouldNotBeRead) {
    desk.checks[RecordCheck::Check3] = true;
    takeWav(std::string(60, 'x'));
    host.files.makeReadOnly(inFolder("a.wav")); // it is opened for reading and writing
    encoding.Command20_Click();
    EXPECT_TRUE(host.files.canRead(inFolder("a.wav")));
    EXPECT_EQ(notices(),
              Lines{"\"a.mp3\" is not whole: the WAV could not be read. The WAV is kept: "
                    "encode it again."});
}

TEST_F(Encoding, KeepsAWavThatTheEncoderFailsOn) {
    desk.checks[RecordCheck::Check3] = true;
    takeWav(std::string(60, 'x'));
    for (const char* call : {"init", "chunk", "flush"}) {
        host.encoder.failures = {{call, 5}};
        encoding.Command20_Click();
        EXPECT_TRUE(host.files.canRead(inFolder("a.wav"))) << call;
    }
    EXPECT_EQ(notices().size(), 2U) << "a begin that fails makes no MP3, and has its box";
}

TEST_F(Encoding, WritesNothingForAFlushThatFails) {
    takeWav(std::string(60, 'x')); // 8 chunks
    host.encoder.failures["flush"] = 5;
    encoding.Command20_Click();
    EXPECT_EQ(read("a.mp3").size(), 8U * 4);
}

TEST_F(Encoding, LeavesAnMp3WhoseNameDiffersInCase) {
    write("A.MP3", "another song");
    takeWav(std::string(60, 'x'));
    encoding.Command20_Click();
    EXPECT_EQ(read("A.MP3"), "another song");
    EXPECT_FALSE(read("a.mp3").empty());
}

TEST_F(Encoding, KeepsTheFileThatWasChosenMeanwhile) {
    desk.checks[RecordCheck::Check3] = true;
    takeWav(std::string(60, 'x'));
    const std::string other = write("other.wav", "the user's own");
    in(0.0, [this, &other] { in(0.0, [this, &other] { studio.run.WavFileName = other; }); });
    encoding.Command20_Click();
    EXPECT_EQ(read("other.wav"), "the user's own");
    EXPECT_TRUE(host.files.canRead(inFolder("a.wav")));
}

TEST_F(Encoding, IsAnErrorWithoutTheProgramsFolder) {
    desk.checks[RecordCheck::Check3] = true;
    takeWav(std::string(60, 'x'));
    mainDesk.folderIsThere = false;
    encoding.Command20_Click();
    EXPECT_EQ(boxes(), Lines{"critical;Encoding error...;Path not found"});
    EXPECT_TRUE(host.files.canRead(inFolder("a.wav")));
}

TEST_F(Encoding, ThatTheProgramsEndCutsShortIsReported) {
    takeWav(std::string(60, 'x'));
    in(0.0, [this] { in(0.0, [this] { host.time.end(); }); });
    encoding.Command20_Click();
    EXPECT_EQ(notices(),
              Lines{"\"a.mp3\" is not whole: the program ended while it encoded. The WAV "
                    "is kept: encode it again."});
}

TEST_F(Encoding, ReportsAFailedStart) {
    takeWav(std::string(60, 'x'));
    host.encoder.failures["init"] = 2;
    encoding.Command20_Click();
    EXPECT_EQ(boxes(), Lines{"critical;Encoding error...;Invalid format parameters"});
    EXPECT_FALSE(host.files.canRead(inFolder("a.mp3")));
    EXPECT_EQ(desk.texts[RecordText::Text6], inFolder("a.mp3"));
}

TEST_F(Encoding, ClosesTheStreamOfAFailedChunk) {
    takeWav(std::string(60, 'x'));
    host.encoder.failures["chunk"] = 5;
    encoding.Command20_Click();
    EXPECT_EQ(boxes(), Lines{"critical;Encoding error...;Buffer too small"});
    const Lines calls = callsAfterInit();
    ASSERT_EQ(calls.size(), 2U);
    EXPECT_EQ(calls[1], "close");
}

TEST_F(Encoding, ReportsAMissingBitrateAndGoesOn) {
    takeWav("");
    desk.lists[RecordList::Combo4] = -1;
    encoding.Command20_Click();
    EXPECT_EQ(boxes(), Lines{"none;Velorin;You didn't select Bitrate..."});
    EXPECT_FALSE(host.encoder.log.empty());
}

TEST_F(Encoding, ReportsAMissingQualityAndStops) {
    takeWav("");
    desk.lists[RecordList::Combo3] = -1;
    encoding.Command20_Click();
    EXPECT_EQ(boxes(), Lines{"none;Velorin;You didn't select quality..."});
    EXPECT_TRUE(host.encoder.log.empty());
}

// 22,050 is hex 5622.
TEST_F(Encoding, TakesAlsoTheFirstFormat) {
    takeWav("");
    desk.lists[RecordList::cbxFormat] = 0;
    encoding.Command20_Click();
    EXPECT_NE(host.encoder.log.at(0).find(" 22 56 00 00"), std::string::npos);
}

TEST_F(Encoding, OfNoFileIsAnError) {
    desk.texts[RecordText::Text6] = inFolder("missing.wav");
    encoding.EncodeWavFile();
    EXPECT_EQ(boxes(), Lines{"critical;Critical Error;File not found..."});
}

TEST_F(Encoding, TakesRateAndModeFromTheFormatAlone) {
    const std::array<std::pair<int, int>, 10> expected{{{22050, 1},
                                                        {22050, 3},
                                                        {22050, 1},
                                                        {44100, 3},
                                                        {44100, 1},
                                                        {44100, 3},
                                                        {44100, 1},
                                                        {44100, 3},
                                                        {44100, 1},
                                                        {48000, 1}}};
    for (std::size_t row = 0; row < expected.size(); ++row) {
        EXPECT_EQ(encoderInputs[row].sampleRate, expected[row].first) << row;
        EXPECT_EQ(encoderInputs[row].mode, expected[row].second) << row;
    }
}

} // namespace
} // namespace velorin
