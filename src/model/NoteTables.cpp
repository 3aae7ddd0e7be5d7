// The names of the pitches.
#include "model/NoteTables.h"

#include "model/Cell.h"

namespace velorin {

std::optional<std::string> NoteName(int pitchIndex) {
    if (pitchIndex < 0 || pitchIndex > lastPitch)
        return std::nullopt;
    const int key = PitchToKey(pitchIndex);
    return std::to_string(key / 12).append(NoteLetters[static_cast<std::size_t>(key % 12)]);
}

} // namespace velorin
