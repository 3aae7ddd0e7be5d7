// The words of a command line, and the numbers among them.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace transcript {

using Words = std::vector<std::string>;
using Lines = std::vector<std::string>;

/// Why a command cannot be carried out. Thrown and caught within one command; it never crosses the
/// program's own code.
class CommandError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Splits at blanks. A word in double quotes may hold blanks, and in it \r \n \0 \" \\ stand for
/// what they stand for in C. Throws if a quote is not closed.
[[nodiscard]] Words splitWords(std::string_view line);

/// A whole decimal number with an optional sign, and nothing else. Throws otherwise.
[[nodiscard]] std::int64_t wholeNumber(const std::string& word);

/// The same within [low, high].
[[nodiscard]] int numberBetween(const std::string& word, std::int64_t low, std::int64_t high);
[[nodiscard]] inline int plainNumber(const std::string& word) {
    return numberBetween(word, INT32_MIN, INT32_MAX);
}

/// A decimal number with an optional sign and fraction, and nothing else. Throws otherwise.
[[nodiscard]] double realNumber(const std::string& word);

/// Throws unless `words` has from `least` to `most` entries.
void expectWords(const Words& words, std::size_t least, std::size_t most);
inline void expectWords(const Words& words, std::size_t count) {
    expectWords(words, count, count);
}

/// A name as it stands in a transcript: "Form3.TrackHide(3)" or "NoteArray(0,12)".
struct Name {
    std::string text;         ///< without the indices: "Form3.TrackHide"
    std::vector<int> indices; ///< empty if none were given
};
[[nodiscard]] Name parseName(const std::string& word);

} // namespace transcript
