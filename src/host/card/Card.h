// The sound card, in and out.
#pragma once

#include "host/process/StreamThread.h"
#include "platform/Result.h"

#include <functional>
#include <memory>

namespace velorin::host {

/// Gets the next `frames` frames from the input, or writes them for the output: left and right
/// interleaved. Called on a thread of the card.
using CardCall = std::function<void(float* stereo, int frames)>;

enum class CardDirection { output, input };

/// An open stream of the sound card. It is paused until `run`.
class CardStream {
public:
    virtual ~CardStream() = default; ///< closes it; no call runs afterwards

    virtual void run() = 0;   ///< calls from now on
    virtual void pause() = 0; ///< no call runs after this

    /// True once the card has gone away; the calls may go on. From any thread.
    VELORIN_STREAM_THREAD [[nodiscard]] virtual bool isLost() const = 0;
};

/// What is opened: the default device of the machine.
struct CardRequest {
    CardDirection direction = CardDirection::output;
    int rateHz = 0;
    int bufferFrames = 0; ///< of a call
    CardCall call;
};

/// Opens a stream. Fails with the reason if there is no usable card. From any thread.
using OpenCard = platform::Result<std::unique_ptr<CardStream>> (*)(CardRequest request);

} // namespace velorin::host
