// The list of files in the converter's window: cursor, pointer, keys, and the buttons of rows.
#pragma once

#include "windows/converter/FileRow.h"

#include <QListView>
#include <QTimer>
#include <QToolButton>

#include <array>
#include <functional>

namespace velorin {

/// The buttons of the cursor's row are widgets, so the Tab key and screen readers reach them. Those
/// of the other rows are painted and take the mouse only. The widgets are children of the window,
/// above the list: screen readers find no widgets in a list.
class FileList : public QListView {
    Q_OBJECT

public:
    FileList(FileQueue& queue, QWidget* parent);

    /// While files hang over the window: the border is sky.
    void setHot(bool hot);
    /// In a narrow window only the cursor's row and that under the pointer show buttons.
    void showAllButtons(bool all);
    /// Also called when a row has changed.
    void placeButtons();
    void openMenu(QPoint place); ///< of the cursor's row; on the screen

    std::function<void(int row, RowButton button)> onButton;
    std::function<void()> onCursor; ///< the cursor is on another row

    std::array<QToolButton*, 4> buttons{}; ///< of the cursor's row, in the order of `rowButtons`

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void updateGeometries() override;

private:
    void makeButtons();
    void press(int row, RowButton button);
    void follow(QPoint place);
    void turnPictures();
    [[nodiscard]] bool isAnimated() const;

    FileQueue& queue_;
    FileRowPainter* painter_;
    QTimer turning_;
    bool isHot_ = false;
    int heldRow_ = -1; ///< whose painted button is pressed; -1 for none
    RowButton heldButton_ = RowButton::takeOut;
};

} // namespace velorin
