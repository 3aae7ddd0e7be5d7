// Reads lines, fields and numbers through a small buffer.
#include "model/SequentialText.h"

#include "platform/Text.h"

#include <algorithm>
#include <istream>

namespace velorin {

namespace {

bool isDigit(int c) {
    return c >= '0' && c <= '9';
}

bool isSign(int c) {
    return c == '+' || c == '-';
}

bool isExponentSign(int c) {
    return c == 'e' || c == 'E' || c == 'd' || c == 'D';
}

} // namespace

void FieldText::put(char c) {
    const bool begins = text_.empty() || (text_.size() == 1 && isSign(text_.front()));
    if (c == ' ' && text_.empty())
        return;
    if (onlyZeros_ && isDigit(c)) {
        if (c == '0')
            return;
        text_.pop_back();
    }
    onlyZeros_ = begins && c == '0';
    if (text_.size() < most)
        text_ += c;
}

void FieldText::clear() {
    text_.clear();
    onlyZeros_ = false;
}

// `istream::read` catches what its buffer may throw on a failing disk.
int SequentialText::peek(std::size_t ahead) {
    if (position_ + ahead >= end_ && file_ != nullptr) {
        std::copy(buffer_.begin() + static_cast<std::ptrdiff_t>(position_),
                  buffer_.begin() + static_cast<std::ptrdiff_t>(end_), buffer_.begin());
        end_ -= position_;
        position_ = 0;
        file_->read(buffer_.data() + end_, static_cast<std::streamsize>(buffer_.size() - end_));
        end_ += static_cast<std::size_t>(file_->gcount());
    }
    if (position_ + ahead >= end_)
        return endOfFile;
    return static_cast<unsigned char>(buffer_[position_ + ahead]);
}

bool SequentialText::atEnd() {
    return peek() == endOfFile;
}

void SequentialText::skipBlanks() {
    while (peek() == ' ')
        next();
}

bool SequentialText::skipLineEnd() {
    const int c = peek();
    if (c != '\r' && c != '\n')
        return false;
    next();
    if (c == '\r' && peek() == '\n')
        next();
    return true;
}

bool SequentialText::readFields(int most, const Store& store) {
    if (atEnd())
        return false;
    FieldText text;
    int field = 0;
    const auto finishField = [&] {
        if (field >= most)
            return;
        if (const auto value = platform::readInt16(text.text()))
            store(field, *value);
        text.clear();
        ++field;
    };
    while (!skipLineEnd() && !atEnd()) {
        const char c = static_cast<char>(peek());
        next();
        if (c == ',')
            finishField();
        else if (field < most)
            text.put(c);
    }
    finishField();
    return true;
}

bool SequentialText::skipLine() {
    return readFields(0, [](int, std::int16_t) {});
}

void SequentialText::takeDigits(FieldText& text) {
    for (; isDigit(peek()); next())
        text.put(static_cast<char>(peek()));
}

// An exponent counts only with digits: in "2ex" the number is 2, and "ex" is left.
void SequentialText::takeExponent(FieldText& text) {
    if (!isExponentSign(peek()))
        return;
    const bool hasSign = isSign(peek(1));
    if (!isDigit(peek(hasSign ? 2 : 1)))
        return;
    for (int characters = hasSign ? 2 : 1; characters > 0; --characters) {
        text.put(static_cast<char>(peek()));
        next();
    }
    takeDigits(text);
}

bool SequentialText::readNumber(FieldText& text) {
    if (atEnd())
        return false;
    skipBlanks();
    if (isSign(peek())) {
        text.put(static_cast<char>(peek()));
        next();
    }
    takeDigits(text);
    if (peek() == '.') {
        text.put('.');
        next();
        takeDigits(text);
    }
    if (std::any_of(text.text().begin(), text.text().end(), isDigit))
        takeExponent(text);
    skipBlanks();
    skipLineEnd();
    return true;
}

} // namespace velorin
