// The menu of the strip's arrow: what the window is too narrow to show.
#pragma once

#include <QMenu>
#include <QString>

#include <functional>
#include <vector>

namespace velorin {

struct OverflowEntry {
    QString text;    ///< empty for a separator
    QString keys;    ///< "Ctrl+Z"; empty for none
    QString picture; ///< of the look, by its file name
    bool isEnabled = true;
    int command = 0; ///< given to `onChosen`

    [[nodiscard]] bool isSeparator() const { return text.isEmpty(); }
};

/// Entries with a picture at the left and the keys at the right. Does not block.
class OverflowMenu : public QMenu {
    Q_OBJECT

public:
    OverflowMenu(QWidget* parent, const std::vector<OverflowEntry>& entries);

    /// Below `arrow`, moved to the left if the screen ends.
    void openBelow(const QWidget& arrow);

    static constexpr int menuWidth = 224;

    /// Called with the command of the chosen entry, while the menu still closes.
    std::function<void(int command)> onChosen;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void paintEntry(QPainter& painter, QAction& action) const;
};

} // namespace velorin
