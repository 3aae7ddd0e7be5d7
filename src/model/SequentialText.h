// A text file read from front to back, a line of numbers at a time, in memory of a fixed size.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <iosfwd>
#include <string>
#include <string_view>

namespace velorin {

/// The start of a field of any length: only as much as its number needs. Leading blanks and leading
/// zeros are dropped. At most 400 characters are stored, more than the largest number has.
class FieldText {
public:
    void put(char c);
    void clear();
    [[nodiscard]] std::string_view text() const { return text_; }

private:
    static constexpr std::size_t most = 400;

    std::string text_;
    bool onlyZeros_ = false; ///< the digits so far are one zero
};

/// CR LF, CR and LF each end a line; the last line needs none. An error of the stream counts as the
/// end of the file. No call throws.
class SequentialText {
public:
    /// Field [0, most) and its value. Called only for a value that fits 16 bits.
    using Store = std::function<void(int field, std::int16_t value)>;

    /// `file` may be null, which counts as an empty file; else it outlives this object.
    explicit SequentialText(std::istream* file) : file_(file) {}

    [[nodiscard]] bool atEnd();

    /// Reads one line and splits it at commas; fields from `most` on are dropped. At the end of the
    /// file it stores nothing and returns false.
    ///
    /// Rule: a field's value is its numeric prefix, rounded; without digits it is 0. Held by
    /// score/reading_oddities.
    bool readFields(int most, const Store& store);

    /// Reads one line and drops it.
    bool skipLine();

    /// Reads one number, the blanks around it, and one line end if it follows. `text` gets the
    /// number as written, or stays empty if there is none. False at the end of the file.
    ///
    /// Rule: what follows the number on its line is read as the next line. Held by
    /// score/reading_oddities.
    bool readNumber(FieldText& text);

private:
    static constexpr int endOfFile = -1;

    /// The byte `ahead` [0, 3) places after the next one, or `endOfFile`.
    int peek(std::size_t ahead = 0);
    void next() { ++position_; } ///< only if `peek` is not `endOfFile`
    void skipBlanks();
    bool skipLineEnd();
    void takeDigits(FieldText& text);
    void takeExponent(FieldText& text);

    std::istream* file_;
    std::array<char, 4096> buffer_{};
    std::size_t position_ = 0;
    std::size_t end_ = 0;
};

} // namespace velorin
