// The commands of the device that records.
#pragma once

#include "host/Complaint.h"
#include "host/mci/CaptureSource.h"
#include "host/mci/MciDevice.h"
#include "host/mci/PartFile.h"
#include "host/mci/Recorder.h"
#include "host/mci/TimeFormat.h"
#include "host/media/WavWriter.h"

#include <filesystem>
#include <memory>

namespace velorin::host {

/// set samplespersec N channels N bitspersample N alignment N bytespersec N, record, stop, save
/// NAME, status length|position|mode|ready. The recording is a hidden file in `folder` until it is
/// saved, and goes away with the device if it never is. Making a device clears away what a program
/// that crashed has left there.
class CaptureDevice final : public MciDevice {
public:
    CaptureDevice(std::unique_ptr<CaptureSource> source, std::filesystem::path folder);
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
    std::uint32_t status(const std::string& text, std::string* reply);

    std::unique_ptr<CaptureSource> source_;
    PartFile part_;
    WavFormat format_;
    TimeFormat timeFormat_ = TimeFormat::milliseconds;
    std::unique_ptr<Recorder> recorder_; ///< while it records
    std::int64_t frames_ = 0;            ///< of what was recorded
    bool recorded_ = false;              ///< the hidden file is there
    bool whole_ = false;                 ///< and holds all that was recorded
    Complaint notSaved_;
};

} // namespace velorin::host
