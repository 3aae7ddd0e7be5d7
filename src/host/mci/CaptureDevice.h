// The commands of the device that records.
#pragma once

#include "host/mci/CaptureSource.h"
#include "host/mci/MciDevice.h"
#include "host/mci/PartFile.h"
#include "host/mci/Recorder.h"
#include "host/mci/RecordingFiles.h"
#include "host/mci/TimeFormat.h"
#include "host/media/WavHeader.h"

#include <filesystem>
#include <memory>

namespace velorin::host {

/// set samplespersec N channels N bitspersample N alignment N bytespersec N, record, stop, save
/// NAME, status length|position|mode|ready. The recording is a hidden file in "Songs" until it is
/// saved. What cannot have the name that it is saved under, and what is not saved when the device
/// goes or records again, is kept under a name of its own, and a notice says so.
class CaptureDevice final : public MciDevice {
public:
    CaptureDevice(std::unique_ptr<CaptureSource> source, RecordingFolders folders);
    ~CaptureDevice() override;
    CaptureDevice(const CaptureDevice&) = delete;
    CaptureDevice& operator=(const CaptureDevice&) = delete;

    std::uint32_t carryOut(const CommandText& command, std::string* reply) override;
    bool isRunning() override { return recorder_ != nullptr; }

private:
    std::uint32_t set(const std::string& text);
    std::uint32_t record();
    void stop();
    std::uint32_t save(const std::string& name);
    void keep(const std::string& reason);
    void reportLost(const std::filesystem::path& file);
    std::uint32_t status(const std::string& text, std::string* reply);

    std::unique_ptr<CaptureSource> source_;
    RecordingFolders folders_;
    PartFile part_; ///< open while there is a recording that has no name yet
    WavFormat format_;
    TimeFormat timeFormat_ = TimeFormat::milliseconds;
    std::unique_ptr<Recorder> recorder_; ///< while it records
    std::int64_t frames_ = 0;            ///< of what was recorded
    double seconds_ = 0.0;               ///< the same
    double lostMs_ = 0.0;                ///< of it
    bool isCut_ = false;                 ///< it ends before its time
};

} // namespace velorin::host
