// The procedures that `call` knows by name, and the parsing of their arguments.
#pragma once

#include "Answers.h"
#include "Words.h"

#include <cstdint>
#include <functional>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

namespace transcript {

class Runner;

/// The words after the name of an operation, read from left to right.
class Arguments {
public:
    Arguments(Runner& runner, Words words) : runner_(runner), words_(std::move(words)) {}

    template <class Value>
    Value next() {
        if constexpr (std::is_same_v<Value, bool>)
            return numberBetween(word(), -1, 1) != 0;
        else if constexpr (std::is_integral_v<Value>)
            return static_cast<Value>(plainNumber(word()));
        else if constexpr (std::is_floating_point_v<Value>)
            return static_cast<Value>(realNumber(word()));
        else
            return text();
    }

    /// A text; '@' in a path is replaced with the folder.
    std::string text();
    [[nodiscard]] bool isAtEnd() const { return used_ == words_.size(); }
    /// Throws if there are unread words.
    void expectEnd() const;
    /// For handlers that ignore some arguments.
    void ignoreRest() { used_ = words_.size(); }

private:
    const std::string& word();

    Runner& runner_;
    Words words_;
    std::size_t used_ = 0;
};

/// `name` with its window: "Form1.StartNote". `run` returns the lines of its result.
struct Operation {
    std::string name;
    std::function<Lines(Runner&, Arguments&)> run;
};

using Operations = std::vector<Operation>;

/// A member function of the object that `reach` finds. Its parameters are parsed, and its result is
/// printed.
template <class Reach, class Owner, class Result, class... Parameters>
Operation operation(std::string name, Reach reach, Result (Owner::*procedure)(Parameters...)) {
    return {std::move(name), [reach, procedure](Runner& runner, Arguments& arguments) -> Lines {
                // Braces keep the order of evaluation.
                std::tuple<std::decay_t<Parameters>...> values{
                    arguments.next<std::decay_t<Parameters>>()...};
                arguments.expectEnd();
                Owner& object = reach(runner);
                const auto call = [&](auto&... each) { return (object.*procedure)(each...); };
                if constexpr (std::is_void_v<Result>) {
                    std::apply(call, values);
                    return {};
                } else {
                    return answer(std::apply(call, values));
                }
            }};
}

// One table for each subject.
[[nodiscard]] Operations scoreOperations();
[[nodiscard]] Operations playbackOperations();
[[nodiscard]] Operations tableauOperations();
[[nodiscard]] Operations shellOperations();
[[nodiscard]] Operations frameOperations();
[[nodiscard]] Operations menuOperations();
[[nodiscard]] Operations setupOperations();
[[nodiscard]] Operations recordOperations();
[[nodiscard]] Operations editingOperations();
[[nodiscard]] Operations editingToolbarOperations();
[[nodiscard]] Operations tutorialOperations();

} // namespace transcript
