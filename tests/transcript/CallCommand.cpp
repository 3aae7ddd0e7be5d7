// The command `call`.
#include "Commands.h"
#include "ControlNames.h"
#include "Operations.h"
#include "Runner.h"

#include <array>
#include <map>

namespace transcript {

namespace {

using Table = std::map<std::string, std::function<Lines(Runner&, Arguments&)>>;

Table gathered() {
    Table table;
    for (const Operations& operations :
         {scoreOperations(), playbackOperations(), tableauOperations(), shellOperations(),
          frameOperations(), menuOperations(), setupOperations(), editingOperations(),
          editingToolbarOperations(), recordOperations(), tutorialOperations()}) {
        for (const Operation& each : operations)
            table[each.name] = each.run;
    }
    return table;
}

/// "StartNote" is "Form1.StartNote".
std::string fullName(const std::string& name) {
    return name.find('.') == std::string::npos ? "Form1." + name : name;
}

Lines call(Runner& runner, const Words& words) {
    static const Table table = gathered();
    if (words.empty())
        throw CommandError("too few words");
    const auto found = table.find(fullName(words.front()));
    if (found == table.end())
        throw CommandError("no such operation: " + words.front());
    (void)runner.program();
    Arguments arguments(runner, Words(words.begin() + 1, words.end()));
    return found->second(runner, arguments);
}

} // namespace

std::string Arguments::text() {
    return runner_.path(word());
}

const std::string& Arguments::word() {
    if (isAtEnd())
        throw CommandError("too few words");
    return words_[used_++];
}

void Arguments::expectEnd() const {
    if (!isAtEnd())
        throw CommandError("too many words");
}

std::span<const Command> callCommands() {
    static constexpr std::array commands{Command{"call", call}};
    return commands;
}

} // namespace transcript
