// Notes as paths: the heads of a row are the dots of one path, drawn three times.
#include "convert/page/SheetDrawing.h"

#include "convert/page/PageText.h"
#include "model/NoteTables.h"
#include "model/Score.h"

#include <algorithm>
#include <initializer_list>
#include <string_view>

namespace velorin::convert {

namespace {

// A note of three columns with the ring of a chord, in cells of 12 by 12 pixels:
//
//        x  +2         +11                           +36
//     y      . ring .
//    +4   ( o highlight  )=================================      the length bar, 4 high
//    +8   (   head       )=================================
//            . . . .
//
// A row is one path, in cells: "M5 2h3" is a note in column 5 on line 2, three columns long. The
// style sheet draws it four times: as bars, and with dashes of no length and round ends, which are
// dots at the beginning of each note, as the edge, the head and the highlight.

constexpr int cellPx = 12;
constexpr int rulerPx = 22;
constexpr int namesPx = 30;
constexpr int tileColumns = 48;

std::string number(int value) {
    return std::to_string(value);
}

int sheetHeightPx(const SheetLayout& layout) {
    return (layout.stripLines + layout.lines) * cellPx;
}

std::string size(int width, int height) {
    return joined({" width=\"", number(width), "\" height=\"", number(height), "\""});
}

// White with grey bands, the green strip, and the bar lines.
std::string groundOf(const SheetLayout& layout) {
    const std::string height = number(sheetHeightPx(layout));
    const int strip = layout.stripLines * cellPx;
    const std::string width = number(tileColumns * cellPx);
    std::string out = joined({"<g id=\"ground\"><path fill=\"#fff\" d=\"M0 0h", width, "v", height,
                              "H0\"/><path fill=\"#e0e0e0\" d=\""});
    for (int line = 0; line < layout.lines; ++line) {
        const auto name = NoteName(layout.topPitch + line);
        if (name && name->back() == '#')
            out += joined({"M0 ", number(strip + line * cellPx), "h", width, "v12H0"});
    }
    out += "\"/>";
    if (strip > 0)
        out += joined({"<path fill=\"#c0ffc0\" d=\"M0 0h", width, "v", number(strip), "H0\"/>"});
    out += "<path fill=\"#4cf\" d=\"";
    for (int column = 0; column < tileColumns; column += columnsOfSheetBar)
        out += joined({"M", number(column * cellPx), " 0h1v", height, "h-1"});
    return out + "\"/></g>";
}

/// Draws one row in one tile.
class RowDrawing {
public:
    RowDrawing(const SheetLayout& layout, const Score& score, int firstColumn, int columns)
        : layout_(layout), score_(score), first_(firstColumn), columns_(columns) {}

    // A held cell without a start begins a note, as in the tableaux.
    std::string draw(int row) {
        notes_.clear();
        rings_.clear();
        for (int column = 0; column <= first_ + columns_ && column < scoreColumns; ++column) {
            const int cell = score_.NoteArray.at(row, column);
            if (isEmpty(cell))
                continue;
            int end = column + 1;
            while (end < scoreColumns && isHeld(score_.NoteArray.at(row, end)))
                ++end;
            if (end > first_)
                addNote(row, column, end, lineOf(row, pitchOf(cell)));
            column = end - 1;
        }
        return markup(row);
    }

private:
    // As in the window, a beat below the strip is drawn on its last line.
    [[nodiscard]] int lineOf(int row, int pitch) const {
        if (!isMusicRow(row))
            return std::clamp(pitch - layout_.stripTopPitch, 0, layout_.stripLines - 1);
        return layout_.stripLines + std::min(pitch, lastPitch) - layout_.topPitch;
    }

    // A note from an earlier tile begins a column before this one, where its head is not seen. A
    // ring reaches into the tile before its note.
    void addNote(int row, int column, int end, int line) {
        const bool isMarked = isMusicRow(row) && score_.PolyArray.read(row + 1, column + 1) == 1;
        if (isMarked && column >= first_)
            rings_ += joined({"M", number(column - first_), " ", number(line), "h0"});
        const int left = std::max(column - first_, -1);
        const int right = std::min(end - first_, columns_);
        if (left < columns_)
            notes_ += joined({"M", number(left), " ", number(line), "h", number(right - left)});
    }

    // Ids are unique in a page. Their names and those of the classes are short, since a long song
    // has many.
    [[nodiscard]] std::string markup(int row) const {
        if (notes_.empty() && rings_.empty())
            return {};
        const std::string id = number(first_ / tileColumns * scoreRows + row);
        return joined({"<g class=\"c", number(row), "\">",
                       drawn(joined({"r", id}), rings_, {"k", "i"}),
                       drawn(joined({"n", id}), notes_, {"b", "e", "h", "l"}), "</g>"});
    }

    static std::string drawn(const std::string& id, const std::string& path,
                             std::initializer_list<std::string_view> layers) {
        if (path.empty())
            return {};
        std::string out = joined({"<defs><path id=\"", id, "\" d=\"", path, "\"/></defs>"});
        for (const std::string_view layer : layers)
            out += joined({"<use class=\"", layer, "\" href=\"#", id, "\"/>"});
        return out;
    }

    const SheetLayout& layout_;
    const Score& score_;
    int first_;
    int columns_;
    std::string notes_;
    std::string rings_;
};

std::string rulerOf(int first, int columns) {
    std::string out = "<div class=\"ruler\" aria-hidden=\"true\">";
    for (int column = first; column < first + columns; column += columnsOfSheetBar)
        out += joined({"<b>", number(column + 1), "</b>"});
    return out + "</div>";
}

} // namespace

std::string namesDrawing(const SheetLayout& layout) {
    std::string out =
        joined({"<svg class=\"names\"", size(namesPx, rulerPx + sheetHeightPx(layout)),
                " aria-hidden=\"true\"><defs>", groundOf(layout), "</defs><g id=\"names\">"});
    const auto text = [&out](int y, const std::string& words) {
        out += joined({"<text x=\"27\" y=\"", number(y), "\">", words, "</text>"});
    };
    constexpr int baselinePx = 9;
    // As wide as it may be in any font.
    if (layout.stripLines > 0)
        out += joined({"<text x=\"27\" y=\"",
                       number(rulerPx + (layout.stripLines - 1) * cellPx / 2 + baselinePx),
                       "\" textLength=\"25\" lengthAdjust=\"spacingAndGlyphs\">Drums</text>"});
    for (int line = 0; line < layout.lines; ++line)
        text(rulerPx + (layout.stripLines + line) * cellPx + baselinePx,
             NoteName(layout.topPitch + line).value_or(""));
    return out + "</g></svg>";
}

std::string tilesDrawing(const SheetLayout& layout, const Score& score) {
    const int height = sheetHeightPx(layout);
    std::string out;
    for (int first = 0; first < layout.columns; first += tileColumns) {
        const int columns = std::min(tileColumns, layout.columns - first);
        out += joined(
            {"<div class=\"line\"><svg class=\"names again\"", size(namesPx, rulerPx + height),
             "><use href=\"#names\"/></svg><div class=\"part\">", rulerOf(first, columns),
             "<svg class=\"tile\"", size(columns * cellPx, height), "><use href=\"#ground\"/>"});
        RowDrawing rows(layout, score, first, columns);
        for (int row = musicRows - 1; row >= 0; --row)
            out += rows.draw(row);
        for (int row = firstPercussionRow; row < scoreRows; ++row)
            out += rows.draw(row);
        out += "</svg></div></div>\n";
    }
    return out;
}

} // namespace velorin::convert
