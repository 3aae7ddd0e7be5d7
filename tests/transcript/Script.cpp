// Reads transcripts and compares expected with actual answers.
#include "Script.h"

#include "Runner.h"

#include <fstream>
#include <sstream>

namespace transcript {

Script readScript(const std::string& path) {
    std::ifstream stream(path, std::ios::binary);
    std::ostringstream text;
    if (!stream || !(text << stream.rdbuf()))
        throw CommandError("cannot read " + path);
    return parseScript(text.str());
}

Script parseScript(const std::string& text) {
    Script script;
    std::istringstream stream(text);
    std::string line;
    bool behindCommand = false;
    for (int number = 1; std::getline(stream, line); ++number) {
        if (line.starts_with("> ")) {
            script.push_back({number, true, line.substr(2), {}});
            behindCommand = true;
        } else if (line.empty() || line.starts_with("# ") || !behindCommand) {
            script.push_back({number, false, line, {}});
            behindCommand = false;
        } else {
            script.back().expected.push_back(line);
        }
    }
    return script;
}

std::vector<Lines> answersOf(const Script& script) {
    Runner runner;
    std::vector<Lines> answers;
    answers.reserve(script.size());
    for (const Step& step : script)
        answers.push_back(step.isCommand ? runner.run(step.text) : Lines{});
    return answers;
}

std::string printed(const Script& script, const std::vector<Lines>& answers) {
    std::string text;
    for (std::size_t i = 0; i < script.size(); ++i) {
        text += (script[i].isCommand ? "> " : "") + script[i].text + "\n";
        for (const std::string& line : answers[i])
            text += line + "\n";
    }
    return text;
}

std::string differences(const std::string& path, const Script& script,
                        const std::vector<Lines>& answers) {
    std::string text;
    for (std::size_t i = 0; i < script.size(); ++i) {
        const Step& step = script[i];
        if (!step.isCommand || step.expected == answers[i])
            continue;
        text += path + ":" + std::to_string(step.line) + ": > " + step.text + "\n";
        for (const std::string& line : step.expected)
            text += "  expected: " + line + "\n";
        for (const std::string& line : answers[i])
            text += "  printed:  " + line + "\n";
        if (answers[i].empty())
            text += "  printed nothing\n";
    }
    return text;
}

} // namespace transcript
