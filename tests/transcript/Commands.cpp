// Finds a command by name.
#include "Commands.h"

#include "Answers.h"
#include "Runner.h"

namespace transcript {

namespace {

const Command& find(const std::string& name) {
    for (const auto& table :
         {callCommands(), controlCommands(), mouseCommands(), gridCommands(), historyCommands(),
          timeCommands(), deviceCommands(), dialogCommands(), fileCommands(), pictureCommands()}) {
        for (const Command& command : table) {
            if (name == command.name)
                return command;
        }
    }
    throw CommandError("no such command: " + name);
}

} // namespace

Lines carryOut(Runner& runner, const Words& words) {
    if (words.empty())
        throw CommandError("no command");
    const Command& command = find(words.front());
    Lines lines = command.run(runner, Words(words.begin() + 1, words.end()));
    const std::string folder = runner.folder();
    for (std::string& line : lines)
        line = command.printsFiles ? printedFileLine(line, folder) : printedLine(line, folder);
    return lines;
}

} // namespace transcript
