// The parts of a row of the converter's list, and how they are painted.
#pragma once

#include "windows/converter/FileQueue.h"

#include <QIcon>
#include <QRect>
#include <QStyledItemDelegate>

#include <array>

namespace velorin {

enum class RowButton { openInVelorin, play, showInFolder, takeOut };
inline constexpr std::array rowButtons{RowButton::openInVelorin, RowButton::play,
                                       RowButton::showInFolder, RowButton::takeOut};

/// Its picture in the look, and its name for tips, menus and screen readers.
[[nodiscard]] const char* pictureOf(RowButton button);
[[nodiscard]] const char* nameOf(RowButton button);

/// True if a file in that state has the button.
[[nodiscard]] bool hasButton(FileState state, RowButton button);

/// The places of a row's parts, in the coordinates of `row`. 36 high, 742 wide in a window of 760:
///
///     | (state)  name                     result                          [o] [p] [f] |
///     |          words                    =======bar=======  62 %              [x]    |
///     0 11       39                       411                619          641 671 701
///
/// In a wider row the name and the result take what is added. In a narrower one the result gives
/// way.
struct RowParts {
    explicit RowParts(const QRect& row);

    QRect state;
    QRect name;
    QRect words;
    QRect result;
    QRect bar;
    QRect percent;
    [[nodiscard]] QRect button(RowButton button) const;

private:
    QRect row_;
};

/// Paints a row; its buttons only if they are no widgets, which they are on the cursor's row.
class FileRowPainter : public QStyledItemDelegate {
    Q_OBJECT

public:
    FileRowPainter(const FileQueue& queue, QObject* parent);

    static constexpr int rowHeight = 36;

    int pointerRow = -1; ///< under the pointer; -1 for none
    bool hasPointerButton = false;
    RowButton pointerButton = RowButton::takeOut; ///< under the pointer, if there is one
    bool isButtonHeld = false;                    ///< it is pressed
    bool showsAllButtons = true; ///< else only those of the cursor's row and under the pointer
    double turn = 0.0;           ///< of the picture of a file at work, degrees

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override;
    /// The tip of a button, else the path of the file and all its words.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

private:
    struct Entry;

    void paintState(QPainter& painter, const Entry& entry) const;
    static void paintTexts(QPainter& painter, const Entry& entry);
    static void paintBar(QPainter& painter, const Entry& entry);
    void paintButtons(QPainter& painter, const Entry& entry) const;

    const FileQueue& queue_;
    std::array<QIcon, 4> states_;
    std::array<QIcon, 4> buttons_;
};

} // namespace velorin
