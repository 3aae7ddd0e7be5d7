// velorin-random-pen: makes random drawings with the keys of the pen, repeats them with the mouse,
// and compares cells, MIDI messages and pictures after each.
#include "Hands.h"

#include "windows/frame/Look.h"

#include <QApplication>

#include <algorithm>
#include <array>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

using namespace randomly;

struct Wanted {
    int drawings = 1000;
    unsigned seed = 1;
};

bool readArguments(int count, char** words, Wanted& wanted) {
    for (int i = 1; i + 1 < count; i += 2) {
        if (std::strcmp(words[i], "--drawings") == 0)
            wanted.drawings = std::atoi(words[i + 1]);
        else if (std::strcmp(words[i], "--seed") == 0)
            wanted.seed = static_cast<unsigned>(std::strtoul(words[i + 1], nullptr, 10));
        else
            return false;
    }
    return count % 2 == 1 && wanted.drawings > 0;
}

Drawing anyDrawing(Chance& chance) {
    using velorin::Tableau;
    static constexpr std::array tableaux{Tableau::music, Tableau::music, Tableau::strip,
                                         Tableau::lanes};
    Drawing drawing;
    const int settings = std::max(0, chance.below(5) - 2);
    for (int i = 0; i < settings; ++i)
        drawing.settings.push_back(
            {static_cast<Setting::Kind>(chance.below(static_cast<int>(Setting::Kind::count))),
             chance.below(10'000)});
    drawing.tableau = chance.among(tableaux);
    drawing.button = chance.percent(70) ? 1 : 2;
    drawing.isWhilePlaying = chance.percent(10);
    return drawing;
}

/// The lines that differ.
void report(const std::string& pen, const std::string& mouse) {
    const auto next = [](const std::string& text, std::size_t& from) {
        const std::size_t to = std::min(text.find('\n', from), text.size());
        const std::string line = text.substr(from, to - from);
        from = std::min(to + 1, text.size());
        return line;
    };
    for (std::size_t p = 0, m = 0; p < pen.size() || m < mouse.size();) {
        const std::string one = next(pen, p);
        const std::string other = next(mouse, m);
        if (one != other)
            std::fprintf(stderr, "  pen:   %s\n  mouse: %s\n", one.c_str(), other.c_str());
    }
}

/// The number of drawings that are equal.
int compare(const std::vector<Drawing>& drawings, const std::vector<std::string>& pen,
            const std::vector<std::string>& mouse) {
    for (std::size_t i = 0; i < drawings.size(); ++i) {
        for (const std::size_t look : {2 * i, 2 * i + 1}) {
            if (look < pen.size() && look < mouse.size() && pen[look] == mouse[look])
                continue;
            std::fprintf(stderr, "drawing %zu differs %s its release: %s\n", i + 1,
                         look % 2 == 0 ? "before" : "after", drawings[i].text().c_str());
            if (look < pen.size() && look < mouse.size())
                report(pen[look], mouse[look]);
            return static_cast<int>(i);
        }
    }
    return static_cast<int>(drawings.size());
}

/// What the drawings did, so that a run that draws nothing is seen.
void tally(const std::vector<Drawing>& drawings, const std::vector<std::string>& looks) {
    int changed = 0;
    int sounding = 0;
    int dragged = 0;
    int scrolled = 0;
    for (std::size_t i = 0; i < drawings.size(); ++i) {
        const auto cells = [&](std::size_t look) {
            return looks[look].substr(0, looks[look].find("\nrow "));
        };
        changed += i > 0 && cells(2 * i + 1) != cells(2 * i - 1) ? 1 : 0;
        sounding += looks[2 * i].find("\nMIDI;") != std::string::npos ? 1 : 0;
        dragged += drawings[i].path.empty() ? 0 : 1;
        scrolled += drawings[i].scrolled != std::array<int, 2>{} ? 1 : 0;
    }
    std::printf("%d changed cells, %d sounded, %d were dragged, %d scrolled first\n", changed,
                sounding, dragged, scrolled);
}

} // namespace

int main(int argc, char** argv) {
    Wanted wanted;
    if (!readArguments(argc, argv, wanted)) {
        std::fprintf(stderr, "usage: velorin-random-pen [--drawings N] [--seed N]\n");
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    int count = 1;
    QApplication application(count, argv);
    std::setlocale(LC_NUMERIC, "C");
    velorin::applyLook(application);

    Chance chance(wanted.seed);
    std::vector<Drawing> drawings;
    std::vector<std::string> withPen;
    {
        DrawingStage stage;
        PenHand pen(stage, wanted.seed + 1);
        for (int i = 0; i < wanted.drawings; ++i) {
            drawings.push_back(anyDrawing(chance));
            stage.draw(drawings.back(), pen);
        }
        withPen = stage.looks;
    }
    DrawingStage stage;
    MouseHand mouse(stage, wanted.seed + 2);
    for (Drawing drawing : drawings)
        stage.draw(drawing, mouse);
    const int equal = compare(drawings, withPen, stage.looks);
    tally(drawings, withPen);
    std::printf("%d of %d drawings are equal, seed %u\n", equal, wanted.drawings, wanted.seed);
    return equal == wanted.drawings ? 0 : 1;
}
