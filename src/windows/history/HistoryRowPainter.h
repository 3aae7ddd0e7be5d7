// Paints the rows of the History window's list.
#pragma once

#include "windows/history/HistoryModel.h"

#include <QIcon>
#include <QStyledItemDelegate>

#include <map>

namespace velorin {

/// An entry is 24 high, a day 22:
///
///     |bar| 14:34  (kind)  3 notes drawn on channel 1             (now) |
///     0   3 10     49      75                              ends at W - 10
class HistoryRowPainter : public QStyledItemDelegate {
    Q_OBJECT

public:
    HistoryRowPainter(const HistoryModel& model, QObject* parent);

    static constexpr int entryHeight = 24;
    static constexpr int dayHeight = 22;

    /// The state under the pointer; -1 for none.
    void setPointerRow(int row) { pointerRow_ = row; }
    [[nodiscard]] int pointerRow() const { return pointerRow_; }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override;
    /// The tip is the whole text of an entry that is cut off.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

private:
    struct Entry;
    struct Marks;

    [[nodiscard]] Entry entryOf(const QStyleOptionViewItem& option,
                                const HistoryModel::Line& line) const;
    void paintDay(QPainter& painter, const QRect& row, const QString& text) const;
    void paintEntry(QPainter& painter, const Entry& entry) const;
    void paintMarks(QPainter& painter, const Entry& entry) const;
    static void paintPicture(QPainter& painter, const QRect& place, const QIcon& icon,
                             const Entry& entry);
    /// Marks the letters that the filter has found.
    void paintText(QPainter& painter, const QRect& place, const QString& text, const QFont& font,
                   const QColor& colour) const;
    [[nodiscard]] const QIcon& kindIcon(const QString& kind) const;

    const HistoryModel& model_;
    int pointerRow_ = -1;
    std::map<QString, QIcon> kinds_; ///< each keeps its pixels for the scale of the screen
    QIcon unknown_;
};

} // namespace velorin
