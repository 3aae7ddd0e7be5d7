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

/// The beginning of a field: as much of it as its number needs, however long it is. Blanks before
/// the number and needless zeros at its front take no room; a number is told apart up to 400
/// characters, far beyond the largest number there is.
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

/// CR LF, CR and LF each end a line; the last line needs no end. An error of the stream is the end
/// of the file. No call throws.
class SequentialText {
public:
    /// Field [0, most) and its value; called only for a value that 16 bits can hold.
    using Store = std::function<void(int field, std::int16_t value)>;

    /// `file` may be null, which counts as an empty file; else it outlives this object.
    explicit SequentialText(std::istream* file) : file_(file) {}

    [[nodiscard]] bool atEnd();

    /// Reads one line and splits it at commas; fields from `most` on are dropped. A field's value
    /// is its numeric prefix, rounded; 0 without digits. At the end of the file nothing is stored,
    /// and the answer is false.
    bool readFields(int most, const Store& store);

    /// Reads one line and drops it.
    bool skipLine();

    /// Reads one number with the blanks around it and, if it follows, one line end. Whatever else
    /// follows stays to be read as the next line. `text` gets the number as it stands, which is
    /// empty if there is none. False at the end of the file.
    bool readNumber(FieldText& text);

private:
    static constexpr int endOfFile = -1;

    /// The byte that lies `ahead` of the next one, [0, 3); or `endOfFile`.
    int peek(std::size_t ahead = 0);
    void next() { ++position_; } ///< behind a `peek` that was no end
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
