// Converts rows of text to cells and back.
#include "Songs.h"

#include <sstream>

namespace velorin::test {

void putRow(Score& score, int row, const std::string& cells, int instrument) {
    std::istringstream text(cells);
    std::string cell;
    for (int column = 0; std::getline(text, cell, ','); ++column) {
        const auto value = static_cast<std::int16_t>(std::stoi(cell));
        score.NoteArray.write(row, column, value);
        if (!isEmpty(value))
            score.InstrumentArray.write(row, column, static_cast<std::int16_t>(instrument));
    }
}

std::string times(int count, const std::string& text) {
    std::string all;
    for (int i = 0; i < count; ++i)
        all += text;
    return all;
}

std::string gridLines(const std::string& notes, const std::string& instruments) {
    return notes + "\r\n" + instruments + "\r\n" + times(12, "-1\r\n0\r\n");
}

} // namespace velorin::test
