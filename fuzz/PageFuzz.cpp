// Any text as a title and a score: whatever they are, the page has the same markup, so that neither
// can put anything of its own into it.
#include "Expect.h"
#include "convert/page/PageText.h"
#include "convert/page/SongPage.h"
#include "model/Score.h"
#include "model/ScoreReader.h"

#include <algorithm>
#include <memory>
#include <sstream>
#include <string>

using namespace velorin;

namespace {

std::unique_ptr<Score> scoreOf(const std::string& text) {
    auto score = std::make_unique<Score>();
    std::istringstream file(text);
    ScoreReader reader(&file, *score);
    reader.readRows();
    reader.readTempo();
    reader.readRowInstruments();
    reader.readChordMarks();
    return score;
}

std::string pageOf(const std::string& title, const std::string& text, const Score& score) {
    const auto page = convert::makeSongPage({title, text, {0.12, 0.24, 0.36}}, score);
    return page.beforeSound + page.afterSound;
}

auto countOf(const std::string& page, char sign) {
    return std::count(page.begin(), page.end(), sign);
}

bool isControl(char sign) {
    return static_cast<unsigned char>(sign) < 0x20 && sign != '\n';
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const std::string input(reinterpret_cast<const char*>(data), size);
    const std::size_t end = std::min(input.find('\n'), input.size());
    const std::string title = input.substr(0, end);
    const std::string text = end < input.size() ? input.substr(end + 1) : "";
    const auto score = scoreOf(text);
    const std::string page = pageOf(title, text, *score);
    const std::string plain = pageOf("song", "", *score);
    for (const char sign : {'<', '>', '"', '\n'})
        expect(countOf(page, sign) == countOf(plain, sign));
    expect(std::none_of(page.begin(), page.end(), isControl));
    const std::string encoded = convert::base64(input);
    expect(encoded.size() == (size + 2) / 3 * 4);
    return 0;
}
