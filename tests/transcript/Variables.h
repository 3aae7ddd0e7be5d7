// The variables that `var`, `let` and `row` know by name.
#pragma once

#include "Answers.h"
#include "Runner.h"
#include "Words.h"
#include "studio/Flag.h"

#include <array>
#include <cstdint>
#include <functional>
#include <limits>
#include <string>
#include <type_traits>
#include <vector>

namespace transcript {

using Indices = std::vector<int>;

/// `write` is empty for a read-only variable.
struct Variable {
    std::string name;
    std::vector<int> sizes; ///< one bound per index: [0, size)
    std::function<Lines(Runner&, const Indices&)> read;
    std::function<void(Runner&, const Indices&, const std::string&)> write;
};

using Variables = std::vector<Variable>;

template <class Value>
void readInto(Value& target, Runner& runner, const std::string& word) {
    if constexpr (std::is_same_v<Value, velorin::Flag>)
        readInto(target.number, runner, word);
    else if constexpr (std::is_same_v<Value, std::string>)
        target = runner.path(word);
    else if constexpr (std::is_floating_point_v<Value>)
        target = static_cast<Value>(realNumber(word));
    else if constexpr (std::is_same_v<Value, std::uint32_t>)
        target = static_cast<Value>(static_cast<std::uint64_t>(wholeNumber(word)));
    else
        target = static_cast<Value>(numberBetween(word, std::numeric_limits<Value>::min(),
                                                  std::numeric_limits<Value>::max()));
}

template <class Value>
Lines printedValue(const Value& value) {
    if constexpr (std::is_same_v<Value, velorin::Flag>)
        return printedValue(value.number);
    else if constexpr (std::is_same_v<Value, std::string> || std::is_floating_point_v<Value>)
        return answer(value);
    else
        return answer(static_cast<std::int64_t>(value));
}

/// The number or text that `reach` finds.
template <class Reach>
Variable variable(std::string name, Reach reach) {
    return {std::move(name),
            {},
            [reach](Runner& runner, const Indices&) { return printedValue(reach(runner)); },
            [reach](Runner& runner, const Indices&, const std::string& word) {
                readInto(reach(runner), runner, word);
            }};
}

/// The array of `size` entries that `reach` finds.
template <class Reach>
Variable arrayVariable(std::string name, int size, Reach reach) {
    const auto entry = [reach](Runner & runner, const Indices& at) -> auto& {
        return reach(runner)[at[0]];
    };
    return {std::move(name),
            {size},
            [entry](Runner& runner, const Indices& at) { return printedValue(entry(runner, at)); },
            [entry](Runner& runner, const Indices& at, const std::string& word) {
                readInto(entry(runner, at), runner, word);
            }};
}

/// The grid that `reach` finds.
template <class Reach>
Variable gridVariable(std::string name, int rows, int columns, Reach reach) {
    return {std::move(name),
            {rows, columns},
            [reach](Runner& runner, const Indices& at) {
                return printedValue(reach(runner).at(at[0], at[1]));
            },
            [reach](Runner& runner, const Indices& at, const std::string& word) {
                std::int16_t value = 0;
                readInto(value, runner, word);
                reach(runner).write(at[0], at[1], value);
            }};
}

// One table for each subject.
[[nodiscard]] Variables scoreVariables();
[[nodiscard]] Variables viewVariables();
[[nodiscard]] Variables runVariables();
[[nodiscard]] Variables playbackVariables();
[[nodiscard]] Variables recordVariables();
[[nodiscard]] Variables editingVariables();
[[nodiscard]] Variables setupVariables();
[[nodiscard]] Variables editingToolbarVariables();
[[nodiscard]] Variables tableVariables(); ///< read-only tables

} // namespace transcript
