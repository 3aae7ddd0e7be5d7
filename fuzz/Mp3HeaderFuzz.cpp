// Any bytes as the header of an MP3 file: every text that is shown is in the tables.
#include "Expect.h"
#include "recording/Mp3Header.h"

#include <algorithm>

using namespace velorin;

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    std::array<std::uint8_t, 4> bytes{};
    std::copy_n(data, std::min(size, bytes.size()), bytes.begin());
    const Mp3Header header = readMp3Header(bytes);
    expect(!header.khz || *header.khz == "44" || *header.khz == "32" || *header.khz == "48");
    expect(header.mode == "stereo" || header.mode == "mono");
    const int bitrate = std::atoi(header.bitrate.c_str());
    expect(bitrate >= 0 && bitrate <= 320 && std::to_string(bitrate) == header.bitrate);
    return 0;
}
