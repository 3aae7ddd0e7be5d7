// The free part of the strip: Undo, Redo, History, Export, the line of state and the arrow.
#pragma once

#include "windows/frame/PictureButton.h"
#include "windows/strip/OverflowMenu.h"
#include "windows/strip/StripPlan.h"

#include <QObject>
#include <QString>

#include <array>
#include <functional>
#include <string>
#include <vector>

namespace velorin {

class StateLine;

/// The order of the buttons.
enum class StripCommand { undo, redo, history, exporting };

/// Owned by the main window. The buttons are children of the strip, `arrowInTitle` of the window.
class StripTools : public QObject {
    Q_OBJECT

public:
    /// Neither the buttons nor the line are placed before `layOut`.
    StripTools(QWidget& window, QWidget& strip);

    std::array<PictureButton*, stripButtons> buttons{};
    StateLine* line;
    PictureButton* arrow;        ///< in the strip
    PictureButton* arrowInTitle; ///< in the title bar of a very narrow window

    void layOut(const StripPlan& plan, int windowWidth);
    [[nodiscard]] const StripPlan& plan() const { return plan_; }

    [[nodiscard]] PictureButton& button(StripCommand command) const;
    /// What the next step does, as the history words it, and whether the tableaux are locked.
    ///
    /// A step that is not possible disables its button.
    void showSteps(const std::string& undo, const std::string& redo, bool isLocked);

    /// Disables or enables a button without losing the focus. Must be set.
    std::function<void(QWidget& button, bool enabled)> enable;
    std::function<void(StripCommand)> onCommand;
    /// The described buttons that the edge of the window cuts, as entries for the menu.
    std::function<std::vector<OverflowEntry>()> cutButtons;
    /// The user has chosen one of these entries.
    std::function<void(int command)> onCutButton;

private:
    void showStep(StripCommand command, const std::string& text, bool isLocked);
    void openMenu(PictureButton& from);
    void run(int command);
    [[nodiscard]] std::vector<OverflowEntry> entries() const;

    StripPlan plan_;
};

} // namespace velorin
