// The list of states in the History window: cursor, pointer and keys.
#pragma once

#include <QListView>

#include <cstdint>
#include <functional>

namespace velorin {

class HistoryModel;
class HistoryRowPainter;

/// The cursor never stands on a day. The pointer counts once it has moved; a key takes it out of
/// the game until it moves again, so that keys act on what the panel shows.
class HistoryList : public QListView {
    Q_OBJECT

public:
    HistoryList(HistoryModel& model, QWidget* parent);

    /// The entry under the pointer, else that of the cursor; 0 for none.
    [[nodiscard]] std::int64_t shownId() const;
    [[nodiscard]] std::int64_t cursorId() const;
    void setCursorTo(std::int64_t id); ///< 0 or an entry that is not shown: the first one
    void forgetPointer();

    /// Calls `change`, which may replace all rows. The cursor stays on its entry, and so does the
    /// entry at the top, unless the list is at its beginning.
    void keepPlaceDuring(const std::function<void()>& change);

    std::function<void()> onShown;                    ///< `shownId` may have changed
    std::function<void()> onChosen;                   ///< a double click on an entry
    std::function<void(const QString& text)> onTyped; ///< letters, for the filter
    QString emptyText;                                ///< shown while there are no rows

protected:
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    void setPointerRow(int row);
    /// The next entry from `row` on, in steps of 1 or -1; -1 if there is none.
    [[nodiscard]] int entryFrom(int row, int step) const;
    void tellShown() const;

    HistoryModel& model_;
    HistoryRowPainter* painter_;
    bool isChanging_ = false;
};

} // namespace velorin
