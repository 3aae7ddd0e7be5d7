// A drop-down list whose open rows are high enough to hit.
#pragma once

#include <QComboBox>

namespace velorin {

/// Opens with rows of 24 pixels, up to 18 of them, and the current entry in the middle of a longer
/// list. The texts begin where that of the closed field does.
class DropDownList : public QComboBox {
    Q_OBJECT

public:
    explicit DropDownList(QWidget* parent);

    static constexpr int mostRows = 18;

    void showPopup() override;

protected:
    void changeEvent(QEvent* event) override;

private:
    bool hasRows_ = false; ///< the open list was prepared by its first opening
};

} // namespace velorin
