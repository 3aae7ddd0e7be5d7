// The dialog that asks for the name of a file to be written.
#pragma once

#include <QFileDialog>

#include <string>

namespace velorin::host {

/// Asks before a file is replaced, about the file that is going to be written: the name that was
/// typed, with the ending of the chosen filter.
class SaveDialog final : public QFileDialog {
public:
    /// `filters` as Qt shows them, and the pattern of each: "*.mid", "*.sng".
    SaveDialog(const QString& title, const QString& folder, QStringList filters,
               QStringList patterns, bool asksBeforeReplacing);

    /// The name as it is written, with its ending; empty if none was chosen.
    [[nodiscard]] QString chosenName() const;

    /// Shows the dialog until a name is chosen that may be written. False on a cancel, and when the
    /// program ends meanwhile.
    [[nodiscard]] bool choose();

protected:
    void accept() override;

private:
    [[nodiscard]] bool isDrawnHere() const;
    [[nodiscard]] bool mayWrite();

    QStringList filters_;
    QStringList patterns_;
    bool asksBeforeReplacing_;
};

/// The name with the ending that a pattern wants, "*.mid" or "*.mid *.midi"; without blanks at its
/// end, as the program reads it.
[[nodiscard]] std::string nameForPattern(const std::string& name, const std::string& pattern);

} // namespace velorin::host
