// Any bytes as a SoundFont: its list of presets fits into the file.
#include "MemoryFile.h"
#include "host/synth/SoundFontHeader.h"

using namespace velorin::host;

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const MemoryFile file(data, size);
    const auto presets = readPresets(file.path());
    if (!presets)
        return 0;
    expect(presets->size() * 38 <= size);
    for (const Preset& preset : *presets) {
        expect(preset.bank >= 0 && preset.bank <= 0xFFFF);
        expect(preset.program >= 0 && preset.program <= 0xFFFF);
    }
    expect(!isGeneralMidi(*presets) || presets->size() > 128);
    return 0;
}
