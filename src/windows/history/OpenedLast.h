// The list "Opened last" of the History window.
#pragma once

#include "windows/frame/DropDownList.h"

#include <functional>
#include <string>
#include <vector>

namespace velorin {

/// Always shows its caption. Opening a score replaces the current one, so only a choice in the open
/// list counts: arrow keys and the wheel choose nothing while it is closed.
class OpenedLast : public DropDownList {
    Q_OBJECT

public:
    explicit OpenedLast(QWidget* parent);

    /// The paths of scores. Disabled if there are none.
    void setScores(const std::vector<std::string>& paths);
    [[nodiscard]] const std::vector<std::string>& scores() const { return paths_; }

    std::function<void(const std::string& path)> onChosen;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    std::vector<std::string> paths_;
};

} // namespace velorin
