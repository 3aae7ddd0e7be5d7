// Any bytes as a number: as a field of a line it has the same value as alone.
#include "Expect.h"
#include "model/SequentialText.h"
#include "platform/Text.h"

#include <cmath>
#include <optional>
#include <sstream>

using namespace velorin;

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    expect(!std::isnan(platform::Val(text)));

    // Only the first 400 characters of a field are read.
    const bool isOneField = text.find_first_of(",\r\n") == std::string::npos;
    if (size == 0 || size > 300 || !isOneField)
        return 0;
    std::istringstream file(text);
    SequentialText line(&file);
    std::optional<std::int16_t> stored;
    line.readFields(1, [&stored](int, std::int16_t value) { stored = value; });
    expect(stored == platform::readInt16(text));
    expect(line.atEnd());
    return 0;
}
