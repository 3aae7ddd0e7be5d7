// The panel of the History window: the state under the pointer or the cursor.
#pragma once

#include "windows/history/HistoryModel.h"

#include <QFrame>
#include <QImage>
#include <QLabel>
#include <QPushButton>

#include <array>

namespace velorin {

struct StateSummary;

/// The tableau in small, with a border and rounded corners. In a low window its foot is cut off.
class StatePicture : public QWidget {
    Q_OBJECT

public:
    StatePicture(QWidget* parent, QRect place);

    static constexpr QSize fullSize{224, 140}; ///< with its border

    void setImage(const QImage& image); ///< at device resolution; empty for none
    /// The device pixels inside the border of the full size.
    [[nodiscard]] QSize imageSize() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QImage image_;
};

/// The picture gives way in a low window; the buttons stay at the foot.
class StatePanel : public QFrame {
    Q_OBJECT

public:
    explicit StatePanel(QWidget* parent);

    static constexpr int panelWidth = 252;

    /// Time and description; null for no state. The picture and the rest stay until `showSummary`.
    void showLine(const HistoryModel& model, const HistoryModel::Line* line);
    void showSummary(const StateSummary& summary);

    StatePicture* picture;
    QPushButton* goBack;
    QPushButton* save;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void clearSummary();
    void placeRow(std::size_t place);
    void showRow(std::size_t place, int row, int instrument);
    void showRows(const StateSummary& summary);

    QLabel* time_;
    QLabel* what_;
    QLabel* figures_;
    QLabel* heading_;
    std::array<QWidget*, 2> chips_{}; ///< null where no row is named
    std::array<QLabel*, 2> names_{};
    int rowsTop_ = 240;
};

} // namespace velorin
