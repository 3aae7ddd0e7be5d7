// Any bytes as a command line of the converter, one argument per line: it is valid or has a
// problem, and its report is valid JSON.
#include "Expect.h"
#include "convert/Batch.h"
#include "convert/Options.h"

#include <algorithm>
#include <string>
#include <vector>

using namespace velorin::convert;

namespace {

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find('\n', at), text.size());
        lines.push_back(text.substr(at, end - at));
        at = end + 1;
    }
    return lines;
}

// Names may have any bytes, but the report has only its own line ends and no control characters.
void expectIsPlainJson(const std::string& report, std::size_t files) {
    const auto isControl = [](char c) { return static_cast<unsigned char>(c) < 0x20 && c != '\n'; };
    expect(std::none_of(report.begin(), report.end(), isControl));
    constexpr std::size_t ownLines = 7;
    expect(static_cast<std::size_t>(std::count(report.begin(), report.end(), '\n')) ==
           ownLines + files);
    bool quoted = false;
    for (std::size_t i = 0; i < report.size(); ++i) {
        if (quoted && report[i] == '\\')
            ++i;
        else if (report[i] == '"')
            quoted = !quoted;
        expect(!(quoted && report[i] == '\n'));
    }
    expect(!quoted);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const Options options = readOptions(linesOf({reinterpret_cast<const char*>(data), size}));
    if (!options.problem.empty() || options.help || options.version)
        return 0;
    expect(options.usesHistory || !options.tasks.empty());
    expect(options.rateHz >= 8000 && options.rateHz <= 96000);
    expect(options.bitrate.value_or(8) >= 8 && options.bitrate.value_or(8) <= 320);
    expect(options.maxMinutes >= 1 && options.maxMinutes <= 1440);
    expect(options.quality >= -1 && options.quality <= 9);
    expect(options.jobs >= 0 && options.jobs <= 1000);
    std::vector<ConversionResult> results;
    for (const Task& task : options.tasks)
        results.push_back({task.source, task.target, Outcome::failed, task.source, 0.5});
    expectIsPlainJson(reportOf(results), results.size());
    return 0;
}
