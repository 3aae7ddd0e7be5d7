// The LAME library, loaded by name at run time.
#pragma once

#include <cstdarg>
#include <cstddef>
#include <filesystem>
#include <memory>

namespace velorin::host {

struct LameFlags; ///< the library's own, one for each encoding

/// The functions of the library that are used here.
struct Lame {
    /// Null if there is no such library, or a function is missing. `name`: a path, or a file name
    /// that the system looks for in its library folders.
    [[nodiscard]] static std::shared_ptr<const Lame> load(const std::filesystem::path& name);

    static constexpr char fileName[] = "libmp3lame.so.0";

    LameFlags* (*init)();
    int (*setInSampleRate)(LameFlags*, int);
    int (*setOutSampleRate)(LameFlags*, int);
    int (*setChannels)(LameFlags*, int);
    int (*setMode)(LameFlags*, int);
    int (*setBitrate)(LameFlags*, int);
    int (*setQuality)(LameFlags*, int);
    int (*setWriteTag)(LameFlags*, int);
    int (*setCopyright)(LameFlags*, int);
    int (*setOriginal)(LameFlags*, int);
    int (*setExtension)(LameFlags*, int);
    int (*setErrorProtection)(LameFlags*, int);
    int (*setErrorReport)(LameFlags*, void (*)(const char*, va_list));
    int (*setDebugReport)(LameFlags*, void (*)(const char*, va_list));
    int (*setMessageReport)(LameFlags*, void (*)(const char*, va_list));
    int (*initParameters)(LameFlags*);
    int (*encodeInterleaved)(LameFlags*, short*, int, unsigned char*, int);
    int (*encode)(LameFlags*, const short*, const short*, int, unsigned char*, int);
    int (*flush)(LameFlags*, unsigned char*, int);
    std::size_t (*tagFrame)(const LameFlags*, unsigned char*, std::size_t);
    int (*close)(LameFlags*);

    std::shared_ptr<void> library; ///< stays loaded as long as this lives
};

// The library's numbers for channel modes.
constexpr int lameJointStereo = 1;
constexpr int lameMono = 3;

/// One encoding. Closes the library's flags at its end.
class LameStream {
public:
    explicit LameStream(std::shared_ptr<const Lame> lame) : lame_(std::move(lame)) {
        flags_ = lame_->init();
    }
    ~LameStream() {
        if (flags_)
            lame_->close(flags_);
    }
    LameStream(const LameStream&) = delete;
    LameStream& operator=(const LameStream&) = delete;

    /// False if the library could not begin. Nothing else may be called then.
    [[nodiscard]] bool isValid() const { return flags_ != nullptr; }

    [[nodiscard]] const Lame& calls() const { return *lame_; }
    [[nodiscard]] LameFlags* flags() const { return flags_; }

    /// Suppresses the library's messages on standard error.
    void silence() const;

    /// The size in bytes of an output buffer for so many frames.
    [[nodiscard]] static std::size_t outputSize(std::size_t frames) {
        return frames + frames / 4 + 7200;
    }

private:
    std::shared_ptr<const Lame> lame_;
    LameFlags* flags_ = nullptr;
};

} // namespace velorin::host
