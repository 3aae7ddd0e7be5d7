// Commands on the state of the studio: var, let, row, grids, note.
#include "Commands.h"
#include "ControlNames.h"
#include "Variables.h"

#include "studio/Studio.h"

#include <array>
#include <map>

namespace transcript {

using namespace velorin;

namespace {

std::map<std::string, Variable> gathered() {
    std::map<std::string, Variable> table;
    for (const Variables& variables :
         {scoreVariables(), viewVariables(), runVariables(), playbackVariables(),
          editingVariables(), setupVariables(), editingToolbarVariables(), tableVariables(),
          recordVariables()}) {
        for (const Variable& each : variables) {
            table[each.name] = each;
            // A variable of another window is also known without the window's name.
            table[each.name.substr(each.name.find('.') + 1)] = each;
        }
    }
    return table;
}

const Variable& find(const std::string& name) {
    static const std::map<std::string, Variable> table = gathered();
    auto found = table.find(name);
    // A variable that all windows share is known with any window's name.
    const std::size_t dot = name.find('.');
    if (found == table.end() && dot != std::string::npos && isWindowName(name.substr(0, dot)))
        found = table.find(name.substr(dot + 1));
    if (found == table.end())
        throw CommandError("no such variable: " + name);
    return found->second;
}

void expectIndices(const Variable& variable, const Indices& indices) {
    if (indices.size() != variable.sizes.size())
        throw CommandError("wrong number of indices: " + variable.name);
    for (std::size_t i = 0; i < indices.size(); ++i) {
        if (indices[i] < 0 || indices[i] >= variable.sizes[i])
            throw CommandError("index out of range: " + variable.name);
    }
}

Lines var(Runner& runner, const Words& words) {
    expectWords(words, 1);
    const Name name = parseName(words[0]);
    const Variable& variable = find(name.text);
    expectIndices(variable, name.indices);
    return variable.read(runner, name.indices);
}

Lines let(Runner& runner, const Words& words) {
    expectWords(words, 2);
    const Name name = parseName(words[0]);
    const Variable& variable = find(name.text);
    expectIndices(variable, name.indices);
    if (!variable.write)
        throw CommandError("cannot be written: " + name.text);
    variable.write(runner, name.indices, words[1]);
    return {};
}

Lines row(Runner& runner, const Words& words) {
    expectWords(words, 4);
    const Variable& variable = find(words[0]);
    if (variable.sizes.size() != 2)
        throw CommandError("no grid: " + words[0]);
    std::string line;
    const int last = plainNumber(words[3]);
    for (int column = plainNumber(words[2]); column <= last; ++column) {
        const Indices at{plainNumber(words[1]), column};
        expectIndices(variable, at);
        line += (line.empty() ? "" : ",") + variable.read(runner, at).front();
    }
    return {line};
}

/// One line for each run of cells that are not empty.
template <class SomeGrid>
void appendRuns(Lines& lines, const char* name, const SomeGrid& grid, int blank) {
    for (int r = 0; r < SomeGrid::rows; ++r) {
        bool inRun = false;
        for (int c = 0; c < SomeGrid::columns; ++c) {
            const int value = grid.at(r, c);
            if (value == blank) {
                inRun = false;
                continue;
            }
            if (inRun)
                lines.back() += ",";
            else
                lines.push_back(std::string(name) + " " + std::to_string(r) + " " +
                                std::to_string(c) + ": ");
            lines.back() += std::to_string(value);
            inRun = true;
        }
    }
}

Lines grids(Runner& runner, const Words& words) {
    expectWords(words, 0);
    const Score& score = runner.studio().score;
    Lines lines;
    appendRuns(lines, "NoteArray", score.NoteArray, emptyCell);
    appendRuns(lines, "InstrumentArray", score.InstrumentArray, 0);
    appendRuns(lines, "PolyArray", score.PolyArray, 0);
    return lines;
}

Lines note(Runner& runner, const Words& words) {
    expectWords(words, 5);
    Score& score = runner.studio().score;
    const int atRow = plainNumber(words[0]);
    const int column = plainNumber(words[1]);
    const int pitch = numberBetween(words[2], -32768, 31767);
    const int length = numberBetween(words[3], 0, scoreColumns);
    const int instrument = numberBetween(words[4], -32768, 32767);
    if (!NoteGrid::holds(atRow, column))
        throw CommandError("no such cell");
    for (int i = 0; i < length; ++i) {
        const int cell = i == 0 ? pitch : heldOffset + pitch;
        score.NoteArray.write(atRow, column + i, static_cast<std::int16_t>(cell));
        score.InstrumentArray.write(atRow, column + i, static_cast<std::int16_t>(instrument));
    }
    return {};
}

} // namespace

std::span<const Command> gridCommands() {
    static constexpr std::array commands{
        Command{"var", var},     Command{"let", let},   Command{"row", row},
        Command{"grids", grids}, Command{"note", note},
    };
    return commands;
}

} // namespace transcript
