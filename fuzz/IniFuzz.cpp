// Any bytes as an INI file: a value that is set is found, and all others stay.
#include "Expect.h"
#include "host/files/IniFile.h"

#include <array>
#include <string>

using namespace velorin::host;

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    const std::string changed = withIniValue(text, "MCI", "MPEGVideo", "mciqtz.drv");
    expect(iniValue(changed, "mci", "mpegvideo") == "mciqtz.drv");
    constexpr std::array<std::array<const char*, 2>, 3> others{
        {{"MCI", "WaveAudio"}, {"drivers", "MPEGVideo"}, {"", ""}}};
    for (const auto& [section, key] : others)
        expect(iniValue(changed, section, key) == iniValue(text, section, key));
    expect(withIniValue(changed, "MCI", "MPEGVideo", "mciqtz.drv") == changed);
    return 0;
}
