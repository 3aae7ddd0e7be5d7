// Tells screen readers what the pen meets and does in the tableaux.
#pragma once

#include "windows/pen/Place.h"
#include "windows/reader/PenSound.h"
#include "windows/reader/TableauCells.h"

#include <QObject>
#include <QString>

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace velorin {

class Form1;
class Pen;
class Session;
struct Score;

/// The tableaux become tables for screen readers, whose cells can be pressed. Everything is done by
/// the pen. What a move or a press did is the name of the pen's cell until the next one. A child of
/// the main window. User-interface thread.
class TableauReader : public QObject {
    Q_OBJECT

public:
    /// All outlive this. Takes `onMoved` and `onReleased` of the pen.
    TableauReader(Session& session, Form1& form, Pen& pen);
    ~TableauReader() override;

    /// The commands of the keys.
    void toggleSound();
    void sayWhere();

    /// Shows a line to all users.
    std::function<void(const std::string& line)> onLine;

    /// True while a screen reader runs. Without one the score is not copied before a press.
    std::function<bool()> isHeard = &QAccessible::isActive;

private:
    void penMoved(const Place& to);
    void penReleased(const Place& released);
    void otherReleased();
    void act(Tableau tableau, ScreenCell cell, CellAction action);
    [[nodiscard]] bool moveTo(const Place& target);
    void press(int button, bool thenReleases);
    void remember(const Spot& pressed);
    [[nodiscard]] QString strokeDone();
    void say(const QString& words, bool hasMoved);
    void announce(const QString& words);
    [[nodiscard]] TableauCells& cellsOf(Tableau tableau);
    [[nodiscard]] SpotContent contentAt(const Spot& spot);
    [[nodiscard]] QString fullWords(const Spot& spot);
    [[nodiscard]] Spot spotOf(const Place& place);
    [[nodiscard]] std::optional<ScreenCell> cursorIn(Tableau tableau) const;
    [[nodiscard]] QString cursorWords();
    [[nodiscard]] QString playingWords() const;

    Session& session_;
    Form1& form_;
    Pen& pen_;
    PenSound sound_;
    std::array<TableauCells*, 3> cells_{}; ///< children of the tableaux
    std::unique_ptr<Score> before_;        ///< the score before the press; null without a reader
    Spot pressed_;                         ///< of that press
    std::optional<Spot> spot_;             ///< where the pen was last
    QString said_;                         ///< of that place
    std::uint64_t changes_ = 0;            ///< of the score at that time
};

} // namespace velorin
