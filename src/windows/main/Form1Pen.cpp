// The pen of the main window.
#include "windows/frame/ToolWindows.h"
#include "windows/main/Form1.h"
#include "windows/pen/Pen.h"
#include "windows/strip/PressWords.h"
#include "windows/strip/StateWatch.h"

#include <array>
#include <optional>
#include <utility>

namespace velorin {

/// Called before the window itself watches the strip: its keys come first there.
void Form1::connectPen() {
    pen = std::make_unique<Pen>(
        PenSheet{*area->MusicBox, *area->Beatbox, *area->Pic1, *area->HScroll1, *area->VScroll1});
    pen->onFocusNeeded = [this](QWidget& box) { windows_.focus.give(&box); };
    pen->onRefused = [this] {
        state->beginPress();
        state->say(lockedSentence());
    };
    pen->onChanged = [this] {
        const std::optional<Place> place =
            pen->isShown() ? std::optional(pen->place()) : std::nullopt;
        const std::array boxes{std::pair{Tableau::music, area->MusicBox},
                               std::pair{Tableau::strip, area->Beatbox},
                               std::pair{Tableau::lanes, area->Pic1}};
        for (const auto& [tableau, box] : boxes)
            box->setHasPen(place && place->tableau == tableau);
        state->followPen(place ? std::optional(place->column) : std::nullopt);
    };
}

} // namespace velorin
