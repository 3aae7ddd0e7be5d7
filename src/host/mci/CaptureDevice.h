// The device that records.
#pragma once

#include "host/capture/CaptureSource.h"
#include "host/capture/PartFile.h"
#include "host/capture/Recorder.h"
#include "host/capture/RecordingFiles.h"
#include "host/mci/MciDevice.h"
#include "host/mci/TimeFormat.h"
#include "host/media/WavHeader.h"

#include <filesystem>
#include <memory>

namespace velorin::host {

/// set samplespersec N channels N bitspersample N alignment N bytespersec N, record, stop, save
/// NAME, status length|position|mode|ready. The recording is a hidden file in "Songs" until it is
/// saved. If it cannot get the requested name, or is not saved before the device is closed or
/// records again, it gets a name of its own, and a notice says so.
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
    PartFile part_; ///< open while there is a recording without a name
    WavFormat format_;
    TimeFormat timeFormat_ = TimeFormat::milliseconds;
    std::unique_ptr<Recorder> recorder_; ///< while it records
    std::int64_t frames_ = 0;            ///< of the last recording
    double seconds_ = 0.0;               ///< likewise
    double lostMs_ = 0.0;                ///< likewise
    bool isCut_ = false;                 ///< it was cut short
};

} // namespace velorin::host
