// The dialog that asks for the name of a file to be written.
#pragma once

#include <QFileDialog>

#include <string>

namespace velorin::host {

/// Asks before a file is replaced. The question is about the file that will be written: the typed
/// name with the extension of the chosen filter.
class SaveDialog final : public QFileDialog {
public:
    /// `filters` in Qt's form, and the pattern of each: "*.mid", "*.sng".
    SaveDialog(const QString& title, const QString& folder, QStringList filters,
               QStringList patterns, bool asksBeforeReplacing);

    /// Writes a name into the field, and shows its folder if it has one that is there. All of it is
    /// selected, so that typing replaces it. Does nothing for an empty name.
    void propose(const QString& name);

    /// The name of the file to write, with its extension; empty if none was chosen.
    [[nodiscard]] QString chosenName() const;

    /// Shows the dialog until the user chooses a name that may be written. False if the user
    /// cancels or the program ends meanwhile.
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

/// The name with the extension of a pattern, "*.mid" or "*.mid *.midi", and without blanks at both
/// ends.
[[nodiscard]] std::string nameForPattern(const std::string& name, const std::string& pattern);

} // namespace velorin::host
