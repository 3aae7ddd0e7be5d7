// Binds the library's functions.
#include "host/media/Lame.h"

#include <dlfcn.h>

namespace velorin::host {

namespace {

/// Binds functions by name and records whether all were found.
class Binder {
public:
    explicit Binder(void* library) : library_(library) {}

    template <typename Call>
    void operator()(Call& call, const char* name) {
        void* symbol = dlsym(library_, name);
        call = reinterpret_cast<Call>(symbol);
        complete_ = complete_ && symbol;
    }

    [[nodiscard]] bool isComplete() const { return complete_; }

private:
    void* library_;
    bool complete_ = true;
};

void sayNothing(const char*, va_list) {}

} // namespace

std::shared_ptr<const Lame> Lame::load(const std::filesystem::path& name) {
    void* handle = dlopen(name.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!handle)
        return nullptr;
    auto lame = std::make_shared<Lame>();
    lame->library.reset(handle, dlclose);
    Binder bind(handle);
    bind(lame->init, "lame_init");
    bind(lame->setInSampleRate, "lame_set_in_samplerate");
    bind(lame->setOutSampleRate, "lame_set_out_samplerate");
    bind(lame->setChannels, "lame_set_num_channels");
    bind(lame->setMode, "lame_set_mode");
    bind(lame->setBitrate, "lame_set_brate");
    bind(lame->setQuality, "lame_set_quality");
    bind(lame->setWriteTag, "lame_set_bWriteVbrTag");
    bind(lame->setCopyright, "lame_set_copyright");
    bind(lame->setOriginal, "lame_set_original");
    bind(lame->setExtension, "lame_set_extension");
    bind(lame->setErrorProtection, "lame_set_error_protection");
    bind(lame->setErrorReport, "lame_set_errorf");
    bind(lame->setDebugReport, "lame_set_debugf");
    bind(lame->setMessageReport, "lame_set_msgf");
    bind(lame->initParameters, "lame_init_params");
    bind(lame->encodeInterleaved, "lame_encode_buffer_interleaved");
    bind(lame->encode, "lame_encode_buffer");
    bind(lame->flush, "lame_encode_flush");
    bind(lame->tagFrame, "lame_get_lametag_frame");
    bind(lame->close, "lame_close");
    return bind.isComplete() ? lame : nullptr;
}

void LameStream::silence() const {
    lame_->setErrorReport(flags_, sayNothing);
    lame_->setDebugReport(flags_, sayNothing);
    lame_->setMessageReport(flags_, sayNothing);
}

} // namespace velorin::host
