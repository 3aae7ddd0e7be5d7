// The variables that `var`, `let` and `row` know by name.
#pragma once

#include "Answers.h"
#include "Session.h"
#include "Words.h"

#include <array>
#include <cstdint>
#include <functional>
#include <limits>
#include <string>
#include <type_traits>
#include <vector>

namespace transcript {

using Indices = std::vector<int>;

/// `write` is empty for what cannot be written.
struct Variable {
    std::string name;
    std::vector<int> sizes; ///< one bound an index: [0, size)
    std::function<Lines(Session&, const Indices&)> read;
    std::function<void(Session&, const Indices&, const std::string&)> write;
};

using Variables = std::vector<Variable>;

template <class Value>
void readInto(Value& target, Session& session, const std::string& word) {
    if constexpr (std::is_same_v<Value, std::string>)
        target = session.path(word);
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
    if constexpr (std::is_same_v<Value, std::string> || std::is_floating_point_v<Value>)
        return answer(value);
    else
        return answer(static_cast<std::int64_t>(value));
}

/// A number or a text that `reach` finds.
template <class Reach>
Variable variable(std::string name, Reach reach) {
    return {std::move(name),
            {},
            [reach](Session& session, const Indices&) { return printedValue(reach(session)); },
            [reach](Session& session, const Indices&, const std::string& word) {
                readInto(reach(session), session, word);
            }};
}

/// An array of `size` entries that `reach` finds.
template <class Reach>
Variable arrayVariable(std::string name, int size, Reach reach) {
    const auto entry = [reach](Session & session, const Indices& at) -> auto& {
        return reach(session)[static_cast<std::size_t>(at[0])];
    };
    return {
        std::move(name),
        {size},
        [entry](Session& session, const Indices& at) { return printedValue(entry(session, at)); },
        [entry](Session& session, const Indices& at, const std::string& word) {
            readInto(entry(session, at), session, word);
        }};
}

/// A grid that `reach` finds.
template <class Reach>
Variable gridVariable(std::string name, int rows, int columns, Reach reach) {
    return {std::move(name),
            {rows, columns},
            [reach](Session& session, const Indices& at) {
                return printedValue(reach(session).at(at[0], at[1]));
            },
            [reach](Session& session, const Indices& at, const std::string& word) {
                std::int16_t value = 0;
                readInto(value, session, word);
                reach(session).write(at[0], at[1], value);
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
[[nodiscard]] Variables tableVariables(); ///< tables that are only read

} // namespace transcript
