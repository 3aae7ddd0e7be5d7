// Splits a command line, and reads numbers and names.
#include "Words.h"

#include <charconv>

namespace transcript {

namespace {

char escaped(char letter) {
    switch (letter) {
    case 'r':
        return '\r';
    case 'n':
        return '\n';
    case '0':
        return '\0';
    default:
        return letter;
    }
}

bool isKnownEscape(char letter) {
    return std::string_view("rn0\"\\").find(letter) != std::string_view::npos;
}

/// The quoted word whose opening quote is at `at`. Moves `at` past the closing quote.
std::string quotedWord(std::string_view line, std::size_t& at) {
    std::string word;
    for (++at; at < line.size(); ++at) {
        if (line[at] == '"') {
            ++at;
            return word;
        }
        const bool escapes =
            line[at] == '\\' && at + 1 < line.size() && isKnownEscape(line[at + 1]);
        if (escapes)
            word += escaped(line[++at]);
        else
            word += line[at];
    }
    throw CommandError("a quote is not closed");
}

} // namespace

Words splitWords(std::string_view line) {
    Words words;
    std::size_t at = 0;
    while (at < line.size()) {
        if (line[at] == ' ') {
            ++at;
        } else if (line[at] == '"') {
            words.push_back(quotedWord(line, at));
        } else {
            const std::size_t end = std::min(line.find(' ', at), line.size());
            words.emplace_back(line.substr(at, end - at));
            at = end;
        }
    }
    return words;
}

std::int64_t wholeNumber(const std::string& word) {
    std::int64_t number = 0;
    const char* begin = word.data() + (word.starts_with('+') ? 1 : 0);
    const char* end = word.data() + word.size();
    const auto [stop, error] = std::from_chars(begin, end, number);
    if (error != std::errc() || stop != end)
        throw CommandError("no whole number: " + word);
    return number;
}

int numberBetween(const std::string& word, std::int64_t low, std::int64_t high) {
    const std::int64_t number = wholeNumber(word);
    if (number < low || number > high)
        throw CommandError("number out of range: " + word);
    return static_cast<int>(number);
}

double realNumber(const std::string& word) {
    double number = 0;
    const char* begin = word.data() + (word.starts_with('+') ? 1 : 0);
    const char* end = word.data() + word.size();
    const auto [stop, error] = std::from_chars(begin, end, number, std::chars_format::fixed);
    if (error != std::errc() || stop != end)
        throw CommandError("no number: " + word);
    return number;
}

void expectWords(const Words& words, std::size_t least, std::size_t most) {
    if (words.size() < least)
        throw CommandError("too few words");
    if (words.size() > most)
        throw CommandError("too many words");
}

Name parseName(const std::string& word) {
    const std::size_t open = word.find('(');
    if (open == std::string::npos)
        return {word, {}};
    if (word.back() != ')')
        throw CommandError("no such name: " + word);
    Name name{word.substr(0, open), {}};
    std::size_t at = open + 1;
    while (at < word.size()) {
        const std::size_t end = word.find_first_of(",)", at);
        name.indices.push_back(plainNumber(word.substr(at, end - at)));
        at = end + 1;
    }
    return name;
}

} // namespace transcript
