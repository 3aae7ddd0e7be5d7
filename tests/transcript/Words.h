// Splits a command line into words and numbers.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace transcript {

using Words = std::vector<std::string>;
using Lines = std::vector<std::string>;

/// Why a command cannot run. Thrown and caught within one command; it never crosses code of the
/// program.
class CommandError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Splits at blanks. A word in double quotes may have blanks, and \r \n \0 \" \\ mean the same as
/// in C. Throws if a quote is not closed.
[[nodiscard]] Words splitWords(std::string_view line);

/// A whole decimal number with an optional sign. Throws for anything else.
[[nodiscard]] std::int64_t wholeNumber(const std::string& word);

/// The same, limited to [low, high].
[[nodiscard]] int numberBetween(const std::string& word, std::int64_t low, std::int64_t high);
[[nodiscard]] inline int plainNumber(const std::string& word) {
    return numberBetween(word, INT32_MIN, INT32_MAX);
}

/// A decimal number with an optional sign and fraction. Throws for anything else.
[[nodiscard]] double realNumber(const std::string& word);

/// Throws unless `words` has `least` to `most` entries.
void expectWords(const Words& words, std::size_t least, std::size_t most);
inline void expectWords(const Words& words, std::size_t count) {
    expectWords(words, count, count);
}

/// A name in a transcript: "Form3.TrackHide(3)" or "NoteArray(0,12)".
struct Name {
    std::string text;         ///< without the indices: "Form3.TrackHide"
    std::vector<int> indices; ///< empty if none were given
};
[[nodiscard]] Name parseName(const std::string& word);

} // namespace transcript
