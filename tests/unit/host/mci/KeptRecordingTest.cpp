// A recording is kept, whatever happens to the disk, the folder or the program.
#include "CaptureStage.h"
#include "host/mci/CaptureDevice.h"
#include "host/mci/MciErrors.h"
#include "support/FullDisk.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <unistd.h>

namespace velorin::host {
namespace {

namespace fs = std::filesystem;
using Texts = std::vector<std::string>;

class AKeptRecording : public test::CaptureStage {
protected:
    /// Of 640 frames, which is 2,560 bytes of sound.
    void recordBlocks() {
        begin(formatOf(44100, 16, 2));
        pull(640);
    }

    /// A hidden file as a crash leaves it: the header of a running recording, and some sound.
    void leave(const std::string& name, const WavFormat& format, std::size_t soundBytes) const {
        writeBytes(name, WavHeader{format, 0}.bytes() + std::string(soundBytes, '\x55'));
    }

    [[nodiscard]] RecordingFolders folders() { return {folder_, spare_, &notices_}; }
};

TEST_F(AKeptRecording, IsOneThatWasNotSavedBeforeItsDeviceWasClosed) {
    recordBlocks();
    EXPECT_EQ(send("stop capture"), 0U);
    EXPECT_EQ(send("close capture"), 0U);
    ASSERT_EQ(recordings().size(), 1U);
    expectWhole(readBytes(recordings()[0]), 2560);
    EXPECT_EQ(told(), Texts{"The recording was not saved when it ended. It is kept " +
                            placeText(folders(), folder_ / recordings()[0]) + ", 0.0 s long."});
    EXPECT_EQ(hidden(), Texts{});
}

TEST_F(AKeptRecording, IsOneThatRunsWhenTheProgramEnds) {
    {
        HostMci files{{engine_, {}, [] { return false; }, [] {}, folders()}};
        EXPECT_EQ(files.mciSendStringA("open new type waveaudio alias capture", nullptr), 0U);
        EXPECT_EQ(files.mciSendStringA("record capture", nullptr), 0U);
        pull(640);
    }
    ASSERT_EQ(recordings().size(), 1U);
    expectWhole(readBytes(recordings()[0]), 2560);
    EXPECT_EQ(told().size(), 1U);
}

TEST_F(AKeptRecording, IsNotOneThatWasSavedOrHoldsNoSound) {
    recordBlocks();
    EXPECT_EQ(send("save capture " + at("a.wav")), 0U);
    EXPECT_EQ(send("close capture"), 0U);
    begin(formatOf(44100, 16, 2));
    EXPECT_EQ(send("stop capture"), 0U);
    EXPECT_EQ(send("close capture"), 0U);
    EXPECT_EQ(recordings(), Texts{});
    EXPECT_EQ(hidden(), Texts{});
    EXPECT_EQ(told(), Texts{});
}

TEST_F(AKeptRecording, IsOneThatWasNotSavedBeforeTheNextOne) {
    recordBlocks();
    EXPECT_EQ(send("stop capture"), 0U);
    EXPECT_EQ(send("record capture"), 0U);
    pull(64);
    EXPECT_EQ(send("save capture " + at("a.wav")), 0U);
    ASSERT_EQ(recordings().size(), 1U);
    expectWhole(readBytes(recordings()[0]), 2560);
    expectWhole(readBytes("a.wav"), 256);
}

TEST_F(AKeptRecording, HasSilenceForBlocksThatWereLost) {
    begin(formatOf(44100, 16, 2));
    EXPECT_EQ(send("stop capture"), 0U);
    EXPECT_EQ(send("close capture"), 0U);
    std::error_code error;
    PartFile part = PartFile::create(folder_, error);
    Recorder recorder(part, {44100, 16, 2}, {});
    TappedBlock block;
    block.sound.fill(0.5F);
    test::writeAsStream(*recorder.tap(), block);
    ASSERT_TRUE(test::comesTrue([&recorder] { return recorder.frames() == blockFrames; }));
    // More than the tap holds, at once. The recorder may take some of it meanwhile.
    const auto many = static_cast<int>(Recorder::tapSeconds * streamRateHz / blockFrames) * 3;
    for (int i = 1; i <= many; ++i) {
        block.firstFrame = i * std::int64_t{blockFrames};
        test::writeAsStream(*recorder.tap(), block);
    }
    const std::int64_t lost = recorder.tap()->lost();
    ASSERT_GT(lost, 0);
    // The tap has room again, and the next block comes at its time.
    ASSERT_TRUE(test::comesTrue([&] { return recorder.frames() >= (many - lost) * blockFrames; }));
    block.firstFrame = (many + 1) * std::int64_t{blockFrames};
    test::writeAsStream(*recorder.tap(), block);
    recorder.finish();
    EXPECT_EQ(recorder.frames(), (many + 2) * std::int64_t{blockFrames});
    EXPECT_DOUBLE_EQ(recorder.lostMs(), static_cast<double>(lost * blockFrames) / 44.1);
    EXPECT_FALSE(recorder.isCut());
    const std::string bytes = readBytes(part.path().filename().string());
    EXPECT_EQ(sampleAt(bytes, bytes.size() - 2), 16384) << "the last block is at the end";
    part.remove();
}

/// A source that writes more than the tap can hold, as if the computer were busy.
class TooMuch final : public CaptureSource {
public:
    bool start(std::shared_ptr<SoundTap> tap) override {
        TappedBlock block;
        while (tap->lost() < 2) {
            test::writeAsStream(*tap, block);
            block.firstFrame += blockFrames;
        }
        return true;
    }
    void stop() override {}
};

TEST_F(AKeptRecording, ThatLacksAMillisecondIsSavedAndReported) {
    {
        CaptureDevice device(std::make_unique<TooMuch>(), folders());
        EXPECT_EQ(device.carryOut(readCommand("record capture"), nullptr), 0U);
        EXPECT_EQ(device.carryOut(readCommand("save capture " + at("a.wav")), nullptr), 0U);
    }
    EXPECT_GT(readBytes("a.wav").size(), 44U);
    EXPECT_EQ(told(),
              Texts{"\"a.wav\" lacks 3 ms of sound, which are silent: the computer was too busy. "
                    "Record again with fewer programs running."});
}

TEST_F(AKeptRecording, EndsWhenTheDiskIsFull) {
    {
        const test::FullDisk disk(100'001); // in the middle of a frame
        begin(formatOf(44100, 16, 2));
        pull(44100); // 176,400 bytes
        EXPECT_EQ(send("stop capture"), 0U);
        EXPECT_EQ(told(), Texts{"The recording ends after 0.5 s: the file cannot be longer. What "
                                "was recorded is kept. Record the rest as another one."});
        EXPECT_EQ(send("save capture " + at("a.wav")), 0U);
        EXPECT_EQ(send("save capture " + at("a.wav")), mci::notSaved);
        EXPECT_EQ(send("close capture"), 0U);
    }
    expectWhole(readBytes("a.wav"), 99'956); // 24,989 frames
    EXPECT_EQ(told(), Texts{});
    begin(formatOf(44100, 16, 2));
    pull(44100);
    EXPECT_EQ(send("save capture " + at("b.wav")), 0U) << "with room again it records again";
}

TEST_F(AKeptRecording, ThatWasCutShortReplacesNoFile) {
    writeBytes("older.wav", "older");
    const test::FullDisk disk(100'000);
    begin(formatOf(44100, 16, 2));
    pull(44100);
    EXPECT_EQ(send("save capture " + at("older.wav")), mci::notSaved);
    EXPECT_EQ(readBytes("older.wav"), "older");
    ASSERT_EQ(recordings().size(), 1U);
    expectWhole(readBytes(recordings()[0]), 99'956);
    EXPECT_EQ(told().back(), "The recording could not be saved as \"older.wav\" (the name is "
                             "taken). It is kept " +
                                 placeText(folders(), folder_ / recordings()[0]) + ", 0.5 s long.");
}

TEST_F(AKeptRecording, OfNothingAtAllLeavesNothing) {
    const test::FullDisk disk(44);
    begin(formatOf(44100, 16, 2));
    pull(44100);
    EXPECT_EQ(send("save capture " + at("a.wav")), mci::notSaved);
    EXPECT_EQ(send("close capture"), 0U);
    EXPECT_EQ(told(), Texts{"Nothing was recorded: the file cannot be longer. Record the rest as "
                            "another one."});
    EXPECT_EQ(hidden(), Texts{});
    EXPECT_FALSE(fs::exists(folder_ / "a.wav"));
}

TEST_F(AKeptRecording, EndsWhenAWavFileCannotBeLonger) {
    RecordingFolders few = folders();
    few.mostDataBytes = 401; // 100 frames and a byte
    HostMci files{{engine_, {}, [] { return false; }, [] {}, few}};
    EXPECT_EQ(files.mciSendStringA("open new type waveaudio alias capture", nullptr), 0U);
    EXPECT_EQ(files.mciSendStringA("record capture", nullptr), 0U);
    pull(640);
    EXPECT_EQ(files.mciSendStringA("save capture " + at("a.wav"), nullptr), 0U);
    expectWhole(readBytes("a.wav"), 400);
    EXPECT_EQ(told(), Texts{"The recording ends after 0.0 s: the file cannot be longer. What was "
                            "recorded is kept. Record the rest as another one."});
}

TEST_F(AKeptRecording, GetsItsOwnNameIfItCannotGetTheRequestedOne) {
    fs::create_directory(folder_ / "a.wav");
    recordBlocks();
    EXPECT_EQ(send("save capture " + at("a.wav")), mci::notSaved);
    ASSERT_EQ(recordings().size(), 1U);
    expectWhole(readBytes(recordings()[0]), 2560);
    EXPECT_EQ(send("close capture"), 0U);
    EXPECT_EQ(recordings().size(), 1U) << "it is kept once";
    EXPECT_EQ(told().size(), 1U);
}

TEST_F(AKeptRecording, CreatesAMissingFolderOfSongs) {
    fs::remove_all(folder_);
    recordBlocks();
    EXPECT_EQ(send("save capture " + at("a.wav")), 0U);
    expectWhole(readBytes("a.wav"), 2560);
}

TEST_F(AKeptRecording, SurvivesTheRemovalOfTheFolderOfSongs) {
    recordBlocks();
    fs::remove_all(folder_);
    EXPECT_EQ(send("save capture " + at("a.wav")), 0U);
    expectWhole(readBytes("a.wav"), 2560);
    EXPECT_EQ(hidden(), Texts{});
}

TEST_F(AKeptRecording, GoesToTheSpareFolderIfTheSongsCannotBeWritten) {
    writeBytes("no folder", "");
    {
        HostMci files{
            {engine_, {}, [] { return false; }, [] {}, {folder_ / "no folder", spare_, &notices_}}};
        EXPECT_EQ(files.mciSendStringA("open new type waveaudio alias capture", nullptr), 0U);
        EXPECT_EQ(files.mciSendStringA("record capture", nullptr), 0U);
        pull(640);
        EXPECT_EQ(files.mciSendStringA("save capture " + at("no folder/a.wav"), nullptr),
                  mci::notSaved);
        ASSERT_EQ(recordings(spare_).size(), 1U);
        EXPECT_EQ(files.mciSendStringA("close capture", nullptr), 0U);
    }
    EXPECT_EQ(
        told(),
        Texts{"The recording could not be saved as \"a.wav\" (Not a directory). It is kept as \"" +
              (spare_ / recordings(spare_)[0]).string() + "\", 0.0 s long."});
    EXPECT_EQ(fs::status(spare_).permissions(), fs::perms::owner_all) << "for the user alone";
}

TEST_F(AKeptRecording, CannotBeginWithoutAnyFolder) {
    writeBytes("no folder", "");
    HostMci files{
        {engine_, {}, [] { return false; }, [] {}, {folder_ / "no folder", {}, &notices_}}};
    EXPECT_EQ(files.mciSendStringA("open new type waveaudio alias capture", nullptr), 0U);
    EXPECT_EQ(files.mciSendStringA("record capture", nullptr), mci::hardwareFailed);
    EXPECT_EQ(told(), Texts{"Nothing can be recorded: \"" + at("no folder") +
                            "\" cannot be written to (Not a directory)."});
}

TEST_F(AKeptRecording, OfACrashIsFinishedAtTheNextStart) {
    leave(".recording-1-2.part", {44100, 16, 2}, 4 * 44100 * 2 + 3); // and a part of a frame
    leave(".recording-2-2.part", {22050, 8, 1}, 22051);
    finishAbandonedRecordings(folders());
    ASSERT_EQ(recordings().size(), 2U);
    std::string stereo = readBytes(recordings()[0]);
    std::string mono = readBytes(recordings()[1]);
    if (stereo.size() < mono.size())
        std::swap(stereo, mono);
    expectWhole(stereo, 4 * 44100 * 2);
    expectWhole(mono, 22050);
    EXPECT_EQ(numberAt(mono, 24, 4), 22050U);
    EXPECT_EQ(hidden(), Texts{});
    const Texts texts = told();
    ASSERT_EQ(texts.size(), 2U);
    EXPECT_TRUE(
        texts[0].starts_with("Velorin ended while it recorded. The recording is kept in \"" +
                             folder_.filename().string() + "\" as \"recording "))
        << texts[0];
}

TEST_F(AKeptRecording, OfACrashThatIsCompleteOnlyGetsAName) {
    const WavFormat mono{22050, 8, 1};
    writeBytes(".recording-1-2.part", WavHeader{mono, 3}.bytes() + std::string("abc\0", 4));
    finishAbandonedRecordings(folders());
    ASSERT_EQ(recordings().size(), 1U);
    expectWhole(readBytes(recordings()[0]), 3);
}

TEST_F(AKeptRecording, OfAnotherRunningCopyIsLeftAlone) {
    leave(".recording-3-4.part", {44100, 16, 2}, 4000);
    const int other = open(at(".recording-3-4.part").c_str(), O_RDWR | O_CLOEXEC);
    ASSERT_EQ(flock(other, LOCK_EX | LOCK_NB), 0);
    recordBlocks();
    finishAbandonedRecordings(folders()); // like another copy that starts now
    EXPECT_EQ(hidden().size(), 2U);
    EXPECT_EQ(send("save capture " + at("a.wav")), 0U);
    expectWhole(readBytes("a.wav"), 2560);
    EXPECT_EQ(recordings(), Texts{});
    close(other);
}

TEST_F(AKeptRecording, IsNotMadeOfAFileWithoutSoundOrOfAnotherKind) {
    leave(".recording-1-1.part", {44100, 16, 2}, 0);
    writeBytes(".recording-1-2.part", "");
    writeBytes(".recording-1-3.part", std::string(100, 'x'));
    writeBytes("recording-1-4.part", WavHeader{{44100, 16, 2}, 0}.bytes() + "abcd");
    fs::create_directory(folder_ / ".recording-1-5.part");
    fs::create_symlink("/dev/zero", folder_ / ".recording-1-6.part");
    finishAbandonedRecordings(folders());
    EXPECT_EQ(recordings(), Texts{});
    EXPECT_EQ(told(), Texts{});
    EXPECT_FALSE(fs::exists(folder_ / ".recording-1-1.part"));
    EXPECT_FALSE(fs::exists(folder_ / ".recording-1-2.part"));
    EXPECT_EQ(readBytes(".recording-1-3.part"), std::string(100, 'x'));
    EXPECT_TRUE(fs::exists(folder_ / "recording-1-4.part"));
    EXPECT_TRUE(fs::is_symlink(folder_ / ".recording-1-6.part"));
}

TEST_F(AKeptRecording, OfTheSameSecondGetsACounterInItsName) {
    for (int i = 1; i <= 3; ++i) {
        const std::string name = ".recording-1-" + std::to_string(i) + ".part";
        leave(name, {44100, 16, 2}, 400);
        fs::last_write_time(folder_ / name, fs::file_time_type::clock::now());
    }
    const auto moment = fs::last_write_time(folder_ / ".recording-1-1.part");
    fs::last_write_time(folder_ / ".recording-1-2.part", moment);
    fs::last_write_time(folder_ / ".recording-1-3.part", moment);
    finishAbandonedRecordings(folders());
    const Texts names = recordings();
    ASSERT_EQ(names.size(), 3U);
    const std::string first = names[2].substr(0, names[2].size() - 4); // '(' sorts before '.'
    EXPECT_EQ(names, (Texts{first + " (2).wav", first + " (3).wav", first + ".wav"}));
}

TEST(ALength, IsShownInReadableUnits) {
    EXPECT_EQ(lengthText(0.04), "0.0 s");
    EXPECT_EQ(lengthText(0.79), "0.7 s");
    EXPECT_EQ(lengthText(59.99), "59.9 s");
    EXPECT_EQ(lengthText(123.0), "2 min 3 s");
    EXPECT_EQ(lengthText(24347.0), "6 h 45 min");
}

TEST(AHeader, IsRecognised) {
    const std::string bytes = WavHeader{{22050, 8, 2}, 1000}.bytes();
    const auto header = WavHeader::read(bytes + "sound");
    ASSERT_TRUE(header);
    EXPECT_EQ(header->dataBytes, 1000U);
    EXPECT_EQ(header->format.bytesPerSecond(), 44100);
    EXPECT_FALSE(WavHeader::read(bytes.substr(0, 43)));
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        std::string other = bytes;
        other[i] = '!';
        const bool isLength = (i >= 4 && i < 8) || i >= 40; // of the file, and of the sound
        EXPECT_EQ(WavHeader::read(other).has_value(), isLength) << i;
    }
}

} // namespace
} // namespace velorin::host
