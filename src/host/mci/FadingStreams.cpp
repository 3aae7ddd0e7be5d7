// Removes streams from the engine when they are silent.
#include "host/mci/FadingStreams.h"

#include "host/engine/SoundEngine.h"

namespace velorin::host {

FadingStreams::~FadingStreams() {
    for (const auto& stream : fading_)
        engine_.remove(stream.get());
}

void FadingStreams::end(std::shared_ptr<FileStream> stream) {
    stream->end();
    fading_.push_back(std::move(stream));
    sweep();
}

void FadingStreams::sweep() {
    std::erase_if(fading_, [this](const std::shared_ptr<FileStream>& stream) {
        if (stream->isSilent())
            engine_.remove(stream.get());
        return stream->isSilent();
    });
}

} // namespace velorin::host
